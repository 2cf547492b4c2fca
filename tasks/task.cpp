#include "tasks/task.h"

#include "platform/ignoring_failures.h"
#include "session/operations.h"
#include "tasks/due_date_event.h"
#include "textviews/labels.h"

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
constexpr Table kTasks("Tasks", kColumns, 25);

constexpr char kFieldsArray[] = "CTask.GetFieldsArray";
constexpr std::int32_t kNotFound = 102;

/// The rule of the next instance: one occurrence fewer, and after the last one no rule. False if no number was drawn.
bool RollRule(CSession& session, CTask& task) {
  if (!RenumberChild(session, kRecurrenceSequence, task.Recurrence, task.RecurrenceID)) return false;
  CRecurrence& rule = *task.Recurrence;
  if (rule.OccurencesNo <= 0) return true;
  rule.OccurencesNo = rule.OccurencesNo - 1;
  if (rule.OccurencesNo == 0) rule.RType = REC_EMPTY;
  return true;
}

/// The notification of the next instance, still to be sent. False if no number was drawn.
bool RollNotification(CSession& session, CTask& task) {
  if (task.NotificationID <= 0) return true;
  if (!RenumberChild(session, kNotificationSequence, task.Notification, task.NotificationID)) return false;
  task.Notification->Status = NS_NOTSENT;
  task.Notification->SendingDate = Date();
  return true;
}

/// Makes the task its next instance, which starts at `start`. False if a number was not drawn.
bool RollOn(CTask& task, Date start) {
  CSession& session = Deref(task.Session());
  const std::int64_t shift = DaysBetween(task.StartDate, start);
  std::int32_t id = 0;
  if (session.GetUniqueIDFromSeq(kTaskSequence, id, 1) == 0) return false;
  task.ID = id;
  task.DateCompleted.Load(Date());
  if (!task.DueDate->IsZero()) task.DueDate.Load(AddDays(task.DueDate, shift));
  task.StartDate.Load(start);
  task.Completed.Load(0);
  task.StatusID.Load(-1);
  if (!RollRule(session, task) || !RollNotification(session, task)) return false;
  task.ResetFlagsX(true, true);
  return true;
}

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

bool CTask::Refresh() { return RefreshRecord(*this, "CTask.Refresh", kSelectRow, kNotFound, "No task found"); }

bool CTask::GetFieldsArray(FieldType enmType, FieldsArray& strFields, std::int32_t& lngFieldsCount) const {
  return FillFieldsArray(*this, kTasks, kFieldsArray, enmType, strFields, lngFieldsCount);
}

bool CTask::IsEmpty() const {
  const bool no_references = CategoryID < 1 && RecurrenceID < 1 && NotificationID < 1;
  const bool no_texts = Name->empty() && Description->empty() && AssignedTo->empty() && Priority->empty();
  const bool no_dates = StartDate->IsZero() && DueDate->IsZero() && DateCompleted->IsZero();
  return no_references && no_texts && no_dates && Completed < 1 && StatusID < 1;
}

bool CTask::ApplyRecurrence() {
  if (RecurrenceID < 1) return false;
  bool used_up = false;
  bool rolled = false;
  IgnoringFailures([&] {
    const Date next = Deref(Recurrence).NextOccuranceDate(StartDate);
    used_up = next.IsZero();
    rolled = !used_up && RollOn(*this, next);
  });
  if (!rolled && !used_up) ResetFlagsX(false, false);
  return rolled;
}

Ref<CTask> CTask::Clone(const Ref<CTask>& DestTask) const {
  const Ref<CTask> target = DestTask ? DestTask : MakeRef<CTask>();
  IgnoringFailures([&] {
    target->FolderID = FolderID;
    target->CategoryID = CategoryID;
    target->NotificationID = NotificationID;
    target->RecurrenceID = RecurrenceID;
    target->Priority = Priority;
    target->StatusID = StatusID;
    target->Name = Name;
    target->Description = Description;
    target->AssignedTo = AssignedTo;
    target->Completed = Completed;
    target->StartDate = StartDate;
    target->DueDate = DueDate;
    target->DateCompleted = DateCompleted;
    target->DateLastUpdate = DateLastUpdate;
    target->ID = ID;
    target->SetSession(Session());
    target->ResetFlagsX(OwnModified(), IsNew());
  });
  return target;
}

}  // namespace zef
