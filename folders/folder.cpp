#include "folders/folder.h"

#include "platform/text.h"

namespace zef {
namespace {

constexpr Column<CFolder> kColumns[] = {
    Key<CFolder>("FLD_ID"),
    Stored<CFolder>("FLD_ParentID", &CFolder::ParentID, 0),
    Stored<CFolder>("FLD_Options", &CFolder::Options, 1),
    Stored<CFolder>("FLD_Name", &CFolder::Name, 2),
    Stored<CFolder>("FLD_Description", &CFolder::Description, 5, Form::AlwaysQuoted),
    Stored<CFolder>("FLD_Type", &CFolder::ItemsType, 3),
    Stored<CFolder>("FLD_DateLastUpdate", &CFolder::DateLastUpdate, 4, Form::Stamp),
    Stored<CFolder>("FLD_Protected", &CFolder::Protected, 6),
};
constexpr Table kFolders("Folders", kColumns);

// The refusal bears the name that clients know it by.
constexpr char kRefusal[] = "CAlarm.Save";
constexpr char kSave[] = "CFolder.Save";
constexpr std::int32_t kNameTaken = 1000;

std::string SameNameSelect(const CFolder& folder) {
  return "SELECT * FROM Folders WHERE FLD_ID<>" + SqlNumber(folder.ID) +
         " AND FLD_ParentID=" + SqlNumber(folder.ParentID) + " AND FLD_Name=" + SqlQuoted(folder.Name.get());
}

/// Of clients that name folders in one place at the same time, one looks after the other has saved.
bool NameIsTaken(CSession& session, const CFolder& folder) {
  const std::string turn = "folders in " + SqlNumber(folder.ParentID);
  return !Deref(session.conDBConnection).ExecuteInTurn(SameNameSelect(folder), turn)->EndOfFile();
}

}  // namespace

bool CFolder::IsSystemFolder(const char* lower_name, FolderType type) const {
  return text::LowerCase(Name.get()) == lower_name && Protected && ItemsType == type;
}

bool CFolder::IsAllEventsFolder() const { return IsSystemFolder("all events", FT_EVENTS); }

bool CFolder::IsAllTasksFolder() const { return IsSystemFolder("all tasks", FT_TASKS); }

void CFolder::GetValuesFromRS(const Ref<Recordset>& Rs) {
  ReadColumns(*this, kFolders, Deref(Rs));
  SetFlags(false, false);
}

bool CFolder::Save() {
  CSession& session = Deref(Session());
  session.ClearError();
  if (Refused(session, kRefusal)) return false;
  const bool saved = InTransaction(session, kSave, [&] {
    if (NameIsTaken(session, *this)) {
      session.RecordError(kSave, kNameTaken, "A folder with this name already exists");
      return Outcome::Quiet;
    }
    if (OwnModified()) WriteRow(*this, kFolders, DatabaseRows(*this, kFolders));
    return Outcome::Done;
  });
  if (saved) SetFlags(false, false);
  return saved;
}

}  // namespace zef
