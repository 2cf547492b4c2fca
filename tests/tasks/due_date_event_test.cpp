#include "tasks/due_date_event.h"

#include <algorithm>

#include "tests/tasks/task_fixture.h"

namespace zef::test {
namespace {

constexpr char kFolderLookUp[] = "SELECT FLD_ID FROM Folders WHERE FLD_Protected=1 and FLD_Name='Tasks Due Dates'";

using DueDateEvent = DueDateEventTest;

// ---- making

TEST_F(DueDateEvent, NewTaskWithADueDateGetsOneEvent) {
  StoredTask();
  EXPECT_EQ(Rows("Events"), 1);
}

TEST_F(DueDateEvent, EventIsOfTypeTAndLinkedToTheTask) {
  SetSequences({{2, 41}});
  const Ref<CTask> task = StoredTask();
  EXPECT_EQ(task->ID, 42);
  EXPECT_EQ(Of("EVE_Type"), "T");
  EXPECT_EQ(Of("EVE_LinkID"), "42");
}

TEST_F(DueDateEvent, TextIsTheNameAndDueDate) {
  StoredTask();
  EXPECT_EQ(Of("EVE_Text"), "Practise Due Date");
}

TEST_F(DueDateEvent, NameWithAnApostropheComesWholeIntoTheText) {
  const Ref<CTask> task = FullTask(On("6/7/2024"));
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Of("EVE_Text"), "Call O'Neill Due Date");
}

TEST_F(DueDateEvent, TaskWithoutANameGivesTheTextOfTheDueDateAlone) {
  const Ref<CTask> task = NewTask();
  task->DueDate = On("6/7/2024");
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Of("EVE_Text"), " Due Date");
}

TEST_F(DueDateEvent, EventStandsInTheProtectedFolderOfThatName) {
  Run("INSERT INTO Folders (FLD_ID,FLD_Name,FLD_Protected) VALUES (0,'Tasks Due Dates',0)");
  StoredTask();
  EXPECT_EQ(Of("EVE_FolderID"), "9");
}

TEST_F(DueDateEvent, EventHasAReminderOfZero) {
  StoredTask();
  EXPECT_EQ(Of("EVE_Reminder"), "0");
}

TEST_F(DueDateEvent, EventStartsAndEndsOnTheDueDateWithoutATime) {
  StoredTask();
  EXPECT_EQ(Of("EVE_StartDate"), "6/7/2024");
  EXPECT_EQ(Of("EVE_EndDate"), "6/7/2024");
}

TEST_F(DueDateEvent, TaskKeepsTheTimeOfItsDueDate) {
  StoredTask();
  EXPECT_EQ(Stored("SELECT TSK_DueDate FROM Tasks"), "6/7/2024 8:09:10 AM");
}

TEST_F(DueDateEvent, EventOfADueDateOneSecondBeforeMidnightStaysOnThatDay) {
  const Ref<CTask> task = FullTask(On("6/7/2024 11:59:59 PM"));
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Of("EVE_StartDate"), "6/7/2024");
}

TEST_F(DueDateEvent, EventOfADueDateThatRoundsToMidnightStandsOnTheDayThatIsStored) {
  const Ref<CTask> task = FullTask(Date(On("6/7/2024").value() + 86399.7 / 86400));
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Stored("SELECT TSK_DueDate FROM Tasks"), "6/8/2024");
  EXPECT_EQ(Of("EVE_StartDate"), "6/8/2024");
  EXPECT_EQ(Of("EVE_EndDate"), "6/8/2024");
}

TEST_F(DueDateEvent, EventOfADueDateBeforeDayZeroLiesOnItsDay) {
  const Ref<CTask> task = FullTask(Date(-1.25));
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Of("EVE_StartDate"), "12/29/1899");
}

TEST_F(DueDateEvent, DueDateThatIsATimeAloneGivesAnEventOnDayZero) {
  const Ref<CTask> task = FullTask(Date(0.25));
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Of("EVE_StartDate"), "12:00:00 AM");
}

