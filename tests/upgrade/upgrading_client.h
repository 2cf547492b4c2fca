#pragma once

#include <string>

#include "session/session.h"
#include "tests/support/database.h"

namespace zef::test {

/// The chain as a client calls it: from the version that the database tells, one step after the other while they
/// succeed.
class UpgradingClient {
 public:
  explicit UpgradingClient(const std::string& connection_string) { session->Connect2DatabaseCS(connection_string); }

  bool Upgrade() {
    std::string type;
    if (!session->GetDBInfo(version, type)) return false;
    return Step("9.1.0", &CSession::UpgradeDBToVersion9_2_1) && Step("9.2.1", &CSession::UpgradeDBToVersion9_2_2) &&
           Step("9.2.2", &CSession::UpgradeDBToVersion9_2_3) && Step("9.2.3", &CSession::UpgradeDBToVersion9_2_4);
  }
  std::string StoredVersion() { return Scalar(*session->conDBConnection, "SELECT VI_Version FROM _VersionInfo"); }

  Ref<CSession> session = MakeRef<CSession>();
  std::string version;

 private:
  bool Step(const char* from, bool (CSession::*step)(std::string&, std::string&)) {
    std::string message;
    return version != from || (session.get()->*step)(version, message);
  }
};

}  // namespace zef::test
