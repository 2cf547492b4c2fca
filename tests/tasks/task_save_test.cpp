#include "tasks/task.h"

#include "tests/support/fault_sweep.h"
#include "tests/support/item_expectations.h"
#include "tests/tasks/task_fixture.h"

namespace zef::test {
namespace {

/// Its result is not tested: when it fails, the event is looked for in no folder.
constexpr char kFolderLookUp[] = "SELECT FLD_ID FROM Folders WHERE FLD_Protected=1";

using TaskSave = TaskTest;

// ---- the row

TEST_F(TaskSave, InsertWritesAllColumnsInTheirOrder) {
  ASSERT_TRUE(FullTask()->Save());
  EXPECT_EQ(Sent(), Texts{"INSERT INTO Tasks (TSK_ID,TSK_FolderID,TSK_RecurrenceID,TSK_NotificationID,TSK_CategoryID,"
                          "TSK_Priority,TSK_StatusID,TSK_Name,TSK_Description,TSK_DueDate,TSK_StartDate,TSK_AssignedTo,"
                          "TSK_Completed,TSK_DateCompleted,TSK_DateLastUpdate) VALUES (1,21,22,23,24,'High''est',25,"
                          "'Call O''Neill','It''s urgent','12:00:00 AM','3/4/2024 5:06:07 PM','D''Arcy',26,"
                          "'3/5/2024 8:00:00 PM','5/1/2024 9:00:00 AM')"});
}

TEST_F(TaskSave, InsertWritesTheDueDateWithItsTime) {
  ASSERT_TRUE(FullTask(On("6/7/2024 8:09:10 AM"))->Save());
  EXPECT_THAT(Sent().at(0), testing::HasSubstr(",'6/7/2024 8:09:10 AM','3/4/2024 5:06:07 PM',"));
}

TEST_F(TaskSave, InsertLeavesEmptyTextsOutAndWritesZeroDates) {
  const Ref<CTask> task = NewTask();
  task->FolderID = 3;
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Sent(), Texts{"INSERT INTO Tasks (TSK_ID,TSK_FolderID,TSK_RecurrenceID,TSK_NotificationID,TSK_CategoryID,"
                          "TSK_StatusID,TSK_DueDate,TSK_StartDate,TSK_Completed,TSK_DateCompleted,TSK_DateLastUpdate) "
                          "VALUES (1,3,0,0,0,0,'12:00:00 AM','12:00:00 AM',0,'12:00:00 AM','5/1/2024 9:00:00 AM')"});
}

TEST_F(TaskSave, UpdateWritesAllColumnsInTheirOrder) {
  const Ref<CTask> task = FullTask();
  ASSERT_TRUE(task->Save());
  task->CategoryID = 27;
  Forget();
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Sent().at(0),
            "UPDATE Tasks SET TSK_ID=1,TSK_FolderID=21,TSK_RecurrenceID=22,TSK_NotificationID=23,TSK_CategoryID=27,"
            "TSK_Priority='High''est',TSK_StatusID=25,TSK_Name='Call O''Neill',TSK_Description='It''s urgent',"
            "TSK_DueDate='12:00:00 AM',TSK_StartDate='3/4/2024 5:06:07 PM',TSK_AssignedTo='D''Arcy',TSK_Completed=26,"
            "TSK_DateCompleted='3/5/2024 8:00:00 PM',TSK_DateLastUpdate='5/1/2024 9:00:00 AM' WHERE TSK_ID=1");
}

TEST_F(TaskSave, UpdateBlanksEmptyTextsAndWritesZeroDates) {
  const Ref<CTask> task = FullTask();
  ASSERT_TRUE(task->Save());
  task->Priority = "";
  task->Name = "";
  task->Description = "";
  task->AssignedTo = "";
  task->StartDate = Date();
  task->DateCompleted = On("3/5/2024");
  Forget();
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Sent().at(0),
            "UPDATE Tasks SET TSK_ID=1,TSK_FolderID=21,TSK_RecurrenceID=22,TSK_NotificationID=23,TSK_CategoryID=24,"
            "TSK_Priority='',TSK_StatusID=25,TSK_Name='',TSK_Description='',TSK_DueDate='12:00:00 AM',"
            "TSK_StartDate='12:00:00 AM',TSK_AssignedTo='',TSK_Completed=26,TSK_DateCompleted='3/5/2024',"
            "TSK_DateLastUpdate='5/1/2024 9:00:00 AM' WHERE TSK_ID=1");
}

