#include "calendar/event.h"
#include "tests/calendar/event_fixture.h"
#include "tests/support/fault_sweep.h"

namespace zef::test {
namespace {

using EventSaveFailure = EventTest;

TEST_F(EventSaveFailure, RefusedInsertUndoesTheChildrensRows) {
  const Ref<CEvent> event = FullEvent();
  event->Recurrence->RType = REC_DAILY;
  event->Notification->Subject = "s";
  Refuse("INSERT INTO Events");
  EXPECT_FALSE(event->Save());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CEvent.Save] Error: -2147217900 - made to fail");
  EXPECT_EQ(Rows("Recurrences") + Rows("Notifications"), 0);
  EXPECT_EQ(Flags(*event), "new modified");
}

TEST_F(EventSaveFailure, RefusedUpdateLeavesTheFlags) {
  const Ref<CEvent> event = session->GetEvent(EventWithChildren()->ID);
  event->Text = "b";
  Refuse("UPDATE Events");
  EXPECT_FALSE(event->Save());
  EXPECT_EQ(Flags(*event), "old modified");
  EXPECT_EQ(event->DateLastUpdate, now_);
}

TEST_F(EventSaveFailure, NotificationThatCannotBeSavedEndsTheSaveWithItsOwnRecord) {
  const Ref<CEvent> event = FullEvent();
  event->Notification->Subject = "s";
  Refuse("INSERT INTO Notifications");
  EXPECT_FALSE(event->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CNotification.Save");
  EXPECT_FALSE(session->TransactionStarted());
  EXPECT_EQ(Rows("Events"), 0);
}

TEST_F(EventSaveFailure, RuleThatCannotBeSavedEndsTheSaveWithItsOwnRecordAndUndoesTheNotification) {
  const Ref<CEvent> event = FullEvent();
  event->Notification->Subject = "s";
  event->Recurrence->RType = REC_DAILY;
  Refuse("INSERT INTO Recurrences");
  EXPECT_FALSE(event->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CRecurrence.Save");
  EXPECT_EQ(Rows("Notifications"), 0);
}

TEST_F(EventSaveFailure, DateOutOfRangeIsRecordedByTheFieldsAndUndoesTheChildren) {
  const Ref<CEvent> event = FullEvent();
  event->StartDate = Date(3e6);
  event->Recurrence->RType = REC_DAILY;
  EXPECT_FALSE(event->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CEvent.GetFieldsArray");
  EXPECT_FALSE(session->TransactionStarted());
  EXPECT_EQ(Rows("Recurrences"), 0);
}

TEST_F(EventSaveFailure, ChildStaysAsSavedInMemoryWhenTheEventsStatementFailsInTheClientsTransaction) {
  const Ref<CEvent> event = FullEvent();
  event->Recurrence->RType = REC_DAILY;
  ASSERT_TRUE(session->BeginTransaction());
  Refuse("INSERT INTO Events");
  EXPECT_FALSE(event->Save());
  ASSERT_TRUE(session->RollbackTransaction());
  EXPECT_EQ(event->Recurrence->ID, 1);
  EXPECT_EQ(Flags(*event->Recurrence), "old clear");
  EXPECT_EQ(Rows("Recurrences"), 0);
}

/// The event, whose flag shows a change of a child as well, with its children and its references to them.
std::string StateOf(const CEvent& event) {
  return FlagsOf(event) + ", " + FlagsOf(*event.Notification) + ", " + FlagsOf(*event.Recurrence) + ", " +
         std::to_string(event.NotificationID) + ", " + std::to_string(event.RecurrenceID);
}

class EventSavedAgain : public EventTest {
 protected:
  /// Gives an event its first children and expects that after any failure they are saved with it.
  void ExpectToSaveChildrenAfterAnyFailure(CEvent& event) {
    event.Recurrence->RType = REC_WEEKLY;
    event.Notification->Subject = "Sing";
    FailEachCall(
        database, *session, [&] { return event.Save(); }, [&] { return StateOf(event); });
    EXPECT_EQ(Rows("Events INNER JOIN Recurrences ON EVE_RecurrenceID=REC_ID"), 1);
    EXPECT_EQ(Rows("Events INNER JOIN Notifications ON EVE_NotificationID=NTF_ID"), 1);
  }
};

TEST_F(EventSavedAgain, NewOneSavesItsChildrenAfterAnyFailure) { ExpectToSaveChildrenAfterAnyFailure(*NewEvent()); }

TEST_F(EventSavedAgain, StoredOneSavesItsFirstChildrenAfterAnyFailure) {
  const Ref<CEvent> event = NewEvent();
  event->Text = "Choir";
  ASSERT_TRUE(event->Save());
  ExpectToSaveChildrenAfterAnyFailure(*event);
}

TEST_F(EventSavedAgain, DuplicateSavesItsChildrenAfterAFailedSave) {
  const Ref<CEvent> copy = session->DuplicateEvent(EventWithChildren()->ID);
  Refuse("INSERT INTO Events");
  EXPECT_FALSE(copy->Save());
  RefuseNothing();
  EXPECT_TRUE(copy->Save());
  EXPECT_EQ(Rows("Events INNER JOIN Recurrences ON EVE_RecurrenceID=REC_ID"), 2);
  EXPECT_EQ(Rows("Events INNER JOIN Notifications ON EVE_NotificationID=NTF_ID"), 2);
}

TEST_F(EventSaveFailure, OwnFlagRaisedByAReferenceIsGivenBack) {
  Run("INSERT INTO Events (EVE_ID) VALUES (51)");
  const Ref<CEvent> event = session->GetEvent(51);
  event->Recurrence->RType = REC_DAILY;
  Refuse("UPDATE Events");
  EXPECT_FALSE(event->Save());
  EXPECT_EQ(Flags(*event->Clone()), "old clear") << "a clone has the own flag alone";
}

TEST_F(EventSaveFailure, EmptiedChildrenAreDeletedByTheSaveThatFollowsAFailedOne) {
  const Ref<CEvent> event = session->GetEvent(EventWithChildren()->ID);
  event->Recurrence->RType = REC_EMPTY;
  event->Notification->Subject = "";
  const std::string before = StateOf(*event);
  Refuse("UPDATE Events");
  EXPECT_FALSE(event->Save());
  EXPECT_EQ(StateOf(*event), before);
  EXPECT_EQ(Rows("Recurrences") + Rows("Notifications"), 2);
  RefuseNothing();
  EXPECT_TRUE(event->Save());
  EXPECT_EQ(Rows("Recurrences") + Rows("Notifications"), 0);
  EXPECT_EQ(Stored("SELECT EVE_RecurrenceID FROM Events"), "-1");
}

TEST_F(EventSaveFailure, ChildrenOfAnEventWhoseRollbackFailedStayAsSaved) {
  const Ref<CEvent> event = NewEvent();
  event->Recurrence->RType = REC_WEEKLY;
  Refuse("INSERT INTO Events");
  AlsoRefuse("ROLLBACK");
  EXPECT_FALSE(event->Save());
  ASSERT_TRUE(session->TransactionStarted());
  EXPECT_EQ(FlagsOf(*event->Recurrence), "1 stored clear") << "its row stands in the transaction that is still open";
}

TEST_F(EventSaveFailure, SaveWithoutAChildObjectGivesTheOtherOneBack) {
  const Ref<CEvent> event = NewEvent();
  event->Notification->Subject = "Sing";
  event->Recurrence.reset();
  EXPECT_FALSE(event->Save());
  EXPECT_EQ(session->GetErrorCode(), 91);
  EXPECT_EQ(FlagsOf(*event->Notification), "0 new modified");
}

TEST_F(EventSaveFailure, SessionThatMayOnlyReadIsRefused) {
  const Ref<CEvent> event = FullEvent();
  session->UserRights = Administrator | DataViewer;
  EXPECT_FALSE(event->Save());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CEvent.Save] Error: 105 - You don't have rights to insert/edit data");
}

TEST_F(EventSaveFailure, RefusedSessionSendsNothingAndKeepsTheFlags) {
  const Ref<CEvent> event = FullEvent();
  event->Recurrence->RType = REC_DAILY;
  session->UserRights = DataViewer;
  EXPECT_FALSE(event->Save());
  EXPECT_EQ(SentInAll(), Texts{});
  EXPECT_EQ(Flags(*event), "new modified");
}

TEST_F(EventSaveFailure, EveryFailureOfANewEventsSaveLeavesNothingBehind) {
  const auto make = [&] {
    Ref<CEvent> event = session->CreateEvent();
    if (!event) return event;
    event->Text = "Choir";
    event->Recurrence->RType = REC_WEEKLY;
    event->Notification->Subject = "Sing";
    return event;
  };
  const auto failures = FailEachFirstSave(database, *session, make);
  EXPECT_EQ(failures.size(), 17u) << "three identifiers of four calls each, and five of the save itself";
}

TEST_F(EventSaveFailure, EveryFailureOfAnUpdateLeavesTheRowsAndTheFlags) {
  const std::int32_t id = EventWithChildren()->ID;
  std::string flags = "old modified";
  const auto save = [&] {
    const Ref<CEvent> event = session->GetEvent(id);
    if (!event) return false;
    event->Text = "Orchestra";
    event->Recurrence->RType = REC_DAILY;
    event->Notification->Subject = "Play";
    const bool saved = event->Save();
    if (!saved) flags = Flags(*event);
    return saved;
  };
  EXPECT_EQ(FailEachCall(database, *session, save, [&] { return flags; }).size(), 8u);
}

TEST_F(EventSaveFailure, EveryFailureOfAChangedEventsSaveCanBeRepeated) {
  const std::int32_t id = EventWithChildren()->ID;
  const Ref<CEvent> event = session->GetEvent(id);
  event->Text = "Orchestra";
  const auto failures = FailEachCall(
      database, *session, [&] { return event->Save(); }, [&] { return Flags(*event); });
  EXPECT_EQ(failures.size(), 3u) << "BEGIN, update, COMMIT";
  for (const InjectedFailure& failure : failures) EXPECT_EQ(failure.procedure, "CEvent.Save") << failure.call;
  EXPECT_EQ(Stored("SELECT EVE_Text FROM Events"), "Orchestra");
}

}  // namespace
}  // namespace zef::test
