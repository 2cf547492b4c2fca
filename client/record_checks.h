#pragma once

#include <cstdint>
#include <vector>

#include "client/record_kinds.h"

namespace zef::client {

/// Raises a `Failure` for a new record without a name.
void RequireTitle(const RecordKind& kind, const std::vector<Assignment>& values);
/// Raises a `Failure` for changes that would take a record's name away.
void RequireTitleKept(const RecordKind& kind, const std::vector<Assignment>& values);

/// Raises a `Failure` if a value refers to a folder, category, contact or priority that is not there or does not
/// fit, or would put the folder `id` below itself. 0 and -1 refer to nothing.
void RequireReferences(Store& store, const RecordKind& kind, std::int32_t id, const std::vector<Assignment>& values);

/// Raises a `Failure` if values would give the user `id`, or a new one, the name of another: logging in would find only
/// one of the two.
void RequireFreeName(Store& store, const RecordKind& kind, std::int32_t id, const std::vector<Assignment>& values);

/// Raises a `Failure` for a folder that cannot hold items because it stands for those of all folders.
void RequireHolder(const FolderInfo& folder);

}  // namespace zef::client
