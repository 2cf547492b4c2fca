#pragma once

#include "tasks/task.h"

namespace zef {

/// Brings the generated event of a task in step with its due date and rule: makes it, refreshes date and rule (its text
/// stays as it was made), or deletes it. Joins the running transaction. Quiet if the event's folder is missing or the
/// event could not be saved.
Outcome KeepDueDateEvent(CSession& session, const CTask& task);

/// Deletes the generated event of a task; that there is none, or no folder for it, is no failure.
void DeleteDueDateEvent(CSession& session, std::int32_t task);

}  // namespace zef
