#include "notes/attachement.h"

#include "component/classes/record_members.h"

namespace zef::component {
namespace {

using Of = RecordMembers<CAttachement>;

constexpr Member kMembers[] = {
    Of::ID(),
    Of::Session(),
    Of::Property<&CAttachement::Name, Text>("Name"),
    Of::Property<&CAttachement::DocType, Text>("DocType"),
    Of::Property<&CAttachement::Description, Text>("Description"),
    Of::Property<&CAttachement::FileName, Text>("FileName"),
    Of::Property<&CAttachement::CacheFileName, Text>("CacheFileName"),
    Of::Property<&CAttachement::Cached, Boolean>("Cached"),
    Of::IsNew(),
    Of::IsModified(),
    Of::IsEmpty(),
    Of::ResetFlagsX(),
    Of::ResetFlags(),
    Of::GetValuesFromRS(),
    Of::Save(),
    Of::Function<&CAttachement::Cache2File, Boolean()>("Cache2File"),
    Of::Function<&CAttachement::GetNewCacheFileName, Boolean(ByRef<Text>)>("GetNewCacheFileName", "strCache"),
    Of::Save2OwnersFile(),
    Of::GetFieldsArray(),
};
constexpr Class kClass = Creatable<CAttachement>(kMembers);

}  // namespace

const Class& DescriptionOf(Tag<CAttachement>) { return kClass; }

}  // namespace zef::component