TEST_F(TaskSave, ValuesComeBackAsTheyWereSaved) {
  ASSERT_TRUE(FullTask(On("6/7/2024 8:09:10 AM"))->Save());
  const Ref<CTask> loaded = session->GetTask(1);
  ASSERT_TRUE(loaded);
  EXPECT_EQ(loaded->FolderID, 21);
  EXPECT_EQ(loaded->RecurrenceID, 22);
  EXPECT_EQ(loaded->NotificationID, 23);
  EXPECT_EQ(loaded->CategoryID, 24);
  EXPECT_EQ(loaded->Priority, "High'est");
  EXPECT_EQ(loaded->StatusID, 25);
  EXPECT_EQ(loaded->Name, "Call O'Neill");
  EXPECT_EQ(loaded->Description, "It's urgent");
  EXPECT_EQ(loaded->DueDate, On("6/7/2024 8:09:10 AM"));
  EXPECT_EQ(loaded->StartDate, On("3/4/2024 5:06:07 PM"));
  EXPECT_EQ(loaded->AssignedTo, "D'Arcy");
  EXPECT_EQ(loaded->Completed, 26);
  EXPECT_EQ(loaded->DateCompleted, On("3/5/2024 8:00:00 PM"));
  EXPECT_EQ(loaded->DateLastUpdate, now_);
}

TEST_F(TaskSave, ClearedDateIsStoredAsTheZeroDateAndNotAsNull) {
  const Ref<CTask> task = FullTask();
  ASSERT_TRUE(task->Save());
  task->StartDate = Date();
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Stored("SELECT TSK_StartDate FROM Tasks"), "12:00:00 AM");
}

TEST_F(TaskSave, PriorityOf64CharactersFits) {
  const Ref<CTask> task = NewTask();
  task->Priority = std::string(64, 'p');
  EXPECT_TRUE(task->Save());
}

TEST_F(TaskSave, PriorityOf65CharactersFails) {
  const Ref<CTask> task = NewTask();
  task->Priority = std::string(65, 'p');
  EXPECT_FALSE(task->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CTask.Save");
  EXPECT_EQ(session->GetErrorCode(), -2147217833);
}

TEST_F(TaskSave, LastUpdateReadsZeroAfterASaveAndTheMomentAfterARefresh) {
  const Ref<CTask> task = session->GetTask(TaskWithChildren()->ID);
  task->Name = "b";
  const ClockOverride later(On("5/2/2024 10:00:00 AM"));
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(task->DateLastUpdate, Date());
  ASSERT_TRUE(task->Refresh());
  EXPECT_EQ(task->DateLastUpdate, On("5/2/2024 10:00:00 AM"));
}

TEST_F(TaskSave, LastUpdateReadsZeroEvenAfterASaveThatWroteNothing) {
  const Ref<CTask> task = session->GetTask(TaskWithChildren()->ID);
  ASSERT_EQ(task->DateLastUpdate, now_);
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(task->DateLastUpdate, Date());
}

TEST_F(TaskSave, PropertyOfTheLastUpdateIsNotWritten) {
  const Ref<CTask> task = NewTask();
  task->DateLastUpdate = On("1/1/2000");
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Stored("SELECT TSK_DateLastUpdate FROM Tasks"), "5/1/2024 9:00:00 AM");
}

TEST_F(TaskSave, SavingClearsTheFlags) {
  const Ref<CTask> task = FullTask();
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Flags(*task), "old clear");
}

TEST_F(TaskSave, UnchangedNewTaskGetsNoRowAndIsNoLongerNew) {
  const Ref<CTask> task = NewTask();
  EXPECT_TRUE(task->Save());
  EXPECT_EQ(SentInAll(), (Texts{"BEGIN", "COMMIT"}));
  EXPECT_EQ(Flags(*task), "old clear");
}

TEST_F(TaskSave, SaveClearsAnOldError) {
  const Ref<CTask> task = NewTask();
  LeaveAnOldError();
  EXPECT_TRUE(task->Save());
  EXPECT_FALSE(session->GetErrorFlag());
}

