#pragma once

#include <string>
#include <vector>

#include "client/json.h"
#include "client/store.h"
#include "client/style.h"

namespace zef::client {

/// "tasks" for a kind of item that folders hold; "kind 5" for a number without a name.
std::string KindName(std::int32_t kind);
/// The number of a kind by its name; 0 for another name.
std::int32_t KindNamed(const std::string& name);

/// Records as JSON. Missing dates and rules are null; dates are texts as `DateText` gives them.
/// The file, or null.
Json JsonOf(const DatabasePlace& place);
Json JsonOf(Date date);
Json JsonOf(const RuleSpec& rule);
Json::Object JsonOf(const FolderInfo& folder);
Json::Object JsonOf(const TaskInfo& task);
Json::Object JsonOf(const EventInfo& event);

/// A list of records as one array of JSON on a line of its own.
template <class Info>
std::string JsonLine(const std::vector<Info>& infos) {
  Json::Array array;
  for (const Info& info : infos) array.push_back(JsonOf(info));
  return Json(std::move(array)).Text() + '\n';
}
inline std::string JsonLine(Json::Object object) { return Json(std::move(object)).Text() + '\n'; }

/// The lists by their names.
std::string ListsJson(const std::vector<LookupList>& lists);

/// Records as tables for people.
std::string FolderTree(const std::vector<FolderInfo>& folders, const Screen& screen);
std::string ListsTable(const std::vector<LookupList>& lists, const Screen& screen);
std::string TaskTable(const std::vector<TaskInfo>& tasks, const Screen& screen);

/// What a type of event means to people; empty for an entry of their own.
std::string EventKindInWords(const std::string& type);

}  // namespace zef::client
