#include <gmock/gmock.h>
#include <sys/stat.h>

#include "platform/text_file.h"
#include "tests/textviews/full_records.h"

namespace zef::test {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
class Export : public FullRecords {
 protected:
  /// Closes what a failure has left open, so that the next test finds all numbers free.
  ~Export() override {
    while (FreeFile() > 1) CloseFile(FreeFile() - 1);
  }
};

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

TEST_F(Export, ContactEndsInAnEmptyLine) { EXPECT_THAT(Exported(*FullContact()), EndsWith("\r\n\r\n")); }

TEST_F(Export, ContactsTextIsThatOfTheFileWithoutTheEmptyLine) {
  EXPECT_EQ(New<CContact>()->ToString() + "\r\n", Expected("new_contact"));
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

TEST_F(Export, ClosesItsFile) {
  Exported(*FullAlarm());
  EXPECT_EQ(FreeFile(), 1);
}

TEST_F(Export, ClearsAnOldError) {
  LeaveAnOldError();
  Exported(*New<CNote>());
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(Export, ChangesNoFlag) {
  const Ref<CAlarm> alarm = New<CAlarm>();
  alarm->ResetFlagsX(false, false);
  Exported(*alarm);
  EXPECT_EQ(Flags(*alarm), "old clear");
}

TEST_F(Export, IsOpenToASessionThatMayOnlyRead) {
  session->UserRights = DataViewer;
  EXPECT_EQ(Exported(*New<CNote>()), Expected("new_note"));
}

// ---- Failures

template <class R>
class ExportFailure : public Export {
 protected:
  /// A record whose folder or category cannot be looked up.
  Ref<R> RecordThatCannotBeShown() {
    const Ref<R> record = this->template New<R>();
    record->CategoryID = 901;
    this->Refuse("SELECT * FROM Categories");
    return record;
  }
  static std::string Member(const std::string& member) { return Name(*MakeRef<R>()) + "." + member; }

 private:
  static std::string Name(const CAlarm&) { return "CAlarm"; }
  static std::string Name(const CContact&) { return "CContact"; }
  static std::string Name(const CEvent&) { return "CEvent"; }
  static std::string Name(const CNote&) { return "CNote"; }
  static std::string Name(const CTask&) { return "CTask"; }
};

using Owners = testing::Types<CAlarm, CContact, CEvent, CNote, CTask>;
TYPED_TEST_SUITE(ExportFailure, Owners);

TYPED_TEST(ExportFailure, FolderAsPathIsRecordedUnderTheMember) {
  EXPECT_FALSE(this->template New<TypeParam>()->Save2File("/"));
  EXPECT_EQ(this->session->GetErrorProcedure(), this->Member("Save2File"));
  EXPECT_EQ(this->session->GetErrorCode(), 75);
}

TYPED_TEST(ExportFailure, MissingFolderIsRecordedAndTakesNoNumber) {
  EXPECT_FALSE(this->template New<TypeParam>()->Save2File("/no-such-folder/file"));
  EXPECT_EQ(this->session->GetErrorCode(), 76);
  EXPECT_EQ(FreeFile(), 1);
}

TYPED_TEST(ExportFailure, FieldsThatCannotBeHadAreRecordedUnderTheirOwnMember) {
  EXPECT_FALSE(this->RecordThatCannotBeShown()->Save2File(this->Path()));
  EXPECT_EQ(this->session->GetErrorProcedure(), this->Member("GetFieldsArray"));
  EXPECT_EQ(this->session->GetErrorDescription(), "made to fail");
}

TYPED_TEST(ExportFailure, FieldsThatCannotBeHadLeaveAnEmptyOpenFileOfATaskAndNoOther) {
  EXPECT_FALSE(this->RecordThatCannotBeShown()->Save2File(this->Path()));
  const bool task = std::is_same_v<TypeParam, CTask>;
  EXPECT_EQ(std::filesystem::exists(this->Path()), task);
  EXPECT_EQ(BytesOf(this->Path()), "");
  EXPECT_EQ(FreeFile(), task ? 2 : 1);
}

TYPED_TEST(ExportFailure, WithoutASessionIsRaised) {
  EXPECT_EQ(NumberRaised([&] { MakeRef<TypeParam>()->Save2File(this->Path()); }), 91);
}

TEST_F(Export, ChildThatFailsLeavesTheFileOpenWithWhatWasWritten) {
  const Ref<CEvent> event = New<CEvent>();
  event->Recurrence->EndDate = Date(1e9);
  EXPECT_FALSE(event->Save2File(Path()));
  EXPECT_THAT(BytesOf(Path()), EndsWith("\r\nRecurrence\r\n"));
  EXPECT_EQ(FreeFile(), 2);
}

TEST_F(Export, ChildThatFailsIsRecordedUnderItsOwnMember) {
  const Ref<CAlarm> alarm = New<CAlarm>();
  alarm->Notification->SendingDate = Date(1e9);
  EXPECT_FALSE(alarm->Save2File(Path()));
  EXPECT_EQ(session->GetErrorProcedure(), "CNotification.GetFieldsArray");
  EXPECT_THAT(BytesOf(Path()), Not(HasSubstr("Recurrence")));
}

TEST_F(Export, MissingChildIsRecordedUnderTheOwnerAndLeavesTheFileOpen) {
  const Ref<CTask> task = New<CTask>();
  task->Notification = nullptr;
  EXPECT_FALSE(task->Save2File(Path()));
  EXPECT_EQ(session->GetErrorProcedure(), "CTask.Save2File");
  EXPECT_EQ(session->GetErrorCode(), 91);
  EXPECT_EQ(FreeFile(), 2);
}

TEST_F(Export, NumberLeftOpenIsNotTheNextExports) {
  const Ref<CTask> task = New<CTask>();
  task->Recurrence = nullptr;
  EXPECT_FALSE(task->Save2File(Path("failed.txt")));
  EXPECT_EQ(Exported(*New<CNote>()), Expected("new_note"));
}

TEST_F(Export, ExportWithAllNumbersTakenIsRecorded) {
  for (std::int32_t number = 1; number <= 511; ++number) OpenForOutput(Path("taken.txt"), number);
  EXPECT_FALSE(New<CNote>()->Save2File(Path()));
  EXPECT_EQ(session->GetErrorCode(), 67);
  for (std::int32_t number = 1; number <= 511; ++number) CloseFile(number);
}

template <class Child>
class ExportOfChild : public Export {
 protected:
  static std::string Procedure(const CNotification&) { return "CNotification.Save2File"; }
  static std::string Procedure(const CRecurrence&) { return "CRecurrence.Save2File"; }
  static std::string Procedure(const CAttachement&) { return "CAttachement.Save2File"; }
};

using Children = testing::Types<CNotification, CRecurrence, CAttachement>;
TYPED_TEST_SUITE(ExportOfChild, Children);

TYPED_TEST(ExportOfChild, NumberWithoutAFileIsRecordedUnderTheMember) {
  const Ref<TypeParam> child = this->template New<TypeParam>();
  EXPECT_FALSE(child->Save2File(99));
  EXPECT_EQ(this->session->GetErrorProcedure(), this->Procedure(*child));
  EXPECT_EQ(this->session->GetErrorCode(), 52);
}

TYPED_TEST(ExportOfChild, LeavesItsOwnersFileOpen) {
  OpenForOutput(this->Path(), 1);
  EXPECT_TRUE(this->template New<TypeParam>()->Save2File(1));
  EXPECT_EQ(FreeFile(), 2);
}

TEST_F(Export, ContactsTextIsEmptyIfItsFieldsCannotBeHad) {
  const Ref<CContact> contact = New<CContact>();
  contact->FolderID = 12345;
  EXPECT_EQ(contact->ToString(), "");
  EXPECT_EQ(session->GetErrorProcedure(), "CContact.GetFieldsArray");
}

}  // namespace
}  // namespace zef::test
