#include "client/record_checks.h"

#include <fmt/format.h>

#include <algorithm>

#include "client/failure.h"

namespace zef::client {
namespace {

struct Reference {
  std::string_view property;
  RecordType to;
};

constexpr Reference kReferences[] = {{"CategoryID", RecordType::Category}, {"ContactID", RecordType::Contact}};

constexpr std::string_view kNames[] = {"FirstName", "LastName", "Company"};

bool IsText(const Assignment& value, std::string_view property, bool empty) {
  return value.first == property && std::get<std::string>(value.second).empty() == empty;
}

bool Holds(const std::vector<Assignment>& values, std::string_view property) {
  return std::any_of(values.begin(), values.end(),
                     [&](const Assignment& value) { return IsText(value, property, false); });
}

/// Raises unless the folder may lie in the parent: 0, or a folder that is neither itself nor below it.
void RequireParent(Store& store, std::int32_t folder, std::int32_t parent) {
  const std::vector<FolderInfo> folders = store.Folders();
  // Rows that another program has put into a circle end the way up as well.
  for (std::size_t steps = 0; parent != 0 && steps <= folders.size(); ++steps) {
    if (parent == folder) throw Failure(kRefused, "A folder cannot lie in itself or in a folder below it.");
    const auto found =
        std::find_if(folders.begin(), folders.end(), [&](const FolderInfo& known) { return known.id == parent; });
    if (found == folders.end()) throw Failure(kRefused, fmt::format("There is no folder {}.", parent));
    parent = found->parent;
  }
}

}  // namespace

void RequireTitle(const RecordKind& kind, const std::vector<Assignment>& values) {
  if (kind.type == RecordType::Contact) {
    if (std::any_of(std::begin(kNames), std::end(kNames), [&](auto name) { return Holds(values, name); })) return;
    throw Failure(kWrongUse, "A contact needs a name: give --first-name, --last-name or --company.");
  }
  if (!Holds(values, kind.title)) throw Failure(kWrongUse, fmt::format("{}: it is empty.", kind.options[0].name));
}

void RequireTitleKept(const RecordKind& kind, const std::vector<Assignment>& values) {
  const bool lost = std::any_of(values.begin(), values.end(),
                                [&](const Assignment& value) { return IsText(value, kind.title, true); });
  if (lost) throw Failure(kWrongUse, fmt::format("{}: it is empty.", kind.title));
}

void RequireReferences(Store& store, const RecordKind& kind, std::int32_t id, const std::vector<Assignment>& values) {
  for (const auto& [name, value] : values) {
    if (name == "Priority" && Holds(values, name)) store.Priority(std::get<std::string>(value));
    const auto* const number = std::get_if<std::int32_t>(&value);
    if (number == nullptr) continue;
    if (name == "FolderID") RequireHolder(store.Folder(std::to_string(*number), kind.holder));
    if (name == "ParentID") RequireParent(store, id, *number);
    const auto* const reference =
        std::find_if(std::begin(kReferences), std::end(kReferences),
                     [&name = name](const Reference& known) { return known.property == name; });
    if (reference != std::end(kReferences) && *number != 0 && *number != -1) store.Record(reference->to, *number);
  }
}

void RequireFreeName(Store& store, const RecordKind& kind, std::int32_t id, const std::vector<Assignment>& values) {
  if (kind.type != RecordType::User) return;
  for (const auto& [property, value] : values) {
    if (property != kind.title) continue;
    const auto& name = std::get<std::string>(value);
    const std::optional<std::int32_t> bearer = store.UserID(name);
    if (bearer && *bearer != id) throw Failure(kRefused, fmt::format("There is a user '{}' already.", name));
  }
}

void RequireHolder(const FolderInfo& folder) {
  if (!folder.shows_all) return;
  throw Failure(kRefused,
                fmt::format("The folder '{}' shows what other folders hold and holds nothing itself.", folder.name));
}

}  // namespace zef::client
