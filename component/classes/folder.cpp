#include "folders/folder.h"

#include "component/classes/record_members.h"

namespace zef::component {
namespace {

using Of = RecordMembers<CFolder>;

constexpr Member kMembers[] = {
    Of::ID(),
    Of::Session(),
    Of::Property<&CFolder::ParentID, Long>("ParentID"),
    Of::Property<&CFolder::Protected, Boolean>("Protected"),
    Of::Property<&CFolder::Options, Long>("Options"),
    Of::Property<&CFolder::Name, Text>("Name"),
    Of::Property<&CFolder::Description, Text>("Description"),
    Of::Property<&CFolder::ItemsType, FolderType>("ItemsType"),
    Of::DateLastUpdate(),
    Of::IsNew(),
    Of::IsModified(),
    Of::Function<&CFolder::IsAllEventsFolder, Boolean()>("IsAllEventsFolder"),
    Of::Function<&CFolder::IsAllTasksFolder, Boolean()>("IsAllTasksFolder"),
    Of::ResetFlagsX(),
    Of::ResetFlags(),
    Of::GetValuesFromRS(),
    Of::Save(),
};
constexpr Class kClass = Creatable<CFolder>(kMembers);

}  // namespace

const Class& DescriptionOf(Tag<CFolder>) { return kClass; }

}  // namespace zef::component
