#include "client/store.h"

#include <utility>

#include "client/choice.h"
#include "client/schema_names.h"
#include "client/store_session.h"
#include "client/text.h"

namespace zef::client {
namespace {

struct CountedTable {
  const char* name;
  const char* table;
};

constexpr CountedTable kCounted[] = {
    {"folders", "Folders"},       {"tasks", "Tasks"},   {"events", "Events"},   {"contacts", "Contacts"},
    {"notes", "Notes"},           {"alarms", "Alarms"}, {"calls", "PhoneLogs"}, {"attachments", "Attachements"},
    {"categories", "Categories"}, {"users", "Users"},
};

struct KnownList {
  const char* name;
  bool (CSession::*load)(const CTags&) const;
};

constexpr KnownList kLists[] = {
    {"statuses", &CSession::LoadTaskStatusList},
    {"priorities", &CSession::LoadTaskPriorityList},
    {"states", &CSession::LoadStateTags},
    {"countries", &CSession::LoadCountryTags},
};

/// The client's condition and that of a folder as one.
std::string Condition(const std::optional<FolderInfo>& folder, const std::string& condition) {
  if (!folder || folder->shows_all) return condition;
  const std::string in_folder = fmt::format("TSK_FolderID={}", folder->id);
  return condition.empty() ? in_folder : fmt::format("({}) AND {}", condition, in_folder);
}

}  // namespace

Store::Store(const DatabasePlace& place) : session_(std::make_unique<Session>()) {
  session_->place = place;
  Telling([&] { session_->it.Connect2DatabaseCS(place.ConnectionString()); });
  session_->it.SetAdministratorRights();
}

Store::~Store() = default;

DatabaseInfo Store::Info() {
  DatabaseInfo info{.version = session_->Version()};
  for (const auto& [name, table] : kCounted) info.counts.emplace_back(name, session_->Count(table));
  return info;
}

void Store::RequireCurrentVersion() {
  const std::string version = session_->Version();
  if (!IsOlderVersion(version, kCurrentSchema)) return;
  Refuse(fmt::format("The database has version '{}'; it must be upgraded to {} first, by zef upgrade.", version,
                     kCurrentSchema));
}

std::vector<FolderInfo> Store::Folders() { return session_->Folders(""); }

FolderInfo Store::Folder(const std::string& id_or_name, std::optional<FolderKind> kind) {
  std::vector<FolderInfo> found;
  if (const auto id = IdentifierIn(id_or_name)) found = session_->Folders(fmt::format("FLD_ID={}", *id));
  if (found.empty()) found = session_->Folders("FLD_Name=" + SqlQuoted(id_or_name));
  return ChooseFolder(std::move(found), id_or_name, kind);
}

FolderInfo Store::RootFolder(const std::string& name) {
  return ChooseFolder(session_->Folders("FLD_ParentID=0 AND FLD_Name=" + SqlQuoted(name)), name);
}

FolderInfo Store::Add(const FolderInfo& folder) {
  CFolder record = Telling([&] { return session_->Made(session_->it.CreateFolder()); });
  record.ParentID = folder.parent;
  record.Name = folder.name;
  record.Description = folder.description;
  record.ItemsType = static_cast<FolderType>(folder.kind);
  session_->Require(record.Save(), "The folder could not be saved.");
  return InfoOf(record);
}

TaskInfo Store::Add(const TaskInfo& task) {
  CTask record = Telling([&] { return session_->Made(session_->it.CreateTask()); });
  record.FolderID = task.folder;
  record.Name = task.name;
  record.Description = task.description;
  record.AssignedTo = task.assigned_to;
  record.Priority = task.priority;
  record.StartDate = task.start;
  record.DueDate = task.due;
  WriteRule(task.rule, record.Recurrence);
  session_->Require(record.Save(),
                    "The task could not be saved, perhaps because the folder 'Tasks Due Dates' is missing.");
  return InfoOf(record);
}

EventInfo Store::Add(const EventInfo& event) {
  CEvent record = Telling([&] { return session_->Made(session_->it.CreateEvent()); });
  record.FolderID = event.folder;
  record.Text = event.text;
  record.Location = event.location;
  record.StartDate = event.start;
  record.EndDate = event.end;
  record.Reminder = event.reminder;
  record.EType = std::string("E");
  record.LinkID = -1;
  WriteRule(event.rule, record.Recurrence);
  session_->Require(record.Save(), "The event could not be saved.");
  return InfoOf(record);
}

std::string Store::Priority(const std::string& name) {
  const auto found = session_->Texts("SELECT TP_Name FROM lstTaskPriority WHERE TP_Name=" + SqlQuoted(name));
  if (!found.empty()) return found[0];
  const auto known = session_->Texts("SELECT TP_Name FROM lstTaskPriority ORDER BY TP_ID");
  Refuse(fmt::format("There is no priority '{}'; known are {}.", name, fmt::join(known, ", ")));
}

std::vector<LookupList> Store::Lists() {
  std::vector<LookupList> lists;
  for (const auto& [name, load] : kLists) {
    const auto tags = Make<CTags>();
    session_->Require((session_->it.*load)(tags), "A list could not be read.");
    lists.push_back({.name = name});
    for (const CTag& tag : tags) lists.back().entries.push_back({tag.ID, tag.Text});
  }
  return lists;
}

std::vector<TaskInfo> Store::Tasks(const std::optional<FolderInfo>& folder, const std::string& condition) {
  const auto tasks = Make<CTasks>();
  session_->Require(session_->it.LoadTasksWithCriteria(tasks, Condition(folder, condition)),
                    "The tasks could not be read.");
  return InfosOf(tasks);
}

std::vector<EventInfo> Store::Events() {
  const auto events = Make<CEvents>();
  session_->Require(session_->it.LoadEventsWithCriteria(events, ""), "The events could not be read.");
  return InfosOf(events);
}

EventInfo Store::Event(std::int32_t id) { return InfoOf(session_->Event(id)); }

bool Store::IsSeen(std::int32_t event, Date moment, std::int32_t user) {
  const CEvent record = session_->Event(event);
  session_->it.UserID = user;
  bool show = true;
  session_->Require(record.SeenByUser(moment, show), "The event's marks could not be read.");
  return !show;
}

void Store::MarkSeen(std::int32_t event, Date moment, std::int32_t user) {
  const CEvent record = session_->Event(event);
  session_->it.UserID = user;
  session_->Require(record.MarkSeenByUser(moment), "The mark could not be written.");
}

}  // namespace zef::client
