#include "tests/many_clients/client.h"

#include <iterator>

#include "addressbook/contact.h"
#include "calendar/recurrence_type.h"
#include "platform/run_time_error.h"
#include "session/collections.h"
#include "tasks/task.h"

namespace zef::test {
namespace {

constexpr int kTasksInBranch = 2;

}  // namespace

Client::Client(const Database& database, unsigned seed, std::int32_t shared_task, Account& account)
    : session_(database.OpenSession()),
      random_(seed),
      shared_task_(shared_task),
      account_(account),
      own_name_("Client " + std::to_string(seed)) {
  for (Shelf* const shelf : {&own_, &copies_}) {
    if (!MakeFolder(NewName(), 0, FT_TASKS, shelf->folder)) Contradict("no folder of its own");
  }
}

void Client::Work() {
  static constexpr bool (Client::*kOperations[])() = {
      &Client::AddTask,          &Client::ChangeTask,    &Client::DeleteTask,    &Client::ReadTasks,
      &Client::AddContact,       &Client::ChangeContact, &Client::DeleteContact, &Client::ReadContacts,
      &Client::AddBranch,        &Client::CopyBranch,    &Client::DeleteBranch,  &Client::ReadBranches,
      &Client::RaiseSharedNumber};
  const auto which = static_cast<std::size_t>(Draw(static_cast<int>(std::size(kOperations)) - 1));
  if (!(this->*kOperations[which])()) Refused();
  ++account_.operations;
}

void Client::Refused() {
  ++account_.refused;
  if (session_->GetErrorCode() == static_cast<std::int32_t>(FailureNumber::ConstraintViolated))
    Contradict("a number was given twice");
  if (session_->TransactionStarted() && !session_->RollbackTransaction()) Contradict("no way back");
}

void Client::Contradict(const std::string& what) {
  throw RunTimeError(FailureNumber::InvalidCall, own_name_ + ": " + what + " " + session_->GetEntireErrorDesc());
}

std::string Client::NewName() { return own_name_ + "'s " + std::to_string(++names_); }

Date Client::SomeDay() { return DateSerial(2026, 1, 1 + Draw(364)); }

std::int32_t Client::SomeOf(const std::map<std::int32_t, std::string>& records) {
  return std::next(records.begin(), Draw(static_cast<int>(records.size()) - 1))->first;
}

bool Client::IsFound(bool found, const char* what) {
  if (!found && !session_->GetErrorFlag()) Contradict(what);
  return found;
}

bool Client::MakeFolder(const std::string& name, std::int32_t parent, std::int32_t type, std::int32_t& id) {
  const Ref<CFolder> folder = session_->CreateFolder();
  if (!folder) return false;
  folder->Name = name;
  folder->ParentID = parent;
  folder->ItemsType = type;
  id = folder->ID;
  return folder->Save();
}

bool Client::MakeTask(std::int32_t folder, std::int32_t& id, std::string& name) {
  const Ref<CTask> task = session_->CreateTask();
  if (!task) return false;
  task->FolderID = folder;
  task->Name = name = NewName();
  if (Draw(3) > 0) task->DueDate = SomeDay();
  task->Recurrence->RType = REC_WEEKLY;
  task->Recurrence->Options1 = 1;
  task->Recurrence->Monday = true;
  task->Notification->Subject = name;
  id = task->ID;
  return task->Save();
}

bool Client::AddTask() {
  std::int32_t id = 0;
  std::string name;
  if (!MakeTask(own_.folder, id, name)) return false;
  tasks_[id] = name;
  return true;
}

bool Client::ChangeTask() {
  if (tasks_.empty()) return true;
  const std::int32_t id = SomeOf(tasks_);
  const Ref<CTask> task = session_->GetTask(id);
  if (!IsFound(task != nullptr, "a task is gone")) return false;
  const std::string name = NewName();
  task->Name = name;
  task->DueDate = task->DueDate->IsZero() ? SomeDay() : Date();
  if (!task->Save()) return false;
  tasks_[id] = name;
  return true;
}

bool Client::DeleteTask() {
  if (tasks_.empty()) return true;
  const std::int32_t id = SomeOf(tasks_);
  if (!session_->DeleteTask(id)) return false;
  tasks_.erase(id);
  return true;
}

bool Client::ReadTasks() {
  const auto found = MakeRef<CTasks>();
  if (!session_->LoadTasks4Folder(found, own_.folder)) return false;
  std::map<std::int32_t, std::string> names;
  for (const Ref<CTask>& task : *found) names[task->ID] = task->Name;
  if (names != tasks_) Contradict("other tasks than it has saved");
  return true;
}

bool Client::AddContact() {
  const Ref<CContact> contact = session_->CreateContact();
  if (!contact) return false;
  const std::string name = NewName();
  contact->FolderID = own_.folder;
  contact->LastName = name;
  contact->BirthDate = SomeDay();
  if (!contact->Save()) return false;
  contacts_[contact->ID] = name;
  return true;
}

bool Client::ChangeContact() {
  if (contacts_.empty()) return true;
  const std::int32_t id = SomeOf(contacts_);
  const Ref<CContact> contact = session_->GetContact(id);
  if (!IsFound(contact != nullptr, "a contact is gone")) return false;
  const std::string name = NewName();
  contact->LastName = name;
  contact->BirthDate = contact->BirthDate->IsZero() ? SomeDay() : Date();
  if (!contact->Save()) return false;
  contacts_[id] = name;
  return true;
}

bool Client::DeleteContact() {
  if (contacts_.empty()) return true;
  const std::int32_t id = SomeOf(contacts_);
  if (!session_->DeleteContact(id)) return false;
  contacts_.erase(id);
  return true;
}

bool Client::ReadContacts() {
  const auto found = MakeRef<CContacts>();
  if (!session_->LoadContacts4Folder(found, own_.folder)) return false;
  std::map<std::int32_t, std::string> names;
  for (const Ref<CContact>& contact : *found) names[contact->ID] = contact->LastName;
  if (names != contacts_) Contradict("other contacts than it has saved");
  return true;
}

bool Client::AddBranch() {
  if (!session_->BeginTransaction() || !AddBranchInTransaction() || !session_->CommitTransaction()) return false;
  ++own_.branches;
  return true;
}

bool Client::AddBranchInTransaction() {
  std::int32_t branch = 0;
  if (!MakeFolder(NewName(), own_.folder, FT_TASKS, branch)) return false;
  for (int i = 0; i < kTasksInBranch; ++i) {
    std::int32_t task = 0;
    std::string name;
    if (!MakeTask(branch, task, name)) return false;
  }
  return true;
}

Ref<CFolder> Client::SomeBranch(const Shelf& shelf) {
  const auto found = MakeRef<CFolders>();
  if (!session_->LoadChildFolders(found, shelf.folder) || found->Count() == 0) return nullptr;
  return found->ItemByIdx(1 + Draw(found->Count() - 1));
}

bool Client::ReadBranches() {
  for (const Shelf& shelf : {own_, copies_}) {
    const auto found = MakeRef<CFolders>();
    if (!session_->LoadChildFolders(found, shelf.folder)) return false;
    if (found->Count() != shelf.branches) Contradict("other folders than it has made");
    for (const Ref<CFolder>& branch : *found) {
      const auto tasks = MakeRef<CTasks>();
      if (!session_->LoadTasks4Folder(tasks, branch->ID)) return false;
      if (tasks->Count() != kTasksInBranch) Contradict("half a branch");
    }
  }
  return true;
}

/// Under a new name each time: a folder does not take two of one name.
bool Client::CopyBranch() {
  if (own_.branches == 0) return true;
  const Ref<CFolder> branch = SomeBranch(own_);
  if (!branch) return false;
  branch->Name = NewName();
  if (!branch->Save() || !session_->CopyFolder(branch->ID, copies_.folder)) return false;
  ++copies_.branches;
  return true;
}

bool Client::DeleteBranch() {
  Shelf& shelf = own_.branches > copies_.branches ? own_ : copies_;
  if (shelf.branches == 0) return true;
  const Ref<CFolder> branch = SomeBranch(shelf);
  if (!branch || !session_->DeleteFolder(branch->ID)) return false;
  --shelf.branches;
  return true;
}

bool Client::RaiseSharedNumber() {
  if (session_->BeginTransaction() && RaiseInTransaction()) {
    ++account_.raises_begun;
    if (session_->CommitTransaction()) {
      ++account_.raises_done;
      return true;
    }
    --account_.raises_begun;
  }
  return false;
}

bool Client::RaiseInTransaction() {
  const Ref<CTask> task = session_->GetTask(shared_task_);
  if (!task) return false;
  task->Completed = task->Completed + 1;
  return task->Save();
}

}  // namespace zef::test
