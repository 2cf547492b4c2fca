#include <gtest/gtest.h>

#include "tests/folders/folder_fixture.h"
#include "tests/support/engine_wrapper.h"

namespace zef::test {
namespace {

TEST_F(FolderSave, ReturnsTrue) { EXPECT_TRUE(NewFolder("Recipes")->Save()); }

TEST_F(FolderSave, AddsTheRow) {
  const Ref<CFolder> folder = SavedFolder("Recipes", 4);
  EXPECT_EQ(Count(connection(), "Folders WHERE FLD_Name='Recipes' AND FLD_ParentID=4 AND FLD_Type=3"), 1);
  EXPECT_EQ(session->GetFolder(folder->ID)->Name.get(), "Recipes");
}

TEST_F(FolderSave, WritesEveryProperty) {
  const Ref<CFolder> folder = NewFolder("Recipes", 4);
  folder->Options = 7;
  folder->Description = "Sweet";
  folder->Protected = true;
  ASSERT_TRUE(folder->Save());
  const Ref<CFolder> read = session->GetFolder(folder->ID);
  EXPECT_EQ(read->ParentID.get(), 4);
  EXPECT_EQ(read->Options.get(), 7);
  EXPECT_EQ(read->Name.get(), "Recipes");
  EXPECT_EQ(read->Description.get(), "Sweet");
  EXPECT_EQ(read->ItemsType.get(), FT_Notes);
  EXPECT_TRUE(read->Protected.get());
}

TEST_F(FolderSave, ChangesNoOtherRow) {
  const Ref<CFolder> folder = session->GetFolder(8);
  const std::string others = "SELECT Count(*) FROM Folders WHERE FLD_Options=5";
  folder->Options = 5;
  folder->Save();
  EXPECT_EQ(Scalar(others), "1");
}

TEST_F(FolderSave, CommitsWhatItOpened) {
  SavedFolder("Recipes");
  EXPECT_EQ(Count(*database.Connect(), "Folders"), 13);
  EXPECT_FALSE(session->TransactionStarted());
}

TEST_F(FolderSave, OfANewUnchangedOneReturnsTrue) { EXPECT_TRUE(session->CreateFolder()->Save()); }

TEST_F(FolderSave, OfANewUnchangedOneAddsNoRow) {
  session->CreateFolder()->Save();
  EXPECT_EQ(Count(connection(), "Folders"), 12);
}

TEST_F(FolderSave, OfANewUnchangedOneClearsTheNewFlag) {
  const Ref<CFolder> folder = session->CreateFolder();
  folder->Save();
  EXPECT_FALSE(folder->IsNew());
}

TEST_F(FolderSave, UnderItsOwnUnchangedNameSucceeds) {
  const Ref<CFolder> folder = SavedFolder("Recipes");
  folder->Options = 1;
  EXPECT_TRUE(folder->Save());
}

TEST_F(FolderSave, OfATakenNameReturnsFalse) {
  SavedFolder("Recipes");
  EXPECT_FALSE(NewFolder("Recipes")->Save());
}

TEST_F(FolderSave, OfATakenNameIsRecorded) {
  SavedFolder("Recipes");
  NewFolder("Recipes")->Save();
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CFolder.Save] Error: 1000 - A folder with this name already exists");
}

TEST_F(FolderSave, OfATakenNameSetsTheErrorFlag) {
  SavedFolder("Recipes");
  NewFolder("Recipes")->Save();
  EXPECT_TRUE(session->GetErrorFlag());
}

TEST_F(FolderSave, OfATakenNameLeavesNothingOpen) {
  SavedFolder("Recipes");
  NewFolder("Recipes")->Save();
  EXPECT_FALSE(session->TransactionStarted());
  EXPECT_EQ(Depth(), 0);
}

TEST_F(FolderSave, OfATakenNameKeepsTheFlags) {
  SavedFolder("Recipes");
  const Ref<CFolder> second = NewFolder("Recipes");
  second->Save();
  EXPECT_TRUE(second->IsNew());
  EXPECT_TRUE(second->IsModified());
}

TEST_F(FolderSave, OfATakenNameAddsNoRow) {
  SavedFolder("Recipes");
  NewFolder("Recipes")->Save();
  EXPECT_EQ(Count(connection(), "Folders"), 13);
}

TEST_F(FolderSave, OfATakenNameRecordsItBeforeAnyOldFailureOfTheProvider) {
  EXPECT_EQ(session->GetFolderIDByCriteria("NoSuchColumn=1"), -1);
  SavedFolder("Recipes");
  NewFolder("Recipes")->Save();
  EXPECT_EQ(session->GetErrorCode(), 1000);
}

TEST_F(FolderSave, OfANameTakenUnderAnotherParentSucceeds) {
  SavedFolder("Recipes", 3);
  EXPECT_TRUE(NewFolder("Recipes", 4)->Save());
}

TEST_F(FolderSave, OfANameTakenInAnotherLetterCaseReturnsFalse) {
  SavedFolder("Recipes");
  EXPECT_FALSE(NewFolder("RECIPES")->Save());
}

TEST_F(FolderSave, OfANameTakenInAnotherCaseOfAForeignLetterReturnsFalse) {
  SavedFolder("Übung");
  EXPECT_FALSE(NewFolder("übung")->Save());
}

TEST_F(FolderSave, OfANameWithAnotherAccentSucceeds) {
  SavedFolder("Café");
  EXPECT_TRUE(NewFolder("Cafe")->Save());
}

TEST_F(FolderSave, OfATakenNameWithAnApostropheReturnsFalse) {
  SavedFolder("O'Brien");
  EXPECT_FALSE(NewFolder("O'Brien")->Save());
  EXPECT_EQ(session->GetErrorCode(), 1000);
}

TEST_F(FolderSave, OfANameWithPatternSignsDoesNotMatchOthers) {
  SavedFolder("Recipes");
  EXPECT_TRUE(NewFolder("Recipe%")->Save());
}

TEST_F(FolderSave, OfAnUnchangedOneChecksTheNameToo) {
  const Ref<CFolder> folder = SavedFolder("Recipes");
  connection().Execute("INSERT INTO Folders (FLD_ID, FLD_ParentID, FLD_Name) VALUES (77, 0, 'Recipes')");
  EXPECT_FALSE(folder->Save());
  EXPECT_EQ(session->GetErrorCode(), 1000);
}

TEST_F(FolderSave, RenamedOntoATakenNameReturnsFalse) {
  SavedFolder("Recipes");
  const Ref<CFolder> other = SavedFolder("Other");
  other->Name = "Recipes";
  EXPECT_FALSE(other->Save());
}

TEST_F(FolderSave, MovedOntoATakenNameReturnsFalse) {
  SavedFolder("Recipes", 3);
  const Ref<CFolder> other = SavedFolder("Recipes", 4);
  other->ParentID = 3;
  EXPECT_FALSE(other->Save());
}

TEST_F(FolderSave, CanBeRepeatedUnderAFreeName) {
  SavedFolder("Recipes");
  const Ref<CFolder> folder = NewFolder("Recipes");
  folder->Save();
  folder->Name = "More Recipes";
  EXPECT_TRUE(folder->Save());
  EXPECT_EQ(session->GetFolder(folder->ID)->Name.get(), "More Recipes");
}

TEST_F(FolderSave, OfAnEmptyNameTwiceUnderOneParentInsertsBoth) {
  SavedFolder("", 4);
  EXPECT_TRUE(NewFolder("", 4)->Save()) << "the first row holds no name at all, which equals nothing";
}

TEST_F(FolderSave, OfAnEmptyNameLeavesNullInANewRow) {
  const Ref<CFolder> folder = SavedFolder("", 4);
  EXPECT_EQ(Scalar("SELECT FLD_Name FROM Folders WHERE FLD_ID=" + std::to_string(folder->ID)), "Null");
}

TEST_F(FolderSave, OfAnEmptiedNameLeavesTheEmptyText) {
  const Ref<CFolder> folder = SavedFolder("Recipes", 4);
  folder->Name = "";
  ASSERT_TRUE(folder->Save()) << session->GetEntireErrorDesc();
  EXPECT_EQ(Scalar("SELECT FLD_Name FROM Folders WHERE FLD_ID=" + std::to_string(folder->ID)), "");
}

TEST_F(FolderSave, OfAnEmptyDescriptionWritesTheEmptyText) {
  const Ref<CFolder> folder = SavedFolder("Recipes", 4);
  EXPECT_EQ(Scalar("SELECT FLD_Description FROM Folders WHERE FLD_ID=" + std::to_string(folder->ID)), "");
}

TEST_F(FolderSave, TakesTheFreeTypeToo) {
  const Ref<CFolder> folder = NewFolder("Recipes");
  folder->ItemsType = 5;
  EXPECT_TRUE(folder->Save());
  EXPECT_EQ(session->GetFolder(folder->ID)->ItemsType.get(), 5);
}

TEST_F(FolderSave, ThatRunsOutOfMemoryIsUndone) {
  const Ref<CFolder> folder = NewFolder("Recipes");
  const auto log = Watch(connection());
  log->refused = {"INSERT INTO Folders"};
  log->out_of_memory = true;
  EXPECT_FALSE(folder->Save());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CFolder.Save] Error: 7 - Out of memory");
  EXPECT_EQ(Depth(), 0);
  EXPECT_TRUE(folder->IsNew() && folder->IsModified());
}

