#include "client/commands.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>

#include "client/add_commands.h"
#include "client/agenda.h"
#include "client/copy_view.h"
#include "client/create.h"
#include "client/date_option.h"
#include "client/failure.h"
#include "client/occurrences.h"
#include "client/printable.h"
#include "client/progress.h"
#include "client/record_commands.h"
#include "client/record_views.h"
#include "client/registry_commands.h"
#include "client/table.h"
#include "client/upgrade_view.h"
#include "client/views.h"

namespace zef::client {
namespace {

/// Null for a connection string, behind which a password may be that of a server.
Json EncryptedJson(const DatabasePlace& place) { return place.IsFile() ? Json(place.IsEncrypted()) : Json(nullptr); }

std::string Create(const Arguments& arguments, const Screen& /*screen*/) {
  const DatabasePlace& place = arguments.place;
  CreateDatabase(place, arguments.schema);
  if (arguments.json) {
    return JsonLine({{"file", JsonOf(place)}, {"schema", arguments.schema}, {"encrypted", EncryptedJson(place)}});
  }
  return fmt::format("Made {} with the tables of version {}.{}\n", Printable(place.Name()), arguments.schema,
                     place.IsEncrypted() ? " It is encrypted." : "");
}

/// "folders" as the heading of a line.
std::string Heading(std::string name) {
  name[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(name[0])));
  return name;
}

std::string Info(const Arguments& arguments, const Screen& screen) {
  const DatabasePlace& place = arguments.place;
  const DatabaseInfo info = Store(place).Info();
  if (arguments.json) {
    Json::Object object{{"file", JsonOf(place)}, {"version", info.version}, {"encrypted", EncryptedJson(place)}};
    for (const auto& [name, count] : info.counts) object.emplace_back(name, count);
    return JsonLine(std::move(object));
  }
  Table table({{""}, {""}});
  if (place.IsFile()) table.Add({"File", place.file});
  table.Add({"Version", info.version});
  if (place.IsFile()) table.Add({"Encrypted", place.IsEncrypted() ? "yes" : "no"});
  for (const auto& [name, count] : info.counts) table.Add({Heading(name), std::to_string(count)});
  return table.Text(screen);
}

std::string ShowFolders(const Arguments& arguments, const Screen& screen) {
  const std::vector<FolderInfo> folders = Open(arguments)->Folders();
  return arguments.json ? JsonLine(folders) : FolderTree(folders, screen);
}

std::string ShowTasks(const Arguments& arguments, const Screen& screen) {
  const auto store = Open(arguments);
  std::optional<FolderInfo> folder;
  if (arguments.folder) folder = store->Folder(*arguments.folder, kTasks);
  const std::vector<TaskInfo> tasks = store->Tasks(folder, arguments.where);
  return arguments.json ? JsonLine(tasks) : TaskTable(tasks, screen);
}

std::string ShowAgenda(const Arguments& arguments, const Screen& screen) {
  const AgendaSpan span = SpanOf(arguments.today.value_or(Now()), arguments.month, arguments.days);
  const Agenda agenda = MakeAgenda(span, Open(arguments)->Events());
  return arguments.json ? AgendaJson(agenda) : AgendaText(agenda, screen);
}

std::string TellSeen(const Arguments& arguments, const Screen& /*screen*/) {
  const auto store = Open(arguments);
  const EventInfo event = store->Event(arguments.event);
  const std::optional<Date> moment = OccurrenceAt(event, arguments.date);
  if (!moment) {
    throw Failure(kRefused, fmt::format("Event {} does not take place on {}.", event.id, DateText(arguments.date)));
  }
  bool seen = store->IsSeen(event.id, *moment, arguments.user);
  if (arguments.mark && !seen) {
    store->MarkSeen(event.id, *moment, arguments.user);
    seen = true;
  }
  if (arguments.json) {
    return JsonLine({{"event", event.id}, {"date", JsonOf(*moment)}, {"user", arguments.user}, {"seen", seen}});
  }
  return fmt::format("User {} has {} event {}, '{}', of {}.\n", arguments.user, seen ? "seen" : "not seen", event.id,
                     Printable(event.text), DateText(*moment));
}

std::string ShowLists(const Arguments& arguments, const Screen& screen) {
  std::vector<LookupList> lists = Open(arguments)->Lists();
  std::erase_if(lists, [&](const LookupList& list) { return !arguments.list.empty() && list.name != arguments.list; });
  return arguments.json ? ListsJson(lists) : ListsTable(lists, screen);
}

std::string LogIn(const Arguments& arguments, const Screen& screen) {
  const RecordValues user = Open(arguments)->LogIn(arguments.name, arguments.account_password);
  return arguments.json ? JsonLine(JsonOf(user)) : RecordText(user, screen);
}

std::string Upgrade(const Arguments& arguments, const Screen& /*screen*/) {
  Progress progress;
  const UpgradeInfo info = Store(arguments.place).Upgrade([&](const std::string& text) { progress.Tell(text); });
  return arguments.json ? UpgradeJson(arguments.place, info) : UpgradeText(arguments.place, info);
}

std::string CopyDatabase(const Arguments& arguments, const Screen& screen) {
  Progress progress;
  const std::vector<CopiedTable> tables =
      Store(arguments.place).CopyTo(arguments.copy, [&](const std::string& text) { progress.Tell(text); });
  return arguments.json ? CopiedJson(arguments.copy, tables) : CopiedText(arguments.copy, tables, screen);
}

struct Entry {
  Command command;
  std::string (*run)(const Arguments&, const Screen&);
};

constexpr Entry kEntries[] = {
    {Command::Create, &Create},
    {Command::Info, &Info},
    {Command::Folders, &ShowFolders},
    {Command::AddFolder, &AddFolder},
    {Command::AddTask, &AddTask},
    {Command::AddEvent, &AddEvent},
    {Command::Tasks, &ShowTasks},
    {Command::Agenda, &ShowAgenda},
    {Command::Seen, &TellSeen},
    {Command::List, &ListRecords},
    {Command::AddRecord, &AddRecord},
    {Command::Show, &ShowRecord},
    {Command::Set, &SetRecord},
    {Command::Delete, &DeleteRecord},
    {Command::Done, &FinishTask},
    {Command::CopyFolder, &CopyFolder},
    {Command::Find, &FindContact},
    {Command::SaveAttachment, &SaveAttachment},
    {Command::Export, &ExportRecord},
    {Command::Lists, &ShowLists},
    {Command::LogIn, &LogIn},
    {Command::Upgrade, &Upgrade},
    {Command::CopyDatabase, &CopyDatabase},
    {Command::Register, &Register},
    {Command::Unregister, &Unregister},
};

}  // namespace

std::string Run(const Arguments& arguments, const Screen& screen) {
  const auto* const entry = std::find_if(std::begin(kEntries), std::end(kEntries),
                                         [&](const Entry& known) { return known.command == arguments.command; });
  return entry->run(arguments, screen);
}

std::unique_ptr<Store> Open(const Arguments& arguments) {
  auto store = std::make_unique<Store>(arguments.place);
  store->RequireCurrentVersion();
  return store;
}

}  // namespace zef::client
