#include "client/add_commands.h"

#include <fmt/format.h>

#include "client/commands.h"
#include "client/date_option.h"
#include "client/failure.h"
#include "client/printable.h"
#include "client/record_checks.h"
#include "client/rule_text.h"
#include "client/store.h"
#include "client/views.h"

namespace zef::client {
namespace {

void RequireName(const Arguments& arguments, const char* what) {
  if (arguments.name.empty()) throw Failure(kWrongUse, fmt::format("{}: it is empty.", what));
}

void RequireOrder(std::optional<Date> first, std::optional<Date> second, const char* sentence) {
  if (first && second && *first > *second) throw Failure(kWrongUse, sentence);
}

/// The folder that was asked for, or the one at the root where items of the kind go.
FolderInfo TargetFolder(Store& store, const Arguments& arguments, FolderKind kind, const char* usual) {
  const FolderInfo folder = arguments.folder ? store.Folder(*arguments.folder, kind) : store.RootFolder(usual);
  RequireHolder(folder);
  return folder;
}

std::string Added(const char* what, std::int32_t id, const std::string& name, const FolderInfo& folder) {
  return fmt::format("Added {} {}, '{}', to the folder '{}'.\n", what, id, Printable(name), Printable(folder.name));
}

}  // namespace

std::string AddFolder(const Arguments& arguments, const Screen& /*screen*/) {
  RequireName(arguments, "NAME");
  const auto store = Open(arguments);
  const FolderInfo parent = arguments.parent ? store->Folder(*arguments.parent) : FolderInfo{.kind = kTasks};
  const FolderInfo added = store->Add(FolderInfo{.parent = parent.id,
                                                 .kind = arguments.kind ? KindNamed(*arguments.kind) : parent.kind,
                                                 .name = arguments.name,
                                                 .description = arguments.description});
  if (arguments.json) return JsonLine(JsonOf(added));
  if (parent.id != 0) return Added("folder", added.id, added.name, parent);
  return fmt::format("Added folder {}, '{}'.\n", added.id, Printable(added.name));
}

std::string AddTask(const Arguments& arguments, const Screen& /*screen*/) {
  RequireName(arguments, "NAME");
  RequireOrder(arguments.start, arguments.due, "--due lies before --start.");
  const RuleSpec rule = ReadRule(arguments.rule, arguments.due ? arguments.due : arguments.start);
  const auto store = Open(arguments);
  const FolderInfo folder = TargetFolder(*store, arguments, kTasks, "Tasks");
  const TaskInfo added = store->Add(TaskInfo{.folder = folder.id,
                                             .name = arguments.name,
                                             .description = arguments.description,
                                             .assigned_to = arguments.assigned_to,
                                             .priority = arguments.priority ? store->Priority(*arguments.priority) : "",
                                             .start = arguments.start.value_or(Date()),
                                             .due = arguments.due.value_or(Date()),
                                             .rule = rule});
  return arguments.json ? JsonLine(JsonOf(added)) : Added("task", added.id, added.name, folder);
}

std::string AddEvent(const Arguments& arguments, const Screen& /*screen*/) {
  RequireName(arguments, "TEXT");
  RequireOrder(arguments.start, arguments.end, "--end lies before --start.");
  const RuleSpec rule = ReadRule(arguments.rule, arguments.start);
  const auto store = Open(arguments);
  const FolderInfo folder = TargetFolder(*store, arguments, kEvents, "Calendar");
  const Date start = arguments.start.value_or(Date());
  const EventInfo added = store->Add(EventInfo{.folder = folder.id,
                                               .text = arguments.name,
                                               .location = arguments.location,
                                               .start = start,
                                               .end = arguments.end.value_or(start),
                                               .reminder = arguments.reminder,
                                               .rule = rule});
  return arguments.json ? JsonLine(JsonOf(added)) : Added("event", added.id, added.text, folder);
}

}  // namespace zef::client
