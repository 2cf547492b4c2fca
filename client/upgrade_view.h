#pragma once

#include <string>

#include "client/store.h"

namespace zef::client {

/// What an upgrade has done, for people and for programs.
std::string UpgradeText(const DatabasePlace& place, const UpgradeInfo& info);
std::string UpgradeJson(const DatabasePlace& place, const UpgradeInfo& info);

}  // namespace zef::client
