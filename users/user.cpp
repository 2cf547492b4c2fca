#include "users/user.h"

namespace zef {
namespace {

constexpr Column<CUser> kColumns[] = {
    Key<CUser>("USR_ID"),
    Stored<CUser>("USR_Rights", &CUser::Rights, 0),
    Stored<CUser>("USR_Name", &CUser::Name, 1),
    Stored<CUser>("USR_FullName", &CUser::FullName, 2),
    Stored<CUser>("USR_Password", &CUser::Password, 3),
    Stored<CUser>("USR_Email", &CUser::Email, 4),
    Stored<CUser>("USR_DateLastUpdated", &CUser::DateLastUpdate, 5, Form::Stamp),
    Stored<CUser>("USR_CreationDate", &CUser::CreationDate, 6),
};
constexpr Table kUsers("Users", kColumns);

constexpr std::int32_t kUserSequence = 6;

}  // namespace

void CUser::GetValuesFromRS(const Ref<Recordset>& Rs) {
  ReadColumns(*this, kUsers, Deref(Rs));
  SetFlags(false, false);
}

bool CUser::Save() {
  return SaveAlone("CUser.Save", MaySave::Anyone, [this](CSession&) {
    const bool drawn = WriteUnderDrawnID(*this, kUsers, kUserSequence, DatabaseRows(*this, kUsers));
    return drawn ? Outcome::Done : Outcome::Quiet;
  });
}

std::string CUser::UserType() const {
  if (IsAdministrator()) return "Full/Read/Write";
  if (IsDataEditor()) return "Read/Write";
  if (IsDataViewer()) return "Read only";
  return {};
}

}  // namespace zef
