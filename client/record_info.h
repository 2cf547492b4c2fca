#pragma once

#include "calendar/event.h"
#include "client/store.h"
#include "folders/folder.h"
#include "tasks/task.h"

namespace zef::client {

/// Records of the library as plain structures.
FolderInfo InfoOf(const CFolder& folder);
TaskInfo InfoOf(const CTask& task);
EventInfo InfoOf(const CEvent& event);
RuleSpec SpecOf(const CRecurrence& rule);

/// Leaves the record of an empty rule untouched, so that no row is written for it.
void WriteRule(const RuleSpec& spec, CRecurrence& rule);

}  // namespace zef::client
