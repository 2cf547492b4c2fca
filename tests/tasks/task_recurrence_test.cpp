#include "tests/support/item_expectations.h"
#include "tests/support/raised.h"
#include "tests/tasks/task_fixture.h"

namespace zef::test {
namespace {

/// A stored task with a rule that comes back every seven days without an end. Task, rule and notification are number 1.
class TaskRecurrence : public TaskTest {
 protected:
  Ref<CTask> StoredTask(Date due = On("3/4/2024"), bool with_notification = true) {
    Ref<CTask> task = NewTask();
    task->Name = "Practise";
    task->StartDate = On("3/1/2024");
    task->DueDate = due;
    task->Recurrence->RType = REC_DAILY;
    task->Recurrence->Options1 = 7;
    task->Recurrence->OccurencesNo = 0;
    task->Recurrence->EndDate = Date();
    if (with_notification) task->Notification->Subject = "Sing";
    EXPECT_TRUE(task->Save()) << session->GetEntireErrorDesc();
    Forget();
    return session->GetTask(task->ID);
  }
  /// All that the roll forward can touch.
  static std::string State(const CTask& task) {
    const CRecurrence& rule = *task.Recurrence;
    return std::to_string(task.ID) + " " + Shown(task.StartDate) + " " + Shown(task.DueDate) + " " +
           Shown(task.DateCompleted) + " " + std::to_string(task.Completed) + " " + std::to_string(task.StatusID) +
           " " + std::to_string(task.RecurrenceID) + "/" + std::to_string(rule.ID) + " " +
           std::to_string(rule.OccurencesNo) + " " + std::to_string(task.NotificationID) + " " + Flags(task) + " " +
           Flags(rule) + " " + Flags(*task.Notification);
  }
  void ExpectNothingChanged(CTask& task) {
    const std::string before = State(task);
    Forget();
    EXPECT_FALSE(task.ApplyRecurrence());
    EXPECT_EQ(State(task), before);
    EXPECT_EQ(SentInAll(), Texts{});
  }
  std::string SequenceValue(int sequence) {
    return Stored("SELECT SEQ_Value FROM Sequences WHERE SEQ_ID=" + std::to_string(sequence));
  }
  void DropSequence(int sequence) { Run("DELETE * FROM Sequences WHERE SEQ_ID=" + std::to_string(sequence)); }
};

TEST_F(TaskRecurrence, ShiftsTheDueDateByCalendarDaysWhateverTheTimeOfDay) {
  const Ref<CTask> task = StoredTask();
  task->Recurrence->RType = REC_YEARLY;
  task->Recurrence->Options1 = 3;
  task->Recurrence->Options2 = 15;
  task->StartDate = On("3/1/2024 11:00:00 PM");
  ASSERT_TRUE(task->ApplyRecurrence());
  EXPECT_EQ(Shown(task->StartDate), "4/15/2024");
  EXPECT_EQ(Shown(task->DueDate), "4/18/2024");
}

// ---- No next instance

TEST_F(TaskRecurrence, WithoutAReferenceToARuleChangesNothing) {
  const Ref<CTask> task = StoredTask();
  task->RecurrenceID = 0;
  ExpectNothingChanged(*task);
}

TEST_F(TaskRecurrence, WithReferenceMinusOneChangesNothing) {
  const Ref<CTask> task = StoredTask();
  task->RecurrenceID = -1;
  ExpectNothingChanged(*task);
}

TEST_F(TaskRecurrence, WithoutAReferenceNeedsNoSession) { EXPECT_FALSE(MakeRef<CTask>()->ApplyRecurrence()); }

TEST_F(TaskRecurrence, OfARuleThatHasEndedChangesNothing) {
  const Ref<CTask> task = StoredTask();
  task->Recurrence->EndDate = On("3/2/2024");
  ExpectNothingChanged(*task);
}

TEST_F(TaskRecurrence, OfAnEmptyRuleChangesNothing) {
  const Ref<CTask> task = StoredTask();
  task->Recurrence->RType = REC_EMPTY;
  ExpectNothingChanged(*task);
}

TEST_F(TaskRecurrence, OfARuleThatCannotBeWorkedOutChangesNothing) {
  const Ref<CTask> task = StoredTask();
  task->Recurrence->RType = REC_WEEKLY;
  task->Recurrence->Options1 = 0;
  ExpectNothingChanged(*task);
}

TEST_F(TaskRecurrence, PastTheLastDayOfTheCalendarChangesNothing) {
  const Ref<CTask> task = StoredTask();
  task->StartDate = On("12/30/9999");
  ExpectNothingChanged(*task);
}

TEST_F(TaskRecurrence, WithoutANextDateLeavesAnOldError) {
  const Ref<CTask> task = StoredTask();
  task->RecurrenceID = 0;
  LeaveAnOldError();
  EXPECT_FALSE(task->ApplyRecurrence());
  EXPECT_EQ(session->GetErrorCode(), 77);
}

// ---- Dates

TEST_F(TaskRecurrence, KeepsTheDistanceBetweenStartAndDueDate) {
  const Ref<CTask> task = StoredTask();
  EXPECT_TRUE(task->ApplyRecurrence());
  EXPECT_EQ(Shown(task->StartDate), "3/8/2024");
  EXPECT_EQ(Shown(task->DueDate), "3/11/2024");
}

TEST_F(TaskRecurrence, KeepsTheTimeOfTheDueDate) {
  const Ref<CTask> task = StoredTask(On("3/4/2024 5:06:07 PM"));
  EXPECT_TRUE(task->ApplyRecurrence());
  EXPECT_EQ(Shown(task->DueDate), "3/11/2024 5:06:07 PM");
}

TEST_F(TaskRecurrence, CountsTheShiftInCalendarDays) {
  const Ref<CTask> task = StoredTask();
  task->StartDate = On("3/1/2024 11:00:00 PM");
  EXPECT_TRUE(task->ApplyRecurrence());
  EXPECT_EQ(Shown(task->DueDate), "3/11/2024");
}

TEST_F(TaskRecurrence, StaysWithoutADueDate) {
  const Ref<CTask> task = StoredTask(Date());
  EXPECT_TRUE(task->ApplyRecurrence());
  EXPECT_TRUE(task->DueDate->IsZero());
}

TEST_F(TaskRecurrence, CrossesALeapDay) {
  const Ref<CTask> task = StoredTask(On("2/29/2024"));
  task->StartDate = On("2/28/2024");
  EXPECT_TRUE(task->ApplyRecurrence());
  EXPECT_EQ(Shown(task->StartDate), "3/6/2024");
  EXPECT_EQ(Shown(task->DueDate), "3/7/2024");
}

TEST_F(TaskRecurrence, WorksBeforeTheFirstDateValue) {
  const Ref<CTask> task = StoredTask(On("1/4/1850 6:00:00 AM"));
  task->StartDate = On("1/1/1850");
  EXPECT_TRUE(task->ApplyRecurrence());
  EXPECT_EQ(Shown(task->StartDate), "1/8/1850");
  EXPECT_EQ(Shown(task->DueDate), "1/11/1850 6:00:00 AM");
}

TEST_F(TaskRecurrence, CountsFromTheStartAndNotFromToday) {
  const Ref<CTask> task = StoredTask();
  ASSERT_TRUE(task->ApplyRecurrence());
  ASSERT_TRUE(task->ApplyRecurrence());
  EXPECT_EQ(Shown(task->StartDate), "3/15/2024");
}

// ---- State of completion

TEST_F(TaskRecurrence, OpensTheTaskAgain) {
  const Ref<CTask> task = StoredTask();
  task->Completed = 1;
  task->DateCompleted = On("3/5/2024");
  task->StatusID = 4;
  EXPECT_TRUE(task->ApplyRecurrence());
  EXPECT_EQ(task->Completed, 0);
  EXPECT_TRUE(task->DateCompleted->IsZero());
  EXPECT_EQ(task->StatusID, -1);
}

TEST_F(TaskRecurrence, KeepsWhatTheTaskSays) {
  const Ref<CTask> task = StoredTask();
  task->Description = "It's urgent";
  task->CategoryID = 24;
  EXPECT_TRUE(task->ApplyRecurrence());
  EXPECT_EQ(task->Name, "Practise");
  EXPECT_EQ(task->Description, "It's urgent");
  EXPECT_EQ(task->CategoryID, 24);
}

// ---- Identifiers and flags

TEST_F(TaskRecurrence, DrawsNumbersOfTaskRuleAndNotificationInThisOrder) {
  const Ref<CTask> task = StoredTask();
  SetSequences({{2, 40}, {8, 80}, {7, 70}});
  Forget();
  EXPECT_TRUE(task->ApplyRecurrence());
  EXPECT_EQ(SequencesDrawn(), (Texts{"2", "8", "7"}));
  ExpectNumbers(*task, 41, 81, 71);
}

TEST_F(TaskRecurrence, WithoutANotificationDrawsNoNumberForOne) {
  const Ref<CTask> task = StoredTask(Date(), false);
  EXPECT_TRUE(task->ApplyRecurrence());
  EXPECT_EQ(SequenceValue(7), "0");
  EXPECT_LT(task->NotificationID, 1);
}

TEST_F(TaskRecurrence, WithNotificationMinusOneDrawsNoNumberForOne) {
  const Ref<CTask> task = StoredTask();
  task->NotificationID = -1;
  SetSequences({{7, 70}});
  EXPECT_TRUE(task->ApplyRecurrence());
  EXPECT_EQ(SequenceValue(7), "70");
  EXPECT_EQ(task->NotificationID, -1);
}

TEST_F(TaskRecurrence, MakesTaskAndChildrenNewAndModified) {
  const Ref<CTask> task = StoredTask();
  EXPECT_TRUE(task->ApplyRecurrence());
  EXPECT_EQ(Flags(*task), "new modified");
  EXPECT_EQ(Flags(*task->Recurrence), "new modified");
  EXPECT_EQ(Flags(*task->Notification), "new modified");
}

TEST_F(TaskRecurrence, LeavesAnOldErrorWhenItSucceeds) {
  const Ref<CTask> task = StoredTask();
  LeaveAnOldError();
  EXPECT_TRUE(task->ApplyRecurrence());
  EXPECT_EQ(session->GetErrorCode(), 77);
}

TEST_F(TaskRecurrence, OfAnUnsavedChangedTaskWorksAsWell) {
  const Ref<CTask> task = NewTask();
  task->StartDate = On("3/1/2024");
  task->RecurrenceID = 5;
  task->Recurrence->RType = REC_DAILY;
  task->Recurrence->Options1 = 1;
  task->Recurrence->EndDate = Date();
  EXPECT_TRUE(task->ApplyRecurrence());
  EXPECT_EQ(Shown(task->StartDate), "3/2/2024");
}

TEST_F(TaskRecurrence, ASessionThatMayOnlyReadRollsOnTooButCannotSave) {
  const Ref<CTask> task = StoredTask();
  session->UserRights = DataViewer;
  EXPECT_TRUE(task->ApplyRecurrence());
  EXPECT_FALSE(task->Save());
}

// ---- Occurrences

TEST_F(TaskRecurrence, CountsOccurrencesDownAndKeepsTheRule) {
  const Ref<CTask> task = StoredTask();
  task->Recurrence->OccurencesNo = 2;
  EXPECT_TRUE(task->ApplyRecurrence());
  EXPECT_EQ(task->Recurrence->OccurencesNo, 1);
  EXPECT_EQ(task->Recurrence->RType, REC_DAILY);
}

TEST_F(TaskRecurrence, TakesTheRuleAwayAtTheLastOccurrence) {
  const Ref<CTask> task = StoredTask();
  task->Recurrence->OccurencesNo = 1;
  EXPECT_TRUE(task->ApplyRecurrence());
  EXPECT_EQ(task->Recurrence->OccurencesNo, 0);
  EXPECT_EQ(task->Recurrence->RType, REC_EMPTY);
}

TEST_F(TaskRecurrence, NoLimitOfOccurrencesStays) {
  const Ref<CTask> task = StoredTask();
  EXPECT_TRUE(task->ApplyRecurrence());
  EXPECT_EQ(task->Recurrence->OccurencesNo, 0);
  EXPECT_EQ(task->Recurrence->RType, REC_DAILY);
}

TEST_F(TaskRecurrence, NegativeNumberOfOccurrencesStays) {
  const Ref<CTask> task = StoredTask();
  task->Recurrence->OccurencesNo = -3;
  EXPECT_TRUE(task->ApplyRecurrence());
  EXPECT_EQ(task->Recurrence->OccurencesNo, -3);
  EXPECT_EQ(task->Recurrence->RType, REC_DAILY);
}

// ---- The notification

TEST_F(TaskRecurrence, NotificationIsToBeSentAnew) {
  const Ref<CTask> task = StoredTask();
  task->Notification->Status = NS_SENTOK;
  task->Notification->SendingDate = On("3/1/2024");
  EXPECT_TRUE(task->ApplyRecurrence());
  EXPECT_EQ(task->Notification->Status, NS_NOTSENT);
  EXPECT_TRUE(task->Notification->SendingDate->IsZero());
  EXPECT_EQ(task->Notification->Subject, "Sing");
}

// ---- The next instance's Save

TEST_F(TaskRecurrence, SavedInstanceStandsBesideTheEarlierOne) {
  const Ref<CTask> task = StoredTask();
  ASSERT_TRUE(task->ApplyRecurrence());
  EXPECT_EQ(Rows("Tasks"), 1);
  ASSERT_TRUE(task->Save()) << session->GetEntireErrorDesc();
  EXPECT_EQ(Rows("Tasks"), 2);
  EXPECT_EQ(Stored("SELECT TSK_StartDate FROM Tasks WHERE TSK_ID=1"), "3/1/2024");
  EXPECT_EQ(Stored("SELECT TSK_RecurrenceID FROM Tasks WHERE TSK_ID=1"), "1");
  EXPECT_EQ(Rows("Recurrences WHERE REC_ID=1"), 1);
  EXPECT_EQ(Rows("Notifications WHERE NTF_ID=1"), 1);
}

TEST_F(TaskRecurrence, SavedInstanceHasAnEventOfItsOwn) {
  const Ref<CTask> task = StoredTask();
  ASSERT_TRUE(task->ApplyRecurrence());
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Stored("SELECT EVE_StartDate FROM Events WHERE EVE_LinkID=1"), "3/4/2024");
  EXPECT_EQ(Stored("SELECT EVE_StartDate FROM Events WHERE EVE_LinkID=2"), "3/11/2024");
}

TEST_F(TaskRecurrence, SavedInstanceTakesTheNumbersThatItsChildrenDraw) {
  const Ref<CTask> task = StoredTask(Date());
  ASSERT_TRUE(task->ApplyRecurrence());
  ASSERT_EQ(task->RecurrenceID, 2) << "the placeholder";
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Stored("SELECT TSK_RecurrenceID FROM Tasks WHERE TSK_ID=2"), "3");
  EXPECT_EQ(Stored("SELECT TSK_NotificationID FROM Tasks WHERE TSK_ID=2"), "3");
  EXPECT_EQ(Rows("Recurrences WHERE REC_ID=3"), 1);
}

