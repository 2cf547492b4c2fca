#pragma once

#include <string>

#include "calendar/event.h"
#include "tasks/task.h"
#include "tests/support/column_cases.h"
#include "tests/support/record_fixture.h"

namespace zef::test {

/// Tests around one task.
class TaskTest : public RecordTest {
 protected:
  /// A new task under the next identifier, of which the log tells nothing.
  Ref<CTask> NewTask() {
    Ref<CTask> task = session->CreateTask();
    Forget();
    return task;
  }
  /// A new task with all its own properties set, as the statements of the tests write them; without a due date it has
  /// no event.
  Ref<CTask> FullTask(Date due = {}) {
    Ref<CTask> task = NewTask();
    task->FolderID = 21;
    task->RecurrenceID = 22;
    task->NotificationID = 23;
    task->CategoryID = 24;
    task->Priority = "High'est";
    task->StatusID = 25;
    task->Name = "Call O'Neill";
    task->Description = "It's urgent";
    task->DueDate = due;
    task->StartDate = On("3/4/2024 5:06:07 PM");
    task->AssignedTo = "D'Arcy";
    task->Completed = 26;
    task->DateCompleted = On("3/5/2024 8:00:00 PM");
    return task;
  }
  /// A stored task without a due date, with a weekly rule and a notification, each under number 1.
  Ref<CTask> TaskWithChildren() {
    Ref<CTask> task = NewTask();
    task->Name = "Practise";
    task->Recurrence->RType = REC_WEEKLY;
    task->Notification->Subject = "Sing";
    EXPECT_TRUE(task->Save());
    Forget();
    return task;
  }
};

/// Tests around the generated event of one task.
class DueDateEventTest : public TaskTest {
 protected:
  /// A stored task "Practise", due on 7 June 2024, whose event is number 1.
  Ref<CTask> StoredTask() {
    Ref<CTask> task = NewTask();
    task->Name = "Practise";
    task->DueDate = On("6/7/2024 8:09:10 AM");
    EXPECT_TRUE(task->Save());
    Forget();
    return task;
  }
  /// The same task, read anew.
  Ref<CTask> LoadedTask() {
    Ref<CTask> task = session->GetTask(StoredTask()->ID);
    Forget();
    return task;
  }
  std::string Of(const std::string& column) { return Stored("SELECT " + column + " FROM Events WHERE EVE_Type='T'"); }
};

}  // namespace zef::test