TEST_F(DueDateEvent, EndsOfTheDateRangeGiveEvents) {
  for (const char* date : {"1/1/100", "12/31/9999"}) {
    const Ref<CTask> task = FullTask(On(date));
    ASSERT_TRUE(task->Save());
    EXPECT_EQ(Stored("SELECT EVE_StartDate FROM Events WHERE EVE_LinkID=" + std::to_string(task->ID)), date);
  }
}

TEST_F(DueDateEvent, NewTaskWithoutADueDateGetsNoneAndLooksForNoFolder) {
  const Ref<CTask> task = FullTask();
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Sent().size(), 1u);
  EXPECT_EQ(Rows("Events"), 0);
}

TEST_F(DueDateEvent, UnmodifiedNewTaskWithADueDateGetsItsEventWithoutARowOfItsOwn) {
  const Ref<CTask> task = FullTask(On("6/7/2024"));
  task->ResetFlagsX(false, true);
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Rows("Tasks"), 0);
  EXPECT_EQ(Rows("Events WHERE EVE_LinkID=1"), 1);
}

TEST_F(DueDateEvent, NewTasksEventIsMadeWithoutLookingForAnOldOne) {
  ASSERT_TRUE(FullTask(On("6/7/2024"))->Save());
  EXPECT_EQ(
      Sent(),
      (Texts{
          "INSERT INTO Tasks (TSK_ID,TSK_FolderID,TSK_RecurrenceID,TSK_NotificationID,TSK_CategoryID,TSK_Priority,"
          "TSK_StatusID,TSK_Name,TSK_Description,TSK_DueDate,TSK_StartDate,TSK_AssignedTo,TSK_Completed,"
          "TSK_DateCompleted,TSK_DateLastUpdate) VALUES (1,21,22,23,24,'High''est',25,'Call O''Neill','It''s urgent',"
          "'6/7/2024','3/4/2024 5:06:07 PM','D''Arcy',26,'3/5/2024 8:00:00 PM','5/1/2024 9:00:00 AM')",
          kFolderLookUp,
          "INSERT INTO Events (EVE_ID,EVE_FolderID,EVE_CategoryID,EVE_NotificationID,EVE_RecurrenceID,EVE_ContactID,"
          "EVE_Text,EVE_StartDate,EVE_Reminder,EVE_DateLastUpdate,EVE_EndDate,EVE_Type,EVE_LinkID) VALUES "
          "(1,9,0,0,0,0,'Call O''Neill Due Date','6/7/2024',0,'5/1/2024 9:00:00 AM','6/7/2024','T',1)"}));
}

TEST_F(DueDateEvent, UnchangedNewTaskObjectThatIsNewAgainGetsASecondEvent) {
  const Ref<CTask> task = StoredTask();
  task->ResetFlagsX(true, true);
  task->Recurrence->ResetFlagsX(false, true);
  task->Notification->ResetFlagsX(false, true);
  task->ID = 99;
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Rows("Events WHERE EVE_LinkID=99"), 1);
  EXPECT_EQ(Rows("Events WHERE EVE_LinkID=1"), 1);
}

// ---- the rule

TEST_F(DueDateEvent, EventsRuleTakesAllFourteenProperties) {
  const Ref<CTask> task = NewTask();
  task->DueDate = On("6/7/2024");
  CRecurrence& rule = *task->Recurrence;
  rule.RType = REC_WEEKLY;
  rule.SubType = 2;
  rule.Options1 = 3;
  rule.Options2 = 4;
  rule.OccurencesNo = 5;
  rule.EndDate = On("12/31/2024 1:00:00 PM");
  rule.WeekNumber = 6;
  rule.Monday = rule.Friday = true;
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Sent().at(3),
            "INSERT INTO Recurrences (REC_ID,REC_OccurencesNo,REC_Options1,REC_Options2,REC_SubType,"
            "REC_Type,REC_EndDate,REC_Day,REC_Month,REC_WeekNumber) VALUES "
            "(2,5,3,4,2,2,'12/31/2024 1:00:00 PM',17,0,6)");
}