TEST_F(TaskRecurrence, SavedLastInstanceHasNoRule) {
  const Ref<CTask> task = StoredTask(Date());
  task->Recurrence->OccurencesNo = 1;
  ASSERT_TRUE(task->ApplyRecurrence());
  ASSERT_TRUE(task->Save());
  EXPECT_EQ(Stored("SELECT TSK_RecurrenceID FROM Tasks WHERE TSK_ID=2"), "-1");
  EXPECT_EQ(Rows("Recurrences"), 1);
  EXPECT_FALSE(session->GetTask(2)->ApplyRecurrence());
}

TEST_F(TaskRecurrence, WithoutAReferenceToANotificationLeavesItsObject) {
  const Ref<CTask> task = StoredTask();
  task->NotificationID = 0;
  task->Notification->ID = 0;
  task->Notification->Status = NS_SENTOK;
  task->Notification->SendingDate = On("2/1/2024");
  ASSERT_TRUE(task->ApplyRecurrence());
  EXPECT_EQ(task->Notification->ID, 0);
  EXPECT_EQ(task->Notification->Status, NS_SENTOK);
  EXPECT_EQ(task->Notification->SendingDate, On("2/1/2024"));
}

// ---- Failures

class TaskRecurrenceFailure : public TaskRecurrence, public testing::WithParamInterface<int> {};

