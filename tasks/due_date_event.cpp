#include "tasks/due_date_event.h"

#include "calendar/event.h"
#include "calendar/generated_event.h"
#include "session/operations.h"

namespace zef {
namespace {

constexpr GeneratedKind kDueDate{.type = "T", .folder_criteria = "FLD_Protected=1 and FLD_Name='Tasks Due Dates'"};

void CopyRule(const CRecurrence& from, CRecurrence& to) {
  to.RType = from.RType;
  to.SubType = from.SubType;
  to.Options1 = from.Options1;
  to.Options2 = from.Options2;
  to.OccurencesNo = from.OccurencesNo;
  to.EndDate = from.EndDate;
  to.WeekNumber = from.WeekNumber;
  to.Monday = from.Monday;
  to.Tuesday = from.Tuesday;
  to.Wendsday = from.Wendsday;
  to.Thursday = from.Thursday;
  to.Friday = from.Friday;
  to.Saturday = from.Saturday;
  to.Sunday = from.Sunday;
}

}  // namespace

Outcome KeepDueDateEvent(CSession& session, const CTask& task) {
  return KeepGeneratedEvent(session, kDueDate,
                            {.owner = task.ID,
                             .owner_is_new = task.IsNew(),
                             .date = task.DueDate,
                             .text = [&] { return task.Name.get() + " Due Date"; },
                             .write_rule = [&](CRecurrence& rule) { CopyRule(Deref(task.Recurrence), rule); }});
}

void DeleteDueDateEvent(CSession& session, std::int32_t task) { DeleteGeneratedEvents(session, kDueDate, task); }

}  // namespace zef
