#include "addressbook/phone_log.h"
#include "session/collections.h"
#include "session/operations.h"

namespace zef {
namespace {

constexpr std::int32_t kPhoneLogSequence = 11;

}  // namespace

Ref<CPhoneLog> CSession::GetPhoneLog(std::int32_t PhoneLogID) {
  return GetRecord<CPhoneLog>(*this, "GetPhoneLog", "SELECT * FROM PhoneLogs WHERE PL_ID=", PhoneLogID);
}

Ref<CPhoneLog> CSession::CreatePhoneLog() {
  return CreateRecord<CPhoneLog>(*this, "CSession.CreatePhoneLog", kPhoneLogSequence);
}

bool CSession::LoadPhoneLogsWithCriteria(const Ref<CPhoneLogs>& udtPhoneLogs, const std::string& strCriteria) {
  return LoadRecords(*this, udtPhoneLogs, "LoadPhoneLogsWithCriteria", "SELECT * FROM PhoneLogs", strCriteria);
}

bool CSession::DeletePhoneLog(std::int32_t lngPhoneLogID) {
  return DeleteRow(*this, "DeletePhoneLog", "DELETE * FROM PhoneLogs WHERE PL_ID=", lngPhoneLogID,
                   "CSession.DeletePhoneLog");
}

}  // namespace zef
