#include "client/store.h"

#include <fmt/format.h>

#include <utility>

#include "calendar/event.h"
#include "client/choice.h"
#include "client/create.h"
#include "client/failure.h"
#include "client/record_info.h"
#include "folders/folder.h"
#include "platform/connection_string.h"
#include "session/collections.h"
#include "session/session.h"
#include "tasks/task.h"

namespace zef::client {
namespace {

[[noreturn]] void Refuse(const std::string& sentence) { throw Failure(kRefused, sentence); }

/// Runs a step of the library; what it raises is told in its own words.
template <class Step>
auto Telling(Step&& step) -> decltype(step()) {
  try {
    return step();
  } catch (const RunTimeError& failure) {
    Refuse(failure.description());
  }
}

template <class Element>
auto InfosOf(const Collection<Element>& records) {
  std::vector<decltype(InfoOf(std::declval<const Element&>()))> infos;
  for (const Ref<Element>& record : records) infos.push_back(InfoOf(*record));
  return infos;
}

/// The client's condition and that of a folder as one.
std::string Condition(const std::optional<FolderInfo>& folder, const std::string& condition) {
  if (!folder || folder->shows_all) return condition;
  const std::string in_folder = "TSK_FolderID=" + SqlNumber(folder->id);
  return condition.empty() ? in_folder : fmt::format("({}) AND {}", condition, in_folder);
}

}  // namespace

/// The library's session, with a result for each operation that fails by raising.
class Store::Session {
 public:
  Ref<CSession> it = MakeRef<CSession>();
  std::string file;
  bool encrypted = false;

  [[noreturn]] void RefuseAsRecorded(const std::string& otherwise) const {
    Refuse(it->GetErrorDescription().empty() ? otherwise : it->GetErrorDescription());
  }

  void Require(bool done, const char* otherwise) const {
    if (!done) RefuseAsRecorded(otherwise);
  }

  /// The record, or the recorded failure.
  template <class Record>
  Ref<Record> Made(Ref<Record> record) const {
    if (!record) RefuseAsRecorded("A new identifier could not be drawn.");
    return record;
  }

  /// The values of the first column of a select, as texts.
  std::vector<std::string> Texts(const std::string& select) const {
    return Telling([&] {
      std::vector<std::string> texts;
      const Ref<Recordset> rs = it->conDBConnection->Execute(select);
      for (; !rs->EndOfFile(); rs->MoveNext()) {
        const Value value = rs->ValueAt(0);
        texts.push_back(IsNull(value) ? std::string() : ToText(value));
      }
      return texts;
    });
  }

  std::int32_t Count(const char* table) const {
    return Telling([&] {
      return ToLong(it->conDBConnection->Execute(fmt::format("SELECT Count(*) FROM {}", table))->ValueAt(0));
    });
  }

  std::vector<FolderInfo> Folders(const std::string& criteria) const {
    const auto folders = MakeRef<CFolders>();
    Require(it->LoadFoldersWithCriteria(folders, criteria), "The folders could not be read.");
    return InfosOf(*folders);
  }

  Ref<CEvent> Event(std::int32_t id) const {
    Ref<CEvent> event = it->GetEvent(id);
    if (!event) RefuseAsRecorded(fmt::format("There is no event {}.", id));
    return event;
  }

