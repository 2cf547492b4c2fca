#include "notes/note.h"
#include "textviews/export.h"
#include "textviews/labels.h"
#include "textviews/named_value.h"

namespace zef {
namespace {

constexpr NamedValue<CNote> kLabels[] = {
    {"Title:", Plain<&CNote::Title>},
    {"Text:", Plain<&CNote::Text>},
    {"Folder:", FolderOf},
    {"Category:", CategoryOf},
    {"Date last updated:", Plain<&CNote::DateLastUpdate>},
};

constexpr NamedValue<CNote> kFields[] = {
    {"NOT_Title", Plain<&CNote::Title>},
    {"NOT_Text", Plain<&CNote::Text>},
    {"CAT_Name", CategoryLookedUp},
};

}  // namespace

void FillLabels(const CNote& note, FieldsArray& rows) { FillRows(rows, kLabels, note); }

std::string CNote::Field2String(const std::string& strFldName) const { return ValueOf(kFields, strFldName, *this); }

bool CNote::Save2File(const std::string& strFile) const {
  return SaveToFile(*this, "CNote.Save2File", strFile, [](std::int32_t) { return true; });
}

}  // namespace zef
