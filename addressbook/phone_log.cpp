#include "addressbook/phone_log.h"

namespace zef {
namespace {

constexpr Column<CPhoneLog> kColumns[] = {
    Key<CPhoneLog>("PL_ID"),
    Stored<CPhoneLog>("PL_ContactID", &CPhoneLog::ContactID, 0),
    Stored<CPhoneLog>("PL_DateLastUpdate", &CPhoneLog::DateLastUpdate, 1),
    Stored<CPhoneLog>("PL_Subject", &CPhoneLog::Subject, 2),
    Stored<CPhoneLog>("PL_PhoneNumber", &CPhoneLog::PhoneNumber, 5),
    Stored<CPhoneLog>("PL_Notes", &CPhoneLog::Notes, 3),
    Stored<CPhoneLog>("PL_RecordDate", &CPhoneLog::RecordDate, 4),
    Stored<CPhoneLog>("PL_Direction", &CPhoneLog::Direction, 6),
};
constexpr Table kPhoneLogs("PhoneLogs", kColumns);

}  // namespace

void CPhoneLog::GetValuesFromRS(const Ref<Recordset>& Rs) {
  ReadColumns(*this, kPhoneLogs, Deref(Rs));
  SetFlags(false, false);
}

bool CPhoneLog::Save() {
  return SaveAlone("CPhoneLog.Save", MaySave::Writers, [this](CSession&) {
    WriteRow(*this, kPhoneLogs, DatabaseRows(*this, kPhoneLogs));
    return Outcome::Done;
  });
}

}  // namespace zef
