#include "tests/calendar/event_fixture.h"
#include "tests/support/fault_sweep.h"

namespace zef::test {
namespace {

const Date kFirstOfMay = On("5/1/2024 9:00:00 AM");
const Date kAMinuteLater = On("5/1/2024 9:01:00 AM");
const Date kAWeekLater = On("5/8/2024 9:00:00 AM");

class SeenEvents : public EventTest {
 protected:
  SeenEvents() {
    session->UserID = 3;
    event_ = NewEvent();
  }
  /// Whether the event is to be shown at a date; the look-up must work.
  bool ToShow(Date date) {
    bool show = false;
    EXPECT_TRUE(event_->SeenByUser(date, show));
    return show;
  }

  Ref<CEvent> event_;
};

TEST_F(SeenEvents, EventWithoutMarksIsToBeShown) { EXPECT_TRUE(ToShow(kFirstOfMay)); }

TEST_F(SeenEvents, MarkedOccurrenceIsNotToBeShown) {
  EXPECT_TRUE(event_->MarkSeenByUser(kFirstOfMay));
  EXPECT_FALSE(ToShow(kFirstOfMay));
}

TEST_F(SeenEvents, OccurrenceAMinuteLaterIsToBeShown) {
  ASSERT_TRUE(event_->MarkSeenByUser(kFirstOfMay));
  EXPECT_TRUE(ToShow(kAMinuteLater));
}

TEST_F(SeenEvents, OccurrenceAFractionOfASecondLaterIsToBeShown) {
  ASSERT_TRUE(event_->MarkSeenByUser(kFirstOfMay));
  EXPECT_TRUE(ToShow(Date(kFirstOfMay.value() + 0.3 / 86400)));
}

TEST_F(SeenEvents, OccurrenceAWeekLaterIsToBeShown) {
  ASSERT_TRUE(event_->MarkSeenByUser(kFirstOfMay));
  EXPECT_TRUE(ToShow(kAWeekLater));
}

TEST_F(SeenEvents, EveryMarkCountsWhateverFollows) {
  ASSERT_TRUE(event_->MarkSeenByUser(kFirstOfMay));
  ASSERT_TRUE(event_->MarkSeenByUser(kAMinuteLater));
  ASSERT_TRUE(event_->MarkSeenByUser(kAWeekLater));
  EXPECT_FALSE(ToShow(kFirstOfMay));
  EXPECT_FALSE(ToShow(kAMinuteLater));
  EXPECT_FALSE(ToShow(kAWeekLater));
}

TEST_F(SeenEvents, EverySecondOfADayIsFoundAgain) {
  ASSERT_TRUE(session->BeginTransaction());
  int lost = 0;
  for (int second = 1; second < 86400; second += 977) {
    const Date date(kFirstOfMay.YearMonthDay(), second);
    ASSERT_TRUE(event_->MarkSeenByUser(date));
    lost += ToShow(date) ? 1 : 0;
  }
  EXPECT_EQ(lost, 0);
}

TEST_F(SeenEvents, MarkOfOneUserLeavesTheEventForAnother) {
  ASSERT_TRUE(event_->MarkSeenByUser(kFirstOfMay));
  session->UserID = 4;
  EXPECT_TRUE(ToShow(kFirstOfMay));
}

TEST_F(SeenEvents, MarkOfOneEventLeavesAnother) {
  ASSERT_TRUE(event_->MarkSeenByUser(kFirstOfMay));
  event_->ID = 99;
  EXPECT_TRUE(ToShow(kFirstOfMay));
}

TEST_F(SeenEvents, MarkWithoutADateMatchesNothing) {
  Run("INSERT INTO ViewedEvents (VE_EventID,VE_UserID) VALUES (1,3)");
  EXPECT_TRUE(ToShow(kFirstOfMay));
  EXPECT_TRUE(ToShow(Date()));
}

TEST_F(SeenEvents, SecondMarkOfADateAddsARow) {
  EXPECT_TRUE(event_->MarkSeenByUser(kFirstOfMay));
  EXPECT_TRUE(event_->MarkSeenByUser(kFirstOfMay));
  EXPECT_EQ(Rows("ViewedEvents"), 2);
  EXPECT_FALSE(ToShow(kFirstOfMay));
}

TEST_F(SeenEvents, LookUpSendsOneSelect) {
  ToShow(kFirstOfMay);
  EXPECT_EQ(SentInAll(), Texts{"SELECT * FROM ViewedEvents WHERE VE_EventID=1 AND VE_UserID=3"});
}

TEST_F(SeenEvents, MarkSendsOneInsert) {
  ASSERT_TRUE(event_->MarkSeenByUser(kFirstOfMay));
  EXPECT_EQ(SentInAll(), Texts{"INSERT INTO ViewedEvents (VE_EventID,VE_UserID,VE_Date) VALUES "
                               "(1,3,'5/1/2024 9:00:00 AM')"});
}

TEST_F(SeenEvents, MarkOfASessionWithoutAUserIsOfUserMinusOne) {
  session->UserID = MakeRef<CSession>()->UserID;
  ASSERT_TRUE(event_->MarkSeenByUser(On("5/1/2024")));
  EXPECT_EQ(SentInAll(), Texts{"INSERT INTO ViewedEvents (VE_EventID,VE_UserID,VE_Date) VALUES (1,-1,'5/1/2024')"});
}

TEST_F(SeenEvents, MarkIsOpenToASessionThatMayOnlyRead) {
  session->UserRights = DataViewer;
  EXPECT_TRUE(event_->MarkSeenByUser(kFirstOfMay));
  EXPECT_EQ(Rows("ViewedEvents"), 1);
}

TEST_F(SeenEvents, MarkLeavesTheFlagsOfTheEvent) {
  ASSERT_TRUE(event_->MarkSeenByUser(kFirstOfMay));
  EXPECT_EQ(Flags(*event_), "new clear");
}

TEST_F(SeenEvents, NeitherClearsAnOldError) {
  LeaveAnOldError();
  ToShow(kFirstOfMay);
  ASSERT_TRUE(event_->MarkSeenByUser(kFirstOfMay));
  EXPECT_EQ(session->GetErrorCode(), 77);
}

TEST_F(SeenEvents, LookUpThatFailsIsRecordedAndLeavesTheAnswer) {
  Refuse("SELECT * FROM ViewedEvents");
  bool show = false;
  EXPECT_FALSE(event_->SeenByUser(kFirstOfMay, show));
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CEvent.SeenByUser] Error: -2147217900 - made to fail");
  EXPECT_FALSE(show);
}

TEST_F(SeenEvents, LookUpOfMarksWithoutTheirDateColumnIsRecordedAndAnswersTrue) {
  Run("INSERT INTO ViewedEvents (VE_EventID,VE_UserID) VALUES (1,3)");
  Run("ALTER TABLE ViewedEvents DROP COLUMN VE_Date");
  bool show = false;
  EXPECT_FALSE(event_->SeenByUser(kFirstOfMay, show));
  EXPECT_EQ(session->GetErrorCode(), 3265);
  EXPECT_TRUE(show);
}

TEST_F(SeenEvents, MarkThatFailsIsRecorded) {
  Refuse("INSERT INTO ViewedEvents");
  EXPECT_FALSE(event_->MarkSeenByUser(kFirstOfMay));
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CEvent.MarkSeenByUser] Error: -2147217900 - made to fail");
}

TEST_F(SeenEvents, MarkOfADateOutOfRangeIsRecorded) {
  EXPECT_FALSE(event_->MarkSeenByUser(Date(3e6)));
  EXPECT_EQ(session->GetErrorProcedure(), "CEvent.MarkSeenByUser");
  EXPECT_EQ(session->GetErrorCode(), 5);
}

TEST_F(SeenEvents, EveryFailureOfAMarkLeavesTheTable) {
  const auto failures = FailEachCall(database, *session, [&] { return event_->MarkSeenByUser(kFirstOfMay); });
  ASSERT_EQ(failures.size(), 1u);
  EXPECT_EQ(failures[0].procedure, "CEvent.MarkSeenByUser");
  EXPECT_EQ(Rows("ViewedEvents"), 1);
}

}  // namespace
}  // namespace zef::test
