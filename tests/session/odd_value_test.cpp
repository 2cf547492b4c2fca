#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <ostream>
#include <string>

#include "calendar/event.h"
#include "calendar/notification.h"
#include "folders/folder.h"
#include "tasks/task.h"
#include "tests/support/dump.h"
#include "tests/support/session_test.h"

namespace zef::test {
namespace {

/// A stored record of some class, and one of its properties under test.
template <class Value>
struct Place {
  const char* name;
  const char* column;
  int length;  ///< characters that the column takes, 0 for no limit
  /// Reads record 1, gives its property the value and saves it.
  std::function<bool(CSession&, const Value&)> save;
  /// The property as it reads back from record 1.
  std::function<Value(CSession&)> read;

  friend void PrintTo(const Place& place, std::ostream* out) { *out << place.name; }
};

Ref<CFolder> Read(CSession& session, const CFolder*) { return session.GetFolder(1); }
Ref<CTask> Read(CSession& session, const CTask*) { return session.GetTask(1); }
Ref<CEvent> Read(CSession& session, const CEvent*) { return session.GetEvent(1); }
Ref<CNotification> Read(CSession& session, const CNotification*) { return session.GetNotification(1); }

template <class R, class Value>
Place<Value> PlaceOf(const char* name, const char* column, Property<Value> R::*property, int length = 0) {
  return {name, column, length,
          [property](CSession& session, const Value& value) {
            const Ref<R> record = Read(session, static_cast<const R*>(nullptr));
            (*record).*property = value;
            return record->Save();
          },
          [property](CSession& session) { return ((*Read(session, static_cast<const R*>(nullptr))).*property).get(); }};
}

template <class Value>
class OddValue : public SessionTest, public testing::WithParamInterface<Place<Value>> {
 protected:
  OddValue() {
    connection().Execute("INSERT INTO Tasks (TSK_ID,TSK_FolderID) VALUES (1,3)");
    connection().Execute("INSERT INTO Events (EVE_ID,EVE_FolderID) VALUES (1,1)");
    connection().Execute("INSERT INTO Notifications (NTF_ID) VALUES (1)");
  }
  bool Save(const Value& value) { return this->GetParam().save(*session, value); }
  Value Back() { return this->GetParam().read(*session); }
  void ExpectToComeBack(const Value& value) {
    EXPECT_TRUE(Save(value)) << session->GetEntireErrorDesc();
    EXPECT_EQ(Back(), value);
  }
  /// A refused value leaves the tables and no transaction open.
  void ExpectToBeRefused(const Value& value) {
    const std::string before = Dump(connection());
    EXPECT_FALSE(Save(value));
    EXPECT_TRUE(session->GetErrorFlag());
    EXPECT_EQ(Dump(connection()), before);
    EXPECT_FALSE(session->TransactionStarted());
    EXPECT_EQ(connection().OpenedEngine().TransactionDepth(), 0);
  }
};

// ---- texts

using OddPropertyText = OddValue<std::string>;

TEST_P(OddPropertyText, OfQuotesComesBack) { ExpectToComeBack("'\"''\"\" O'Brien"); }

TEST_P(OddPropertyText, OfEmojiComesBack) { ExpectToComeBack("🎂👩‍👧 é"); }

TEST_P(OddPropertyText, WithAZeroCharacterComesBack) { ExpectToComeBack(std::string("a\0b", 3)); }

TEST_P(OddPropertyText, AsLongAsItsColumnComesBack) {
  std::string text;
  const int length = GetParam().length == 0 ? 65536 : GetParam().length;
  for (int i = 0; i < length; ++i) text += "ü";
  ExpectToComeBack(text);
}

TEST_P(OddPropertyText, OfInvalidBytesIsRefused) {
  for (const char* const text : {"\xff\xfe", "a\x80z", "\xc3", "\xed\xa0\x80", "\xc0\x80"}) {
    ExpectToBeRefused(text);
    EXPECT_EQ(session->GetErrorDescription().find(text), std::string::npos);
  }
}

const Place<std::string> kLimitedTexts[] = {
    PlaceOf("FolderName", "FLD_Name", &CFolder::Name, 255),
    PlaceOf("TaskName", "TSK_Name", &CTask::Name, 246),
    PlaceOf("TaskPriority", "TSK_Priority", &CTask::Priority, 64),
    PlaceOf("TaskAssignedTo", "TSK_AssignedTo", &CTask::AssignedTo, 255),
    PlaceOf("EventText", "EVE_Text", &CEvent::Text, 255),
    PlaceOf("EventLocation", "EVE_Location", &CEvent::Location, 255),
    PlaceOf("NotificationSubject", "NTF_Subject", &CNotification::Subject, 255),
};
const Place<std::string> kUnlimitedTexts[] = {
    PlaceOf("FolderDescription", "FLD_Description", &CFolder::Description),
    PlaceOf("TaskDescription", "TSK_Description", &CTask::Description),
    PlaceOf("NotificationMessage", "NTF_Message", &CNotification::Message),
    PlaceOf("NotificationEmail", "NTF_Email", &CNotification::Email),
};

template <class Value>
std::string NameOf(const testing::TestParamInfo<Place<Value>>& place) {
  return place.param.name;
}

INSTANTIATE_TEST_SUITE_P(Limited, OddPropertyText, testing::ValuesIn(kLimitedTexts), NameOf<std::string>);
INSTANTIATE_TEST_SUITE_P(Unlimited, OddPropertyText, testing::ValuesIn(kUnlimitedTexts), NameOf<std::string>);

class TooLongPropertyText : public OddPropertyText {};

TEST_P(TooLongPropertyText, IsRefusedByItsColumn) {
  ExpectToBeRefused(std::string(static_cast<std::size_t>(GetParam().length) + 1, 'n'));
  EXPECT_EQ(session->GetErrorDescription(), "A text is too long for the column '" + std::string(GetParam().column) +
                                                "', which takes " + std::to_string(GetParam().length) + " characters.");
}

TEST_P(TooLongPropertyText, Of64KBIsRefused) {
  ExpectToBeRefused(std::string(65536, 'n'));
  EXPECT_LT(session->GetErrorDescription().size(), 120u);
}

INSTANTIATE_TEST_SUITE_P(Limited, TooLongPropertyText, testing::ValuesIn(kLimitedTexts), NameOf<std::string>);

// ---- numbers

using OddPropertyNumber = OddValue<std::int32_t>;

TEST_P(OddPropertyNumber, LargestComesBack) { ExpectToComeBack(std::numeric_limits<std::int32_t>::max()); }

TEST_P(OddPropertyNumber, SmallestComesBack) { ExpectToComeBack(std::numeric_limits<std::int32_t>::min()); }

INSTANTIATE_TEST_SUITE_P(Properties, OddPropertyNumber,
                         testing::Values(PlaceOf("FolderOptions", "FLD_Options", &CFolder::Options),
                                         PlaceOf("FolderItemsType", "FLD_Type", &CFolder::ItemsType),
                                         PlaceOf("TaskStatusID", "TSK_StatusID", &CTask::StatusID),
                                         PlaceOf("TaskCompleted", "TSK_Completed", &CTask::Completed),
                                         PlaceOf("EventReminder", "EVE_Reminder", &CEvent::Reminder),
                                         PlaceOf("EventLinkID", "EVE_LinkID", &CEvent::LinkID),
                                         PlaceOf("NotificationStatus", "NTF_Status", &CNotification::Status)),
                         NameOf<std::int32_t>);

// ---- dates

using OddPropertyDate = OddValue<Date>;

TEST_P(OddPropertyDate, FirstOfTheCalendarComesBack) { ExpectToComeBack(Date(-657434.0)); }

TEST_P(OddPropertyDate, LastOfTheCalendarComesBack) { ExpectToComeBack(Date(2958465.0)); }

TEST_P(OddPropertyDate, ZeroComesBack) {
  ExpectToComeBack(Date(2.0));
  ExpectToComeBack(Date());
}

TEST_P(OddPropertyDate, OutsideOfTheCalendarIsRefused) {
  for (const double value : {2958466.0, -657435.0, 1e300, -1e300, std::numeric_limits<double>::infinity(),
                             std::numeric_limits<double>::quiet_NaN()}) {
    ExpectToBeRefused(Date(value));
    EXPECT_EQ(session->GetErrorCode(), 5);
  }
}

INSTANTIATE_TEST_SUITE_P(Properties, OddPropertyDate,
                         testing::Values(PlaceOf("TaskStartDate", "TSK_StartDate", &CTask::StartDate),
                                         PlaceOf("TaskDateCompleted", "TSK_DateCompleted", &CTask::DateCompleted),
                                         PlaceOf("EventStartDate", "EVE_StartDate", &CEvent::StartDate),
                                         PlaceOf("EventEndDate", "EVE_EndDate", &CEvent::EndDate),
                                         PlaceOf("NotificationSendingDate", "NTF_SendingDate",
                                                 &CNotification::SendingDate)),
                         NameOf<Date>);

}  // namespace
}  // namespace zef::test
