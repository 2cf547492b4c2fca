#include "folders/folder.h"
#include "session/collections.h"
#include "session/operations.h"

namespace zef {
namespace {

constexpr char kIdentifier[] = "FLD_ID";
constexpr char kSelectPhoneCallNotes[] =
    "SELECT FLD_ID FROM Folders WHERE FLD_Type=3 AND FLD_Protected=1 AND FLD_Name='Phone Calls Notes'";
constexpr char kSelectCompletedTasks[] =
    "SELECT FLD_ID FROM Folders WHERE FLD_Type=2 AND FLD_Protected=1 AND FLD_Name='Completed Tasks'";

}  // namespace

Ref<CFolder> CSession::GetFolder(std::int32_t FolderID) {
  return GetRecord<CFolder>(*this, "GetFolder", "SELECT * FROM Folders WHERE FLD_ID=", FolderID);
}

Ref<CFolder> CSession::CreateFolder() { return CreateRecord<CFolder>(*this, "CSession.CreateFolder", kFolderSequence); }

std::int32_t CSession::GetFolderIDByCriteria(const std::string& strCriteria) {
  return FirstID(*this, "GetFolderIDByCriteria", SelectText("SELECT FLD_ID FROM Folders", strCriteria), kIdentifier);
}

std::int32_t CSession::GetFolderID4PhoneCallNotes() {
  return FirstID(*this, "GetFolderID4PhoneCallNotes", kSelectPhoneCallNotes, kIdentifier);
}

std::int32_t CSession::GetFolderID4Completedtasks() {
  return FirstID(*this, "GetFolderID4Completedtasks", kSelectCompletedTasks, kIdentifier);
}

bool CSession::LoadRootFolders(const Ref<CFolders>& udtFolders) {
  return LoadFoldersWithCriteria(udtFolders, "FLD_ParentID=0");
}

bool CSession::LoadChildFolders(const Ref<CFolders>& udtFolders, std::int32_t lngParentId) {
  return LoadFoldersWithCriteria(udtFolders, "FLD_ParentID=" + SqlNumber(lngParentId));
}

bool CSession::LoadFoldersWithCriteria(const Ref<CFolders>& udtFolders, const std::string& strCriteria) {
  return LoadRecords(*this, udtFolders, "LoadFoldersWithCriteria", "SELECT * FROM Folders", strCriteria,
                     " ORDER BY FLD_NAME ");
}

}  // namespace zef
