#include "platform/text.h"
#include "session/operations.h"
#include "users/tags.h"
#include "users/user.h"

namespace zef {
namespace {

constexpr char kSelect[] = "SELECT * FROM Users";
constexpr char kSelectName[] = "SELECT * FROM Users WHERE USR_Name=";
constexpr TagColumns kTagColumns{"USR_ID", "USR_FullName"};

}  // namespace

Ref<CUser> CSession::GetUser(std::int32_t user_id) {
  return GetRecord<CUser>(*this, "GetUser", "SELECT * FROM Users WHERE USR_ID=", user_id);
}

std::int32_t CSession::GetUsersNo() {
  return Trapped(*this, "GetUsersNo", std::int32_t{-1}, [&] {
    ClearError();
    return OpenSelect(*this, kSelect)->RecordCount();
  });
}

std::int32_t CSession::GetUserID4Name(const std::string& strConnectName) {
  return FirstID(*this, "GetUserID4Name", kSelectName + SqlQuoted(strConnectName), "USR_ID", Value(-1));
}

Ref<CUser> CSession::CheckUser(const std::string& strConnectName, const std::string& strConnectPwd) {
  const bool none = text::Trim(strConnectPwd).empty();
  return GetFirst<CUser>(
      *this, "CheckUser",
      kSelectName + SqlQuoted(strConnectName) +
          (none ? " AND (IsNull(USR_Password) OR USR_Password='')" : " AND USR_Password=" + SqlQuoted(strConnectPwd)));
}

bool CSession::DeleteUser(std::int32_t lngUserID) {
  return DeleteRow(*this, "DeleteUser", "DELETE * FROM Users WHERE USR_ID=", lngUserID, "CSession.DeleteUser");
}

bool CSession::LoadUserTags(const Ref<CTags>& udtUserTags, const std::string& strCriteria) {
  return LoadElements(*this, udtUserTags, "LoadUserTags", SelectText(kSelect, strCriteria),
                      [](const Ref<Recordset>& rs) { return ReadTag(*rs, kTagColumns); });
}

bool CSession::LoadUsersWithCriteria(const Ref<CUsers>& udtUsers, const std::string& strCriteria) {
  return LoadRecords(*this, udtUsers, "LoadUsersWithCriteria", kSelect, strCriteria);
}

}  // namespace zef