// ---- children

TEST_F(TaskSave, ChangedChildrenAreInsertedBeforeTheTasksRowNotificationFirst) {
  const Ref<CTask> task = NewTask();
  task->Notification->CC = "c";
  task->Recurrence->RType = REC_DAILY;
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Sent(), (Texts{"INSERT INTO Notifications (NTF_ID,NTF_SendingDate,NTF_CC,NTF_Type,NTF_Status) VALUES "
                           "(1,'5/1/2024 9:00:00 AM','c',0,0)",
                           "INSERT INTO Recurrences (REC_ID,REC_OccurencesNo,REC_Options1,REC_Options2,REC_SubType,"
                           "REC_Type,REC_EndDate,REC_Day,REC_Month,REC_WeekNumber) VALUES "
                           "(1,1,0,0,0,1,'5/1/2024 9:00:00 AM',0,0,0)",
                           "INSERT INTO Tasks (TSK_ID,TSK_FolderID,TSK_RecurrenceID,TSK_NotificationID,TSK_CategoryID,"
                           "TSK_StatusID,TSK_DueDate,TSK_StartDate,TSK_Completed,TSK_DateCompleted,TSK_DateLastUpdate) "
                           "VALUES (1,0,1,1,0,0,'12:00:00 AM','12:00:00 AM',0,'12:00:00 AM','5/1/2024 9:00:00 AM')"}));
}

TEST_F(TaskSave, NewChildOfALoadedTaskBringsItsReferenceIntoTheRow) {
  Run("INSERT INTO Tasks (TSK_ID,TSK_RecurrenceID) VALUES (61,-1)");
  SetSequences({{8, 80}});
  const Ref<CTask> task = session->GetTask(61);
  task->Recurrence->RType = REC_YEARLY;
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(task->RecurrenceID, 81);
  EXPECT_EQ(Stored("SELECT TSK_RecurrenceID FROM Tasks"), "81");
}

TEST_F(TaskSave, ChangeOfAStoredChildAloneDoesNotWriteTheTasksRow) {
  const Ref<CTask> task = session->GetTask(TaskWithChildren()->ID);
  task->Notification->Subject = "Play";
  const ClockOverride later(On("5/2/2024 10:00:00 AM"));
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Stored("SELECT NTF_Subject FROM Notifications"), "Play");
  EXPECT_EQ(Stored("SELECT TSK_DateLastUpdate FROM Tasks"), "5/1/2024 9:00:00 AM");
}

TEST_F(TaskSave, UnchangedStoredChildrenLeaveDifferentReferences) {
  const Ref<CTask> task = session->GetTask(TaskWithChildren()->ID);
  Forget();
  ExpectUnchangedChildrenToLeaveTheirReferences(*task);
  EXPECT_THAT(Sent(), testing::ElementsAre(testing::StartsWith("UPDATE Tasks"), testing::HasSubstr("Tasks Due Dates"),
                                           testing::StartsWith("DELETE FROM Events")));
  EXPECT_EQ(Rows("Tasks WHERE TSK_RecurrenceID=77 AND TSK_NotificationID=78"), 1);
}

TEST_F(TaskSave, SavedChildBringsADifferentReferenceBack) {
  const Ref<CTask> task = session->GetTask(TaskWithChildren()->ID);
  task->RecurrenceID = 77;
  task->Recurrence->RType = REC_DAILY;
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(task->RecurrenceID, 1);
  EXPECT_EQ(Stored("SELECT TSK_RecurrenceID FROM Tasks"), "1");
}

TEST_F(TaskSave, ClearedNotificationLosesItsRowAndTheReferenceBecomesMinusOne) {
  const Ref<CTask> task = NewTask();
  task->Notification->Subject = "s";
  task->Notification->Message = "m";
  task->Notification->Email = "e";
  task->Notification->CC = "c";
  task->Notification->BCC = "b";
  ASSERT_TRUE(task->Save());
  for (auto text : {&CNotification::Subject, &CNotification::Message, &CNotification::Email, &CNotification::CC,
                    &CNotification::BCC}) {
    (*task->Notification).*text = "";
  }
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Rows("Notifications"), 0);
  EXPECT_EQ(task->NotificationID, -1);
  EXPECT_EQ(Stored("SELECT TSK_NotificationID FROM Tasks"), "-1");
}

