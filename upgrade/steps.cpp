#include "upgrade/steps.h"

#include "folders/folder.h"
#include "session/operations.h"

namespace zef {
namespace {

Ref<Recordset> ProtectedFolders(CSession& session, const char* name) {
  return Deref(session.conDBConnection)
      .Execute("SELECT FLD_ID FROM Folders WHERE FLD_Protected = 1 AND FLD_Name=" + SqlQuoted(name));
}

}  // namespace

bool EnsureFolder(CSession& session, const SystemFolder& folder, std::string& strErrorMsg) {
  if (!ProtectedFolders(session, folder.name)->EndOfFile()) return true;
  const Ref<Recordset> parent = ProtectedFolders(session, folder.parent);
  if (parent->EndOfFile()) {
    strErrorMsg = folder.no_parent;
    return false;
  }
  const Ref<CFolder> created = session.CreateFolder();
  CFolder& made = Deref(created);
  made.Description = folder.name;
  made.ItemsType = folder.type;
  made.Name = folder.name;
  made.ParentID = ToLong(parent->Fields().Item("FLD_ID").Value());
  made.Protected = true;
  return made.Save();
}

bool StampVersion(CSession& session, const char* version, std::string& strVersion) {
  Execute(session, "UPDATE _VersionInfo SET VI_Version = " + SqlQuoted(version));
  strVersion = version;
  return true;
}

}  // namespace zef
