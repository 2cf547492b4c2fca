#include "session/bas_global.h"
#include "session/operations.h"

namespace zef {

bool CSession::GetDBInfo(std::string& strVersion, std::string& strType) {
  return Trapped(*this, "GetDBInfo", false, [&] {
    ClearError();
    const Ref<Recordset> rs = OpenSelect(*this, "SELECT * FROM _VersionInfo");
    if (rs->EndOfFile()) return true;
    const auto text = [&](std::string_view column) {
      return ToText(Nz(rs->Fields().Item(column).Value(), std::string()));
    };
    strVersion = text("VI_Version");
    strType = text("VI_Type");
    return true;
  });
}

}  // namespace zef