TEST_F(TaskSave, ClearedRuleLosesItsRowAndTheReferenceBecomesMinusOne) {
  const Ref<CTask> task = session->GetTask(TaskWithChildren()->ID);
  task->Recurrence->RType = REC_EMPTY;
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Rows("Recurrences"), 0);
  EXPECT_EQ(task->RecurrenceID, -1);
  EXPECT_EQ(Stored("SELECT TSK_RecurrenceID FROM Tasks"), "-1");
}

TEST_F(TaskSave, ClearedChildKeepsItsIdentifierAndIsDeletedAgain) {
  const Ref<CTask> task = session->GetTask(TaskWithChildren()->ID);
  task->Recurrence->RType = REC_EMPTY;
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(task->Recurrence->ID, 1);
  Forget();
  EXPECT_TRUE(task->Save());
  const Texts sent = Sent();
  EXPECT_EQ(sent.at(0), "DELETE * FROM Recurrences WHERE REC_ID=1");
  EXPECT_THAT(sent, testing::Not(testing::Contains(testing::StartsWith("UPDATE Tasks"))))
      << "the reference is -1 already";
}

TEST_F(TaskSave, ClearedChildIsDeletedByItsOwnIdentifier) {
  const Ref<CTask> task = session->GetTask(TaskWithChildren()->ID);
  task->Notification->Subject = "";
  task->NotificationID = 77;
  Forget();
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Sent().at(0), "DELETE * FROM Notifications WHERE NTF_ID=1");
  EXPECT_EQ(task->NotificationID, -1);
}

TEST_F(TaskSave, ChildrenThatCannotBeDeletedDoNotStopTheSave) {
  const Ref<CTask> task = session->GetTask(TaskWithChildren()->ID);
  task->Notification->Subject = "";
  task->Recurrence->RType = REC_EMPTY;
  Refuse("DELETE * FROM");
  EXPECT_TRUE(task->Save());
  EXPECT_EQ(Stored("SELECT TSK_NotificationID FROM Tasks"), "-1");
  EXPECT_EQ(Stored("SELECT TSK_RecurrenceID FROM Tasks"), "-1");
  EXPECT_EQ(Rows("Notifications") + Rows("Recurrences"), 2);
}

TEST_F(TaskSave, ChildrenThatCannotBeDeletedAreOffTheRecordAfterTheLookUpOfTheFolder) {
  const Ref<CTask> task = session->GetTask(TaskWithChildren()->ID);
  task->Notification->Subject = "";
  Refuse("DELETE * FROM Notifications");
  EXPECT_TRUE(task->Save());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[] Error: 0 - ");
}

TEST_F(TaskSave, UnchangedNewChildrenCauseNothing) {
  const Ref<CTask> task = NewTask();
  task->Name = "a";
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Rows("Notifications") + Rows("Recurrences"), 0);
  EXPECT_EQ(task->RecurrenceID, 0);
}

TEST_F(TaskSave, RuleChangedAndChangedBackBeforeTheFirstSaveIsInsertedAsAnEmptyRule) {
  const Ref<CTask> task = NewTask();
  task->Recurrence->RType = REC_DAILY;
  task->Recurrence->RType = REC_EMPTY;
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Stored("SELECT REC_Type FROM Recurrences"), "0");
  EXPECT_EQ(task->RecurrenceID, 1);
}

TEST_F(TaskSave, EmptyNotificationWithAChangedTypeIsInsertedAsAnEmptyRow) {
  const Ref<CTask> task = NewTask();
  task->Notification->NType = NT_TASKS;
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Stored("SELECT NTF_Type FROM Notifications"), "2");
  EXPECT_EQ(task->NotificationID, 1);
}

TEST_F(TaskSave, FlagsOfAnUnsavedChildAreLeftAlone) {
  const Ref<CTask> task = NewTask();
  task->Name = "a";
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Flags(*task->Recurrence), "new clear");
}

// ---- transactions

TEST_F(TaskSave, SaveRunsInATransactionOfItsOwn) {
  const Ref<CTask> task = FullTask();
  ASSERT_TRUE(task->Save());
  EXPECT_THAT(SentInAll(), testing::ElementsAre("BEGIN", testing::StartsWith("INSERT INTO Tasks"), "COMMIT"));
  EXPECT_FALSE(session->TransactionStarted());
}

