#include <gtest/gtest.h>

#include "folders/folder.h"
#include "tasks/task.h"
#include "tests/support/engine_wrapper.h"
#include "tests/support/raised.h"
#include "tests/support/session_test.h"

namespace zef::test {
namespace {

TEST(FreshRecord, IsNew) { EXPECT_TRUE(MakeRef<CFolder>()->IsNew()); }
TEST(FreshRecord, IsNotModified) { EXPECT_FALSE(MakeRef<CFolder>()->IsModified()); }
TEST(FreshRecord, HasIDZero) { EXPECT_EQ(MakeRef<CFolder>()->ID, 0); }
TEST(FreshRecord, HasNoSession) { EXPECT_EQ(MakeRef<CFolder>()->Session(), nullptr); }

TEST(FreshRecord, SaveWithoutSessionRaises) {
  EXPECT_EQ(NumberRaised([] { MakeRef<CFolder>()->Save(); }), 91);
}

TEST(RecordID, NeverMarksAsModified) {
  const auto folder = MakeRef<CFolder>();
  folder->ID = 17;
  EXPECT_FALSE(folder->IsModified());
}

TEST(RecordFlags, ResetFlagsSetsBoth) {
  const auto folder = MakeRef<CFolder>();
  folder->ResetFlagsX(false, false);
  folder->ResetFlags();
  EXPECT_TRUE(folder->IsModified());
  EXPECT_TRUE(folder->IsNew());
}

TEST(RecordFlags, FirstArgumentIsTheModifiedFlag) {
  const auto folder = MakeRef<CFolder>();
  folder->ResetFlagsX(true, false);
  EXPECT_TRUE(folder->IsModified());
  EXPECT_FALSE(folder->IsNew());
}

TEST(RecordFlags, SecondArgumentIsTheNewFlag) {
  const auto folder = MakeRef<CFolder>();
  folder->ResetFlagsX(false, true);
  EXPECT_FALSE(folder->IsModified());
  EXPECT_TRUE(folder->IsNew());
}

/// A loaded folder, whose setters are tried.
class Setter : public SessionTest {
 protected:
  Ref<CFolder> folder = session->GetFolder(1);
};

TEST_F(Setter, OfAnotherTextMarksAsModified) {
  folder->Name = "Agenda";
  EXPECT_TRUE(folder->IsModified());
}

TEST_F(Setter, StoresTheValue) {
  folder->Name = "Agenda";
  EXPECT_EQ(folder->Name.get(), "Agenda");
}

TEST_F(Setter, OfTheSameTextLeavesTheFlag) {
  folder->Name = "Calendar";
  EXPECT_FALSE(folder->IsModified());
}

TEST_F(Setter, TellsTextsApartByLetterCase) {
  folder->Name = "calendar";
  EXPECT_TRUE(folder->IsModified());
}

TEST_F(Setter, OfTheEmptyTextMarksAsModified) {
  folder->Name = "";
  EXPECT_TRUE(folder->IsModified());
}

TEST_F(Setter, OfAnotherNumberMarksAsModified) {
  folder->Options = 1;
  EXPECT_TRUE(folder->IsModified());
}

TEST_F(Setter, OfTheSameNumberLeavesTheFlag) {
  folder->Options = 0;
  EXPECT_FALSE(folder->IsModified());
}

TEST_F(Setter, OfAnotherBooleanMarksAsModified) {
  folder->Protected = false;
  EXPECT_TRUE(folder->IsModified());
}

TEST_F(Setter, OfTheSameBooleanLeavesTheFlag) {
  folder->Protected = true;
  EXPECT_FALSE(folder->IsModified());
}

TEST_F(Setter, OfAnotherDateMarksAsModified) {
  folder->DateLastUpdate = Date(folder->DateLastUpdate->value() + 1.0 / 86400);
  EXPECT_TRUE(folder->IsModified());
}

TEST_F(Setter, OfTheSameDateLeavesTheFlag) {
  folder->DateLastUpdate = Date(folder->DateLastUpdate->value());
  EXPECT_FALSE(folder->IsModified());
}

TEST_F(Setter, ComparesDatesAsNumbers) {
  folder->DateLastUpdate.Load(Date(0.0));
  folder->DateLastUpdate = Date(-0.0);
  EXPECT_FALSE(folder->IsModified());
}

TEST_F(Setter, BackToTheOldValueLeavesTheRecordModified) {
  folder->Name = "Agenda";
  folder->Name = "Calendar";
  EXPECT_TRUE(folder->IsModified());
}

TEST_F(Setter, LeavesTheNewFlag) {
  folder->Name = "Agenda";
  EXPECT_FALSE(folder->IsNew());
}

/// What `Save` does in each state of a record.
class RecordState : public SessionTest {
 protected:
  /// The verb of the statement that `Save` runs behind its look at the name; empty if there is none.
  std::string SavedBy(CFolder& folder) {
    const auto log = Watch(connection());
    EXPECT_TRUE(folder.Save()) << session->GetEntireErrorDesc();
    const std::vector<std::string> texts = log->Statements();
    return texts.size() < 2 ? std::string() : texts[1].substr(0, texts[1].find(' '));
  }
};

TEST_F(RecordState, FreshIsNew) { EXPECT_TRUE(session->CreateFolder()->IsNew()); }

TEST_F(RecordState, FreshIsNotModified) { EXPECT_FALSE(session->CreateFolder()->IsModified()); }

TEST_F(RecordState, FreshIsNotWritten) {
  EXPECT_EQ(SavedBy(*session->CreateFolder()), "");
  EXPECT_EQ(Count(connection(), "Folders"), 12);
}

TEST_F(RecordState, FreshLosesTheNewFlagAtSave) {
  const Ref<CFolder> folder = session->CreateFolder();
  folder->Save();
  EXPECT_FALSE(folder->IsNew());
}

TEST_F(RecordState, FreshSavedAndThenChangedUpdatesNoRow) {
  const Ref<CFolder> folder = session->CreateFolder();
  folder->Save();
  folder->Name = "Late";
  EXPECT_EQ(SavedBy(*folder), "UPDATE");
  EXPECT_EQ(Count(connection(), "Folders"), 12);
}

TEST_F(RecordState, FreshAndChangedIsInserted) {
  const Ref<CFolder> folder = session->CreateFolder();
  folder->Name = "New";
  EXPECT_EQ(SavedBy(*folder), "INSERT");
}

TEST_F(RecordState, LoadedHasNoFlags) {
  const Ref<CFolder> folder = session->GetFolder(1);
  EXPECT_FALSE(folder->IsNew());
  EXPECT_FALSE(folder->IsModified());
}

TEST_F(RecordState, LoadedIsNotWritten) { EXPECT_EQ(SavedBy(*session->GetFolder(1)), ""); }

TEST_F(RecordState, LoadedAndChangedIsUpdated) {
  const Ref<CFolder> folder = session->GetFolder(1);
  folder->Options = 3;
  EXPECT_EQ(SavedBy(*folder), "UPDATE");
}

TEST_F(RecordState, LoadedAndResetIsInserted) {
  const Ref<CFolder> folder = session->GetFolder(1);
  folder->ResetFlags();
  folder->ID = 50;
  folder->ParentID = 2;
  EXPECT_EQ(SavedBy(*folder), "INSERT");
  EXPECT_EQ(Count(connection(), "Folders"), 13);
}

TEST_F(RecordState, SavedHasNoFlags) {
  const Ref<CFolder> folder = session->CreateFolder();
  folder->Name = "New";
  folder->Save();
  EXPECT_FALSE(folder->IsNew());
  EXPECT_FALSE(folder->IsModified());
}

TEST_F(RecordState, SavedIsNotWrittenAgain) {
  const Ref<CFolder> folder = session->CreateFolder();
  folder->Name = "New";
  folder->Save();
  EXPECT_EQ(SavedBy(*folder), "");
}

TEST_F(RecordState, SavedAndChangedIsUpdated) {
  const Ref<CFolder> folder = session->CreateFolder();
  folder->Name = "New";
  folder->Save();
  folder->Name = "Newer";
  EXPECT_EQ(SavedBy(*folder), "UPDATE");
}

TEST_F(RecordState, InsertUnderATakenIDFailsAndKeepsTheFlags) {
  const Ref<CFolder> folder = session->GetFolder(1);
  folder->ResetFlags();
  EXPECT_FALSE(folder->Save());
  EXPECT_EQ(session->GetErrorCode(), static_cast<std::int32_t>(FailureNumber::ConstraintViolated));
  EXPECT_TRUE(folder->IsNew() && folder->IsModified());
}

TEST_F(RecordState, SaveClearsAnOlderRecord) {
  session->RecordError("Earlier", 77, "seven");
  session->GetFolder(1)->Save();
  EXPECT_EQ(session->GetEntireErrorDesc(), "[] Error: 0 - ");
}

TEST(PropertyText, IsThatOfItsValue) {
  const auto task = MakeRef<CTask>();
  task->DueDate = Date(45429.0);
  task->StatusID = 7;
  task->Name = "Pay";
  EXPECT_EQ(ToText(task->DueDate), "5/17/2024");
  EXPECT_EQ(ToText(task->StatusID), "7");
  EXPECT_EQ(ToText(task->Name), "Pay");
}

}  // namespace
}  // namespace zef::test
