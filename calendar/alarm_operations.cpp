#include "calendar/alarm.h"
#include "session/collections.h"
#include "session/operations.h"

namespace zef {
namespace {

constexpr std::int32_t kAlarmSequence = 5;

bool RenumberAll(CSession& session, CAlarm& copy) {
  return RenumberChild(session, kAttachementSequence, copy.Attachement, copy.AttachementID) &&
         RenumberChildren(session, copy);
}

constexpr ChildColumn kChildren[] = {{"ALA_RecurrenceID", &CSession::DeleteRecurrence},
                                     {"ALA_NotificationID", &CSession::DeleteNotification},
                                     {"ALA_AttachementID", &CSession::DeleteAttachement}};

}  // namespace

Ref<CAlarm> CSession::GetAlarm(std::int32_t AlarmID) {
  return GetRecord<CAlarm>(*this, "GetAlarm", CAlarm::kSelectRow, AlarmID);
}

Ref<CAlarm> CSession::DuplicateAlarm(std::int32_t lngOldAlarmID) {
  return DuplicateRecord(*this, "CSession.DuplicateAlarm", &CSession::GetAlarm, lngOldAlarmID, kAlarmSequence,
                         [this](CAlarm& copy) { return RenumberAll(*this, copy); });
}

Ref<CAlarm> CSession::CreateAlarm() { return CreateRecord<CAlarm>(*this, "CSession.CreateAlarm", kAlarmSequence); }

bool CSession::LoadAlarms4Folder(const Ref<CAlarms>& udtAlarms, std::int32_t lngFolderID) {
  return LoadAlarmsWithCriteria(udtAlarms, "ALA_FolderID=" + SqlNumber(lngFolderID) + " ORDER BY ALA_Text ASC");
}

bool CSession::LoadAlarmsWithCriteria(const Ref<CAlarms>& udtAlarms, const std::string& strCriteria) {
  return LoadRecords(*this, udtAlarms, "LoadAlarmsWithCriteria", "SELECT * FROM Alarms", strCriteria);
}

bool CSession::DeleteAlarm(std::int32_t lngAlarmID) {
  return DeleteInTransaction(*this, "DeleteAlarm", "CSession.DeleteAlarm",
                             [&] { return DeleteOwner(*this, " FROM Alarms WHERE ALA_ID=", kChildren, lngAlarmID); });
}

}  // namespace zef
