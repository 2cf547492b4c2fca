#include "tasks/task.h"

#include "session/collections.h"
#include "tests/support/item_expectations.h"
#include "tests/tasks/task_fixture.h"

namespace zef::test {
namespace {

const ColumnCases<CTask> kColumns = {
    {"TSK_ID", "61", "61", "", [](auto& t) { return Shown(t.ID); }},
    {"TSK_FolderID", "62", "62", "0", [](auto& t) { return Shown(t.FolderID); }},
    {"TSK_RecurrenceID", "63", "63", "0", [](auto& t) { return Shown(t.RecurrenceID); }},
    {"TSK_NotificationID", "64", "64", "0", [](auto& t) { return Shown(t.NotificationID); }},
    {"TSK_CategoryID", "65", "65", "0", [](auto& t) { return Shown(t.CategoryID); }},
    {"TSK_Priority", "'High'", "High", "", [](auto& t) { return Shown(t.Priority); }},
    {"TSK_StatusID", "66", "66", "0", [](auto& t) { return Shown(t.StatusID); }},
    {"TSK_Name", "'a name'", "a name", "", [](auto& t) { return Shown(t.Name); }},
    {"TSK_Description", "'a text'", "a text", "", [](auto& t) { return Shown(t.Description); }},
    {"TSK_DueDate", "'2/3/2024 1:00:00 PM'", "2/3/2024 1:00:00 PM", "12:00:00 AM",
     [](auto& t) { return Shown(t.DueDate); }},
    {"TSK_StartDate", "'2/4/2024 2:00:00 PM'", "2/4/2024 2:00:00 PM", "12:00:00 AM",
     [](auto& t) { return Shown(t.StartDate); }},
    {"TSK_AssignedTo", "'somebody'", "somebody", "", [](auto& t) { return Shown(t.AssignedTo); }},
    {"TSK_Completed", "67", "67", "0", [](auto& t) { return Shown(t.Completed); }},
    {"TSK_DateCompleted", "'2/5/2024 3:00:00 PM'", "2/5/2024 3:00:00 PM", "12:00:00 AM",
     [](auto& t) { return Shown(t.DateCompleted); }},
    {"TSK_DateLastUpdate", "'2/6/2024 4:00:00 PM'", "2/6/2024 4:00:00 PM", "12:00:00 AM",
     [](auto& t) { return Shown(t.DateLastUpdate); }},
};

/// The setters of what `IsEmpty` looks at.
const std::vector<Setter<CTask>> kSetters = {
    {"CategoryID", [](auto& t) { t.CategoryID = 5; }, [](auto& t) { t.CategoryID = 6; }},
    {"NotificationID", [](auto& t) { t.NotificationID = 5; }, [](auto& t) { t.NotificationID = 6; }},
    {"RecurrenceID", [](auto& t) { t.RecurrenceID = 5; }, [](auto& t) { t.RecurrenceID = 6; }},
    {"Priority", [](auto& t) { t.Priority = "a"; }, [](auto& t) { t.Priority = "A"; }},
    {"StatusID", [](auto& t) { t.StatusID = 1; }, [](auto& t) { t.StatusID = 2; }},
    {"Name", [](auto& t) { t.Name = "a"; }, [](auto& t) { t.Name = "A"; }},
    {"Description", [](auto& t) { t.Description = "a"; }, [](auto& t) { t.Description = "A"; }},
    {"AssignedTo", [](auto& t) { t.AssignedTo = "a"; }, [](auto& t) { t.AssignedTo = "A"; }},
    {"Completed", [](auto& t) { t.Completed = 1; }, [](auto& t) { t.Completed = 2; }},
    {"DateCompleted", [](auto& t) { t.DateCompleted = Date(1); }, [](auto& t) { t.DateCompleted = Date(2); }},
    {"StartDate", [](auto& t) { t.StartDate = Date(1); }, [](auto& t) { t.StartDate = Date(2); }},
    {"DueDate", [](auto& t) { t.DueDate = Date(1); }, [](auto& t) { t.DueDate = Date(2); }},
};
const std::vector<Setter<CTask>> kSettersThatDoNotCount = {
    {"FolderID", [](auto& t) { t.FolderID = 5; }, [](auto& t) { t.FolderID = 6; }},
    {"DateLastUpdate", [](auto& t) { t.DateLastUpdate = Date(1); }, [](auto& t) { t.DateLastUpdate = Date(2); }},
};

class TaskRecord : public TaskTest {
 protected:
  static Texts NamesOf(const Ref<CTasks>& tasks) {
    Texts names;
    for (const Ref<CTask>& task : *tasks) names.push_back(task->Name);
    return names;
  }
};

// ---- a new task

TEST_F(TaskRecord, NewTaskIsNewAndNotModified) { EXPECT_EQ(Flags(*MakeRef<CTask>()), "new clear"); }

TEST_F(TaskRecord, NewTaskHasZeroOrNothingInEveryColumn) {
  const auto task = MakeRef<CTask>();
  EXPECT_EQ(task->ID, 0);
  ExpectAllNullValues(*task, kColumns);
}

TEST_F(TaskRecord, NewTaskHasBothChildrenAndTheyAreEmpty) {
  const auto task = MakeRef<CTask>();
  ASSERT_TRUE(task->Notification && task->Recurrence);
  EXPECT_TRUE(task->Notification->IsEmpty());
  EXPECT_TRUE(task->Recurrence->IsEmpty());
}

TEST_F(TaskRecord, ChildrenHaveNoSessionUntilTheTaskHas) {
  const auto task = MakeRef<CTask>();
  EXPECT_FALSE(task->Notification->Session());
  EXPECT_FALSE(task->Recurrence->Session());
}

TEST_F(TaskRecord, SettingTheSessionReachesBothChildren) {
  const auto task = MakeRef<CTask>();
  task->SetSession(session);
  EXPECT_EQ(task->Session(), session);
  EXPECT_EQ(task->Recurrence->Session(), session);
  EXPECT_EQ(task->Notification->Session(), session);
}

// ---- properties and flags

TEST_F(TaskRecord, EverySetterMarksOnlyAChange) {
  const auto task = MakeRef<CTask>();
  for (const Setter<CTask>& setter : kSetters) ExpectMarksOnlyChanges(*task, setter);
  for (const Setter<CTask>& setter : kSettersThatDoNotCount) ExpectMarksOnlyChanges(*task, setter);
}

TEST_F(TaskRecord, AssigningTheIdentifierDoesNotMarkTheTask) {
  const auto task = MakeRef<CTask>();
  task->ID = 5;
  EXPECT_FALSE(task->IsModified());
}

TEST_F(TaskRecord, ReplacingAChildDoesNotMarkTheTask) {
  const Ref<CTask> task = TaskWithChildren();
  task->Recurrence = MakeRef<CRecurrence>();
  task->Notification = MakeRef<CNotification>();
  EXPECT_EQ(Flags(*task), "old clear");
}

TEST_F(TaskRecord, ChangedSubjectOfTheNotificationMakesTheTaskModifiedAndNotNew) {
  const Ref<CTask> task = TaskWithChildren();
  task->Notification->Subject = "Sing louder";
  EXPECT_EQ(Flags(*task), "old modified");
}

TEST_F(TaskRecord, ChangedRuleMakesTheTaskModifiedAndNotNew) {
  const Ref<CTask> task = TaskWithChildren();
  task->Recurrence->Friday = true;
  EXPECT_EQ(Flags(*task), "old modified");
}

TEST_F(TaskRecord, TaskWithoutChildrenCanBeAskedWhetherItIsModified) {
  const auto task = MakeRef<CTask>();
  task->Notification.reset();
  task->Recurrence.reset();
  EXPECT_FALSE(task->IsModified());
}

TEST_F(TaskRecord, ResetFlagsMakesTheTaskAndBothChildrenNewAndModified) {
  const Ref<CTask> task = TaskWithChildren();
  task->ResetFlags();
  EXPECT_EQ(Flags(*task), "new modified");
  EXPECT_EQ(Flags(*task->Recurrence), "new modified");
  EXPECT_EQ(Flags(*task->Notification), "new modified");
}

TEST_F(TaskRecord, ResetFlagsXReachesBothChildren) {
  const Ref<CTask> task = NewTask();
  task->Recurrence->RType = REC_DAILY;
  task->ResetFlagsX(false, true);
  EXPECT_EQ(Flags(*task), "new clear");
  EXPECT_EQ(Flags(*task->Recurrence), "new clear");
  task->ResetFlagsX(true, false);
  EXPECT_EQ(Flags(*task), "old modified");
  EXPECT_EQ(Flags(*task->Notification), "old modified");
}

TEST_F(TaskRecord, ResetFlagsOfATaskWithoutAChildRaises) {
  const auto task = MakeRef<CTask>();
  task->Recurrence.reset();
  EXPECT_EQ(NumberRaised([&] { task->ResetFlags(); }), 91);
  EXPECT_EQ(Flags(*task), "new modified") << "the own flags come first";
}

TEST_F(TaskRecord, SessionReachesTheNotificationBeforeAMissingRule) {
  ExpectSessionToReachTheNotificationBeforeTheRule<CTask>(session);
}

TEST_F(TaskRecord, ResetFlagsReachesTheRuleBeforeAMissingNotification) {
  ExpectFlagsToReachTheRuleBeforeTheNotification<CTask>();
}

// ---- emptiness

TEST_F(TaskRecord, NewTaskIsEmpty) { EXPECT_TRUE(MakeRef<CTask>()->IsEmpty()); }

TEST_F(TaskRecord, EachPropertyThatCountsMakesATaskNotEmpty) {
  for (const Setter<CTask>& setter : kSetters) {
    const auto task = MakeRef<CTask>();
    setter.set_first(*task);
    EXPECT_FALSE(task->IsEmpty()) << setter.name;
  }
}

TEST_F(TaskRecord, NameOfOneBlankCounts) {
  const auto task = MakeRef<CTask>();
  task->Name = " ";
  EXPECT_FALSE(task->IsEmpty());
}

TEST_F(TaskRecord, FolderIdentifierLastUpdateAndChildrenDoNotCount) {
  const auto task = MakeRef<CTask>();
  for (const Setter<CTask>& setter : kSettersThatDoNotCount) setter.set_first(*task);
  task->ID = 5;
  task->Recurrence->RType = REC_DAILY;
  task->Notification->Subject = "s";
  EXPECT_TRUE(task->IsEmpty());
}

TEST_F(TaskRecord, NegativeNumbersDoNotCount) {
  const auto task = MakeRef<CTask>();
  task->CategoryID = -1;
  task->RecurrenceID = -1;
  task->NotificationID = -1;
  task->Completed = -1;
  task->StatusID = -1;
  EXPECT_TRUE(task->IsEmpty());
}

// ---- reading a row

TEST_F(TaskRecord, RowFillsEveryProperty) {
  Run(InsertOfAll("Tasks", kColumns));
  ExpectAllValues(*session->GetTask(61), kColumns);
}

TEST_F(TaskRecord, NullsReadAsEmptyAndZero) {
  Run("INSERT INTO Tasks (TSK_ID) VALUES (61)");
  ExpectAllNullValues(*session->GetTask(61), kColumns);
}

TEST_F(TaskRecord, ColumnsAreReadInTheirOrder) {
  Run(InsertOfAll("Tasks", kColumns));
  ExpectReadInOrder(connection(), "Tasks", kColumns, [this] {
    auto task = MakeRef<CTask>();
    task->SetSession(session);
    return task;
  });
}

TEST_F(TaskRecord, NullIdentifierCannotBeRead) {
  Run("INSERT INTO Tasks (TSK_ID) VALUES (61)");
  const Ref<Recordset> rs = Run("SELECT Null AS TSK_ID," + ColumnList(kColumns, "TSK_ID") + " FROM Tasks");
  EXPECT_EQ(NumberRaised([&] { NewTask()->GetValuesFromRS(rs); }), 94);
}

TEST_F(TaskRecord, ReadsAndWritesEveryColumnOfItsTable) {
  EXPECT_THAT(ColumnsRead(kColumns), testing::UnorderedElementsAreArray(ColumnsOf(connection(), "Tasks")));
  EXPECT_THAT(ColumnsWritten(*NewTask(), "TSK_ID"),
              testing::UnorderedElementsAreArray(ColumnsOf(connection(), "Tasks")));
}

TEST_F(TaskRecord, ReadingClearsTheOwnFlags) {
  Run(InsertOfAll("Tasks", kColumns));
  EXPECT_EQ(Flags(*session->GetTask(61)), "old clear");
}

TEST_F(TaskRecord, ChildrenAreReadByTheReferencesNotificationFirst) {
  Run("INSERT INTO Tasks (TSK_ID,TSK_NotificationID,TSK_RecurrenceID) VALUES (61,64,63)");
  session->GetTask(61);
  EXPECT_EQ(SentInAll(), (Texts{"SELECT * FROM Tasks WHERE TSK_ID=61", "SELECT * FROM Notifications WHERE NTF_ID=64",
                                "SELECT * FROM Recurrences WHERE REC_ID=63"}));
}

TEST_F(TaskRecord, ReferencesOfZeroAndMinusOneAreNotLookedUp) {
  Run("INSERT INTO Tasks (TSK_ID,TSK_NotificationID,TSK_RecurrenceID) VALUES (61,-1,0)");
  session->GetTask(61);
  EXPECT_EQ(SentInAll(), Texts{"SELECT * FROM Tasks WHERE TSK_ID=61"});
}

TEST_F(TaskRecord, LoadedChildrenHoldTheirRows) {
  const Ref<CTask> task = session->GetTask(TaskWithChildren()->ID);
  EXPECT_EQ(task->Recurrence->RType, REC_WEEKLY);
  EXPECT_EQ(task->Recurrence->ID, 1);
  EXPECT_EQ(task->Notification->Subject, "Sing");
  EXPECT_EQ(task->Notification->ID, 1);
}

TEST_F(TaskRecord, ReferenceToAMissingNotificationLoadsWithAnEmptyOne) {
  Run("INSERT INTO Tasks (TSK_ID,TSK_NotificationID) VALUES (61,64)");
  const Ref<CTask> task = session->GetTask(61);
  ASSERT_TRUE(task);
  EXPECT_TRUE(task->Notification->IsEmpty());
  EXPECT_EQ(task->NotificationID, 64);
}

TEST_F(TaskRecord, FailedQueryOfAChildReachesTheCallerOfTheReading) {
  Run("INSERT INTO Tasks (TSK_ID,TSK_NotificationID) VALUES (61,64)");
  const Ref<CTask> task = NewTask();
  const Ref<Recordset> rs = Run("SELECT * FROM Tasks");
  Refuse("SELECT * FROM Notifications");
  EXPECT_EQ(NumberRaised([&] { task->GetValuesFromRS(rs); }), -2147217900);
}

// ---- refreshing

TEST_F(TaskRecord, RefreshSendsTheSelectOfOneTask) {
  Run("INSERT INTO Tasks (TSK_ID) VALUES (61)");
  const Ref<CTask> task = session->GetTask(61);
  Forget();
  EXPECT_TRUE(task->Refresh());
  EXPECT_EQ(SentInAll(), Texts{"SELECT * FROM Tasks WHERE TSK_ID=61"});
}

TEST_F(TaskRecord, RefreshTakesTheRowsValues) {
  const Ref<CTask> task = TaskWithChildren();
  Run("UPDATE Tasks SET TSK_Name='Perform'");
  EXPECT_TRUE(task->Refresh());
  EXPECT_EQ(task->Name, "Perform");
}

TEST_F(TaskRecord, RefreshThatFindsNoReferenceLeavesTheOldChild) {
  const Ref<CTask> task = TaskWithChildren();
  Run("UPDATE Tasks SET TSK_RecurrenceID=0,TSK_NotificationID=-1");
  EXPECT_TRUE(task->Refresh());
  EXPECT_EQ(task->Recurrence->RType, REC_WEEKLY);
  EXPECT_EQ(task->Notification->Subject, "Sing");
}

TEST_F(TaskRecord, RefreshOfADeletedTaskRecords102) {
  const Ref<CTask> task = TaskWithChildren();
  Run("DELETE * FROM Tasks");
  EXPECT_FALSE(task->Refresh());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CTask.Refresh] Error: 102 - No task found");
}

TEST_F(TaskRecord, RefreshThatFailsIsRecorded) {
  const Ref<CTask> task = TaskWithChildren();
  Refuse("SELECT * FROM Tasks");
  EXPECT_FALSE(task->Refresh());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CTask.Refresh] Error: -2147217900 - made to fail");
}

