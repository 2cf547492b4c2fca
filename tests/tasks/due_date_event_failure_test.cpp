#include "tasks/due_date_event.h"

#include "tests/tasks/task_fixture.h"

namespace zef::test {
namespace {

using DueDateEventFailure = DueDateEventTest;

TEST_F(DueDateEventFailure, MissingFolderFailsANewTaskWithNothingOnRecord) {
  Run("DELETE * FROM Folders WHERE FLD_Name='Tasks Due Dates'");
  const Ref<CTask> task = FullTask(On("6/7/2024"));
  EXPECT_FALSE(task->Save());
  EXPECT_FALSE(session->GetErrorFlag());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[] Error: 0 - ");
}

TEST_F(DueDateEventFailure, MissingFolderUndoesTheTaskAndItsChildren) {
  Run("DELETE * FROM Folders WHERE FLD_Name='Tasks Due Dates'");
  const Ref<CTask> task = FullTask(On("6/7/2024"));
  task->Recurrence->RType = REC_DAILY;
  EXPECT_FALSE(task->Save());
  EXPECT_FALSE(session->TransactionStarted());
  EXPECT_EQ(Rows("Tasks") + Rows("Recurrences") + Rows("Events"), 0);
  EXPECT_EQ(Flags(*task), "new modified");
}

TEST_F(DueDateEventFailure, UnprotectedFolderOfThatNameDoesNotCount) {
  Run("UPDATE Folders SET FLD_Protected=0 WHERE FLD_Name='Tasks Due Dates'");
  EXPECT_FALSE(FullTask(On("6/7/2024"))->Save());
}

TEST_F(DueDateEventFailure, FolderWithIdentifierZeroDoesNotCount) {
  Run("UPDATE Folders SET FLD_ID=0 WHERE FLD_Name='Tasks Due Dates'");
  EXPECT_FALSE(FullTask(On("6/7/2024"))->Save());
  EXPECT_EQ(Rows("Tasks") + Rows("Events"), 0);
}

TEST_F(DueDateEventFailure, MissingFolderDoesNotMatterWithoutADueDate) {
  Run("DELETE * FROM Folders WHERE FLD_Name='Tasks Due Dates'");
  EXPECT_TRUE(FullTask()->Save());
  EXPECT_EQ(Rows("Tasks"), 1);
}

TEST_F(DueDateEventFailure, MissingFolderDoesNotStopAnOldTasksDelete) {
  const Ref<CTask> task = LoadedTask();
  Run("DELETE * FROM Folders WHERE FLD_Name='Tasks Due Dates'");
  task->DueDate = Date();
  EXPECT_TRUE(task->Save());
  EXPECT_EQ(Sent().back(), "DELETE FROM Events WHERE EVE_Type='T' and EVE_LinkID=1 AND EVE_FolderID=-1");
  EXPECT_EQ(Rows("Events"), 1);
}

TEST_F(DueDateEventFailure, FailedFolderLookUpDoesNotStopAnOldTasksDelete) {
  const Ref<CTask> task = LoadedTask();
  task->DueDate = Date();
  Refuse("SELECT FLD_ID");
  EXPECT_TRUE(task->Save());
  EXPECT_EQ(Rows("Events"), 1);
  EXPECT_EQ(Rows("Tasks WHERE TSK_DueDate='12:00:00 AM'"), 1);
}

TEST_F(DueDateEventFailure, FailedFolderLookUpFailsAnOldTaskWithADueDateInItsOwnName) {
  const Ref<CTask> task = LoadedTask();
  Refuse("SELECT FLD_ID");
  EXPECT_FALSE(task->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "GetFolderIDByCriteria");
  EXPECT_EQ(Rows("Events"), 1);
}

TEST_F(DueDateEventFailure, FolderLookUpThatFailsOnceGivesAnOldTaskASecondEvent) {
  const Ref<CTask> task = LoadedTask();
  FailCall(2);  // behind BEGIN
  EXPECT_TRUE(task->Save());
  EXPECT_FALSE(session->GetErrorFlag());
  EXPECT_EQ(Rows("Events WHERE EVE_Type='T' AND EVE_LinkID=1 AND EVE_FolderID=9"), 2);
}

TEST_F(DueDateEventFailure, NameWhoseTextJustFitsIsSaved) {
  const Ref<CTask> task = NewTask();
  task->Name = std::string(246, 'n');
  task->DueDate = On("6/7/2024");
  EXPECT_TRUE(task->Save());
  EXPECT_EQ(Of("Len(EVE_Text)"), "255");
}

TEST_F(DueDateEventFailure, NameWhoseTextWouldNotFitFailsInTheNameOfTheTaskAndItsColumn) {
  const Ref<CTask> task = NewTask();
  task->Name = std::string(247, 'n');
  task->DueDate = On("6/7/2024");
  EXPECT_FALSE(task->Save());
  EXPECT_EQ(session->GetEntireErrorDesc(),
            "[CTask.Save] Error: -2147217833 - A text is too long for the column 'TSK_Name', which takes 246 "
            "characters.");
  EXPECT_EQ(Rows("Tasks"), 0);
  EXPECT_EQ(Flags(*task), "new modified");
}

TEST_F(DueDateEventFailure, TextThatDoesNotFitFailsInTheNameOfTheEventAndUndoesTheTask) {
  Run("ALTER TABLE Events ALTER COLUMN EVE_Text Text(20)");
  const Ref<CTask> task = NewTask();
  task->Name = std::string(12, 'n');
  task->DueDate = On("6/7/2024");
  EXPECT_FALSE(task->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CEvent.Save");
  EXPECT_EQ(session->GetErrorCode(), -2147217833);
  EXPECT_FALSE(session->TransactionStarted());
  EXPECT_EQ(Rows("Tasks"), 0);
}

TEST_F(DueDateEventFailure, EventThatCannotBeRefreshedUndoesTheTasksUpdate) {
  const Ref<CTask> task = LoadedTask();
  task->DueDate = On("7/8/2024");
  Refuse("UPDATE Events");
  EXPECT_FALSE(task->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CEvent.Save");
  EXPECT_EQ(Stored("SELECT TSK_DueDate FROM Tasks"), "6/7/2024 8:09:10 AM");
  EXPECT_EQ(Flags(*task), "old modified");
}

TEST_F(DueDateEventFailure, EventThatCannotBeReadIsRecordedInTheNameOfTheTask) {
  const Ref<CTask> task = LoadedTask();
  Refuse("SELECT * FROM Events");
  EXPECT_FALSE(task->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CTask.Save");
  EXPECT_FALSE(session->TransactionStarted());
}

TEST_F(DueDateEventFailure, SearchThatFailsIsRecordedInTheNameOfTheTask) {
  const Ref<CTask> task = LoadedTask();
  Refuse("SELECT EVE_ID FROM Events");
  EXPECT_FALSE(task->Save());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CTask.Save] Error: -2147217900 - made to fail");
  EXPECT_FALSE(session->TransactionStarted());
}

TEST_F(DueDateEventFailure, DeleteThatFailsIsRecordedInTheNameOfTheTaskAndUndone) {
  const Ref<CTask> task = LoadedTask();
  task->DueDate = Date();
  Refuse("DELETE FROM Events");
  EXPECT_FALSE(task->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CTask.Save");
  EXPECT_EQ(Stored("SELECT TSK_DueDate FROM Tasks"), "6/7/2024 8:09:10 AM");
}

TEST_F(DueDateEventFailure, EventWithoutASequenceIsATrappedFailure) {
  Run("DELETE * FROM Sequences WHERE SEQ_ID=4");
  const Ref<CTask> task = FullTask(On("6/7/2024"));
  EXPECT_FALSE(task->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CTask.Save");
  EXPECT_EQ(session->GetErrorCode(), 91);
  EXPECT_EQ(Rows("Tasks"), 0);
}

TEST_F(DueDateEventFailure, RolledBackSaveTakesTheEventsNumberBack) {
  const Ref<CTask> task = FullTask(On("6/7/2024"));
  Refuse("INSERT INTO Events");
  EXPECT_FALSE(task->Save());
  EXPECT_EQ(Stored("SELECT SEQ_Value FROM Sequences WHERE SEQ_ID=4"), "0");
}

TEST_F(DueDateEventFailure, QuietFailureInTheClientsTransactionUndoesNothing) {
  Run("DELETE * FROM Folders WHERE FLD_Name='Tasks Due Dates'");
  const Ref<CTask> task = FullTask(On("6/7/2024"));
  ASSERT_TRUE(session->BeginTransaction());
  EXPECT_FALSE(task->Save());
  EXPECT_TRUE(session->TransactionStarted());
  EXPECT_TRUE(session->RollbackTransaction());
}

}  // namespace
}  // namespace zef::test
