#pragma once

#include <string>

#include "client/store.h"

namespace zef::client {

/// What an upgrade of a file has done, for people and for programs.
std::string UpgradeText(const std::string& file, const UpgradeInfo& info);
std::string UpgradeJson(const std::string& file, const UpgradeInfo& info);

}  // namespace zef::client
