#include "tasks/task.h"

#include "component/classes/record_members.h"

namespace zef::component {
namespace {

using Of = RecordMembers<CTask>;

constexpr Rows kMembers{
    Of::ID(),
    Of::Session(),
    Of::Recurrence(),
    Of::Notification(),
    Of::Property<&CTask::FolderID, Long>("FolderID"),
    Of::Property<&CTask::CategoryID, Long>("CategoryID"),
    Of::Property<&CTask::NotificationID, Long>("NotificationID"),
    Of::Property<&CTask::RecurrenceID, Long>("RecurrenceID"),
    Of::Property<&CTask::Priority, Text>("Priority"),
    Of::Property<&CTask::StatusID, Long>("StatusID"),
    Of::Property<&CTask::Name, Text>("Name"),
    Of::Property<&CTask::Description, Text>("Description"),
    Of::Property<&CTask::AssignedTo, Text>("AssignedTo"),
    Of::Property<&CTask::Completed, Long>("Completed"),
    Of::Property<&CTask::DateCompleted, Date>("DateCompleted"),
    Of::Property<&CTask::StartDate, Date>("StartDate"),
    Of::Property<&CTask::DueDate, Date>("DueDate"),
    Of::DateLastUpdate(),
    Of::Contract(),
    Of::Save2File(),
    Of::Refresh(),
    Of::GetFieldsArray(),
    Of::Function<&CTask::ApplyRecurrence, Boolean()>("ApplyRecurrence"),
    Of::Function<&CTask::Clone, Ref<CTask>(Optional<ByRef<Ref<CTask>>>)>("Clone", "DestTask"),
    Of::Field2String(),
    Of::IsEmpty(),
};
constexpr Class kClass = Creatable<CTask>(kMembers);

}  // namespace

const Class& DescriptionOf(Tag<CTask>) { return kClass; }

}  // namespace zef::component
