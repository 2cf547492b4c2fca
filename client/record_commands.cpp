#include "client/record_commands.h"

#include <fmt/format.h>

#include <algorithm>

#include "client/commands.h"
#include "client/date_option.h"
#include "client/failure.h"
#include "client/place_file.h"
#include "client/printable.h"
#include "client/record_checks.h"
#include "client/record_kinds.h"
#include "client/record_views.h"
#include "client/rule_text.h"
#include "client/store.h"
#include "client/views.h"

namespace zef::client {
namespace {

/// "note 3, 'Ideas'".
std::string Called(const RecordValues& record) {
  const RecordKind& kind = KindOf(record.type);
  const std::string title = ValueText(record[kind.title]);
  return fmt::format("{} {}, '{}'", kind.name, record.id(), Printable(title));
}

std::string Sentence(const char* done, const RecordValues& record) {
  return fmt::format("{} {}.\n", done, Called(record));
}

/// System folders are found by their names, and what looks for one fails without it.
void RequireOwn(const RecordValues& record) {
  if (record.type != RecordType::Folder || !std::get<bool>(record["Protected"])) return;
  throw Failure(kRefused, fmt::format("F{}, belongs to the system and stays as it is.", Called(record).substr(1)));
}

void RequireConsent(const RecordValues& folder, bool yes) {
  if (yes) return;
  const bool is_protected = std::get<bool>(folder["Protected"]);
  throw Failure(kRefused,
                fmt::format("F{}, {} with all that is in and below it only with --yes.", Called(folder).substr(1),
                            is_protected ? "belongs to the system, which looks for it by its name; it goes" : "goes"));
}

const PropertyValue* Among(const std::vector<Assignment>& values, std::string_view property) {
  const auto found =
      std::find_if(values.begin(), values.end(), [&](const Assignment& value) { return value.first == property; });
  return found == values.end() ? nullptr : &found->second;
}

/// The date that a rule begins with, if there is one among the values.
std::optional<Date> StartIn(const std::vector<Assignment>& values) {
  const PropertyValue* const start = Among(values, "StartDate");
  if (start == nullptr) return std::nullopt;
  return std::get<Date>(*start);
}

}  // namespace

std::string ListRecords(const Arguments& arguments, const Screen& screen) {
  const RecordKind& kind = KindOf(arguments.type);
  const auto store = Open(arguments);
  std::optional<FolderInfo> folder;
  if (arguments.folder) folder = store->Folder(*arguments.folder, kind.holder);
  const std::vector<RecordValues> records = store->Records(kind.type, folder, arguments.where);
  return arguments.json ? JsonLine(records) : RecordTable(kind, records, screen);
}

std::string AddRecord(const Arguments& arguments, const Screen& /*screen*/) {
  const RecordKind& kind = KindOf(arguments.type);
  std::vector<Assignment> values = arguments.values;
  RequireTitle(kind, values);
  const RuleSpec rule = ReadRule(arguments.rule, StartIn(values));
  if (rule.type != kNoRule) values.emplace_back("Recurrence", rule);
  const auto store = Open(arguments);
  RequireReferences(*store, kind, 0, values);
  RequireFreeName(*store, kind, 0, values);
  if (kind.type == RecordType::User && Among(values, "Rights") == nullptr) values.emplace_back("Rights", kViewer);
  std::string place;
  if (kind.root_folder != nullptr) {
    const FolderInfo folder =
        arguments.folder ? store->Folder(*arguments.folder, kind.holder) : store->RootFolder(kind.root_folder);
    RequireHolder(folder);
    values.emplace_back("FolderID", folder.id);
    place = fmt::format(", to the folder '{}'", Printable(folder.name));
  }
  const RecordValues added = store->AddRecord(kind.type, values);
  return arguments.json ? JsonLine(JsonOf(added)) : fmt::format("Added {}{}.\n", Called(added), place);
}

std::string ShowRecord(const Arguments& arguments, const Screen& screen) {
  const RecordValues record = Open(arguments)->Record(arguments.type, arguments.id);
  return arguments.json ? JsonLine(JsonOf(record)) : RecordText(record, screen);
}

std::string SetRecord(const Arguments& arguments, const Screen& /*screen*/) {
  const RecordKind& kind = KindOf(arguments.type);
  RequireTitleKept(kind, arguments.values);
  const auto store = Open(arguments);
  RequireOwn(store->Record(kind.type, arguments.id));
  RequireReferences(*store, kind, arguments.id, arguments.values);
  RequireFreeName(*store, kind, arguments.id, arguments.values);
  const RecordValues changed = store->SetRecord(kind.type, arguments.id, arguments.values);
  return arguments.json ? JsonLine(JsonOf(changed)) : Sentence("Changed", changed);
}

std::string DeleteRecord(const Arguments& arguments, const Screen& /*screen*/) {
  const auto store = Open(arguments);
  const RecordValues record = store->Record(arguments.type, arguments.id);
  if (record.type == RecordType::Folder) RequireConsent(record, arguments.yes);
  store->DeleteRecord(record.type, arguments.id);
  return arguments.json ? JsonLine(JsonOf(record)) : Sentence("Deleted", record);
}

std::string FinishTask(const Arguments& arguments, const Screen& /*screen*/) {
  const auto store = Open(arguments);
  const Date today = arguments.today.value_or(Now()).WithoutTime();
  const std::optional<RecordValues> next = store->FinishTask(arguments.id, today);
  const RecordValues task = store->Record(RecordType::Task, arguments.id);
  if (arguments.json) return JsonLine({{"done", JsonOf(task)}, {"next", next ? Json(JsonOf(*next)) : Json(nullptr)}});
  std::string answer = Sentence("Done:", task);
  if (!next) return answer;
  const Date due = std::get<Date>((*next)["DueDate"]);
  const Date start = std::get<Date>((*next)["StartDate"]);
  return answer + fmt::format("It goes on as task {}, which {} on {}.\n", next->id(),
                              due.IsZero() ? "starts" : "is due", DateText(due.IsZero() ? start : due));
}

std::string CopyFolder(const Arguments& arguments, const Screen& /*screen*/) {
  const auto store = Open(arguments);
  const FolderInfo source = store->Folder(arguments.source);
  const FolderInfo target = store->Folder(arguments.target);
  const FolderInfo copy = store->CopyFolder(source, target);
  if (arguments.json) return JsonLine(JsonOf(copy));
  return fmt::format("Copied folder {}, '{}', to the folder '{}' as folder {}.\n", source.id, Printable(source.name),
                     Printable(target.name), copy.id);
}

std::string FindContact(const Arguments& arguments, const Screen& screen) {
  const std::optional<RecordValues> contact = Open(arguments)->ContactWithNumber(arguments.number);
  if (!contact) throw Failure(kRefused, fmt::format("No contact has the number '{}'.", arguments.number));
  return arguments.json ? JsonLine(JsonOf(*contact)) : RecordText(*contact, screen);
}

std::string ExportRecord(const Arguments& arguments, const Screen& /*screen*/) {
  const auto store = Open(arguments);
  const RecordValues record = store->Record(arguments.type, arguments.id);
  if (!arguments.yes && NameIsTaken(arguments.target)) {
    throw Failure(kRefused, fmt::format("'{}' exists already; it is written over only with --yes.", arguments.target));
  }
  store->Export(record.type, arguments.id, arguments.target, arguments.yes);
  if (arguments.json) {
    return JsonLine({{"kind", KindOf(record.type).name}, {"id", arguments.id}, {"file", arguments.target}});
  }
  return fmt::format("Wrote {} to {}.\n", Called(record), Printable(arguments.target));
}

std::string SaveAttachment(const Arguments& arguments, const Screen& /*screen*/) {
  Open(arguments)->SaveAttachment(arguments.id, arguments.target);
  if (arguments.json) return JsonLine({{"alarm", arguments.id}, {"file", arguments.target}});
  return fmt::format("Wrote the file of alarm {} to {}.\n", arguments.id, Printable(arguments.target));
}

}  // namespace zef::client
