#include "session/collections.h"
#include "session/operations.h"
#include "tasks/task.h"

namespace zef {
namespace {

constexpr std::int32_t kTaskSequence = 2;

}  // namespace

Ref<CTask> CSession::GetTask(std::int32_t TaskID) {
  return GetRecord<CTask>(*this, "GetTask", "SELECT * FROM Tasks WHERE TSK_ID=", TaskID);
}

Ref<CTask> CSession::CreateTask() { return CreateRecord<CTask>(*this, "CSession.CreateTask", kTaskSequence); }

bool CSession::LoadTasks4Folder(const Ref<CTasks>& udtTasks, std::int32_t lngFolderID) {
  return LoadTasksWithCriteria(udtTasks, "TSK_FolderID=" + SqlNumber(lngFolderID) + " ORDER BY TSK_Name ASC");
}

bool CSession::LoadTasksWithCriteria(const Ref<CTasks>& udtTasks, const std::string& strCriteria) {
  return LoadRecords(*this, udtTasks, "LoadTasksWithCriteria", "SELECT * FROM Tasks", strCriteria);
}

}  // namespace zef
