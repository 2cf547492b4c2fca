#include "calendar/recurrence.h"

#include "component/classes/record_members.h"

namespace zef::component {
namespace {

using Of = RecordMembers<CRecurrence>;

constexpr Member kMembers[] = {
    Of::ID(),
    Of::Session(),
    Of::Property<&CRecurrence::EndDate, Date>("EndDate"),
    Of::Property<&CRecurrence::Options1, Long>("Options1"),
    Of::Property<&CRecurrence::Options2, Long>("Options2"),
    Of::Property<&CRecurrence::SubType, Long>("SubType"),
    Of::Property<&CRecurrence::WeekNumber, Long>("WeekNumber"),
    Of::Property<&CRecurrence::Monday, Boolean>("Monday"),
    Of::Property<&CRecurrence::Tuesday, Boolean>("Tuesday"),
    Of::Property<&CRecurrence::Wendsday, Boolean>("Wendsday"),
    Of::Property<&CRecurrence::Thursday, Boolean>("Thursday"),
    Of::Property<&CRecurrence::Friday, Boolean>("Friday"),
    Of::Property<&CRecurrence::Saturday, Boolean>("Saturday"),
    Of::Property<&CRecurrence::Sunday, Boolean>("Sunday"),
    Of::Property<&CRecurrence::OccurencesNo, Long>("OccurencesNo"),
    Of::Property<&CRecurrence::RType, RecurrenceType>("RType"),
    Of::IsNew(),
    Of::IsModified(),
    Of::IsEmpty(),
    Of::ResetFlagsX(),
    Of::ResetFlags(),
    Of::GetValuesFromRS(),
    Of::Save(),
    Of::Save2OwnersFile(),
    Of::GetFieldsArray(),
    Of::Function<&CRecurrence::NextOccuranceDate, Date(Date)>("NextOccuranceDate", "dtmReference"),
};
constexpr Class kClass = Creatable<CRecurrence>(kMembers);

}  // namespace

const Class& DescriptionOf(Tag<CRecurrence>) { return kClass; }

}  // namespace zef::component
