#pragma once

#include <cstdint>
#include <string>

#include "session/session.h"

namespace zef {

// Names of what a record refers to, one query each, through the record's session, which may be Nothing as long as there
// is nothing to look up. All raise if the query fails.

/// Empty for an identifier below 1; raises 91 for one without a folder.
std::string FolderName(const Ref<CSession>& session, std::int32_t folder);
/// Empty if there is no such category, whatever the identifier.
std::string CategoryName(const Ref<CSession>& session, std::int32_t category);
/// Empty for an identifier below 1; raises 91 for one without a status.
std::string StatusName(const Ref<CSession>& session, std::int32_t status);

}  // namespace zef
