#include "folders/folder.h"
#include "session/operations.h"
#include "upgrade/steps.h"

namespace zef {
namespace {

constexpr const char* kWidenPhones[] = {
    "ALTER TABLE CONTACTS ALTER COLUMN CNT_Phone TEXT(32)",
    "ALTER TABLE CONTACTS ALTER COLUMN CNT_MobilePhone TEXT(32)",
    "ALTER TABLE CONTACTS ALTER COLUMN CNT_WorkPhone TEXT(32)",
    "ALTER TABLE CONTACTS ALTER COLUMN CNT_WorkFax TEXT(32)",
};
constexpr SystemFolder kAllTasks = {"All Tasks", "Tasks", FT_TASKS, "Cannot find Tasks folder"};

}  // namespace

bool CSession::UpgradeDBToVersion9_2_2(std::string& strVersion, std::string& /*strErrorMsg*/) {
  return Trapped(*this, "UpgradeDBToVersion9_2_2", false, [&] {
    for (const char* statement : kWidenPhones) Execute(*this, statement);
    return EnsureFolder(*this, kAllTasks, ErrorDescription) && StampVersion(*this, "9.2.2", strVersion);
  });
}

bool CSession::UpgradeDBToVersion9_2_3(std::string& strVersion, std::string& /*strErrorMsg*/) {
  return Trapped(*this, "UpgradeDBToVersion9_2_3", false, [&] { return StampVersion(*this, "9.2.3", strVersion); });
}

bool CSession::UpgradeDBToVersion9_2_4(std::string& strVersion, std::string& /*strErrorMsg*/) {
  return Trapped(*this, "UpgradeDBToVersion9_2_4", false, [&] {
    // Older databases may have such a folder; that of the due dates, with an "s" more, stays protected.
    Execute(*this, "UPDATE Folders SET FLD_Protected = 0 WHERE FLD_Name ='Task Due Dates'");
    return StampVersion(*this, "9.2.4", strVersion);
  });
}

}  // namespace zef
