#include <gmock/gmock.h>

#include "tests/textviews/export_fixture.h"

namespace zef::test {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

template <class R>
using ExportFailure = ExportOfOwner<R>;
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

TYPED_TEST(ExportFailure, FieldsThatCannotBeHadLeaveAnExistingFileUnlessOfATask) {
  std::ofstream(this->Path()) << "kept";
  EXPECT_FALSE(this->RecordThatCannotBeShown()->Save2File(this->Path()));
  const bool task = std::is_same_v<TypeParam, CTask>;
  EXPECT_EQ(BytesOf(this->Path()), task ? "" : "kept");
}

TYPED_TEST(ExportFailure, WithAllNumbersTakenIsRecordedAndTouchesNoFile) {
  TakeAllFileNumbers(this->Path("taken.txt"));
  EXPECT_FALSE(this->template New<TypeParam>()->Save2File(this->Path()));
  EXPECT_EQ(this->session->GetErrorProcedure(), this->Member("Save2File"));
  EXPECT_EQ(this->session->GetErrorCode(), 67);
  EXPECT_FALSE(std::filesystem::exists(this->Path()));
}

TYPED_TEST(ExportFailure, WithoutAConnectionIsRaised) {
  this->session->DisconnectFromDatabase();
  EXPECT_EQ(NumberRaised([&] { this->template New<TypeParam>()->Save2File("/no-such-folder/file"); }), 91);
}

TYPED_TEST(ExportFailure, WithoutAConnectionHasClearedAnOldErrorFirst) {
  this->LeaveAnOldError();
  this->session->DisconnectFromDatabase();
  EXPECT_TRUE(Raised([&] { this->template New<TypeParam>()->Save2File("/no-such-folder/file"); }));
  EXPECT_EQ(this->session->GetEntireErrorDesc(), "[" + this->Member("Save2File") + "] Error: 0 - ");
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
  EXPECT_THAT(BytesOf(Path()), EndsWith("\r\nNotification\r\n"));
  EXPECT_EQ(FreeFile(), 2);
}

TEST_F(Export, ChildWithoutASessionIsRecordedUnderTheOwner) {
  const Ref<CEvent> event = New<CEvent>();
  event->Recurrence = MakeRef<CRecurrence>();
  EXPECT_FALSE(event->Save2File(Path()));
  EXPECT_EQ(session->GetErrorProcedure(), "CEvent.Save2File");
  EXPECT_EQ(session->GetErrorCode(), 91);
}

TEST_F(Export, NumberLeftOpenIsNotTheNextExports) {
  const Ref<CTask> task = New<CTask>();
  task->Recurrence = nullptr;
  EXPECT_FALSE(task->Save2File(Path("failed.txt")));
  EXPECT_EQ(Exported(*New<CNote>()), Expected("new_note"));
}

template <class Child>
using ExportOfChildFailure = ExportOfChild<Child>;
TYPED_TEST_SUITE(ExportOfChildFailure, Children);

TYPED_TEST(ExportOfChildFailure, NumberWithoutAFileIsRecordedUnderTheMember) {
  EXPECT_FALSE(this->child->Save2File(99));
  EXPECT_EQ(this->session->GetErrorProcedure(), ClassName(*this->child) + ".Save2File");
  EXPECT_EQ(this->session->GetErrorCode(), 52);
}

TYPED_TEST(ExportOfChildFailure, FileOpenForInputIsRecordedAndKept) {
  std::ofstream(this->Path("input.txt")) << "kept";
  OpenForInput(this->Path("input.txt"), 2);
  EXPECT_FALSE(this->child->Save2File(2));
  EXPECT_EQ(this->session->GetErrorCode(), 54);
  EXPECT_EQ(BytesOf(this->Path("input.txt")), "kept");
}

TYPED_TEST(ExportOfChildFailure, NumberOutOfRangeIsRecordedToo) {
  for (const std::int32_t number : {0, -1, 512}) {
    EXPECT_FALSE(this->child->Save2File(number)) << number;
    EXPECT_EQ(this->session->GetErrorCode(), 52) << number;
  }
}

TYPED_TEST(ExportOfChildFailure, WithoutASessionIsRaised) {
  EXPECT_EQ(NumberRaised([] { MakeRef<TypeParam>()->Save2File(1); }), 91);
}

TEST_F(Export, NotificationThatCannotBeShownWritesNothing) {
  OpenForOutput(Path(), 1);
  const Ref<CNotification> notification = New<CNotification>();
  notification->SendingDate = Date(1e9);
  EXPECT_FALSE(notification->Save2File(1));
  EXPECT_EQ(BytesOf(Path()), "");
  EXPECT_EQ(session->GetErrorProcedure(), "CNotification.GetFieldsArray");
}

TEST_F(Export, RuleThatCannotBeShownWritesNothing) {
  OpenForOutput(Path(), 1);
  const Ref<CRecurrence> rule = New<CRecurrence>();
  rule->EndDate = Date(1e9);
  EXPECT_FALSE(rule->Save2File(1));
  EXPECT_EQ(BytesOf(Path()), "");
  EXPECT_EQ(session->GetErrorProcedure(), "CRecurrence.GetFieldsArray");
}

TEST_F(Export, ContactsTextWithoutASessionIsRaised) {
  EXPECT_EQ(NumberRaised([] { MakeRef<CContact>()->ToString(); }), 91);
}

TEST_F(Export, ContactsTextIsEmptyIfItsFieldsCannotBeHad) {
  const Ref<CContact> contact = New<CContact>();
  contact->FolderID = 12345;
  EXPECT_EQ(contact->ToString(), "");
  EXPECT_EQ(session->GetErrorProcedure(), "CContact.GetFieldsArray");
}

}  // namespace
}  // namespace zef::test
