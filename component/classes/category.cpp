#include "folders/category.h"

#include "component/classes/record_members.h"

namespace zef::component {
namespace {

using Of = RecordMembers<CCategory>;

constexpr Rows kMembers{
    Of::ID(),
    Of::Session(),
    Of::Property<&CCategory::Color, Long>("Color"),
    Of::Property<&CCategory::Name, Text>("Name"),
    Of::DateLastUpdate(),
    Of::Contract(),
};
constexpr Class kClass = Creatable<CCategory>(kMembers);

}  // namespace

const Class& DescriptionOf(Tag<CCategory>) { return kClass; }

}  // namespace zef::component