TEST_F(TaskSave, SaveJoinsARunningTransactionAndDoesNotCommitIt) {
  const Ref<CTask> task = FullTask(On("6/7/2024"));
  ASSERT_TRUE(session->BeginTransaction());
  ASSERT_TRUE(task->Save());
  EXPECT_TRUE(session->TransactionStarted());
  EXPECT_EQ(Rows("Tasks") + Rows("Events"), 0);
  ASSERT_TRUE(session->CommitTransaction());
  EXPECT_EQ(Rows("Tasks") + Rows("Events"), 2);
}

TEST_F(TaskSave, FailedSaveDoesNotUndoARunningTransaction) {
  const Ref<CTask> task = FullTask(On("6/7/2024"));
  ASSERT_TRUE(session->BeginTransaction());
  connection().Execute("INSERT INTO Tasks (TSK_ID) VALUES (99)");
  Refuse("INSERT INTO Events");
  EXPECT_FALSE(task->Save());
  EXPECT_TRUE(session->TransactionStarted());
  ASSERT_TRUE(session->CommitTransaction());
  EXPECT_EQ(Rows("Tasks WHERE TSK_ID=99"), 1);
}

TEST_F(TaskSave, BeginThatFailsIsRecordedInTheNameOfTheSave) {
  const Ref<CTask> task = FullTask();
  Refuse("BEGIN");
  EXPECT_FALSE(task->Save());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CTask.Save] Error: -2147217900 - made to fail");
  EXPECT_EQ(Flags(*task), "new modified");
}

TEST_F(TaskSave, ClosedConnectionIsRecordedInTheNameOfTheSave) {
  const Ref<CTask> task = FullTask();
  connection().Close();
  EXPECT_FALSE(task->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CTask.Save");
  EXPECT_EQ(session->GetErrorCode(), 3704);
}

TEST_F(TaskSave, CommitThatFailsIsRecordedInTheNameOfTheSaveAndUndone) {
  const Ref<CTask> task = FullTask();
  Refuse("COMMIT");
  EXPECT_FALSE(task->Save());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CTask.Save] Error: -2147217900 - made to fail");
  EXPECT_FALSE(session->TransactionStarted());
  EXPECT_EQ(Flags(*task), "new modified");
  EXPECT_EQ(Rows("Tasks"), 0);
}

// ---- failures

TEST_F(TaskSave, RefusedInsertIsRecordedAndUndoesTheChildren) {
  const Ref<CTask> task = FullTask();
  task->Notification->Subject = "s";
  Refuse("INSERT INTO Tasks");
  EXPECT_FALSE(task->Save());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CTask.Save] Error: -2147217900 - made to fail");
  EXPECT_FALSE(session->TransactionStarted());
  EXPECT_EQ(Rows("Notifications"), 0);
}

TEST_F(TaskSave, RefusedUpdateLeavesTheFlagsAndTheLastUpdate) {
  const Ref<CTask> task = session->GetTask(TaskWithChildren()->ID);
  task->Name = "b";
  Refuse("UPDATE Tasks");
  EXPECT_FALSE(task->Save());
  EXPECT_EQ(Flags(*task), "old modified");
  EXPECT_EQ(task->DateLastUpdate, now_);
}

