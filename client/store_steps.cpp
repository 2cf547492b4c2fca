#include "client/place_file.h"
#include "client/store_session.h"
#include "client/text.h"

/// What takes more than one step of the library.
namespace zef::client {
namespace {

/// Turns a task that was done into the next instance of its series; false if that has come to its end. The library
/// counts from the start, so a task that has none goes on from its due date, and one without dates from today.
bool RollOn(const Store::Session& session, CTask task, Date today) {
  const CRecurrence rule = task.Recurrence;
  if (rule.OccurencesNo == 1 && rule.EndDate.get().IsZero()) return false;  // this one was the last that counts
  const std::int32_t id = task.ID;
  const Date start = task.StartDate;
  const Date due = task.DueDate;
  const bool only_due = start.IsZero() && !due.IsZero();
  if (start.IsZero()) task.StartDate = only_due ? due : today;
  session.it.ClearError();
  if (task.ApplyRecurrence()) {
    if (only_due) task.StartDate = Date();
    return true;
  }
  const bool failed = session.it.GetErrorFlag() || task.ID != id;
  if (failed) session.RefuseAsRecorded("The next instance of the task could not be made.");
  return false;
}

}  // namespace

std::optional<RecordValues> Store::FinishTask(std::int32_t id, Date today) {
  const auto find = [&] { return session_->Existing(session_->it.GetTask(id), "task", id); };
  const auto save = [&](const CTask& task) { session_->Require(task.Save(), "The task could not be saved."); };
  std::int32_t next_id = 0;
  session_->InTransaction([&] {
    CTask task = find();
    if (task.Completed > 0) Refuse(fmt::format("Task {} is done already.", id));
    task.Completed = 1;
    task.DateCompleted = today;
    const CTask next = find();
    if (RollOn(*session_, next, today)) {
      save(next);
      next_id = next.ID;
      task.Recurrence->RType = REC_EMPTY;  // else its due date, too, would go on repeating in the calendar
    }
    save(task);
  });
  if (next_id == 0) return std::nullopt;
  return Record(RecordType::Task, next_id);
}

FolderInfo Store::CopyFolder(const FolderInfo& folder, const FolderInfo& target) {
  if (folder.id == target.id) Refuse("A folder cannot be copied into itself.");
  session_->Require(session_->it.CopyFolder(folder.id, target.id), "The folder could not be copied.");
  return session_->Folders(fmt::format("FLD_ParentID={} AND FLD_Name={}", target.id, SqlQuoted(folder.name))).at(0);
}

std::optional<RecordValues> Store::ContactWithNumber(const std::string& number) {
  const std::string quoted = SqlQuoted(number);  // the library sets the outer quotes itself and escapes nothing
  session_->it.ClearError();
  const std::int32_t id = session_->it.GetContactIDByPhoneNumber(quoted.substr(1, quoted.size() - 2));
  if (session_->it.GetErrorFlag()) session_->RefuseAsRecorded("The contacts could not be searched.");
  if (id == -1) return std::nullopt;
  return Record(RecordType::Contact, id);
}

void Store::SaveAttachment(std::int32_t alarm, const std::string& path) {
  const CAlarm record = session_->Existing(session_->it.GetAlarm(alarm), "alarm", alarm);
  MakeNewFile(path, [&](const std::string& temporary) {
    CAttachement file = record.Attachement;
    file.CacheFileName = temporary;
    session_->Require(file.Cache2File(), "The file could not be written.");
    if (!NameIsTaken(temporary)) Refuse(fmt::format("No file is attached to alarm {}.", alarm));
  });
}

}  // namespace zef::client
