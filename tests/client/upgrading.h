#pragma once

#include <functional>
#include <string>

namespace zef::test {

/// Upgrades a database as the client does; `tell` hears what is being done.
void UpgradeTelling(const std::string& path, const std::function<void(const std::string&)>& tell);

}  // namespace zef::test
