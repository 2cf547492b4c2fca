#include <gtest/gtest.h>

#include "folders/folder.h"
#include "session/collections.h"
#include "tests/support/session_test.h"

namespace zef::test {
namespace {

using FolderLookup = SessionTest;

TEST_F(FolderLookup, GivesTheIdentifierOfTheFolder) {
  EXPECT_EQ(session->GetFolderIDByCriteria("FLD_Protected=1 and FLD_Name='Birthdays'"), 8);
}

TEST_F(FolderLookup, WithoutCriteriaGivesAFolder) { EXPECT_EQ(session->GetFolderIDByCriteria(""), 1); }

TEST_F(FolderLookup, WithoutAnyFolderGivesMinusOne) {
  connection().Execute("DELETE * FROM Folders");
  EXPECT_EQ(session->GetFolderIDByCriteria(""), -1);
}

TEST_F(FolderLookup, ThatFindsNothingGivesMinusOne) { EXPECT_EQ(session->GetFolderIDByCriteria("FLD_ID=99"), -1); }

TEST_F(FolderLookup, ThatFindsNothingIsNoFailure) {
  session->GetFolderIDByCriteria("FLD_ID=99");
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(FolderLookup, ClearsAnOlderRecord) {
  session->RecordError("Earlier", 77, "seven");
  session->GetFolderIDByCriteria("FLD_ID=99");
  EXPECT_EQ(session->GetEntireErrorDesc(), "[] Error: 0 - ");
}

TEST_F(FolderLookup, ThatFailsGivesMinusOne) { EXPECT_EQ(session->GetFolderIDByCriteria("NoSuchColumn=1"), -1); }

TEST_F(FolderLookup, ThatFailsIsRecordedUnderItsName) {
  session->GetFolderIDByCriteria("NoSuchColumn=1");
  EXPECT_TRUE(session->GetErrorFlag());
  EXPECT_EQ(session->GetErrorProcedure(), "GetFolderIDByCriteria");
}

TEST_F(FolderLookup, ThatFindsNullIsRecorded) {
  EXPECT_EQ(session->GetFolderIDByCriteria("1=0 UNION SELECT Null FROM Folders"), -1);
  EXPECT_EQ(session->GetErrorProcedure(), "GetFolderIDByCriteria");
  EXPECT_EQ(session->GetErrorCode(), 94);
}

TEST_F(FolderLookup, MayEndWithAnOrder) {
  EXPECT_EQ(session->GetFolderIDByCriteria("FLD_ID>5 ORDER BY FLD_ID DESC"), 12);
}

TEST_F(FolderLookup, OfAListMayNotEndWithAnOrderBesideItsOwn) {
  EXPECT_FALSE(session->LoadFoldersWithCriteria(MakeRef<CFolders>(), "FLD_ID>5 ORDER BY FLD_ID"));
  EXPECT_EQ(session->GetErrorProcedure(), "LoadFoldersWithCriteria");
  EXPECT_EQ(session->GetErrorCode(), -2147217900);
}

TEST_F(FolderLookup, TakesTheNameInAnyLetterCase) {
  EXPECT_EQ(session->GetFolderIDByCriteria("FLD_Name='bIRTHDAYS'"), 8);
}

TEST_F(FolderLookup, FindsTheFolderOfDueDates) {
  EXPECT_EQ(session->GetFolderIDByCriteria("FLD_Protected=1 and FLD_Name='Tasks Due Dates'"), 9);
}

TEST_F(FolderLookup, FindsTheFolderOfAnniversaries) {
  EXPECT_EQ(session->GetFolderIDByCriteria("FLD_Protected=1 and FLD_Name='Anniversaries'"), 7);
}

TEST_F(FolderLookup, OfPhoneCallNotesFindsNothingInANewDatabase) {
  EXPECT_EQ(session->GetFolderID4PhoneCallNotes(), -1);
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(FolderLookup, OfPhoneCallNotesFindsTheNameItAsksFor) {
  connection().Execute("UPDATE Folders SET FLD_Name='Phone Calls Notes' WHERE FLD_ID=12");
  EXPECT_EQ(session->GetFolderID4PhoneCallNotes(), 12);
}

TEST_F(FolderLookup, OfPhoneCallNotesFindsProtectedFoldersOnly) {
  connection().Execute("UPDATE Folders SET FLD_Name='Phone Calls Notes', FLD_Protected=0 WHERE FLD_ID=12");
  EXPECT_EQ(session->GetFolderID4PhoneCallNotes(), -1);
}

TEST_F(FolderLookup, OfPhoneCallNotesIsRecordedUnderItsName) {
  connection().Execute("DROP TABLE Folders");
  EXPECT_EQ(session->GetFolderID4PhoneCallNotes(), -1);
  EXPECT_EQ(session->GetErrorProcedure(), "GetFolderID4PhoneCallNotes");
}

TEST_F(FolderLookup, OfCompletedTasksFindsTheFolder) { EXPECT_EQ(session->GetFolderID4Completedtasks(), 10); }

TEST_F(FolderLookup, OfCompletedTasksFindsFoldersOfTasksOnly) {
  connection().Execute("UPDATE Folders SET FLD_Type=3 WHERE FLD_ID=10");
  EXPECT_EQ(session->GetFolderID4Completedtasks(), -1);
}

TEST_F(FolderLookup, OfCompletedTasksIsRecordedUnderItsName) {
  connection().Execute("DROP TABLE Folders");
  EXPECT_EQ(session->GetFolderID4Completedtasks(), -1);
  EXPECT_EQ(session->GetErrorProcedure(), "GetFolderID4Completedtasks");
}

TEST_F(FolderLookup, OfCompletedTasksClearsAnOlderRecord) {
  session->RecordError("Earlier", 77, "seven");
  session->GetFolderID4Completedtasks();
  EXPECT_FALSE(session->GetErrorFlag());
}

class FolderTree : public SessionTest {
 protected:
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const Ref<CFolder>& folder : *folders) names.push_back(folder->Name);
    return names;
  }
  using Texts = std::vector<std::string>;
  Ref<CFolders> folders = MakeRef<CFolders>();
};

TEST_F(FolderTree, RootsAreThoseWithoutParentSortedByName) {
  EXPECT_TRUE(session->LoadRootFolders(folders));
  EXPECT_EQ(Names(), (Texts{"Alarms", "Calendar", "Contacts", "Notes", "Tasks"}));
}

TEST_F(FolderTree, RootsDoNotIncludeThoseWithAnUnknownParent) {
  connection().Execute("UPDATE Folders SET FLD_ParentID=Null WHERE FLD_ID=5");
  session->LoadRootFolders(folders);
  EXPECT_EQ(Names(), (Texts{"Calendar", "Contacts", "Notes", "Tasks"}));
}

TEST_F(FolderTree, ChildrenAreThoseOfTheParentSortedByName) {
  EXPECT_TRUE(session->LoadChildFolders(folders, 1));
  EXPECT_EQ(Names(), (Texts{"All Events", "Anniversaries", "Birthdays", "Tasks Due Dates"}));
}

TEST_F(FolderTree, ChildrenDoNotIncludeTheirOwnChildren) {
  connection().Execute("INSERT INTO Folders (FLD_ID, FLD_ParentID, FLD_Name) VALUES (20, 8, 'Grandchild')");
  session->LoadChildFolders(folders, 1);
  EXPECT_EQ(folders->Count(), 4);
}

TEST_F(FolderTree, ChildrenOfALeafAreNone) {
  EXPECT_TRUE(session->LoadChildFolders(folders, 8));
  EXPECT_EQ(folders->Count(), 0);
}

TEST_F(FolderTree, ChildrenOfZeroAreTheRoots) {
  session->LoadChildFolders(folders, 0);
  EXPECT_EQ(folders->Count(), 5);
}

TEST_F(FolderTree, RootsThatFailAreRecordedUnderTheListing) {
  connection().Execute("DROP TABLE Folders");
  EXPECT_FALSE(session->LoadRootFolders(folders));
  EXPECT_EQ(session->GetErrorProcedure(), "LoadFoldersWithCriteria");
}

TEST_F(FolderTree, ChildrenThatFailAreRecordedUnderTheListing) {
  connection().Execute("DROP TABLE Folders");
  EXPECT_FALSE(session->LoadChildFolders(folders, 1));
  EXPECT_EQ(session->GetErrorProcedure(), "LoadFoldersWithCriteria");
}

TEST_F(FolderTree, CanBeWalkedFromTheRootsToEveryFolder) {
  std::int32_t seen = 0;
  session->LoadRootFolders(folders);
  for (const Ref<CFolder>& root : *folders) {
    const auto children = MakeRef<CFolders>();
    EXPECT_TRUE(session->LoadChildFolders(children, root->ID));
    seen += 1 + children->Count();
  }
  EXPECT_EQ(seen, 12);
}

}  // namespace
}  // namespace zef::test
