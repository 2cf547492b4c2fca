#pragma once

#include <string>
#include <vector>

#include "client/store.h"
#include "client/style.h"

namespace zef::client {

/// What was copied to a new database, for people and for programs.
std::string CopiedText(const DatabasePlace& copy, const std::vector<CopiedTable>& tables, const Screen& screen);
std::string CopiedJson(const DatabasePlace& copy, const std::vector<CopiedTable>& tables);

}  // namespace zef::client
