#pragma once

#include <cstdint>
#include <string>

#include "tests/support/record_fixture.h"

namespace zef::test {

/// A database of version 9.1 with a session on it, and what a client keeps during an upgrade.
class UpgradeTest : public RecordTest {
 protected:
  UpgradeTest() : RecordTest("9.1") { Forget(); }

  bool To921() { return session->UpgradeDBToVersion9_2_1(version, message); }
  bool To922() { return session->UpgradeDBToVersion9_2_2(version, message); }
  bool To923() { return session->UpgradeDBToVersion9_2_3(version, message); }
  bool To924() { return session->UpgradeDBToVersion9_2_4(version, message); }
  bool WholeChain() { return To921() && To922() && To923() && To924(); }

  std::string StoredVersion() { return Stored("SELECT VI_Version FROM _VersionInfo"); }
  /// A folder's name and that of the one above it, or "no row".
  std::string Place(const std::string& folder) {
    return Stored(
        "SELECT F.FLD_Name & ' in ' & P.FLD_Name FROM Folders AS F, Folders AS P WHERE F.FLD_ParentID=P.FLD_ID"
        " AND F.FLD_Protected=1 AND F.FLD_Name='" +
        folder + "'");
  }
  void InsertFolder(std::int32_t id, std::int32_t parent, const std::string& name) {
    Run("INSERT INTO Folders (FLD_ID,FLD_ParentID,FLD_Options,FLD_Name,FLD_Type) VALUES (" + std::to_string(id) + "," +
        std::to_string(parent) + ",0,'" + name + "',4)");
  }
  void InsertTask(std::int32_t id, const std::string& priority) {
    Run("INSERT INTO Tasks (TSK_ID,TSK_Name,TSK_PriorityID) VALUES (" + std::to_string(id) + ",'T'," + priority + ")");
  }

  std::string version = "9.1.0";
  std::string message = "untouched";
};

}  // namespace zef::test
