#include "calendar/generated_event.h"

#include "calendar/event.h"
#include "session/operations.h"

namespace zef {
namespace {

/// The condition that all events of one kind and record in one folder meet.
std::string OfRecord(const GeneratedKind& kind, std::int32_t link, std::int32_t folder) {
  return " FROM Events WHERE EVE_Type='" + std::string(kind.type) + "' and EVE_LinkID=" + SqlNumber(link) +
         " AND EVE_FolderID=" + SqlNumber(folder);
}

/// The day of a date, through its short text form, which drops the time of day.
Date DayOf(Date date) { return ToDate(Value(ShortDateText(date))); }

bool RefreshEvent(CEvent& event, Date date, const std::function<void(CRecurrence&)>& write_rule) {
  event.Reminder = 0;
  event.StartDate = DayOf(date);
  event.EndDate = event.StartDate;
  write_rule(Deref(event.Recurrence));
  return event.Save();
}

}  // namespace

Outcome KeepGeneratedEvent(CSession& session, const GeneratedKind& kind, std::int32_t link, bool link_is_new, Date date,
                           const std::function<std::string()>& text,
                           const std::function<void(CRecurrence&)>& write_rule) {
  if (date.IsZero()) {
    if (!link_is_new) DeleteGeneratedEvents(session, kind, link);
    return Outcome::Done;
  }
  const std::string folder_criteria(kind.folder_criteria);
  if (!link_is_new) {
    const std::int32_t folder = session.GetFolderIDByCriteria(folder_criteria);
    const Ref<Recordset> found = Deref(session.conDBConnection).Execute("SELECT EVE_ID" + OfRecord(kind, link, folder));
    if (!found->EndOfFile()) {
      const Ref<CEvent> event = session.GetEvent(ToLong(found->Fields().Item("EVE_ID").Value()));
      return RefreshEvent(Deref(event), date, write_rule) ? Outcome::Done : Outcome::Quiet;
    }
  }
  const Ref<CEvent> event = session.CreateEvent();
  Deref(event).LinkID = link;
  event->EType = std::string(kind.type);
  event->Text = text();
  event->FolderID = session.GetFolderIDByCriteria(folder_criteria);
  if (event->FolderID < 1) return Outcome::Quiet;
  return RefreshEvent(*event, date, write_rule) ? Outcome::Done : Outcome::Quiet;
}

void DeleteGeneratedEvents(CSession& session, const GeneratedKind& kind, std::int32_t link) {
  const std::int32_t folder = session.GetFolderIDByCriteria(std::string(kind.folder_criteria));
  Execute(session, "DELETE" + OfRecord(kind, link, folder));
}

}  // namespace zef