TEST_F(FolderSave, OnAClosedConnectionIsRecordedInItsOwnName) {
  const Ref<CFolder> folder = NewFolder("Recipes");
  connection().Close();
  EXPECT_FALSE(folder->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CFolder.Save");
  EXPECT_EQ(session->GetErrorCode(), 3704);
}

TEST_F(FolderSave, TakesAParentThatDoesNotExist) { EXPECT_TRUE(NewFolder("Orphan", 4711)->Save()); }

TEST_F(FolderSave, RenamesAProtectedFolder) {
  const Ref<CFolder> folder = session->GetFolder(8);
  folder->Name = "Feasts";
  EXPECT_TRUE(folder->Save());
  EXPECT_EQ(session->GetFolder(8)->Name.get(), "Feasts");
}

TEST_F(FolderSave, MovesAProtectedFolder) {
  const Ref<CFolder> folder = session->GetFolder(8);
  folder->ParentID = 4;
  EXPECT_TRUE(folder->Save());
  EXPECT_EQ(session->GetFolder(8)->ParentID.get(), 4);
}

TEST_F(FolderSave, TakesTheProtectionAway) {
  const Ref<CFolder> folder = session->GetFolder(8);
  folder->Protected = false;
  EXPECT_TRUE(folder->Save());
  EXPECT_EQ(Scalar("SELECT FLD_Protected FROM Folders WHERE FLD_ID=8"), "0");
}

TEST_F(FolderSave, OfAMissingRowUpdatesNothingAndReturnsTrue) {
  const Ref<CFolder> folder = session->GetFolder(8);
  connection().Execute("DELETE * FROM Folders WHERE FLD_ID=8");
  folder->Options = 5;
  EXPECT_TRUE(folder->Save());
  EXPECT_EQ(session->GetFolder(8), nullptr);
}

}  // namespace
}  // namespace zef::test