TEST_F(TaskSave, NotificationThatCannotBeSavedEndsTheSaveWithItsOwnRecord) {
  const Ref<CTask> task = FullTask();
  task->Notification->Subject = "s";
  Refuse("INSERT INTO Notifications");
  EXPECT_FALSE(task->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CNotification.Save");
  EXPECT_FALSE(session->TransactionStarted());
  EXPECT_EQ(Rows("Tasks"), 0);
}

TEST_F(TaskSave, RuleThatCannotBeSavedEndsTheSaveWithItsOwnRecordAndUndoesTheNotification) {
  const Ref<CTask> task = FullTask();
  task->Notification->Subject = "s";
  task->Recurrence->RType = REC_DAILY;
  Refuse("INSERT INTO Recurrences");
  EXPECT_FALSE(task->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CRecurrence.Save");
  EXPECT_EQ(Rows("Notifications"), 0);
}

TEST_F(TaskSave, DateOutOfRangeIsRecordedByTheFieldsAlone) {
  const Ref<CTask> task = FullTask();
  task->StartDate = Date(3e6);
  EXPECT_FALSE(task->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CTask.GetFieldsArray");
  EXPECT_EQ(session->GetErrorCode(), 5);
  EXPECT_FALSE(session->TransactionStarted());
}

TEST_F(TaskSave, MissingChildObjectIsATrappedFailure) {
  const Ref<CTask> task = FullTask();
  task->Recurrence.reset();
  EXPECT_FALSE(task->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CTask.Save");
  EXPECT_EQ(session->GetErrorCode(), 91);
  EXPECT_FALSE(session->TransactionStarted());
}

TEST_F(TaskSave, RolledBackSaveLeavesTheChildBelievingThatItIsSaved) {
  const Ref<CTask> task = FullTask();
  task->Notification->Subject = "s";
  Refuse("INSERT INTO Tasks");
  EXPECT_FALSE(task->Save());
  EXPECT_EQ(Flags(*task->Notification), "old clear");
  EXPECT_EQ(task->Notification->ID, 1);
  EXPECT_EQ(task->NotificationID, 1);
  EXPECT_EQ(Flags(*task), "new modified");
}

TEST_F(TaskSave, SessionThatMayOnlyReadIsRefused) {
  const Ref<CTask> task = FullTask(On("6/7/2024"));
  session->UserRights = Administrator | DataViewer;
  EXPECT_FALSE(task->Save());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CTask.Save] Error: 105 - You don't have rights to insert/edit data");
}

TEST_F(TaskSave, RefusedSessionSendsNothingAndKeepsTheFlags) {
  const Ref<CTask> task = FullTask(On("6/7/2024"));
  task->Recurrence->RType = REC_DAILY;
  session->UserRights = DataViewer;
  EXPECT_FALSE(task->Save());
  EXPECT_EQ(SentInAll(), Texts{});
  EXPECT_EQ(Flags(*task), "new modified");
}

TEST_F(TaskSave, EveryFailureOfANewTasksSaveLeavesNothingBehind) {
  const auto make = [&] {
    Ref<CTask> task = session->CreateTask();
    if (!task) return task;
    task->Name = "Practise";
    task->DueDate = On("6/7/2024");
    task->Recurrence->RType = REC_WEEKLY;
    task->Notification->Subject = "Sing";
    return task;
  };
  const auto failures = FailEachFirstSave(database, *session, make);
  EXPECT_EQ(failures.size(), 28u) << "five identifiers of four calls each, five inserts, a look-up, BEGIN and COMMIT";
}

TEST_F(TaskSave, EveryFailureOfAChangedTasksSaveLeavesTheRowsAndTheFlags) {
  const std::int32_t id = TaskWithChildren()->ID;
  const Ref<CTask> task = session->GetTask(id);
  task->Name = "Perform";
  task->DueDate = On("6/7/2024");
  const auto failures = FailEachCall(
      database, *session, [&] { return task->Save(); }, [&] { return Flags(*task); }, Unchanged::AllButSequences,
      kFolderLookUp);
  EXPECT_EQ(failures.size(), 14u) << "BEGIN, update, select, two identifiers of four calls each, two inserts, COMMIT";
  EXPECT_EQ(Stored("SELECT TSK_Name FROM Tasks"), "Perform");
  EXPECT_EQ(Stored("SELECT EVE_Text FROM Events"), "Perform Due Date");
}

TEST_F(TaskSave, EveryFailureOfARefreshedDueDateLeavesTheEvent) {
  const Ref<CTask> task = NewTask();
  task->Name = "Practise";
  task->DueDate = On("6/7/2024");
  ASSERT_TRUE(task->Save());
  task->DueDate = On("6/8/2024");
  const auto failures = FailEachCall(
      database, *session, [&] { return task->Save(); }, [&] { return Flags(*task); }, Unchanged::AllTables,
      kFolderLookUp);
  EXPECT_EQ(failures.size(), 6u) << "BEGIN, update, two selects, update of the event, COMMIT";
  EXPECT_EQ(Stored("SELECT EVE_StartDate FROM Events"), "6/8/2024");
}

}  // namespace
}  // namespace zef::test
