#include "session/collections.h"
#include "tests/support/fault_sweep.h"
#include "tests/support/item_expectations.h"
#include "tests/support/raised.h"
#include "tests/tasks/task_fixture.h"

namespace zef::test {
namespace {

constexpr char kRefusal[] = "You don't have rights to insert/edit data";

class TaskOperations : public DueDateEventTest {
 protected:
  /// A stored task with a rule, a notification and a due date: number 1, as its children and its event.
  std::int32_t FullStoredTask() {
    Ref<CTask> task = NewTask();
    task->Name = "Practise";
    task->DueDate = On("6/7/2024");
    task->Recurrence->RType = REC_WEEKLY;
    task->Notification->Subject = "Sing";
    EXPECT_TRUE(task->Save()) << session->GetEntireErrorDesc();
    Forget();
    return task->ID;
  }
  void ExpectAllThere() {
    EXPECT_EQ(Rows("Tasks"), 1);
    EXPECT_EQ(Rows("Recurrences"), 2) << "the task's and the event's";
    EXPECT_EQ(Rows("Notifications"), 1);
    EXPECT_EQ(Rows("Events"), 1);
  }
};

// ---- Loading

TEST_F(TaskOperations, TasksOfASubfolderAreNotLoadedWithTheParent) {
  Run("INSERT INTO Tasks (TSK_ID,TSK_FolderID) VALUES (1,5)");
  Run("INSERT INTO Tasks (TSK_ID,TSK_FolderID) VALUES (2,6)");
  Run("UPDATE Folders SET FLD_ParentID=5 WHERE FLD_ID=6");
  const auto tasks = Loaded(&CSession::LoadTasks4Folder, 5);
  EXPECT_EQ(tasks->Count(), 1);
}

TEST_F(TaskOperations, FolderNamedAllTasksHoldsOnlyItsOwnTasks) {
  Run("INSERT INTO Tasks (TSK_ID,TSK_FolderID) VALUES (1,11)");
  Run("INSERT INTO Tasks (TSK_ID,TSK_FolderID) VALUES (2,3)");
  const auto tasks = Loaded(&CSession::LoadTasks4Folder, 11);
  ASSERT_EQ(tasks->Count(), 1);
  EXPECT_EQ(tasks->ItemByIdx(1)->ID, 1);
}

// ---- DuplicateTask

TEST_F(TaskOperations, DuplicateTakesTheNextNumbersOfTaskRuleAndNotificationInThisOrder) {
  SetSequences({{2, 40}, {8, 80}, {7, 70}});
  Run("INSERT INTO Tasks (TSK_ID) VALUES (1)");
  const Ref<CTask> copy = session->DuplicateTask(1);
  EXPECT_EQ(SequencesDrawn(), (Texts{"2", "8", "7"}));
  ExpectNumbers(*copy, 41, 81, 71);
}

TEST_F(TaskOperations, DuplicateIsNewAndModifiedWithItsChildren) {
  const Ref<CTask> copy = session->DuplicateTask(FullStoredTask());
  ExpectNewWithChildren(*copy);
}

TEST_F(TaskOperations, DuplicateCarriesTheOldValues) {
  const Ref<CTask> copy = session->DuplicateTask(FullStoredTask());
  EXPECT_EQ(copy->Name, "Practise");
  EXPECT_EQ(copy->Recurrence->RType, REC_WEEKLY);
  EXPECT_EQ(copy->Notification->Subject, "Sing");
}

TEST_F(TaskOperations, DuplicateHasNoRowUntilItIsSaved) {
  session->DuplicateTask(FullStoredTask());
  ExpectAllThere();
}

TEST_F(TaskOperations, SavedDuplicateHasChildrenAndAnEventOfItsOwn) {
  const Ref<CTask> copy = session->DuplicateTask(FullStoredTask());
  ASSERT_TRUE(copy->Save()) << session->GetEntireErrorDesc();
  EXPECT_EQ(Rows("Tasks"), 2);
  EXPECT_EQ(Rows("Recurrences"), 4);
  EXPECT_EQ(Rows("Notifications"), 2);
  EXPECT_EQ(Rows("Events WHERE EVE_LinkID=2 AND EVE_Type='T'"), 1);
}

TEST_F(TaskOperations, SavedDuplicateLeavesTheOldRowsAsTheyWere) {
  const Ref<CTask> copy = session->DuplicateTask(FullStoredTask());
  copy->Name = "Perform";
  copy->Recurrence->RType = REC_DAILY;
  ASSERT_TRUE(copy->Save());
  EXPECT_EQ(Stored("SELECT TSK_Name FROM Tasks WHERE TSK_ID=1"), "Practise");
  EXPECT_EQ(Stored("SELECT TSK_RecurrenceID FROM Tasks WHERE TSK_ID=1"), "1");
  EXPECT_EQ(Stored("SELECT REC_Type FROM Recurrences WHERE REC_ID=1"), "2");
}

TEST_F(TaskOperations, SavedDuplicateWithoutChildrenDeletesThemUnderTheirPlaceholders) {
  SetSequences({{7, 70}, {8, 80}});
  Run("INSERT INTO Tasks (TSK_ID) VALUES (99)");
  const Ref<CTask> copy = session->DuplicateTask(99);
  Forget();
  ASSERT_TRUE(copy->Save());
  EXPECT_THAT(Sent(), testing::ElementsAre("DELETE * FROM Notifications WHERE NTF_ID=71",
                                           "DELETE * FROM Recurrences WHERE REC_ID=81",
                                           testing::StartsWith("INSERT INTO Tasks (TSK_ID,")));
  EXPECT_EQ(Stored("SELECT TSK_RecurrenceID FROM Tasks WHERE TSK_ID=1"), "-1");
  EXPECT_EQ(Stored("SELECT TSK_NotificationID FROM Tasks WHERE TSK_ID=1"), "-1");
}

TEST_F(TaskOperations, DuplicateOfATaskWithDanglingReferencesHasEmptyChildren) {
  Run("INSERT INTO Tasks (TSK_ID,TSK_RecurrenceID,TSK_NotificationID) VALUES (99,555,666)");
  const Ref<CTask> copy = session->DuplicateTask(99);
  EXPECT_TRUE(copy->Recurrence->IsEmpty());
  EXPECT_TRUE(copy->Save());
  EXPECT_EQ(Stored("SELECT TSK_RecurrenceID FROM Tasks WHERE TSK_ID=1"), "-1");
}

TEST_F(TaskOperations, DuplicateKeepsApostrophesAndForeignSigns) {
  const std::string name =
      "O'Neill \xF0\x9F\x8E\xB5 \xC3\x9C"
      "bung";
  Ref<CTask> task = NewTask();
  task->Name = name;
  ASSERT_TRUE(task->Save());
  ASSERT_TRUE(session->DuplicateTask(task->ID)->Save());
  EXPECT_EQ(Stored("SELECT TSK_Name FROM Tasks WHERE TSK_ID=2"), name);
}

TEST_F(TaskOperations, DuplicateOfAnUnknownTaskGivesNothingAndNoError) {
  LeaveAnOldError();
  EXPECT_FALSE(session->DuplicateTask(99));
  EXPECT_FALSE(session->GetErrorFlag());
  EXPECT_EQ(Stored("SELECT SEQ_Value FROM Sequences WHERE SEQ_ID=2"), "0");
}

TEST_F(TaskOperations, DuplicateIsRefusedToASessionThatMayOnlyRead) {
  const std::int32_t id = FullStoredTask();
  session->UserRights = DataViewer;
  EXPECT_FALSE(session->DuplicateTask(id));
  EXPECT_EQ(session->GetEntireErrorDesc(), std::string("[CSession.DuplicateTask] Error: 105 - ") + kRefusal);
  EXPECT_EQ(SentInAll(), Texts{});
}

TEST_F(TaskOperations, DuplicateWithoutOneOfItsSequencesGivesNothing) {
  Run("INSERT INTO Tasks (TSK_ID) VALUES (99)");
  for (const char* sequence : {"7", "8", "2"}) {
    Run(std::string("DELETE * FROM Sequences WHERE SEQ_ID=") + sequence);
    EXPECT_FALSE(session->DuplicateTask(99)) << sequence;
    EXPECT_EQ(session->GetErrorProcedure(), "GetUniqueIDFromSeq") << sequence;
  }
}

TEST_F(TaskOperations, EveryFailureOfADuplicateGivesNothingAndIsRecorded) {
  const std::int32_t id = FullStoredTask();
  const auto duplicate = [&] { return session->DuplicateTask(id) != nullptr; };
  EXPECT_EQ(FailEachCall(database, *session, duplicate, {}, Unchanged::AllButSequences).size(), 15u)
      << "three selects and three identifiers of four calls";
}

// ---- DeleteTask

TEST_F(TaskOperations, DeleteRemovesRuleNotificationTaskAndEventInThisOrderInOneTransaction) {
  const std::int32_t id = FullStoredTask();
  const std::string folder = Stored("SELECT EVE_FolderID FROM Events");
  EXPECT_TRUE(session->DeleteTask(id));
  EXPECT_EQ(SentInAll(),
            (Texts{"BEGIN", "SELECT * FROM Tasks WHERE TSK_ID=1", "DELETE * FROM Recurrences WHERE REC_ID=1",
                   "DELETE * FROM Notifications WHERE NTF_ID=1", "DELETE * FROM Tasks WHERE TSK_ID=1",
                   "SELECT FLD_ID FROM Folders WHERE FLD_Protected=1 and FLD_Name='Tasks Due Dates'",
                   "DELETE FROM Events WHERE EVE_Type='T' and EVE_LinkID=1 AND EVE_FolderID=" + folder, "COMMIT"}));
  EXPECT_EQ(Rows("Tasks") + Rows("Notifications") + Rows("Events"), 0);
}

TEST_F(TaskOperations, DeleteLeavesTheRuleOfTheEvent) {
  EXPECT_TRUE(session->DeleteTask(FullStoredTask()));
  EXPECT_EQ(Rows("Recurrences"), 1);
}

TEST_F(TaskOperations, DeleteLeavesOtherTasksTheirChildrenAndEvents) {
  const std::int32_t id = FullStoredTask();
  FullStoredTask();
  EXPECT_TRUE(session->DeleteTask(id));
  EXPECT_EQ(Rows("Tasks WHERE TSK_ID=2"), 1);
  EXPECT_EQ(Rows("Events WHERE EVE_LinkID=2"), 1);
  EXPECT_EQ(Rows("Notifications"), 1);
}

TEST_F(TaskOperations, DeleteLeavesEventsOfOtherTypesAndFoldersWithTheSameLink) {
  const std::int32_t id = FullStoredTask();
  Run("INSERT INTO Events (EVE_ID,EVE_Type,EVE_LinkID,EVE_FolderID) VALUES (50,'T',1,4711)");
  Run("INSERT INTO Events (EVE_ID,EVE_Type,EVE_LinkID,EVE_FolderID) SELECT 51,'B',1,EVE_FolderID FROM Events "
      "WHERE EVE_ID=1");
  EXPECT_TRUE(session->DeleteTask(id));
  EXPECT_EQ(Rows("Events"), 2);
}

TEST_F(TaskOperations, DeleteWithoutARowStillDeletesTheEvent) {
  const std::int32_t id = FullStoredTask();
  Run("DELETE * FROM Tasks");
  EXPECT_TRUE(session->DeleteTask(id));
  EXPECT_EQ(Rows("Events"), 0);
  EXPECT_EQ(Rows("Notifications"), 1) << "it is found through the task's row alone";
}

TEST_F(TaskOperations, DeleteOfAnUnknownTaskSucceedsWithoutAnError) {
  LeaveAnOldError();
  EXPECT_TRUE(session->DeleteTask(99));
  EXPECT_EQ(Sent().back().substr(0, 61), "DELETE FROM Events WHERE EVE_Type='T' and EVE_LinkID=99 AND E");
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(TaskOperations, DeleteAsksForChildrenZeroAndMinusOneToo) {
  Run("INSERT INTO Tasks (TSK_ID,TSK_RecurrenceID) VALUES (51,-1)");
  EXPECT_TRUE(session->DeleteTask(51));
  const Texts sent = Sent();
  EXPECT_EQ(sent[1], "DELETE * FROM Recurrences WHERE REC_ID=-1");
  EXPECT_EQ(sent[2], "DELETE * FROM Notifications WHERE NTF_ID=0") << "Null";
}

TEST_F(TaskOperations, DeleteWithoutTheFolderOfTheEventsSucceedsAndLeavesTheEvent) {
  const std::int32_t id = FullStoredTask();
  Run("DELETE * FROM Folders WHERE FLD_Name='Tasks Due Dates'");
  EXPECT_TRUE(session->DeleteTask(id));
  EXPECT_FALSE(session->GetErrorFlag());
  EXPECT_EQ(Rows("Tasks"), 0);
  EXPECT_EQ(Rows("Events"), 1);
}

TEST_F(TaskOperations, DeleteGoesOnWhenTheLookUpOfTheFolderFails) {
  const std::int32_t id = FullStoredTask();
  Refuse("SELECT FLD_ID");
  EXPECT_TRUE(session->DeleteTask(id));
  EXPECT_EQ(session->GetErrorProcedure(), "GetFolderIDByCriteria");
  EXPECT_EQ(Rows("Events"), 1);
}

TEST_F(TaskOperations, DeleteIsRefusedToASessionThatMayOnlyReadWithTheTextOfTheRollback) {
  const std::int32_t id = FullStoredTask();
  session->UserRights = DataViewer;
  EXPECT_FALSE(session->DeleteTask(id));
  EXPECT_EQ(session->GetEntireErrorDesc(), "[RollbackTransaction] Error: 105 - No transaction is started.");
  EXPECT_EQ(SentInAll(), Texts{});
  ExpectAllThere();
}

TEST_F(TaskOperations, RefusedDeleteUndoesTheClientsTransaction) {
  ASSERT_TRUE(session->BeginTransaction());
  connection().Execute("INSERT INTO Tasks (TSK_ID) VALUES (99)");
  session->UserRights = DataViewer;
  EXPECT_FALSE(session->DeleteTask(99));
  EXPECT_FALSE(session->TransactionStarted());
  EXPECT_EQ(session->GetEntireErrorDesc(), std::string("[CSession.DeleteTask] Error: 105 - ") + kRefusal);
  EXPECT_EQ(Rows("Tasks"), 0);
}

TEST_F(TaskOperations, DeleteInTheClientsTransactionFailsAndUndoesThatOne) {
  const std::int32_t id = FullStoredTask();
  ASSERT_TRUE(session->BeginTransaction());
  connection().Execute("INSERT INTO Tasks (TSK_ID) VALUES (99)");
  LeaveAnOldError();
  EXPECT_FALSE(session->DeleteTask(id));
  EXPECT_FALSE(session->TransactionStarted());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[BeginTransaction] Error: 0 - A transaction is already started.");
  ExpectAllThere();
}

TEST_F(TaskOperations, DeleteThatCannotBeginEndsWithTheTextOfTheRollback) {
  Refuse("BEGIN");
  EXPECT_FALSE(session->DeleteTask(99));
  EXPECT_EQ(session->GetEntireErrorDesc(), "[RollbackTransaction] Error: -2147217900 - No transaction is started.");
}

TEST_F(TaskOperations, DeleteThatFailsAtTheTasksRowIsRecordedAndUndone) {
  const std::int32_t id = FullStoredTask();
  Refuse("DELETE * FROM Tasks");
  EXPECT_FALSE(session->DeleteTask(id));
  EXPECT_EQ(session->GetEntireErrorDesc(), "[DeleteTask] Error: -2147217900 - made to fail");
  ExpectAllThere();
}

TEST_F(TaskOperations, DeleteThatFailsAtTheEventIsRecordedAndUndone) {
  const std::int32_t id = FullStoredTask();
  Refuse("DELETE FROM Events");
  EXPECT_FALSE(session->DeleteTask(id));
  EXPECT_EQ(session->GetErrorProcedure(), "DeleteTask");
  ExpectAllThere();
}

TEST_F(TaskOperations, DeleteThatFailsAtAChildEndsWithItsRecord) {
  const std::int32_t id = FullStoredTask();
  Refuse("DELETE * FROM Notifications");
  EXPECT_FALSE(session->DeleteTask(id));
  EXPECT_EQ(session->GetErrorProcedure(), "DeleteNotification");
  ExpectAllThere();
}

TEST_F(TaskOperations, EveryFailureOfADeleteLeavesAllRows) {
  const std::int32_t id = FullStoredTask();
  const auto remove = [&] { return session->DeleteTask(id); };
  EXPECT_EQ(FailEachCall(database, *session, remove, {}, Unchanged::AllTables, "SELECT FLD_ID").size(), 7u);
}

}  // namespace
}  // namespace zef::test