TEST_P(TaskRecurrenceFailure, WithoutASequenceClearsAllFlags) {
  const Ref<CTask> task = StoredTask();
  task->Name = "Practise more";
  DropSequence(GetParam());
  EXPECT_FALSE(task->ApplyRecurrence());
  EXPECT_EQ(session->GetErrorProcedure(), "GetUniqueIDFromSeq");
  EXPECT_EQ(Flags(*task) + ", " + Flags(*task->Recurrence) + ", " + Flags(*task->Notification),
            "old clear, old clear, old clear");
}

TEST_P(TaskRecurrenceFailure, WithoutASequenceIsFollowedByASaveThatWritesNoTaskRow) {
  const Ref<CTask> task = StoredTask(Date());
  DropSequence(GetParam());
  EXPECT_FALSE(task->ApplyRecurrence());
  EXPECT_TRUE(task->Save());
  EXPECT_EQ(Rows("Tasks"), 1);
  EXPECT_EQ(Stored("SELECT TSK_StartDate FROM Tasks"), "3/1/2024");
}

INSTANTIATE_TEST_SUITE_P(Sequences, TaskRecurrenceFailure, testing::Values(2, 8, 7), testing::PrintToStringParamName());

TEST_F(TaskRecurrence, WithoutANumberForTheTaskKeepsItsIdentifierAndDates) {
  const Ref<CTask> task = StoredTask();
  DropSequence(2);
  EXPECT_FALSE(task->ApplyRecurrence());
  EXPECT_EQ(task->ID, 1);
  EXPECT_EQ(Shown(task->StartDate), "3/1/2024");
}

