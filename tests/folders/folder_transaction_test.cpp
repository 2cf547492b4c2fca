#include <gtest/gtest.h>

#include "tests/folders/folder_fixture.h"
#include "tests/support/engine_wrapper.h"
#include "tests/support/fault_sweep.h"

namespace zef::test {
namespace {

/// Inside a transaction of the client's.
class FolderSaveInTransaction : public FolderSave {
 protected:
  FolderSaveInTransaction() { EXPECT_TRUE(session->BeginTransaction()); }
};

TEST_F(FolderSaveInTransaction, LeavesItRunning) {
  SavedFolder("Recipes");
  EXPECT_TRUE(session->TransactionStarted());
  EXPECT_EQ(Depth(), 1);
}

TEST_F(FolderSaveInTransaction, IsNotCommitted) {
  SavedFolder("Recipes");
  EXPECT_EQ(Count(*database.Connect(), "Folders"), 12);
}

TEST_F(FolderSaveInTransaction, IsUndoneWithIt) {
  SavedFolder("Recipes");
  session->RollbackTransaction();
  EXPECT_EQ(Count(connection(), "Folders"), 12);
}

TEST_F(FolderSaveInTransaction, ClearsTheFlagsAtOnce) {
  const Ref<CFolder> folder = SavedFolder("Recipes");
  EXPECT_FALSE(folder->IsNew() || folder->IsModified());
}

TEST_F(FolderSaveInTransaction, OfATakenNameLeavesItRunning) {
  SavedFolder("Recipes");
  EXPECT_FALSE(NewFolder("Recipes")->Save());
  EXPECT_TRUE(session->TransactionStarted());
  EXPECT_EQ(Depth(), 1);
}

TEST_F(FolderSaveInTransaction, OfATakenNameKeepsWhatWasWrittenBefore) {
  SavedFolder("Recipes");
  NewFolder("Recipes")->Save();
  EXPECT_TRUE(session->CommitTransaction());
  EXPECT_EQ(Count(*database.Connect(), "Folders"), 13);
}

TEST_F(FolderSaveInTransaction, ThatFailsLeavesItRunning) {
  const Ref<CFolder> folder = NewFolder(std::string(300, 'n'));
  EXPECT_FALSE(folder->Save());
  EXPECT_TRUE(session->TransactionStarted());
  EXPECT_EQ(Depth(), 1);
}

TEST_F(FolderSaveInTransaction, OnTheConnectionAloneIsNested) {
  session->RollbackTransaction();
  connection().BeginTrans();
  SavedFolder("Recipes");
  EXPECT_EQ(Depth(), 1);
  connection().RollbackTrans();
  EXPECT_EQ(Count(connection(), "Folders"), 12);
}

TEST_F(FolderSave, OfANewOneSurvivesTheFailureOfAnyCall) {
  const Ref<CFolder> folder = NewFolder("Recipes");
  const auto failures = FailEachCall(
      database, *session, [&] { return folder->Save(); }, [&] { return FlagsOf(*folder); });
  EXPECT_EQ(failures.size(), 4U) << "begin, check, insert, commit";
  for (const InjectedFailure& failure : failures) EXPECT_EQ(failure.procedure, "CFolder.Save") << failure.call;
  EXPECT_EQ(session->GetFolder(folder->ID)->Name.get(), "Recipes");
}

TEST_F(FolderSave, OfAChangedOneSurvivesTheFailureOfAnyCall) {
  const Ref<CFolder> folder = session->GetFolder(8);
  folder->Name = "Feasts";
  const auto failures = FailEachCall(
      database, *session, [&] { return folder->Save(); }, [&] { return FlagsOf(*folder); });
  EXPECT_EQ(failures.size(), 4U) << "begin, check, update, commit";
  for (const InjectedFailure& failure : failures) EXPECT_EQ(failure.procedure, "CFolder.Save") << failure.call;
  EXPECT_EQ(session->GetFolder(8)->Name.get(), "Feasts");
}

TEST_F(FolderSave, CreationSurvivesTheFailureOfAnyCall) {
  const auto failures = FailEachCall(database, *session, [&] { return session->CreateFolder() != nullptr; });
  EXPECT_EQ(failures.size(), 4U);
}

TEST_F(FolderSave, FailedCommitIsRecordedWithTheProvidersWords) {
  const Ref<CFolder> folder = NewFolder("Recipes");
  Watch(connection())->fail_at = 4;
  EXPECT_FALSE(folder->Save());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CFolder.Save] Error: -2147217900 - made to fail");
}

}  // namespace
}  // namespace zef::test
