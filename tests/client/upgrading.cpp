#include "tests/client/upgrading.h"

#include "client/store.h"

namespace zef::test {

void UpgradeTelling(const std::string& path, const std::function<void(const std::string&)>& tell) {
  client::Store({.file = path}).Upgrade(tell);
}

}  // namespace zef::test