TEST_F(TaskRecurrence, WithoutANumberForTheRuleKeepsWhatHasChanged) {
  const Ref<CTask> task = StoredTask();
  DropSequence(8);
  EXPECT_FALSE(task->ApplyRecurrence());
  EXPECT_EQ(task->ID, 2);
  EXPECT_EQ(Shown(task->StartDate), "3/8/2024");
  EXPECT_EQ(task->RecurrenceID, 1);
}

TEST_F(TaskRecurrence, WithoutANumberForTheRuleKeepsItsOccurrencesAndType) {
  const Ref<CTask> task = StoredTask();
  task->Recurrence->OccurencesNo = 1;
  DropSequence(8);
  EXPECT_FALSE(task->ApplyRecurrence());
  EXPECT_EQ(task->Recurrence->OccurencesNo, 1);
  EXPECT_EQ(task->Recurrence->RType, REC_DAILY);
}

TEST_F(TaskRecurrence, WithoutANumberForTheNotificationKeepsItsStateAndTheRolledRule) {
  const Ref<CTask> task = StoredTask(Date());
  task->Recurrence->OccurencesNo = 1;
  task->Notification->Status = NS_SENTOK;
  DropSequence(7);
  EXPECT_FALSE(task->ApplyRecurrence());
  EXPECT_EQ(task->Recurrence->OccurencesNo, 0);
  EXPECT_EQ(task->RecurrenceID, 2);
  EXPECT_EQ(task->NotificationID, 1);
  EXPECT_EQ(task->Notification->Status, NS_SENTOK);
}

