#include "client/views.h"

#include <fmt/format.h>

#include <algorithm>

#include "client/date_option.h"
#include "client/number_words.h"
#include "client/rule_text.h"
#include "client/table.h"
#include "client/tree.h"

namespace zef::client {
namespace {

struct EventKind {
  const char* type;
  const char* words;
};

constexpr EventKind kEventKinds[] = {{"A", "anniversary"}, {"B", "birthday"}, {"T", "due date"}};

Json TextOrNull(const std::string& text) { return text.empty() ? Json(nullptr) : Json(text); }

}  // namespace

std::string KindName(std::int32_t kind) {
  return WordsFor(kFolderKindWords, kind).value_or(fmt::format("kind {}", kind));
}

std::int32_t KindNamed(const std::string& name) { return NumberFor(kFolderKindWords, name).value_or(0); }

Json JsonOf(const DatabasePlace& place) { return place.IsFile() ? Json(place.file) : Json(nullptr); }

Json JsonOf(Date date) { return TextOrNull(DateText(date)); }

Json JsonOf(const RuleSpec& rule) {
  if (rule.type == kNoRule) return nullptr;
  return Json::Object{{"words", RuleInWords(rule)}, {"type", rule.type},         {"sub_type", rule.sub_type},
                      {"options1", rule.options1},  {"options2", rule.options2}, {"week_number", rule.week_number},
                      {"days", rule.days},          {"until", JsonOf(rule.end)}, {"times", rule.occurrences}};
}

Json::Object JsonOf(const FolderInfo& folder) {
  return {{"id", folder.id},
          {"parent", folder.parent},
          {"name", folder.name},
          {"description", folder.description},
          {"kind", KindName(folder.kind)},
          {"protected", folder.is_protected}};
}

Json::Object JsonOf(const TaskInfo& task) {
  return {{"id", task.id},
          {"folder", task.folder},
          {"name", task.name},
          {"description", task.description},
          {"assigned_to", task.assigned_to},
          {"priority", task.priority},
          {"start", JsonOf(task.start)},
          {"due", JsonOf(task.due)},
          {"done", task.done},
          {"rule", JsonOf(task.rule)}};
}

Json::Object JsonOf(const EventInfo& event) {
  return {{"id", event.id},
          {"folder", event.folder},
          {"text", event.text},
          {"location", event.location},
          {"start", JsonOf(event.start)},
          {"end", JsonOf(event.end)},
          {"reminder", event.reminder},
          {"type", event.type},
          {"link", event.link},
          {"rule", JsonOf(event.rule)}};
}

std::string ListsJson(const std::vector<LookupList>& lists) {
  Json::Object object;
  for (const LookupList& list : lists) {
    Json::Array entries;
    for (const auto& [id, name] : list.entries) entries.push_back(Json::Object{{"id", id}, {"name", name}});
    object.emplace_back(list.name, std::move(entries));
  }
  return JsonLine(std::move(object));
}

std::string ListsTable(const std::vector<LookupList>& lists, const Screen& screen) {
  Table table({{"LIST"}, {"ID", Table::Align::Right}, {"NAME", Table::Align::Left, true}});
  for (const LookupList& list : lists) {
    for (const auto& [id, name] : list.entries) table.Add({list.name, std::to_string(id), name});
  }
  return table.Text(screen);
}

std::string FolderTree(const std::vector<FolderInfo>& folders, const Screen& screen) {
  std::vector<TreeNode> nodes;
  for (const FolderInfo& folder : folders) nodes.push_back({folder.id, folder.parent});
  Table table({{"FOLDER", Table::Align::Left, true}, {"ID", Table::Align::Right}, {"HOLDS"}, {""}});
  for (const TreeLine& line : DrawTree(nodes)) {
    const FolderInfo& folder = folders[line.node];
    table.Add({line.branches + folder.name, std::to_string(folder.id), KindName(folder.kind),
               folder.is_protected ? "protected" : ""});
  }
  return table.Text(screen);
}

std::string TaskTable(const std::vector<TaskInfo>& tasks, const Screen& screen) {
  if (tasks.empty()) return "No tasks.\n";
  Table table({{"ID", Table::Align::Right},
               {"NAME", Table::Align::Left, true},
               {"START"},
               {"DUE"},
               {"REPEATS", Table::Align::Left, true},
               {"DONE"}});
  for (const TaskInfo& task : tasks) {
    table.Add({std::to_string(task.id), task.name, DateText(task.start), DateText(task.due), RuleInWords(task.rule),
               task.done ? "yes" : "no"});
  }
  return table.Text(screen);
}

std::string EventKindInWords(const std::string& type) {
  const auto* const found = std::find_if(std::begin(kEventKinds), std::end(kEventKinds),
                                         [&](const EventKind& kind) { return kind.type == type; });
  return found == std::end(kEventKinds) ? "" : found->words;
}

}  // namespace zef::client
