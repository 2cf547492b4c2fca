#include "calendar/notification.h"

#include "session/operations.h"
#include "textviews/labels.h"

namespace zef {
namespace {

constexpr Column<CNotification> kColumns[] = {
    Key<CNotification>("NTF_ID"),
    Stored<CNotification>("NTF_Subject", &CNotification::Subject, 1),
    Stored<CNotification>("NTF_Message", &CNotification::Message, 2),
    Stored<CNotification>("NTF_Email", &CNotification::Email, 3),
    Stored<CNotification>("NTF_CC", &CNotification::CC, 4),
    Stored<CNotification>("NTF_BCC", &CNotification::BCC, 5),
    Stored<CNotification>("NTF_Type", &CNotification::NType, 6),
    Stored<CNotification>("NTF_Status", &CNotification::Status, 7),
    Stored<CNotification>("NTF_SendingDate", &CNotification::SendingDate, 0),
};
constexpr Table kNotifications("Notifications", kColumns, 15);

constexpr char kFieldsArray[] = "CNotification.GetFieldsArray";

}  // namespace

bool CNotification::IsEmpty() const {
  return Subject->empty() && Message->empty() && Email->empty() && CC->empty() && BCC->empty();
}

void CNotification::GetValuesFromRS(const Ref<Recordset>& Rs) {
  ReadColumns(*this, kNotifications, Deref(Rs));
  SetFlags(false, false);
}

bool CNotification::GetFieldsArray(FieldType enmType, FieldsArray& strFields, std::int32_t& lngFieldsCount) const {
  return FillFieldsArray(*this, kNotifications, kFieldsArray, enmType, strFields, lngFieldsCount);
}

bool CNotification::Save() {
  return SaveDrawingID(kNotifications, "CNotification.Save", kFieldsArray, kNotificationSequence);
}

Ref<CNotification> CSession::GetNotification(std::int32_t lngNotificationID) {
  return GetRecord<CNotification>(*this, "GetNotification", CNotification::kSelectRow, lngNotificationID);
}

bool CSession::DeleteNotification(std::int32_t lngNotificationID) {
  return DeleteRow(*this, "DeleteNotification", "DELETE * FROM Notifications WHERE NTF_ID=", lngNotificationID);
}

}  // namespace zef
