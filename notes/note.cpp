#include "notes/note.h"

#include "platform/text_file.h"
#include "session/operations.h"
#include "textviews/labels.h"

namespace zef {
namespace {

constexpr Column<CNote> kColumns[] = {
    Key<CNote>("NOT_ID"),
    {.name = "NOT_FolderID", .member = &CNote::FolderID, .row = 2, .form = Form::Plain, .null = {.refused = true}},
    Stored<CNote>("NOT_CategoryID", &CNote::CategoryID, 3),
    {.name = "NOT_Text", .member = &CNote::Text, .row = 1, .form = Form::Plain, .in_portions = true},
    {.name = "NOT_Title", .member = &CNote::Title, .row = 0, .form = Form::Plain, .in_portions = true},
    Stored<CNote>("NOT_DateLastUpdate", &CNote::DateLastUpdate, 4, Form::Stamp),
};
constexpr Table kNotes("Notes", kColumns, 10, 10);

constexpr char kFieldsArray[] = "CNote.GetFieldsArray";
constexpr std::int32_t kNotFound = 101;

}  // namespace

void CNote::GetValuesFromRS(const Ref<Recordset>& Rs) {
  ReadColumns(*this, kNotes, Deref(Rs));
  SetFlags(false, false);
}

bool CNote::Save() {
  const auto write = [this](CSession&) { return SaveRow(*this, kNotes, kFieldsArray); };
  if (!SaveAlone("CNote.Save", MaySave::Writers, write)) return false;
  DateLastUpdate.Load(Date());
  return true;
}

bool CNote::ReadFromFile(const std::string& strFile) {
  CSession& session = Deref(Session());
  return Trapped(session, "CNote.ReadFromFile", false, [&] {
    session.ClearError();
    const std::int32_t file = FreeFile();
    OpenForInput(strFile, file);
    Text = std::string();
    for (std::string part = Input(file); !part.empty(); part = Input(file)) Text += part;
    CloseFile(file);
    return true;
  });
}

bool CNote::Refresh() { return RefreshRecord(*this, "CNote.Refresh", kSelectRow, kNotFound, "No note found"); }

bool CNote::GetFieldsArray(FieldType enmType, FieldsArray& strFields, std::int32_t& lngFieldsCount) const {
  return FillFieldsArray(*this, kNotes, kFieldsArray, enmType, strFields, lngFieldsCount);
}

}  // namespace zef
