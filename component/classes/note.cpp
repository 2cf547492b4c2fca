#include "notes/note.h"

#include "component/classes/record_members.h"

namespace zef::component {
namespace {

using Of = RecordMembers<CNote>;

constexpr Rows kMembers{
    Of::ID(),
    Of::Session(),
    Of::Property<&CNote::FolderID, Long>("FolderID"),
    Of::Property<&CNote::CategoryID, Long>("CategoryID"),
    Of::Property<&CNote::Title, Text>("Title"),
    Of::Property<&CNote::Text, Text>("Text"),
    Of::DateLastUpdate(),
    Of::Contract(),
    Of::Save2File(),
    Of::Function<&CNote::ReadFromFile, Boolean(ByRef<Text>)>("ReadFromFile", "strFile"),
    Of::Refresh(),
    Of::GetFieldsArray(),
    Of::Field2String(),
    Of::IsEmpty(),
};
constexpr Class kClass = Creatable<CNote>(kMembers);

}  // namespace

const Class& DescriptionOf(Tag<CNote>) { return kClass; }

}  // namespace zef::component
