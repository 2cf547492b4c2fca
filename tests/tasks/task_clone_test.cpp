#include "tests/tasks/task_fixture.h"

namespace zef::test {
namespace {

/// Every column of a task beside its identifier.
std::string ColumnsOf(const CTask& t) {
  std::string text;
  for (const std::int32_t number : {t.FolderID.get(), t.CategoryID.get(), t.NotificationID.get(), t.RecurrenceID.get(),
                                    t.StatusID.get(), t.Completed.get()}) {
    text += std::to_string(number) + "|";
  }
  for (const std::string& part : {t.Priority.get(), t.Name.get(), t.Description.get(), t.AssignedTo.get()}) {
    text += part + "|";
  }
  for (const Date date : {t.StartDate.get(), t.DueDate.get(), t.DateCompleted.get(), t.DateLastUpdate.get()}) {
    text += ToText(date) + "|";
  }
  return text;
}

class TaskClone : public TaskTest {
 protected:
  Ref<CTask> EveryColumn() {
    Ref<CTask> task = FullTask(On("6/7/2024 8:09:10 AM"));
    task->DateLastUpdate = On("7/8/2024");
    return task;
  }
};

TEST_F(TaskClone, CarriesEveryColumnAndTheIdentifier) {
  const Ref<CTask> task = EveryColumn();
  const Ref<CTask> clone = task->Clone();
  EXPECT_EQ(ColumnsOf(*clone), ColumnsOf(*task));
  EXPECT_EQ(clone->ID, task->ID);
}

TEST_F(TaskClone, IsAnObjectOfItsOwn) {
  const Ref<CTask> task = EveryColumn();
  const Ref<CTask> clone = task->Clone();
  clone->Name = "Other";
  EXPECT_EQ(task->Name, "Call O'Neill");
}

TEST_F(TaskClone, OfALoadedTaskIsNeitherNewNorModified) {
  const Ref<CTask> task = session->GetTask(TaskWithChildren()->ID);
  const Ref<CTask> clone = task->Clone();
  EXPECT_EQ(Flags(*clone), "old clear");
  EXPECT_EQ(Flags(*clone->Recurrence), "old clear");
}

TEST_F(TaskClone, TakesTheTasksOwnFlagAndNotThoseOfItsChildren) {
  const Ref<CTask> task = TaskWithChildren();
  task->Notification->Subject = "Sing louder";
  ASSERT_TRUE(task->IsModified());
  EXPECT_EQ(Flags(*task->Clone()), "old clear");
}

TEST_F(TaskClone, OfANewModifiedTaskIsBothWithItsChildren) {
  const Ref<CTask> clone = EveryColumn()->Clone();
  EXPECT_EQ(Flags(*clone), "new modified");
  EXPECT_EQ(Flags(*clone->Notification), "new modified");
}

TEST_F(TaskClone, PassesTheSessionToTheTargetsChildren) {
  const Ref<CTask> clone = EveryColumn()->Clone();
  EXPECT_EQ(clone->Session(), session);
  EXPECT_EQ(clone->Recurrence->Session(), session);
  EXPECT_EQ(clone->Notification->Session(), session);
}

TEST_F(TaskClone, HasEmptyChildrenBesideTheReferences) {
  const Ref<CTask> clone = TaskWithChildren()->Clone();
  EXPECT_EQ(clone->RecurrenceID, 1);
  EXPECT_TRUE(clone->Recurrence->IsEmpty());
  EXPECT_TRUE(clone->Notification->IsEmpty());
}

TEST_F(TaskClone, AsksItsOwnEmptyRuleForTheNextInstance) {
  const Ref<CTask> clone = TaskWithChildren()->Clone();
  EXPECT_FALSE(clone->ApplyRecurrence());
  EXPECT_EQ(clone->ID, 1);
}

TEST_F(TaskClone, IntoATaskGivesThatTask) {
  const auto target = MakeRef<CTask>();
  EXPECT_EQ(EveryColumn()->Clone(target), target);
}

TEST_F(TaskClone, IntoATaskOverwritesItsColumnsAndLeavesItsChildren) {
  const Ref<CTask> task = EveryColumn();
  const Ref<CTask> target = TaskWithChildren();
  const Ref<CRecurrence> rule = target->Recurrence;
  task->Clone(target);
  EXPECT_EQ(ColumnsOf(*target), ColumnsOf(*task));
  EXPECT_EQ(target->Recurrence, rule);
  EXPECT_EQ(target->Recurrence->RType, REC_WEEKLY);
}

TEST_F(TaskClone, IntoItselfChangesNothing) {
  const Ref<CTask> task = EveryColumn();
  const std::string before = ColumnsOf(*task) + Flags(*task);
  task->Clone(task);
  EXPECT_EQ(ColumnsOf(*task) + Flags(*task), before);
}

TEST_F(TaskClone, ThatFailsGivesWhatHasBeenMadeAndRecordsNothing) {
  const Ref<CTask> task = EveryColumn();
  const auto target = MakeRef<CTask>();
  target->Recurrence.reset();
  EXPECT_EQ(task->Clone(target), target);
  EXPECT_EQ(target->Name, "Call O'Neill");
  EXPECT_EQ(target->ID, task->ID);
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(TaskClone, ThatFailsLeavesTheTargetsFlags) {
  const Ref<CTask> task = session->GetTask(TaskWithChildren()->ID);
  const auto target = MakeRef<CTask>();
  target->Recurrence.reset();
  task->Clone(target);
  EXPECT_EQ(Flags(*target), "new modified");
}

TEST_F(TaskClone, SendsNothing) {
  const Ref<CTask> task = EveryColumn();
  task->Clone();
  EXPECT_EQ(SentInAll(), Texts{});
}

}  // namespace
}  // namespace zef::test
