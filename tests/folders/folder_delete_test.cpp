#include <gmock/gmock.h>

#include "tests/folders/folder_tree_fixture.h"

namespace zef::test {
namespace {

/// A folder of tasks, number 100.
class FolderDelete : public FolderTreeTest {
 protected:
  FolderDelete() { InsertFolder(100, 0, FT_TASKS); }

  void ExpectFailsWithNothingChanged(std::int32_t folder) {
    const std::string before = Everything();
    EXPECT_FALSE(session->DeleteFolder(folder));
    EXPECT_TRUE(Everything() == before);
    EXPECT_FALSE(session->TransactionStarted());
    EXPECT_EQ(Depth(), 0);
  }
};

TEST_F(FolderDelete, OfAnEmptyFolderSendsTheseStatements) {
  EXPECT_TRUE(session->DeleteFolder(100));
  EXPECT_EQ(SentInAll(), (Texts{"BEGIN", "SELECT * FROM Folders WHERE FLD_ID=100",
                                "SELECT * FROM Tasks WHERE TSK_FolderID=100 ORDER BY TSK_Name ASC",
                                "SELECT * FROM Folders WHERE FLD_ParentID=100 ORDER BY FLD_NAME ",
                                "DELETE * FROM Folders WHERE FLD_ID=100", "COMMIT"}));
  EXPECT_EQ(Rows("Folders WHERE FLD_ID=100"), 0);
}

TEST_F(FolderDelete, TakesTasksWithTheirChildrenAndEvents) {
  InsertTasks(100, 1, 5);
  EXPECT_TRUE(session->DeleteFolder(100)) << session->GetEntireErrorDesc();
  EXPECT_EQ(Rows("Tasks") + Rows("Recurrences") + Rows("Notifications"), 0);
}

TEST_F(FolderDelete, TakesEvents) {
  Run("UPDATE Folders SET FLD_Type=4 WHERE FLD_ID=100");
  InsertEvents(100, 1, 3);
  EXPECT_TRUE(session->DeleteFolder(100)) << session->GetEntireErrorDesc();
  EXPECT_EQ(Rows("Events") + Rows("Recurrences") + Rows("Notifications"), 0);
}

TEST_F(FolderDelete, TakesContactsWithTheirBirthdays) {
  Run("UPDATE Folders SET FLD_Type=1 WHERE FLD_ID=100");
  InsertContact(100, 7);
  const std::int32_t birthdays = session->GetFolderIDByCriteria("FLD_Protected=1 and FLD_Name='Birthdays'");
  Run("INSERT INTO Events (EVE_ID,EVE_Type,EVE_LinkID,EVE_FolderID) VALUES (1,'B',7," + std::to_string(birthdays) +
      ")");
  EXPECT_TRUE(session->DeleteFolder(100)) << session->GetEntireErrorDesc();
  EXPECT_EQ(Rows("Contacts") + Rows("Events"), 0);
}

TEST_F(FolderDelete, TakesNotes) {
  Run("UPDATE Folders SET FLD_Type=3 WHERE FLD_ID=100");
  InsertNotes(100, 1, 3);
  EXPECT_TRUE(session->DeleteFolder(100)) << session->GetEntireErrorDesc();
  EXPECT_EQ(Rows("Notes"), 0);
}

TEST_F(FolderDelete, TakesAlarms) {
  Run("UPDATE Folders SET FLD_Type=6 WHERE FLD_ID=100");
  InsertAlarms(100, 1, 3);
  EXPECT_TRUE(session->DeleteFolder(100)) << session->GetEntireErrorDesc();
  EXPECT_EQ(Rows("Alarms") + Rows("Recurrences") + Rows("Notifications"), 0);
}

TEST_F(FolderDelete, TakesEachChildsItemsByTheChildsOwnType) {
  InsertFolder(101, 100, FT_EVENTS);
  InsertTasks(100, 1, 1);
  InsertEvents(101, 11, 2);
  EXPECT_TRUE(session->DeleteFolder(100)) << session->GetEntireErrorDesc();
  EXPECT_EQ(Rows("Events") + Rows("Tasks") + Rows("Folders WHERE FLD_ID>=100"), 0);
}

TEST_F(FolderDelete, GoesDepthFirstThroughTheChildrenInTheOrderOfTheirNames) {
  InsertFolder(101, 100, 5, "b");
  InsertFolder(102, 100, 5, "A");
  InsertFolder(103, 102, 5, "deep");
  EXPECT_TRUE(session->DeleteFolder(100));
  Texts deleted;
  for (const std::string& text : Sent()) {
    if (text.starts_with("DELETE")) deleted.push_back(text.substr(text.find('=') + 1));
  }
  EXPECT_EQ(deleted, (Texts{"103", "102", "101", "100"}));
}

TEST_F(FolderDelete, LeavesWhatLiesBesideIt) {
  InsertFolder(200, 0, FT_TASKS);
  InsertTasks(200, 1, 2);
  EXPECT_TRUE(session->DeleteFolder(100));
  EXPECT_EQ(Rows("Tasks"), 2);
  EXPECT_EQ(Rows("Folders WHERE FLD_ID=200"), 1);
}

TEST_F(FolderDelete, OfTheFreeTypeLeavesItemsAndTakesChildFolders) {
  Run("UPDATE Folders SET FLD_Type=5 WHERE FLD_ID=100");
  InsertFolder(101, 100, FT_TASKS);
  InsertTasks(100, 1, 2);
  InsertTasks(101, 11, 2);
  EXPECT_TRUE(session->DeleteFolder(100));
  EXPECT_EQ(Rows("Tasks"), 2) << "those that point at a folder without items";
  EXPECT_EQ(Rows("Folders WHERE FLD_ID>=100"), 0);
}

TEST_F(FolderDelete, TakesAProtectedFolderToo) {
  Run("UPDATE Folders SET FLD_Protected=1 WHERE FLD_ID=100");
  EXPECT_TRUE(session->DeleteFolder(100));
  EXPECT_EQ(Rows("Folders WHERE FLD_ID=100"), 0);
}

TEST_F(FolderDelete, OfAnUnknownFolderFailsWithAClearRecord) {
  LeaveAnOldError();
  ExpectFailsWithNothingChanged(99);
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(FolderDelete, IsRefusedAtOnceToASessionThatMayOnlyRead) {
  InsertTasks(100, 1, 1);
  session->UserRights = DataViewer;
  ExpectFailsWithNothingChanged(100);
  EXPECT_EQ(session->GetEntireErrorDesc(),
            "[CSession.DeleteFolder] Error: 105 - You don't have rights to insert/edit data");
  EXPECT_EQ(SentInAll(), (Texts{"BEGIN", "ROLLBACK"}));
}

TEST_F(FolderDelete, IsRefusedToAnAdministratorWhoIsAViewerToo) {
  session->UserRights = Administrator | DataViewer;
  ExpectFailsWithNothingChanged(100);
  EXPECT_EQ(session->GetErrorCode(), 105);
}

TEST_F(FolderDelete, LeavesTheFlagOfTheTransactionAlone) {
  EXPECT_TRUE(session->DeleteFolder(100));
  EXPECT_FALSE(session->TransactionStarted());
  EXPECT_EQ(Depth(), 0);
}

// ---- In a client's transaction

TEST_F(FolderDelete, InTheClientsTransactionIsANestedOne) {
  InsertFolder(101, 100, 5);
  ASSERT_TRUE(session->BeginTransaction());
  EXPECT_TRUE(session->DeleteFolder(100));
  EXPECT_TRUE(session->TransactionStarted());
  ASSERT_TRUE(session->RollbackTransaction());
  EXPECT_EQ(Rows("Folders WHERE FLD_ID>=100"), 2);
}

TEST_F(FolderDelete, ThatFailsInTheClientsTransactionLeavesThatOne) {
  InsertFolder(101, 100, 5);
  ASSERT_TRUE(session->BeginTransaction());
  connection().Execute("INSERT INTO Tasks (TSK_ID) VALUES (99)");
  Refuse("DELETE * FROM Folders WHERE FLD_ID=100");
  EXPECT_FALSE(session->DeleteFolder(100));
  EXPECT_TRUE(session->CommitTransaction());
  EXPECT_EQ(Rows("Folders WHERE FLD_ID>=100"), 2);
  EXPECT_EQ(Rows("Tasks"), 1);
}

TEST_F(FolderDelete, RefusalLeavesTheClientsTransaction) {
  ASSERT_TRUE(session->BeginTransaction());
  connection().Execute("INSERT INTO Tasks (TSK_ID) VALUES (99)");
  session->UserRights = DataViewer;
  EXPECT_FALSE(session->DeleteFolder(100));
  EXPECT_EQ(Depth(), 1);
  EXPECT_TRUE(session->CommitTransaction());
  EXPECT_EQ(Rows("Tasks"), 1);
}

TEST_F(FolderDelete, OfAnUnknownFolderLeavesTheClientsTransaction) {
  ASSERT_TRUE(session->BeginTransaction());
  connection().Execute("INSERT INTO Tasks (TSK_ID) VALUES (99)");
  EXPECT_FALSE(session->DeleteFolder(999));
  EXPECT_EQ(Depth(), 1);
  EXPECT_TRUE(session->CommitTransaction());
  EXPECT_EQ(Rows("Tasks"), 1);
}

TEST_F(FolderDelete, OfTasksInTheClientsTransactionFailsAndUndoesThatOne) {
  InsertTasks(100, 1, 1);
  ASSERT_TRUE(session->BeginTransaction());
  connection().Execute("INSERT INTO Tasks (TSK_ID) VALUES (99)");
  EXPECT_FALSE(session->DeleteFolder(100));
  EXPECT_FALSE(session->TransactionStarted());
  EXPECT_EQ(Depth(), 0);
  EXPECT_EQ(Rows("Tasks"), 1);
  EXPECT_EQ(Rows("Folders WHERE FLD_ID=100"), 1);
}

// ---- Failures

TEST_F(FolderDelete, StopsAtTheFirstChildThatFails) {
  InsertFolder(101, 100, FT_TASKS, "A");
  InsertFolder(102, 100, FT_TASKS, "B");
  InsertTasks(101, 1, 1);
  Refuse("DELETE * FROM Tasks");
  EXPECT_FALSE(session->DeleteFolder(100));
  EXPECT_EQ(session->GetErrorProcedure(), "DeleteTask");
  EXPECT_THAT(SentInAll(), testing::Not(testing::Contains(testing::HasSubstr("102"))));
}

TEST_F(FolderDelete, WhoseThirdOfFiveTasksCannotBeDeletedLeavesAllOfThem) {
  InsertTasks(100, 1, 5);
  Refuse("DELETE * FROM Tasks WHERE TSK_ID=3");
  ExpectFailsWithNothingChanged(100);
  EXPECT_EQ(session->GetErrorProcedure(), "DeleteTask");
}

TEST_F(FolderDelete, WhoseThirdOfFiveEventsCannotBeDeletedLeavesAllOfThem) {
  Run("UPDATE Folders SET FLD_Type=4 WHERE FLD_ID=100");
  InsertEvents(100, 1, 5);
  Refuse("DELETE * FROM Events WHERE EVE_ID=3");
  ExpectFailsWithNothingChanged(100);
  EXPECT_EQ(session->GetErrorProcedure(), "DeleteEvent");
}

TEST_F(FolderDelete, WhoseThirdOfFiveContactsCannotBeDeletedLeavesAllOfThem) {
  Run("UPDATE Folders SET FLD_Type=1 WHERE FLD_ID=100");
  for (std::int32_t id = 1; id <= 5; ++id) InsertContact(100, id);
  Refuse("DELETE * FROM Contacts WHERE CNT_ID=3");
  ExpectFailsWithNothingChanged(100);
  EXPECT_EQ(session->GetErrorProcedure(), "DeleteContact");
}

TEST_F(FolderDelete, WhoseThirdOfFiveNotesCannotBeDeletedLeavesAllOfThem) {
  Run("UPDATE Folders SET FLD_Type=3 WHERE FLD_ID=100");
  InsertNotes(100, 1, 5);
  Refuse("DELETE * FROM Notes WHERE NOT_ID=3");
  ExpectFailsWithNothingChanged(100);
  EXPECT_EQ(session->GetErrorProcedure(), "DeleteNote");
}

TEST_F(FolderDelete, WhoseThirdOfFiveAlarmsCannotBeDeletedLeavesAllOfThem) {
  Run("UPDATE Folders SET FLD_Type=6 WHERE FLD_ID=100");
  InsertAlarms(100, 1, 5);
  Refuse("DELETE * FROM Alarms WHERE ALA_ID=3");
  ExpectFailsWithNothingChanged(100);
  EXPECT_EQ(session->GetErrorProcedure(), "DeleteAlarm");
}

TEST_F(FolderDelete, ThatFailsAtItsOwnRowIsRecordedAndUndone) {
  InsertTasks(100, 1, 2);
  Refuse("DELETE * FROM Folders");
  ExpectFailsWithNothingChanged(100);
  EXPECT_EQ(session->GetEntireErrorDesc(), "[DeleteFolder] Error: -2147217900 - made to fail");
}

TEST_F(FolderDelete, WhoseRollbackFailsTooRaises) {
  Refuse("DELETE * FROM Folders");
  RefuseRollbacks("second");
  EXPECT_EQ(NumberRaised([&] { session->DeleteFolder(100); }), -2147467259);
  EXPECT_EQ(Depth(), 1);
}

TEST_F(FolderDelete, WhoseRollbackFailsTooKeepsTheFirstFailureOnRecord) {
  Refuse("DELETE * FROM Folders");
  RefuseRollbacks("second");
  EXPECT_TRUE(Raised([&] { session->DeleteFolder(100); }));
  EXPECT_EQ(session->GetEntireErrorDesc(), "[DeleteFolder] Error: -2147217900 - made to fail");
}

TEST_F(FolderDelete, ThatCannotBeginIsRecordedAndRaisesNothing) {
  Refuse("BEGIN");
  ExpectFailsWithNothingChanged(100);
  EXPECT_EQ(session->GetErrorProcedure(), "DeleteFolder");
}

TEST_F(FolderDelete, OfAFolderThatIsItsOwnParentFails) {
  Run("UPDATE Folders SET FLD_ParentID=100 WHERE FLD_ID=100");
  ExpectFailsWithNothingChanged(100);
  EXPECT_EQ(session->GetEntireErrorDesc(),
            "[DeleteFolder] Error: 28 - Out of stack space: the folders go in a circle, so that one of them lies below "
            "itself.");
}

TEST_F(FolderDelete, OfFoldersThatGoInACircleFailsWithNothingChanged) {
  InsertFolder(101, 100, FT_TASKS);
  InsertTasks(101, 1, 2);
  Run("UPDATE Folders SET FLD_ParentID=101 WHERE FLD_ID=100");
  ExpectFailsWithNothingChanged(100);
  EXPECT_EQ(session->GetErrorCode(), 28);
}

}  // namespace
}  // namespace zef::test
