#include <gmock/gmock.h>

#include "tests/folders/folder_tree_fixture.h"

namespace zef::test {
namespace {

constexpr char kRolledBack[] = "[RollbackTransaction] Error: ";

/// Folder 100 and the destination 200 stand beside each other.
class FolderCopy : public FolderTreeTest {
 protected:
  FolderCopy() {
    InsertFolder(100, 0, FT_TASKS, "Source");
    InsertFolder(200, 0, FT_TASKS, "Destination");
  }
  std::string CopyID(std::int32_t parent = 200) {
    return Stored("SELECT FLD_ID FROM Folders WHERE FLD_ParentID=" + std::to_string(parent));
  }
  void ExpectFailsWithNothingChanged(std::int32_t source, std::int32_t destination) {
    const std::string before = Everything();
    EXPECT_FALSE(session->CopyFolder(source, destination));
    EXPECT_TRUE(Everything() == before);
    EXPECT_FALSE(session->TransactionStarted());
    EXPECT_EQ(Depth(), 0);
  }
};

// ---- The folder's row

TEST_F(FolderCopy, GivesTheCopyTheNextIdentifierAndTheNewParent) {
  EXPECT_TRUE(session->CopyFolder(100, 200)) << session->GetEntireErrorDesc();
  EXPECT_EQ(CopyID(), "1000");
}

TEST_F(FolderCopy, CarriesNameDescriptionOptionsAndType) {
  Run("UPDATE Folders SET FLD_Description='It''s mine', FLD_Options=7, FLD_Name='O''Neill' WHERE FLD_ID=100");
  EXPECT_TRUE(session->CopyFolder(100, 200));
  const Ref<CFolder> copy = session->GetFolder(1000);
  EXPECT_EQ(copy->Name, "O'Neill");
  EXPECT_EQ(copy->Description, "It's mine");
  EXPECT_EQ(copy->Options, 7);
  EXPECT_EQ(copy->ItemsType, FT_TASKS);
}

TEST_F(FolderCopy, IsNeverProtected) {
  const std::int32_t all_events = session->GetFolderIDByCriteria("FLD_Name='All Events'");
  ASSERT_TRUE(session->GetFolder(all_events)->IsAllEventsFolder());
  EXPECT_TRUE(session->CopyFolder(all_events, 200)) << session->GetEntireErrorDesc();
  const Ref<CFolder> copy = session->GetFolder(1000);
  EXPECT_EQ(copy->Name, "All Events");
  EXPECT_FALSE(copy->Protected);
  EXPECT_FALSE(copy->IsAllEventsFolder());
}

TEST_F(FolderCopy, LeavesTheSourceAsItWas) {
  Run("UPDATE Folders SET FLD_Protected=1 WHERE FLD_ID=100");
  InsertTasks(100, 1, 2);
  EXPECT_TRUE(session->CopyFolder(100, 200));
  EXPECT_EQ(Rows("Folders WHERE FLD_ID=100 AND FLD_ParentID=0 AND FLD_Protected=1"), 1);
  EXPECT_EQ(Rows("Tasks WHERE TSK_FolderID=100"), 2);
}

TEST_F(FolderCopy, StampsTheCopy) {
  EXPECT_TRUE(session->CopyFolder(100, 200));
  EXPECT_EQ(session->GetFolder(1000)->DateLastUpdate, now_);
}

TEST_F(FolderCopy, CommitsWhatItOpened) {
  EXPECT_TRUE(session->CopyFolder(100, 200));
  EXPECT_FALSE(session->TransactionStarted());
  EXPECT_FALSE(session->GetErrorFlag());
}

// ---- What lies in and below it

TEST_F(FolderCopy, CopiesTasksWithTheirChildrenAndEvents) {
  InsertTasks(100, 1, 3);
  Run("UPDATE Tasks SET TSK_DueDate='6/7/2024' WHERE TSK_ID=2");
  EXPECT_TRUE(session->CopyFolder(100, 200)) << session->GetEntireErrorDesc();
  EXPECT_EQ(Rows("Tasks WHERE TSK_FolderID=" + CopyID()), 3);
  EXPECT_EQ(Rows("Notifications"), 6);
  EXPECT_EQ(Rows("Events WHERE EVE_Type='T'"), 1) << "the source's task had no event yet";
}

TEST_F(FolderCopy, CopiesItsItemsBeforeThoseOfItsChildren) {
  InsertFolder(101, 100, FT_TASKS);
  InsertTasks(100, 1, 1);
  InsertTasks(101, 2, 1);
  EXPECT_TRUE(session->CopyFolder(100, 200)) << session->GetEntireErrorDesc();
  EXPECT_EQ(Stored("SELECT TSK_FolderID FROM Tasks WHERE TSK_ID=1000"), "1000");
  EXPECT_EQ(Stored("SELECT TSK_FolderID FROM Tasks WHERE TSK_ID=1001"), "1001");
}

TEST_F(FolderCopy, StopsAtTheFirstChildThatFails) {
  InsertFolder(101, 100, FT_TASKS, "A");
  InsertFolder(102, 100, FT_TASKS, "B");
  InsertTasks(101, 1, 1);
  Refuse("INSERT INTO Tasks");
  EXPECT_FALSE(session->CopyFolder(100, 200));
  EXPECT_EQ(session->GetErrorProcedure(), "CTask.Save");
  EXPECT_THAT(SentInAll(), testing::Not(testing::Contains(testing::HasSubstr("102"))));
}

TEST_F(FolderCopy, CopiesEvents) {
  Run("UPDATE Folders SET FLD_Type=4 WHERE FLD_ID=100");
  InsertEvents(100, 1, 3);
  EXPECT_TRUE(session->CopyFolder(100, 200)) << session->GetEntireErrorDesc();
  EXPECT_EQ(Rows("Events WHERE EVE_FolderID=" + CopyID()), 3);
  EXPECT_EQ(Rows("Recurrences"), 6);
}

TEST_F(FolderCopy, CopiesContactsWithTheirBirthdays) {
  Run("UPDATE Folders SET FLD_Type=1 WHERE FLD_ID=100");
  InsertContact(100, 1);
  EXPECT_TRUE(session->CopyFolder(100, 200)) << session->GetEntireErrorDesc();
  EXPECT_EQ(Rows("Contacts WHERE CNT_LastName='O''Neill' AND CNT_FolderID=" + CopyID()), 1);
  EXPECT_EQ(Rows("Events WHERE EVE_Type='B' AND EVE_LinkID=1000"), 1);
}

TEST_F(FolderCopy, CopiesNotes) {
  Run("UPDATE Folders SET FLD_Type=3 WHERE FLD_ID=100");
  InsertNotes(100, 1, 2);
  EXPECT_TRUE(session->CopyFolder(100, 200)) << session->GetEntireErrorDesc();
  EXPECT_EQ(Rows("Notes WHERE NOT_Text='It''s long' AND NOT_FolderID=" + CopyID()), 2);
}

TEST_F(FolderCopy, CopiesAlarms) {
  Run("UPDATE Folders SET FLD_Type=6 WHERE FLD_ID=100");
  InsertAlarms(100, 1, 2);
  EXPECT_TRUE(session->CopyFolder(100, 200)) << session->GetEntireErrorDesc();
  EXPECT_EQ(Rows("Alarms WHERE ALA_FolderID=" + CopyID()), 2);
  EXPECT_EQ(Rows("Recurrences"), 4);
}

TEST_F(FolderCopy, LeavesItemsOfAnotherKindThanTheFolders) {
  InsertEvents(100, 1, 2);
  EXPECT_TRUE(session->CopyFolder(100, 200));
  EXPECT_EQ(Rows("Events"), 2);
}

TEST_F(FolderCopy, OfTheFreeTypeCopiesNoItemsButItsChildFolders) {
  Run("UPDATE Folders SET FLD_Type=5 WHERE FLD_ID=100");
  InsertFolder(101, 100, FT_TASKS);
  InsertTasks(100, 1, 2);
  InsertTasks(101, 11, 1);
  EXPECT_TRUE(session->CopyFolder(100, 200)) << session->GetEntireErrorDesc();
  EXPECT_EQ(Rows("Tasks"), 4);
  EXPECT_EQ(Rows(Children(1000)), 1);
}

TEST_F(FolderCopy, CopiesTheWholeTreeInTheOrderOfTheNames) {
  InsertFolder(101, 100, FT_TASKS, "b");
  InsertFolder(102, 100, FT_EVENTS, "A");
  InsertFolder(103, 102, FT_TASKS, "deep");
  EXPECT_TRUE(session->CopyFolder(100, 200)) << session->GetEntireErrorDesc();
  EXPECT_EQ(Stored("SELECT FLD_Name FROM Folders WHERE FLD_ID=1001 AND FLD_ParentID=1000"), "A");
  EXPECT_EQ(Stored("SELECT FLD_Name FROM Folders WHERE FLD_ID=1002 AND FLD_ParentID=1001"), "deep");
  EXPECT_EQ(Stored("SELECT FLD_Name FROM Folders WHERE FLD_ID=1003 AND FLD_ParentID=1000"), "b");
}

TEST_F(FolderCopy, SendsItsChecksBeforeItsTransaction) {
  InsertFolder(300, 200, FT_TASKS);
  EXPECT_TRUE(session->CopyFolder(100, 300));
  const Texts sent = SentInAll();
  EXPECT_EQ(Texts(sent.begin(), sent.begin() + 5),
            (Texts{"SELECT * FROM Folders WHERE FLD_ID=100",
                   "SELECT * FROM Folders WHERE FLD_Name='Source' AND FLD_ParentID=300",
                   "SELECT * FROM Folders WHERE FLD_ID=300", "SELECT * FROM Folders WHERE FLD_ID=200", "BEGIN"}));
  EXPECT_EQ(sent.back(), "COMMIT");
}

// ---- Refusals

TEST_F(FolderCopy, IsRefusedToASessionThatMayOnlyReadWithTheTextOfTheRollback) {
  session->UserRights = DataViewer;
  ExpectFailsWithNothingChanged(100, 200);
  EXPECT_EQ(session->GetEntireErrorDesc(), kRolledBack + std::string("105 - No transaction is started."));
  EXPECT_EQ(SentInAll(), Texts{});
}

TEST_F(FolderCopy, OfAnUnknownFolderFailsWithAClearRecord) {
  LeaveAnOldError();
  ExpectFailsWithNothingChanged(99, 200);
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(FolderCopy, ToItsOwnParentIsRefused) {
  InsertFolder(101, 100, FT_TASKS);
  ExpectFailsWithNothingChanged(101, 100);
  EXPECT_EQ(session->GetEntireErrorDesc(),
            "[CSession.CopyFolder] Error: 106 - The destination folder contains a folder with the same name");
}

TEST_F(FolderCopy, OfATakenNameWithAnApostropheIsRefused) {
  Run("UPDATE Folders SET FLD_Name='O''Neill' WHERE FLD_ID=100");
  InsertFolder(201, 200, FT_TASKS, "O''Neill");
  ExpectFailsWithNothingChanged(100, 200);
  EXPECT_EQ(session->GetErrorCode(), 106);
}

TEST_F(FolderCopy, BelowItsOwnChildIsRefused) {
  InsertFolder(101, 100, FT_TASKS);
  ExpectFailsWithNothingChanged(100, 101);
  EXPECT_EQ(session->GetEntireErrorDesc(),
            "[CSession.CopyFolder] Error: 107 - The destination folder is a child of source folder");
}

TEST_F(FolderCopy, BelowItsOwnGrandchildIsRefused) {
  InsertFolder(101, 100, FT_TASKS);
  InsertFolder(102, 101, FT_TASKS);
  ExpectFailsWithNothingChanged(100, 102);
  EXPECT_EQ(session->GetErrorCode(), 107);
}

TEST_F(FolderCopy, ToAFolderThatDoesNotExistFails) {
  ExpectFailsWithNothingChanged(100, 4711);
  EXPECT_EQ(session->GetEntireErrorDesc(), kRolledBack + std::string("91 - No transaction is started."));
}

TEST_F(FolderCopy, ToTheRootFails) {
  InsertFolder(101, 100, FT_TASKS);
  ExpectFailsWithNothingChanged(101, 0);
  EXPECT_EQ(session->GetErrorCode(), 91);
}

TEST_F(FolderCopy, BelowAFolderWhoseParentIsMissingFails) {
  InsertFolder(201, 4711, FT_TASKS);
  ExpectFailsWithNothingChanged(100, 201);
  EXPECT_EQ(session->GetErrorCode(), 91);
}

TEST_F(FolderCopy, InTheClientsTransactionFailsAndUndoesThatOne) {
  ASSERT_TRUE(session->BeginTransaction());
  connection().Execute("INSERT INTO Tasks (TSK_ID) VALUES (99)");
  EXPECT_FALSE(session->CopyFolder(100, 200));
  EXPECT_FALSE(session->TransactionStarted());
  EXPECT_EQ(session->GetErrorDescription(), "A transaction is already started.");
  EXPECT_EQ(Rows("Tasks"), 0);
}

TEST_F(FolderCopy, RefusalUndoesTheClientsTransaction) {
  ASSERT_TRUE(session->BeginTransaction());
  connection().Execute("INSERT INTO Tasks (TSK_ID) VALUES (99)");
  session->UserRights = DataViewer;
  EXPECT_FALSE(session->CopyFolder(100, 200));
  EXPECT_FALSE(session->TransactionStarted());
  EXPECT_EQ(session->GetEntireErrorDesc(),
            "[CSession.CopyFolder] Error: 105 - You don't have rights to insert/edit data");
  EXPECT_EQ(Rows("Tasks"), 0);
}

TEST_F(FolderCopy, ToAnUnknownFolderUndoesTheClientsTransaction) {
  ASSERT_TRUE(session->BeginTransaction());
  connection().Execute("INSERT INTO Tasks (TSK_ID) VALUES (99)");
  EXPECT_FALSE(session->CopyFolder(100, 4711));
  EXPECT_FALSE(session->TransactionStarted());
  EXPECT_EQ(session->GetErrorProcedure(), "CopyFolder");
  EXPECT_EQ(session->GetErrorCode(), 91);
  EXPECT_EQ(Rows("Tasks"), 0);
}

TEST_F(FolderCopy, BelowItselfOrOfAnUnknownFolderLeavesTheClientsTransaction) {
  InsertFolder(101, 100, FT_TASKS);
  ASSERT_TRUE(session->BeginTransaction());
  EXPECT_FALSE(session->CopyFolder(100, 101));
  EXPECT_FALSE(session->CopyFolder(99, 200));
  EXPECT_TRUE(session->TransactionStarted());
  EXPECT_EQ(Depth(), 1);
}

TEST_F(FolderCopy, OfATakenNameLeavesTheClientsTransaction) {
  InsertFolder(101, 100, FT_TASKS);
  ASSERT_TRUE(session->BeginTransaction());
  EXPECT_FALSE(session->CopyFolder(101, 100));
  EXPECT_TRUE(session->TransactionStarted());
}

// ---- Rows without an end

TEST_F(FolderCopy, IntoItselfFailsWithNothingChanged) {
  InsertTasks(100, 1, 2);
  ExpectFailsWithNothingChanged(100, 100);
  EXPECT_EQ(session->GetEntireErrorDesc(),
            "[CopyFolder] Error: 28 - Out of stack space: a folder cannot be copied into itself.");
}

TEST_F(FolderCopy, IntoItselfFailsWithNothingChangedWhenSiblingsOfTheCopyComeFirst) {
  InsertFolder(101, 100, FT_TASKS, "A");
  InsertFolder(102, 101, FT_TASKS, "deep");
  InsertTasks(101, 1, 2);
  ExpectFailsWithNothingChanged(100, 100);
  EXPECT_EQ(session->GetErrorCode(), 28);
}

TEST_F(FolderCopy, IntoItselfIsHiddenByAnOldFailureOfTheProvider) {
  LeaveAnOldProviderError();
  ExpectFailsWithNothingChanged(100, 100);
  EXPECT_EQ(session->GetErrorProcedure(), "CopyFolder");
  EXPECT_EQ(session->GetErrorCode(), -2147217865);
}

TEST_F(FolderCopy, ToAFolderThatDoesNotExistIsHiddenByAnOldFailureOfTheProvider) {
  LeaveAnOldProviderError();
  ExpectFailsWithNothingChanged(100, 4711);
  EXPECT_EQ(session->GetEntireErrorDesc(), kRolledBack + std::string("-2147217865 - No transaction is started."));
}

TEST_F(FolderCopy, OfAFolderThatIsItsOwnParentFails) {
  Run("UPDATE Folders SET FLD_ParentID=100 WHERE FLD_ID=100");
  ExpectFailsWithNothingChanged(100, 200);
  EXPECT_EQ(session->GetErrorCode(), 28);
}

TEST_F(FolderCopy, OfFoldersThatGoInACircleFails) {
  InsertFolder(101, 100, FT_TASKS);
  InsertFolder(102, 101, FT_TASKS);
  Run("UPDATE Folders SET FLD_ParentID=102 WHERE FLD_ID=100");
  ExpectFailsWithNothingChanged(100, 200);
  EXPECT_EQ(session->GetErrorCode(), 28);
}

TEST_F(FolderCopy, BelowFoldersThatGoInACircleFails) {
  InsertFolder(201, 202, FT_TASKS);
  InsertFolder(202, 201, FT_TASKS);
  ExpectFailsWithNothingChanged(100, 201);
  EXPECT_EQ(session->GetEntireErrorDesc(), kRolledBack + std::string("28 - No transaction is started."));
}

TEST_F(FolderCopy, OfManyLevelsSucceeds) {
  for (std::int32_t id = 101; id < 160; ++id) InsertFolder(id, id - 1, FT_TASKS);
  EXPECT_TRUE(session->CopyFolder(100, 200)) << session->GetEntireErrorDesc();
  EXPECT_EQ(Rows("Folders WHERE FLD_ID>=1000"), 60);
}

TEST_F(FolderCopy, OfMoreThanAThousandLevelsFails) {
  ASSERT_TRUE(session->BeginTransaction());
  for (std::int32_t id = 2001; id <= 3000; ++id) {
    connection().Execute("INSERT INTO Folders (FLD_ID,FLD_ParentID,FLD_Type) VALUES (" + std::to_string(id) + "," +
                         std::to_string(id == 2001 ? 100 : id - 1) + ",5)");
  }
  ASSERT_TRUE(session->CommitTransaction());
  ExpectFailsWithNothingChanged(100, 200);
  EXPECT_EQ(session->GetErrorCode(), 28);
  Run("DELETE * FROM Folders WHERE FLD_ID=3000");
  EXPECT_TRUE(session->CopyFolder(100, 200)) << "a thousand levels: " << session->GetEntireErrorDesc();
}

// ---- Failures on the way

TEST_F(FolderCopy, OfTwoChildrenWithOneNameFailsInTheNameOfTheFolder) {
  InsertFolder(101, 100, FT_TASKS, "same");
  InsertFolder(102, 100, FT_TASKS, "same");
  ExpectFailsWithNothingChanged(100, 200);
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CFolder.Save] Error: 1000 - A folder with this name already exists");
}

TEST_F(FolderCopy, WithoutItsSequenceFailsWithNothingChanged) {
  Run("DELETE * FROM Sequences WHERE SEQ_ID=12");
  ExpectFailsWithNothingChanged(100, 200);
  EXPECT_EQ(session->GetErrorProcedure(), "GetUniqueIDFromSeq");
}

TEST_F(FolderCopy, ThatCannotBeginEndsWithTheTextOfTheRollback) {
  Refuse("BEGIN");
  EXPECT_FALSE(session->CopyFolder(100, 200));
  EXPECT_EQ(session->GetEntireErrorDesc(), kRolledBack + std::string("-2147217900 - No transaction is started."));
}

TEST_F(FolderCopy, ThatCannotReadTheSourceIsRecordedByTheReading) {
  Refuse("SELECT * FROM Folders WHERE FLD_ID=100");
  EXPECT_FALSE(session->CopyFolder(100, 200));
  EXPECT_EQ(session->GetErrorProcedure(), "GetFolder");
}

TEST_F(FolderCopy, ThatCannotSaveAnItemUndoesTheFolder) {
  InsertTasks(100, 1, 2);
  Refuse("INSERT INTO Tasks");
  ExpectFailsWithNothingChanged(100, 200);
  EXPECT_EQ(session->GetErrorProcedure(), "CTask.Save");
}

}  // namespace
}  // namespace zef::test
