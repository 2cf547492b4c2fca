#include "calendar/alarm.h"

#include "session/operations.h"
#include "textviews/labels.h"

namespace zef {
namespace {

constexpr Column<CAlarm> kColumns[] = {
    Key<CAlarm>("ALA_ID"),
    Stored<CAlarm>("ALA_FolderID", &CAlarm::FolderID, 0),
    Stored<CAlarm>("ALA_CategoryID", &CAlarm::CategoryID, 1),
    Stored<CAlarm>("ALA_NotificationID", &CAlarm::NotificationID, 2),
    Stored<CAlarm>("ALA_RecurrenceID", &CAlarm::RecurrenceID, 3),
    Stored<CAlarm>("ALA_AttachementID", &CAlarm::AttachementID, 4),
    Stored<CAlarm>("ALA_Text", &CAlarm::Text, 5),
    Stored<CAlarm>("ALA_StartDate", &CAlarm::StartDate, 6),
    Stored<CAlarm>("ALA_Reminder", &CAlarm::Reminder, 7),
    Stored<CAlarm>("ALA_DateLastUpdate", &CAlarm::DateLastUpdate, 8, Form::Stamp),
};
constexpr Table kAlarms("Alarms", kColumns, 15);

constexpr char kFieldsArray[] = "CAlarm.GetFieldsArray";
constexpr std::int32_t kNotFound = 100;

}  // namespace

CAlarm::CAlarm() {
  Notification->NType = NT_ALARMS;
  Notification->SendingDate = StartDate;
  Notification->Status = NS_NOTSENT;
}

void CAlarm::SetSession(const Ref<CSession>& session) {
  Record::SetSession(session);
  Deref(Attachement).SetSession(session);
  Item::SetSession(session);
}

void CAlarm::ResetFlagsX(bool M, bool N) {
  SetFlags(M, N);
  Deref(Attachement).ResetFlagsX(M, N);
  Item::ResetFlagsX(M, N);
}

void CAlarm::GetValuesFromRS(const Ref<Recordset>& Rs) {
  ReadColumns(*this, kAlarms, Deref(Rs));
  ReadChild(Session(), Attachement, AttachementID, CAttachement::kSelectRow);
  ReadChildren();
  SetFlags(false, false);
}

bool CAlarm::SaveChildren(CSession& session) {
  return SaveChild(session, Attachement, AttachementID, &CSession::DeleteAttachement) && Item::SaveChildren(session);
}

bool CAlarm::Save() { return SaveOrGiveBack(kAlarms, "CAlarm.Save", kFieldsArray); }

bool CAlarm::Refresh() { return RefreshRecord(*this, "CAlarm.Refresh", kSelectRow, kNotFound, "No alarm found"); }

bool CAlarm::GetFieldsArray(FieldType enmType, FieldsArray& strFields, std::int32_t& lngFieldsCount) const {
  return FillFieldsArray(*this, kAlarms, kFieldsArray, enmType, strFields, lngFieldsCount);
}

bool CAlarm::IsEmpty() const {
  const bool no_references = CategoryID < 1 && RecurrenceID < 1 && NotificationID < 1 && AttachementID < 1;
  return no_references && Text->empty() && StartDate->IsZero() && Reminder < 1;
}

}  // namespace zef
