#pragma once

#include "client/components.h"
#include "client/store.h"

namespace zef::client {

/// Records of the library as plain structures.
FolderInfo InfoOf(const CFolder& folder);
TaskInfo InfoOf(const CTask& task);
EventInfo InfoOf(const CEvent& event);
RuleSpec SpecOf(const CRecurrence& rule);

/// Leaves the record of an empty rule untouched, so that no row is written for it.
void WriteRule(const RuleSpec& spec, CRecurrence rule);
/// A rule that belongs to no record.
CRecurrence RecordOf(const RuleSpec& spec);

}  // namespace zef::client
