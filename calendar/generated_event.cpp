#include "calendar/generated_event.h"

#include "calendar/event.h"
#include "session/operations.h"

namespace zef {
namespace {

/// Below 1 without the kind's folder.
std::int32_t FolderOf(CSession& session, const GeneratedKind& kind) {
  return session.GetFolderIDByCriteria(std::string(kind.folder_criteria));
}

/// The rest, behind the verb, of a statement on all events of one kind and record in the kind's folder.
std::string OfOwner(CSession& session, const GeneratedKind& kind, std::int32_t owner) {
  return " FROM Events WHERE EVE_Type='" + std::string(kind.type) + "' and EVE_LinkID=" + SqlNumber(owner) +
         " AND EVE_FolderID=" + SqlNumber(FolderOf(session, kind));
}

/// The day of a date, through its short text form, which drops the time of day.
Date DayOf(Date date) { return ToDate(Value(ShortDateText(date))); }

Outcome SaveEvent(CEvent& event, const DateOfOwner& of) {
  event.Reminder = 0;
  event.StartDate = DayOf(of.date);
  event.EndDate = event.StartDate;
  of.write_rule(Deref(event.Recurrence));
  return event.Save() ? Outcome::Done : Outcome::Quiet;
}

Outcome MakeEvent(CSession& session, const GeneratedKind& kind, const DateOfOwner& of) {
  const Ref<CEvent> event = session.CreateEvent();
  Deref(event).LinkID = of.owner;
  event->EType = std::string(kind.type);
  event->Text = of.text();
  event->FolderID = FolderOf(session, kind);
  return event->FolderID < 1 ? Outcome::Quiet : SaveEvent(*event, of);
}

}  // namespace

Outcome KeepGeneratedEvent(CSession& session, const GeneratedKind& kind, const DateOfOwner& of) {
  if (of.date.IsZero()) {
    if (!of.owner_is_new) DeleteGeneratedEvents(session, kind, of.owner);
    return Outcome::Done;
  }
  if (of.owner_is_new) return MakeEvent(session, kind, of);
  const Ref<Recordset> found = Select(session, "SELECT EVE_ID" + OfOwner(session, kind, of.owner));
  if (found->EndOfFile()) return MakeEvent(session, kind, of);
  const Ref<CEvent> event = session.GetEvent(ToLong(found->Fields().Item("EVE_ID").Value()));
  return SaveEvent(Deref(event), of);
}

void DeleteGeneratedEvents(CSession& session, const GeneratedKind& kind, std::int32_t owner) {
  Execute(session, "DELETE" + OfOwner(session, kind, owner));
}

}  // namespace zef
