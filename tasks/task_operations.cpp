#include "session/children.h"
#include "session/collections.h"
#include "session/operations.h"
#include "tasks/due_date_event.h"
#include "tasks/task.h"

namespace zef {
namespace {

constexpr ChildColumn kChildren[] = {{"TSK_RecurrenceID", &CSession::DeleteRecurrence},
                                     {"TSK_NotificationID", &CSession::DeleteNotification}};

}  // namespace

Ref<CTask> CSession::GetTask(std::int32_t TaskID) {
  return GetRecord<CTask>(*this, "GetTask", CTask::kSelectRow, TaskID);
}

Ref<CTask> CSession::CreateTask() { return CreateRecord<CTask>(*this, "CSession.CreateTask", kTaskSequence); }

bool CSession::LoadTasks4Folder(const Ref<CTasks>& udtTasks, std::int32_t lngFolderID) {
  return LoadTasksWithCriteria(udtTasks, "TSK_FolderID=" + SqlNumber(lngFolderID) + " ORDER BY TSK_Name ASC");
}

bool CSession::LoadTasksWithCriteria(const Ref<CTasks>& udtTasks, const std::string& strCriteria) {
  return LoadRecords(*this, udtTasks, "LoadTasksWithCriteria", "SELECT * FROM Tasks", strCriteria);
}

Ref<CTask> CSession::DuplicateTask(std::int32_t lngOldTaskID) {
  return DuplicateRecord(*this, "CSession.DuplicateTask", &CSession::GetTask, lngOldTaskID, kTaskSequence,
                         [&](CTask& copy) { return RenumberChildren(*this, copy); });
}

bool CSession::DeleteTask(std::int32_t lngTaskID) {
  return DeleteInTransaction(*this, "DeleteTask", "CSession.DeleteTask", [&] {
    if (!DeleteOwner(*this, " FROM Tasks WHERE TSK_ID=", kChildren, lngTaskID)) return false;
    DeleteDueDateEvent(*this, lngTaskID);
    return true;
  });
}

}  // namespace zef