TEST_F(TaskRecord, RefreshThatFailsAtAChildLeavesTheFlags) {
  const Ref<CTask> task = TaskWithChildren();
  task->Name = "b";
  Refuse("SELECT * FROM Recurrences");
  EXPECT_FALSE(task->Refresh());
  EXPECT_EQ(Flags(*task), "old modified");
}

TEST_F(TaskRecord, RefreshDoesNotClearAnOldError) {
  const Ref<CTask> task = TaskWithChildren();
  LeaveAnOldError();
  EXPECT_TRUE(task->Refresh());
  EXPECT_EQ(session->GetErrorCode(), 77);
}

// ---- the session's operations

TEST_F(TaskRecord, GetTaskWithoutARowGivesNothingAndNoError) {
  LeaveAnOldError();
  EXPECT_FALSE(session->GetTask(99));
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(TaskRecord, GetTaskThatFailsIsRecorded) {
  Refuse("SELECT * FROM Tasks");
  EXPECT_FALSE(session->GetTask(99));
  EXPECT_EQ(session->GetEntireErrorDesc(), "[GetTask] Error: -2147217900 - made to fail");
}

TEST_F(TaskRecord, CreateTaskTwiceGivesTwoConsecutiveIdentifiersAndNoRow) {
  SetSequences({{2, 41}});
  EXPECT_EQ(session->CreateTask()->ID, 42);
  EXPECT_EQ(session->CreateTask()->ID, 43);
  EXPECT_EQ(Rows("Tasks"), 0);
}

TEST_F(TaskRecord, CreateTaskIsRefusedToASessionThatMayOnlyRead) {
  session->UserRights = DataViewer;
  EXPECT_FALSE(session->CreateTask());
  EXPECT_EQ(session->GetEntireErrorDesc(),
            "[CSession.CreateTask] Error: 105 - You don't have rights to insert/edit data");
}

TEST_F(TaskRecord, TasksOfAFolderComeInTheOrderOfTheirNames) {
  Run("INSERT INTO Tasks (TSK_ID,TSK_FolderID,TSK_Name) VALUES (1,3,'b')");
  Run("INSERT INTO Tasks (TSK_ID,TSK_FolderID,TSK_Name) VALUES (2,11,'z')");
  Run("INSERT INTO Tasks (TSK_ID,TSK_FolderID,TSK_Name) VALUES (3,3,'A')");
  Run("INSERT INTO Tasks (TSK_ID,TSK_FolderID,TSK_Name) VALUES (4,3,'c')");
  const auto tasks = MakeRef<CTasks>();
  EXPECT_TRUE(session->LoadTasks4Folder(tasks, 3));
  EXPECT_EQ(SentInAll(), Texts{"SELECT * FROM Tasks WHERE TSK_FolderID=3 ORDER BY TSK_Name ASC"});
  EXPECT_EQ(NamesOf(tasks), (Texts{"A", "b", "c"}));
}

TEST_F(TaskRecord, LoadingTasksWithoutCriteriaSelectsTheWholeTable) {
  TaskWithChildren();
  const auto tasks = MakeRef<CTasks>();
  EXPECT_TRUE(session->LoadTasksWithCriteria(tasks, ""));
  EXPECT_EQ(SentInAll(), (Texts{"SELECT * FROM Tasks", "SELECT * FROM Notifications WHERE NTF_ID=1",
                                "SELECT * FROM Recurrences WHERE REC_ID=1"}));
  EXPECT_EQ(NamesOf(tasks), Texts{"Practise"});
}

TEST_F(TaskRecord, LoadingTasksThatCannotOpenIsRecordedAndLeavesTheCollection) {
  TaskWithChildren();
  const auto tasks = MakeRef<CTasks>();
  ASSERT_TRUE(session->LoadTasksWithCriteria(tasks, ""));
  EXPECT_FALSE(session->LoadTasksWithCriteria(tasks, "no such column = 1"));
  EXPECT_EQ(session->GetErrorProcedure(), "LoadTasksWithCriteria");
  EXPECT_EQ(tasks->Count(), 1);
}

// ---- the fields

TEST_F(TaskRecord, FieldsHaveTwentyFiveRowsThreeColumnsAndAreEmptyBehindTheLast) {
  FieldsArray fields;
  std::int32_t count = 0;
  EXPECT_TRUE(FullTask()->GetFieldsArray(FN_DATABASE, fields, count));
  EXPECT_EQ(count, 25);
  EXPECT_EQ(fields.LastRow(), 25);
  EXPECT_EQ(fields.LastColumn(), 2);
  EXPECT_EQ(fields(13, 0), "TSK_DateLastUpdate");
  for (std::int32_t row = 14; row <= 25; ++row) EXPECT_EQ(fields(row, 0) + fields(row, 1), "") << row;
}

TEST_F(TaskRecord, FieldsOfAnUnknownKindAreEmpty) {
  FieldsArray fields;
  std::int32_t count = 0;
  EXPECT_TRUE(FullTask()->GetFieldsArray(static_cast<FieldType>(0), fields, count));
  EXPECT_EQ(count, 25);
  for (std::int32_t row = 0; row <= 25; ++row) EXPECT_EQ(fields(row, 0) + fields(row, 1), "") << row;
}

}  // namespace
}  // namespace zef::test
