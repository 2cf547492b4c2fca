#include "users/user.h"

#include "component/classes/record_members.h"

namespace zef::component {
namespace {

using Of = RecordMembers<CUser>;

constexpr Rows kMembers{
    Of::ID(),
    Of::Session(),
    Of::Property<&CUser::Name, Text>("Name"),
    Of::Property<&CUser::Password, Text>("Password"),
    Of::Property<&CUser::FullName, Text>("FullName"),
    Of::Property<&CUser::Rights, Long>("Rights"),
    Of::Property<&CUser::Email, Text>("Email"),
    Of::DateLastUpdate(),
    Of::Property<&CUser::CreationDate, Date>("CreationDate"),
    Of::Contract(),
    Of::Function<&CUser::IsAdministrator, Boolean()>("IsAdministrator"),
    Of::Function<&CUser::IsDataEditor, Boolean()>("IsDataEditor"),
    Of::Function<&CUser::IsDataViewer, Boolean()>("IsDataViewer"),
    Of::Function<&CUser::UserType, Text()>("UserType"),
};
constexpr Class kClass = Creatable<CUser>(kMembers);

}  // namespace

const Class& DescriptionOf(Tag<CUser>) { return kClass; }

}  // namespace zef::component
