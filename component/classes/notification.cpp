#include "calendar/notification.h"

#include "component/classes/record_members.h"

namespace zef::component {
namespace {

using Of = RecordMembers<CNotification>;

constexpr Member kMembers[] = {
    Of::ID(),
    Of::Session(),
    Of::Property<&CNotification::Subject, Text>("Subject"),
    Of::Property<&CNotification::Message, Text>("Message"),
    Of::Property<&CNotification::Email, Text>("Email"),
    Of::Property<&CNotification::CC, Text>("CC"),
    Of::Property<&CNotification::BCC, Text>("BCC"),
    Of::Property<&CNotification::SendingDate, Date>("SendingDate"),
    Of::Property<&CNotification::Status, NotificationStatus>("Status"),
    Of::Property<&CNotification::NType, NotificationType>("NType"),
    Of::IsNew(),
    Of::IsModified(),
    Of::ResetFlagsX(),
    Of::ResetFlags(),
    Of::IsEmpty(),
    Of::GetValuesFromRS(),
    Of::Save(),
    Of::Save2OwnersFile(),
    Of::GetFieldsArray(),
};
constexpr Class kClass = Creatable<CNotification>(kMembers);

}  // namespace

const Class& DescriptionOf(Tag<CNotification>) { return kClass; }

}  // namespace zef::component
