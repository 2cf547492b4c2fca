#include "folders/category.h"

#include "component/classes/record_members.h"

namespace zef::component {
namespace {

using Of = RecordMembers<CCategory>;

constexpr Member kMembers[] = {
    Of::ID(),
    Of::Session(),
    Of::Property<&CCategory::Color, Long>("Color"),
    Of::Property<&CCategory::Name, Text>("Name"),
    Of::DateLastUpdate(),
    Of::IsNew(),
    Of::IsModified(),
    Of::ResetFlagsX(),
    Of::ResetFlags(),
    Of::GetValuesFromRS(),
    Of::Save(),
};
constexpr Class kClass = Creatable<CCategory>(4, kMembers);

}  // namespace

template <>
const Class& ClassOf<CCategory>() {
  return kClass;
}

}  // namespace zef::component
