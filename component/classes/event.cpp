#include "calendar/event.h"

#include "component/classes/record_members.h"

namespace zef::component {
namespace {

using Of = RecordMembers<CEvent>;

constexpr Rows kMembers{
    Of::ID(),
    Of::Field<&CEvent::DisplayCol, Long>("DisplayCol"),
    Of::Field<&CEvent::DisplayRow1, Long>("DisplayRow1"),
    Of::Field<&CEvent::DisplayRow2, Long>("DisplayRow2"),
    Of::Session(),
    Of::Recurrence(),
    Of::Notification(),
    Of::Property<&CEvent::FolderID, Long>("FolderID"),
    Of::Property<&CEvent::LinkID, Long>("LinkID"),
    Of::Property<&CEvent::ContactID, Long>("ContactID"),
    Of::Property<&CEvent::CategoryID, Long>("CategoryID"),
    Of::Property<&CEvent::NotificationID, Long>("NotificationID"),
    Of::Property<&CEvent::RecurrenceID, Long>("RecurrenceID"),
    Of::Property<&CEvent::Text, Text>("Text"),
    Of::Property<&CEvent::EType, Text>("EType"),
    Of::Property<&CEvent::Location, Text>("Location"),
    Of::Property<&CEvent::StartDate, Date>("StartDate"),
    Of::Property<&CEvent::EndDate, Date>("EndDate"),
    Of::Property<&CEvent::Reminder, Long>("Reminder"),
    Of::DateLastUpdate(),
    Of::Contract(),
    Of::Save2File(),
    Of::Refresh(),
    Of::GetFieldsArray(),
    Of::SeenByUser(),
    Of::MarkSeenByUser(),
    Of::Function<&CEvent::Clone, Ref<CEvent>(Optional<ByRef<Ref<CEvent>>>)>("Clone", "DestEvent"),
    Of::Field2String(),
    Of::IsEmpty(),
};
constexpr Class kClass = Creatable<CEvent>(kMembers);

}  // namespace

const Class& DescriptionOf(Tag<CEvent>) { return kClass; }

}  // namespace zef::component
