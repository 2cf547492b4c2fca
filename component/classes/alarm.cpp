#include "calendar/alarm.h"

#include "component/classes/record_members.h"

namespace zef::component {
namespace {

using Of = RecordMembers<CAlarm>;

constexpr Rows kMembers{
    Of::ID(),
    Of::Session(),
    Of::Property<&CAlarm::Attachement, Ref<CAttachement>>("Attachement"),
    Of::Recurrence(),
    Of::Notification(),
    Of::Property<&CAlarm::FolderID, Long>("FolderID"),
    Of::Property<&CAlarm::CategoryID, Long>("CategoryID"),
    Of::Property<&CAlarm::NotificationID, Long>("NotificationID"),
    Of::Property<&CAlarm::RecurrenceID, Long>("RecurrenceID"),
    Of::Property<&CAlarm::AttachementID, Long>("AttachementID"),
    Of::Property<&CAlarm::Text, Text>("Text"),
    Of::Property<&CAlarm::StartDate, Date>("StartDate"),
    Of::Property<&CAlarm::Reminder, Long>("Reminder"),
    Of::DateLastUpdate(),
    Of::Contract(),
    Of::Save2File(),
    Of::Refresh(),
    Of::GetFieldsArray(),
    Of::SeenByUser(),
    Of::MarkSeenByUser(),
    Of::Field2String(),
    Of::IsEmpty(),
};
constexpr Class kClass = Creatable<CAlarm>(kMembers);

}  // namespace

const Class& DescriptionOf(Tag<CAlarm>) { return kClass; }

}  // namespace zef::component