TEST_F(DueDateEvent, EachWeekdayIsCopied) {
  const std::vector<void (*)(CRecurrence&)> days = {
      [](CRecurrence& r) { r.Monday = true; },   [](CRecurrence& r) { r.Tuesday = true; },
      [](CRecurrence& r) { r.Wendsday = true; }, [](CRecurrence& r) { r.Thursday = true; },
      [](CRecurrence& r) { r.Friday = true; },   [](CRecurrence& r) { r.Saturday = true; },
      [](CRecurrence& r) { r.Sunday = true; }};
  const Ref<CTask> task = StoredTask();
  task->Recurrence->RType = REC_WEEKLY;
  for (int bits = 1; const auto set : days) {
    set(*task->Recurrence);
    ASSERT_TRUE(task->Save());
    EXPECT_EQ(Stored("SELECT REC_Day FROM Recurrences WHERE REC_ID=" + Of("EVE_RecurrenceID")), std::to_string(bits));
    bits = bits * 2 + 1;
  }
}

TEST_F(DueDateEvent, EventHasACopyOfTheRuleInARowOfItsOwn) {
  const Ref<CTask> task = NewTask();
  task->DueDate = On("6/7/2024");
  task->Recurrence->RType = REC_WEEKLY;
  task->Recurrence->Monday = true;
  task->Recurrence->Friday = true;
  ASSERT_TRUE(task->Save());
  const Ref<CEvent> event = session->GetEvent(1);
  EXPECT_EQ(event->Recurrence->RType, 2);
  EXPECT_TRUE(event->Recurrence->Monday && event->Recurrence->Friday);
  EXPECT_NE(event->RecurrenceID, task->RecurrenceID);
  EXPECT_EQ(Rows("Recurrences"), 2);
}

TEST_F(DueDateEvent, EventOfATaskWithoutARuleHasARuleOfNoType) {
  StoredTask();
  EXPECT_EQ(session->GetEvent(1)->Recurrence->RType, 0);
}

/// Both rules end when they were made, and copying the other end changes the event's.
TEST_F(DueDateEvent, RuleOfNoTypeHasARowIfTheEventWasMadeLaterThanTheTask) {
  const ClockOverride moving([at = now_]() mutable { return at = AddDays(at, 1); });
  StoredTask();
  EXPECT_EQ(Rows("Events INNER JOIN Recurrences ON EVE_RecurrenceID=REC_ID WHERE REC_Type=0"), 1);
}

TEST_F(DueDateEvent, RuleOfNoTypeHasNoRowIfTheEventWasMadeAtTheSameMoment) {
  StoredTask();
  EXPECT_EQ(Rows("Recurrences"), 0);
}

TEST_F(DueDateEvent, ChangeOfTheRuleReachesTheEventsRule) {
  const Ref<CTask> task = LoadedTask();
  task->Recurrence->RType = REC_DAILY;
  task->Recurrence->Options1 = 3;
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(session->GetEvent(1)->Recurrence->Options1, 3);
}

TEST_F(DueDateEvent, ClearedRuleOfTheTaskClearsTheEventsRule) {
  const Ref<CTask> task = LoadedTask();
  task->Recurrence->RType = REC_DAILY;
  ASSERT_TRUE(task->Save());
  task->Recurrence->RType = REC_EMPTY;
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Rows("Recurrences"), 0);
  EXPECT_EQ(Of("EVE_RecurrenceID"), "-1");
}

// ---- refreshing

TEST_F(DueDateEvent, OldTasksEventIsFoundByTypeLinkAndFolder) {
  const Ref<CTask> task = LoadedTask();
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Sent(),
            (Texts{kFolderLookUp, "SELECT EVE_ID FROM Events WHERE EVE_Type='T' and EVE_LinkID=1 AND EVE_FolderID=9",
                   "SELECT * FROM Events WHERE EVE_ID=1"}));
}

