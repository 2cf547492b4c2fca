#include <fmt/core.h>

#include <cstdio>

#include "session/session.h"
#include "tasks/task.h"

using namespace std::chrono_literals;

int main() try {
  auto session = zef::MakeRef<zef::CSession>();
  session->Connect2Database("people.db", "", "");

  auto task = session->CreateTask();
  task->Name = "Water the plants";
  task->FolderID = session->GetFolderIDByCriteria("FLD_Name='Tasks' AND FLD_ParentID=0");
  task->DueDate = zef::Date{2024y / 5 / 17};
  task->Recurrence->RType = zef::REC_WEEKLY;
  task->Recurrence->Options1 = 1;  // every week
  task->Recurrence->Friday = true;
  task->Recurrence->EndDate = zef::Date{};  // on no day does it end,
  task->Recurrence->OccurencesNo = 0;       // nor after a number of times
  if (!task->Save()) {
    fmt::print(stderr, "{}\n", session->GetErrorDescription());
    return 1;
  }
  fmt::print("Task {} is due on {}\n", task->ID, zef::ShortDateText(task->DueDate));
} catch (const zef::RunTimeError& failure) {  // a file that is missing, say
  fmt::print(stderr, "{}\n", failure.description());
  return 1;
}
