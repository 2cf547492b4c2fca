#include <gmock/gmock.h>
#include <sys/stat.h>

#include "tests/textviews/export_fixture.h"

namespace zef::test {
namespace {

using testing::EndsWith;
using testing::HasSubstr;

TEST_F(Export, FullNoteIsWrittenAsExpected) { EXPECT_EQ(Exported(*FullNote()), Expected("note")); }
TEST_F(Export, FullAlarmIsWrittenWithItsChildrenAsExpected) { EXPECT_EQ(Exported(*FullAlarm()), Expected("alarm")); }
TEST_F(Export, FullEventIsWrittenWithItsChildrenAsExpected) { EXPECT_EQ(Exported(*FullEvent()), Expected("event")); }
TEST_F(Export, FullTaskIsWrittenWithItsChildrenAsExpected) { EXPECT_EQ(Exported(*FullTask()), Expected("task")); }
TEST_F(Export, FullContactIsWrittenAsExpected) { EXPECT_EQ(Exported(*FullContact()), Expected("contact")); }

TEST_F(Export, NewNoteIsWrittenAsExpected) { EXPECT_EQ(Exported(*New<CNote>()), Expected("new_note")); }
TEST_F(Export, NewAlarmIsWrittenWithItsEmptyChildrenAsExpected) {
  EXPECT_EQ(Exported(*New<CAlarm>()), Expected("new_alarm"));
}
TEST_F(Export, NewEventIsWrittenWithItsEmptyChildrenAsExpected) {
  EXPECT_EQ(Exported(*New<CEvent>()), Expected("new_event"));
}
TEST_F(Export, NewTaskIsWrittenWithItsEmptyChildrenAsExpected) {
  EXPECT_EQ(Exported(*New<CTask>()), Expected("new_task"));
}
TEST_F(Export, NewContactIsWrittenAsExpected) { EXPECT_EQ(Exported(*New<CContact>()), Expected("new_contact")); }

TEST_F(Export, NoteWithoutACategoryHasTheLabelAlone) {
  EXPECT_THAT(Exported(*New<CNote>()), HasSubstr("\r\nCategory:\r\n"));
}

TEST_F(Export, RuleLeavesNoGapBeforeItsEnd) {
  EXPECT_THAT(Exported(*FullEvent()), EndsWith("Monday Wendsday \r\nEnd on:12/31/2024\r\n"));
}

TEST_F(Export, EventHasItsNotificationTwice) {
  const std::string bytes = Exported(*FullEvent());
  const std::size_t first = bytes.find("Notification\r\n");
  EXPECT_NE(bytes.find("Notification\r\n", first + 1), std::string::npos);
}

TEST_F(Export, AlarmHasItsNotificationOnce) {
  const std::string bytes = Exported(*FullAlarm());
  EXPECT_EQ(bytes.find("Notification\r\n"), bytes.rfind("Notification\r\n"));
}

TEST_F(Export, RulesOfAllTypesAreWrittenAsExpected) {
  OpenForOutput(Path(), 1);
  for (const std::int32_t type : {REC_EMPTY, REC_DAILY, REC_WEEKLY, REC_MONTHLY, REC_YEARLY}) {
    for (const std::int32_t sub_type : {0, 1}) EXPECT_TRUE(RuleOf(type, sub_type)->Save2File(1));
  }
  CloseFile(1);
  EXPECT_EQ(BytesOf(Path()), Expected("rules"));
}

TEST_F(Export, ContactEndsInAnEmptyLine) { EXPECT_THAT(Exported(*FullContact()), EndsWith("\r\n\r\n")); }

TEST_F(Export, ContactsTextIsThatOfTheFileWithoutTheEmptyLine) {
  EXPECT_EQ(New<CContact>()->ToString() + "\r\n", Expected("new_contact"));
}

TEST_F(Export, ContactIsAskedForItsFieldsTwice) {
  Exported(*FullContact());
  EXPECT_EQ(Sent(), (Texts{"SELECT * FROM Folders WHERE FLD_ID=900", "SELECT * FROM Categories WHERE CAT_ID=901",
                           "SELECT * FROM Folders WHERE FLD_ID=900", "SELECT * FROM Categories WHERE CAT_ID=901"}));
}

TEST_F(Export, ContactAskedInVainOnlyTheFirstTimeIsAnEmptyLine) {
  const Ref<CContact> contact = FullContact();
  FailCall(1);
  EXPECT_EQ(Exported(*contact), "\r\n");
}

TEST_F(Export, ContactsTextClearsAnOldError) {
  LeaveAnOldError();
  New<CContact>()->ToString();
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(Export, ContactsTextKeepsWhatTheFileCannotHold) {
  EXPECT_THAT(FullContact()->ToString(), HasSubstr("\r\nNotes:€ 😀\r\n"));
}

TEST_F(Export, ChildThatWasReplacedIsTheOneThatIsWritten) {
  const Ref<CEvent> event = FullEvent();
  event->Notification = New<CNotification>();
  event->Notification->Subject = "another";
  EXPECT_THAT(Exported(*event), HasSubstr("Subject:another\r\n"));
}

TEST_F(Export, ValueOfSeveralLinesStandsAsItIs) {
  const Ref<CNote> note = New<CNote>();
  note->Text = "one\r\ntwo\nthree";
  EXPECT_THAT(Exported(*note), HasSubstr("Text:one\r\ntwo\nthree\r\nFolder:"));
}

TEST_F(Export, ExistingFileIsReplaced) {
  std::ofstream(Path()) << std::string(10'000, 'x');
  EXPECT_EQ(Exported(*New<CNote>()), Expected("new_note"));
}

TEST_F(Export, NewFileIsPrivate) {
  Exported(*New<CNote>());
  struct stat status {};
  ASSERT_EQ(stat(Path().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0600u);
}

TEST_F(Export, ChangesNoFlag) {
  const Ref<CAlarm> alarm = New<CAlarm>();
  alarm->ResetFlagsX(false, false);
  Exported(*alarm);
  EXPECT_EQ(Flags(*alarm), "old clear");
}

TEST_F(Export, OfARecordWithoutReferencesNeedsNoConnection) {
  session->DisconnectFromDatabase();
  EXPECT_EQ(Exported(*New<CTask>()), Expected("new_task"));
}

TEST_F(Export, IsOpenToASessionThatMayOnlyRead) {
  session->UserRights = DataViewer;
  EXPECT_EQ(Exported(*New<CNote>()), Expected("new_note"));
}

template <class R>
using ExportOfEachOwner = ExportOfOwner<R>;
TYPED_TEST_SUITE(ExportOfEachOwner, Owners);

TYPED_TEST(ExportOfEachOwner, ClosesItsFile) {
  EXPECT_TRUE(this->template New<TypeParam>()->Save2File(this->Path()));
  EXPECT_EQ(FreeFile(), 1);
}

TYPED_TEST(ExportOfEachOwner, ClearsAnOldError) {
  this->LeaveAnOldError();
  EXPECT_TRUE(this->template New<TypeParam>()->Save2File(this->Path()));
  EXPECT_EQ(this->session->GetEntireErrorDesc(), "[] Error: 0 - ");
}

TYPED_TEST_SUITE(ExportOfChild, Children);

TYPED_TEST(ExportOfChild, GoesBehindWhatItsOwnerHasWritten) {
  Print(1, "Heading\r\n");
  EXPECT_TRUE(this->child->Save2File(1));
  EXPECT_THAT(BytesOf(this->Path()), testing::StartsWith("Heading\r\n" + this->LabelRow(*this->child, 0).substr(0, 5)));
}

TYPED_TEST(ExportOfChild, LeavesItsOwnersFileOpen) {
  EXPECT_TRUE(this->child->Save2File(1));
  EXPECT_EQ(FreeFile(), 2);
}

TYPED_TEST(ExportOfChild, ClearsAnOldError) {
  this->LeaveAnOldError();
  EXPECT_TRUE(this->child->Save2File(1));
  EXPECT_EQ(this->session->GetEntireErrorDesc(), "[] Error: 0 - ");
}

}  // namespace
}  // namespace zef::test