TEST_F(DueDateEvent, ChangedDueDateMovesTheEvent) {
  const Ref<CTask> task = LoadedTask();
  task->DueDate = On("7/8/2024 1:00:00 PM");
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Rows("Events"), 1);
  EXPECT_EQ(Of("EVE_StartDate"), "7/8/2024");
  EXPECT_EQ(Of("EVE_EndDate"), "7/8/2024");
}

TEST_F(DueDateEvent, RenamedTaskLeavesTheEventsText) {
  const Ref<CTask> task = LoadedTask();
  task->Name = "Perform";
  task->DueDate = On("7/8/2024");
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Of("EVE_Text"), "Practise Due Date");
}

TEST_F(DueDateEvent, UnchangedTasksSaveWritesTheEventsDateAndReminderAgain) {
  const Ref<CTask> task = LoadedTask();
  Run("UPDATE Events SET EVE_StartDate='1/1/2000',EVE_EndDate='1/2/2000',EVE_Reminder=15");
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Of("EVE_StartDate"), "6/7/2024");
  EXPECT_EQ(Of("EVE_EndDate"), "6/7/2024");
  EXPECT_EQ(Of("EVE_Reminder"), "0");
}

TEST_F(DueDateEvent, UnchangedTasksSaveWritesTheEventsRuleAgain) {
  const Ref<CTask> task = LoadedTask();
  task->Recurrence->RType = REC_DAILY;
  ASSERT_TRUE(task->Save());
  Run("UPDATE Recurrences SET REC_Type=4 WHERE REC_ID=" + Of("EVE_RecurrenceID"));
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(session->GetEvent(1)->Recurrence->RType, REC_DAILY);
}

TEST_F(DueDateEvent, RefreshLeavesWhatTheClientAddedToTheEvent) {
  const Ref<CTask> task = LoadedTask();
  Run("UPDATE Events SET EVE_Text='mine',EVE_Location='here',EVE_CategoryID=4,EVE_ContactID=5");
  task->DueDate = On("7/8/2024");
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Rows("Events WHERE EVE_Text='mine' AND EVE_Location='here' AND EVE_CategoryID=4 AND EVE_ContactID=5"), 1);
}

TEST_F(DueDateEvent, RefreshLeavesTheNotificationThatTheClientGaveTheEvent) {
  const Ref<CTask> task = LoadedTask();
  const Ref<CEvent> event = session->GetEvent(1);
  event->Notification->Subject = "mine";
  ASSERT_TRUE(event->Save());
  task->DueDate = On("7/8/2024");
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(session->GetEvent(1)->Notification->Subject, "mine");
}

TEST_F(DueDateEvent, WeekdayTakenOffTheRuleIsTakenOffTheEvents) {
  const Ref<CTask> task = LoadedTask();
  task->Recurrence->RType = REC_WEEKLY;
  task->Recurrence->Monday = true;
  task->Recurrence->Friday = true;
  ASSERT_TRUE(task->Save());
  task->Recurrence->Monday = false;
  ASSERT_TRUE(task->Save());
  EXPECT_FALSE(session->GetEvent(1)->Recurrence->Monday);
  EXPECT_TRUE(session->GetEvent(1)->Recurrence->Friday);
}

TEST_F(DueDateEvent, MissingEventIsMadeAgainBySavingTheUnchangedTask) {
  const Ref<CTask> task = LoadedTask();
  Run("DELETE * FROM Events");
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Rows("Events"), 1);
  EXPECT_EQ(Of("EVE_Text"), "Practise Due Date");
  EXPECT_EQ(Of("EVE_StartDate"), "6/7/2024");
}

TEST_F(DueDateEvent, EventMovedToAnotherFolderIsNotFoundAndMadeAgain) {
  const Ref<CTask> task = LoadedTask();
  Run("UPDATE Events SET EVE_FolderID=6");
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Rows("Events WHERE EVE_FolderID=9"), 1);
  EXPECT_EQ(Rows("Events WHERE EVE_FolderID=6"), 1);
}

