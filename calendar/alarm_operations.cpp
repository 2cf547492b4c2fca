#include "calendar/alarm.h"
#include "session/collections.h"
#include "session/operations.h"

namespace zef {
namespace {

constexpr std::int32_t kAlarmSequence = 5;
constexpr char kSelect[] = "SELECT * FROM Alarms WHERE ALA_ID=";

bool RenumberAll(CSession& session, CAlarm& copy) {
  return RenumberChild(session, kAttachementSequence, copy.Attachement, copy.AttachementID) &&
         RenumberChildren(session, copy);
}

/// Rule, notification, attachment, then the alarm. False if a child could not be deleted.
bool DeleteAlarmRows(CSession& session, std::int32_t alarm) {
  const Ref<Recordset> rs = Deref(session.conDBConnection).Execute(kSelect + SqlNumber(alarm));
  if (rs->EndOfFile()) return true;
  if (!session.DeleteRecurrence(ChildReference(*rs, "ALA_RecurrenceID"))) return false;
  if (!session.DeleteNotification(ChildReference(*rs, "ALA_NotificationID"))) return false;
  if (!session.DeleteAttachement(ChildReference(*rs, "ALA_AttachementID"))) return false;
  rs->Close();
  Execute(session, "DELETE * FROM Alarms WHERE ALA_ID=" + SqlNumber(alarm));
  return true;
}

}  // namespace

Ref<CAlarm> CSession::GetAlarm(std::int32_t AlarmID) { return GetRecord<CAlarm>(*this, "GetAlarm", kSelect, AlarmID); }

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
                             [&] { return DeleteAlarmRows(*this, lngAlarmID); });
}

}  // namespace zef