  /// Raises for a database that another program has made.
  std::string Version() const {
    try {
      const Ref<Recordset> rs = it->conDBConnection->Execute("SELECT VI_Version FROM _VersionInfo");
      if (!rs->EndOfFile() && !IsNull(rs->ValueAt(0))) return ToText(rs->ValueAt(0));
    } catch (const RunTimeError& failure) {
      const FailureNumber code = failure.code();
      if (code != FailureNumber::NoSuchTable && code != FailureNumber::NoSuchColumn) Refuse(failure.description());
    }
    Refuse(fmt::format("'{}' is a database, but none of zef's.", file));
  }
};

Store::Store(const std::string& file, const std::string& password) : session_(std::make_unique<Session>()) {
  std::string text = "Provider=SQLite;Data Source=" + QuotedConnectionValue(file);
  if (!password.empty()) text += ";Password=" + QuotedConnectionValue(password);
  Telling([&] { session_->it->Connect2DatabaseCS(text); });
  session_->it->SetAdministratorRights();
  session_->file = file;
  session_->encrypted = !password.empty();  // a password for an open file is refused
}

Store::~Store() = default;

DatabaseInfo Store::Info() {
  return {.version = session_->Version(),
          .encrypted = session_->encrypted,
          .folders = session_->Count("Folders"),
          .tasks = session_->Count("Tasks"),
          .events = session_->Count("Events")};
}

void Store::RequireCurrentVersion() {
  const std::string version = session_->Version();
  if (!IsOlderVersion(version, kCurrentSchema)) return;
  Refuse(fmt::format("The database has version '{}'; it must be upgraded to {} first.", version, kCurrentSchema));
}

std::vector<FolderInfo> Store::Folders() { return session_->Folders(""); }

FolderInfo Store::Folder(const std::string& id_or_name, std::optional<FolderKind> kind) {
  std::vector<FolderInfo> found;
  if (const auto id = IdentifierIn(id_or_name)) found = session_->Folders("FLD_ID=" + SqlNumber(*id));
  if (found.empty()) found = session_->Folders("FLD_Name=" + SqlQuoted(id_or_name));
  return ChooseFolder(std::move(found), id_or_name, kind);
}

FolderInfo Store::RootFolder(const std::string& name) {
  return ChooseFolder(session_->Folders("FLD_ParentID=0 AND FLD_Name=" + SqlQuoted(name)), name);
}

FolderInfo Store::Add(const FolderInfo& folder) {
  const Ref<CFolder> record = Telling([&] { return session_->Made(session_->it->CreateFolder()); });
  record->ParentID = folder.parent;
  record->Name = folder.name;
  record->Description = folder.description;
  record->ItemsType = folder.kind;
  session_->Require(record->Save(), "The folder could not be saved.");
  return InfoOf(*record);
}

TaskInfo Store::Add(const TaskInfo& task) {
  const Ref<CTask> record = Telling([&] { return session_->Made(session_->it->CreateTask()); });
  record->FolderID = task.folder;
  record->Name = task.name;
  record->Description = task.description;
  record->AssignedTo = task.assigned_to;
  record->Priority = task.priority;
  record->StartDate = task.start;
  record->DueDate = task.due;
  WriteRule(task.rule, *record->Recurrence);
  session_->Require(record->Save(),
                    "The task could not be saved, perhaps because the folder 'Tasks Due Dates' is missing.");
  return InfoOf(*record);
}

EventInfo Store::Add(const EventInfo& event) {
  const Ref<CEvent> record = Telling([&] { return session_->Made(session_->it->CreateEvent()); });
  record->FolderID = event.folder;
  record->Text = event.text;
  record->Location = event.location;
  record->StartDate = event.start;
  record->EndDate = event.end;
  record->Reminder = event.reminder;
  record->EType = std::string("E");
  record->LinkID = -1;
  WriteRule(event.rule, *record->Recurrence);
  session_->Require(record->Save(), "The event could not be saved.");
  return InfoOf(*record);
}

std::string Store::Priority(const std::string& name) {
  const auto found = session_->Texts("SELECT TP_Name FROM lstTaskPriority WHERE TP_Name=" + SqlQuoted(name));
  if (!found.empty()) return found[0];
  const auto known = session_->Texts("SELECT TP_Name FROM lstTaskPriority ORDER BY TP_ID");
  Refuse(fmt::format("There is no priority '{}'; known are {}.", name, fmt::join(known, ", ")));
}

std::vector<TaskInfo> Store::Tasks(const std::optional<FolderInfo>& folder, const std::string& condition) {
  const auto tasks = MakeRef<CTasks>();
  session_->Require(session_->it->LoadTasksWithCriteria(tasks, Condition(folder, condition)),
                    "The tasks could not be read.");
  return InfosOf(*tasks);
}

std::vector<EventInfo> Store::Events() {
  const auto events = MakeRef<CEvents>();
  session_->Require(session_->it->LoadEventsWithCriteria(events, ""), "The events could not be read.");
  return InfosOf(*events);
}

EventInfo Store::Event(std::int32_t id) { return InfoOf(*session_->Event(id)); }

bool Store::IsSeen(std::int32_t event, Date moment, std::int32_t user) {
  const Ref<CEvent> record = session_->Event(event);
  session_->it->UserID = user;
  bool show = true;
  session_->Require(record->SeenByUser(moment, show), "The event's marks could not be read.");
  return !show;
}

void Store::MarkSeen(std::int32_t event, Date moment, std::int32_t user) {
  const Ref<CEvent> record = session_->Event(event);
  session_->it->UserID = user;
  session_->Require(record->MarkSeenByUser(moment), "The mark could not be written.");
}

Date NextOccurrence(const RuleSpec& rule, Date after) {
  const auto record = MakeRef<CRecurrence>();
  WriteRule(rule, *record);
  return record->NextOccuranceDate(after);
}

}  // namespace zef::client