TEST_F(DueDateEvent, DueDateGivenToAnOldTaskMakesTheEvent) {
  const Ref<CTask> task = FullTask();
  ASSERT_TRUE(task->Save());
  task->DueDate = On("6/7/2024");
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Of("EVE_StartDate"), "6/7/2024");
}

TEST_F(DueDateEvent, OnlyTheFirstOfSeveralEventsIsRefreshed) {
  const Ref<CTask> task = LoadedTask();
  Run("INSERT INTO Events (EVE_ID,EVE_Type,EVE_LinkID,EVE_FolderID,EVE_Reminder) VALUES (99,'T',1,9,15)");
  Run("UPDATE Events SET EVE_Reminder=15");
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Rows("Events WHERE EVE_Reminder=0"), 1);
  EXPECT_EQ(Rows("Events WHERE EVE_Reminder=15"), 1);
}

TEST_F(DueDateEvent, CompletedTaskKeepsItsEvent) {
  const Ref<CTask> task = LoadedTask();
  task->Completed = 1;
  task->DateCompleted = On("6/6/2024");
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Rows("Events"), 1);
}

// ---- deleting

TEST_F(DueDateEvent, ClearedDueDateDeletesTheEvent) {
  const Ref<CTask> task = LoadedTask();
  task->DueDate = Date();
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Rows("Events"), 0);
}

TEST_F(DueDateEvent, DeleteNamesTypeLinkAndFolder) {
  const Ref<CTask> task = LoadedTask();
  task->DueDate = Date();
  ASSERT_TRUE(task->Save());
  const Texts sent = Sent();
  ASSERT_EQ(sent.size(), 3u);
  EXPECT_EQ(sent[1], kFolderLookUp);
  EXPECT_EQ(sent[2], "DELETE FROM Events WHERE EVE_Type='T' and EVE_LinkID=1 AND EVE_FolderID=9");
}

TEST_F(DueDateEvent, OldTaskWithoutADueDateSendsTheDeleteAtEverySave) {
  const Ref<CTask> task = FullTask();
  ASSERT_TRUE(task->Save());
  Forget();
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Sent(),
            (Texts{kFolderLookUp, "DELETE FROM Events WHERE EVE_Type='T' and EVE_LinkID=1 AND EVE_FolderID=9"}));
}

TEST_F(DueDateEvent, ClearedDueDateLeavesEventsOfOtherTypesLinksAndFolders) {
  const Ref<CTask> task = LoadedTask();
  for (const char* row : {"(90,'E',1,9)", "(91,'A',1,9)", "(92,'B',1,9)", "(93,'T',2,9)", "(94,'T',1,6)"}) {
    Run(std::string("INSERT INTO Events (EVE_ID,EVE_Type,EVE_LinkID,EVE_FolderID) VALUES ") + row);
  }
  task->DueDate = Date();
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Rows("Events WHERE EVE_ID>=90"), 5);
  EXPECT_EQ(Rows("Events"), 5);
}

TEST_F(DueDateEvent, DeletedEventLeavesItsRuleBehind) {
  const Ref<CTask> task = LoadedTask();
  task->Recurrence->RType = REC_DAILY;
  ASSERT_TRUE(task->Save());
  ASSERT_EQ(Rows("Recurrences"), 2);
  task->DueDate = Date();
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Rows("Recurrences"), 2);
}

// ---- the transaction

TEST_F(DueDateEvent, EventJoinsTheTransactionOfTheTask) {
  const Ref<CTask> task = NewTask();
  task->DueDate = On("6/7/2024");
  ASSERT_TRUE(task->Save());
  const Texts sent = SentInAll();
  EXPECT_EQ(std::count(sent.begin(), sent.end(), "BEGIN"), 2) << "the task's and the one around the event's number";
  EXPECT_EQ(std::count(sent.begin(), sent.end(), "COMMIT"), 2);
  EXPECT_EQ(sent.back(), "COMMIT");
}

}  // namespace
}  // namespace zef::test
