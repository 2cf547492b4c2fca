#include "tasks/task.h"

#include "session/operations.h"
#include "tasks/due_date_event.h"

namespace zef {
namespace {

constexpr Column<CTask> kColumns[] = {
    Key<CTask>("TSK_ID"),
    Stored<CTask>("TSK_FolderID", &CTask::FolderID, 0),
    Stored<CTask>("TSK_RecurrenceID", &CTask::RecurrenceID, 1),
    Stored<CTask>("TSK_NotificationID", &CTask::NotificationID, 2),
    Stored<CTask>("TSK_CategoryID", &CTask::CategoryID, 3),
    Stored<CTask>("TSK_Priority", &CTask::Priority, 4),
    Stored<CTask>("TSK_StatusID", &CTask::StatusID, 5),
    Stored<CTask>("TSK_Name", &CTask::Name, 6),
    Stored<CTask>("TSK_Description", &CTask::Description, 7),
    Stored<CTask>("TSK_DueDate", &CTask::DueDate, 8),
    Stored<CTask>("TSK_StartDate", &CTask::StartDate, 9),
    Stored<CTask>("TSK_AssignedTo", &CTask::AssignedTo, 10),
    Stored<CTask>("TSK_Completed", &CTask::Completed, 11),
    Stored<CTask>("TSK_DateCompleted", &CTask::DateCompleted, 12),
    Stored<CTask>("TSK_DateLastUpdate", &CTask::DateLastUpdate, 13, Form::Stamp),
};
constexpr Table kTasks("Tasks", 25, kColumns);

constexpr char kFieldsArray[] = "CTask.GetFieldsArray";
constexpr std::int32_t kNotFound = 102;

}  // namespace

void CTask::GetValuesFromRS(const Ref<Recordset>& Rs) {
  ReadColumns(*this, kTasks, Deref(Rs));
  ReadChildren();
  SetFlags(false, false);
}

bool CTask::Save() {
  return SaveItem(kTasks, "CTask.Save", kFieldsArray,
                  [this](CSession& session) { return KeepDueDateEvent(session, *this); });
}

bool CTask::Refresh() {
  return RefreshRecord(*this, "CTask.Refresh", "SELECT * FROM Tasks WHERE TSK_ID=", kNotFound, "No task found");
}

bool CTask::GetFieldsArray(FieldType enmType, FieldsArray& strFields, std::int32_t& lngFieldsCount) const {
  return FillFieldsArray(*this, kTasks, kFieldsArray, enmType, strFields, lngFieldsCount);
}

bool CTask::IsEmpty() const {
  const bool no_references = CategoryID < 1 && RecurrenceID < 1 && NotificationID < 1;
  const bool no_texts = Name->empty() && Description->empty() && AssignedTo->empty() && Priority->empty();
  const bool no_dates = StartDate->IsZero() && DueDate->IsZero() && DateCompleted->IsZero();
  return no_references && no_texts && no_dates && Completed < 1 && StatusID < 1;
}

}  // namespace zef
