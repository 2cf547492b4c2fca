#include "calendar/event.h"

#include "platform/ignoring_failures.h"
#include "session/operations.h"
#include "textviews/labels.h"

namespace zef {
namespace {

constexpr Column<CEvent> kColumns[] = {
    Key<CEvent>("EVE_ID"),
    Stored<CEvent>("EVE_FolderID", &CEvent::FolderID, 0),
    Stored<CEvent>("EVE_CategoryID", &CEvent::CategoryID, 1),
    Stored<CEvent>("EVE_NotificationID", &CEvent::NotificationID, 2),
    Stored<CEvent>("EVE_RecurrenceID", &CEvent::RecurrenceID, 3),
    Stored<CEvent>("EVE_ContactID", &CEvent::ContactID, 4),
    Stored<CEvent>("EVE_Text", &CEvent::Text, 5),
    Stored<CEvent>("EVE_Location", &CEvent::Location, 9),
    Stored<CEvent>("EVE_StartDate", &CEvent::StartDate, 6),
    Stored<CEvent>("EVE_EndDate", &CEvent::EndDate, 10),
    Stored<CEvent>("EVE_Reminder", &CEvent::Reminder, 7),
    Stored<CEvent>("EVE_DateLastUpdate", &CEvent::DateLastUpdate, 8, Form::Stamp),
    {.name = "EVE_Type", .member = &CEvent::EType, .row = 11, .form = Form::Plain, .null = {.text = "E"}},
    {.name = "EVE_LinkID", .member = &CEvent::LinkID, .row = 12, .form = Form::Plain, .null = {.number = -1}},
};
constexpr Table kEvents("Events", kColumns, 15);

constexpr char kFieldsArray[] = "CEvent.GetFieldsArray";
constexpr std::int32_t kNotFound = 103;

}  // namespace

void CEvent::GetValuesFromRS(const Ref<Recordset>& Rs) {
  ReadColumns(*this, kEvents, Deref(Rs));
  ReadChildren();
  SetFlags(false, false);
}

bool CEvent::Save() { return SaveOrGiveBack(kEvents, "CEvent.Save", kFieldsArray); }

bool CEvent::Refresh() { return RefreshRecord(*this, "CEvent.Refresh", kSelectRow, kNotFound, "No event found"); }

bool CEvent::GetFieldsArray(FieldType enmType, FieldsArray& strFields, std::int32_t& lngFieldsCount) const {
  return FillFieldsArray(*this, kEvents, kFieldsArray, enmType, strFields, lngFieldsCount);
}

Ref<CEvent> CEvent::Clone(const Ref<CEvent>& DestEvent) const {
  const Ref<CEvent> target = DestEvent ? DestEvent : MakeRef<CEvent>();
  IgnoringFailures([&] {
    target->CategoryID = CategoryID;
    target->ContactID = ContactID;
    target->DateLastUpdate = DateLastUpdate;
    target->EndDate = EndDate;
    target->FolderID = FolderID;
    target->ID = ID;
    target->Location = Location;
    target->NotificationID = NotificationID;
    target->RecurrenceID = RecurrenceID;
    target->Reminder = Reminder;
    target->SetSession(Session());
    target->StartDate = StartDate;
    target->Text = Text;
    target->EType = EType;
    target->LinkID = LinkID;
    target->ResetFlagsX(OwnModified(), IsNew());
  });
  return target;
}

}  // namespace zef