TEST_F(TaskRecurrence, DueDateThatLeavesTheCalendarClearsTheFlagsAndRecordsNothing) {
  const Ref<CTask> task = StoredTask();
  task->DueDate = On("12/31/9999");
  session->ClearError();
  EXPECT_FALSE(task->ApplyRecurrence());
  EXPECT_FALSE(session->GetErrorFlag());
  EXPECT_EQ(Flags(*task), "old clear");
}

TEST_F(TaskRecurrence, DueDateThatLeavesTheCalendarKeepsTheNewNumberAndTheOldDates) {
  const Ref<CTask> task = StoredTask();
  task->DueDate = On("12/31/9999");
  task->DateCompleted = now_;
  task->Completed = 1;
  EXPECT_FALSE(task->ApplyRecurrence());
  EXPECT_EQ(State(*task), "2 3/1/2024 12/31/9999 12:00:00 AM 1 0 1/1 0 1 old clear old clear old clear");
}

TEST_F(TaskRecurrence, FailedOneIsFollowedByASaveThatWritesAnEventOfNoTask) {
  const Ref<CTask> task = StoredTask();
  DropSequence(7);
  EXPECT_FALSE(task->ApplyRecurrence());
  EXPECT_TRUE(task->Save()) << session->GetEntireErrorDesc();
  EXPECT_EQ(Rows("Tasks WHERE TSK_ID=2"), 0);
  EXPECT_EQ(Stored("SELECT EVE_StartDate FROM Events WHERE EVE_Type='T' AND EVE_LinkID=2"), "3/11/2024");
}

TEST_F(TaskRecurrence, WithoutASessionClearsTheFlags) {
  const auto task = MakeRef<CTask>();
  task->RecurrenceID = 1;
  task->Recurrence->RType = REC_DAILY;
  task->Recurrence->Options1 = 1;
  task->Recurrence->EndDate = Date();
  task->StartDate = On("3/1/2024");
  EXPECT_FALSE(task->ApplyRecurrence());
  EXPECT_EQ(Flags(*task), "old clear");
}

TEST_F(TaskRecurrence, WithoutARuleObjectRaises) {
  const Ref<CTask> task = StoredTask();
  task->Recurrence.reset();
  EXPECT_EQ(NumberRaised([&] { task->ApplyRecurrence(); }), 91);
}

}  // namespace
}  // namespace zef::test
