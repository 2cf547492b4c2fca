#include "calendar/event.h"
#include "session/collections.h"
#include "session/operations.h"

namespace zef {
namespace {

constexpr std::int32_t kEventSequence = 4;
constexpr ChildColumn kChildren[] = {{"EVE_RecurrenceID", &CSession::DeleteRecurrence},
                                     {"EVE_NotificationID", &CSession::DeleteNotification}};

}  // namespace

Ref<CEvent> CSession::GetEvent(std::int32_t EventID) {
  return GetRecord<CEvent>(*this, "GetEvent", CEvent::kSelectRow, EventID);
}

bool CSession::LoadEvents4Folder(const Ref<CEvents>& udtEvents, std::int32_t lngFolderID) {
  return LoadEventsWithCriteria(udtEvents, "EVE_FolderID=" + SqlNumber(lngFolderID) + " ORDER BY EVE_Text ASC");
}

bool CSession::LoadEventsWithCriteria(const Ref<CEvents>& udtEvents, const std::string& strCriteria) {
  return LoadRecords(*this, udtEvents, "LoadEventsWithCriteria", "SELECT * FROM Events", strCriteria);
}

Ref<CEvent> CSession::CreateEvent() { return CreateRecord<CEvent>(*this, "CSession.CreateEvent", kEventSequence); }

Ref<CEvent> CSession::DuplicateEvent(std::int32_t lngOldEventID) {
  return DuplicateRecord(*this, "CSession.DuplicateEvent", &CSession::GetEvent, lngOldEventID, kEventSequence,
                         [this](CEvent& copy) { return RenumberChildren(*this, copy); });
}

bool CSession::DeleteEvent(std::int32_t lngEventID) {
  return DeleteInTransaction(*this, "DeleteEvent", "CSession.DeleteEvent",
                             [&] { return DeleteOwner(*this, " FROM Events WHERE EVE_ID=", kChildren, lngEventID); });
}

}  // namespace zef
