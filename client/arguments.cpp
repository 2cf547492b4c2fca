#include "client/arguments.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>

#include "client/date_option.h"
#include "client/failure.h"
#include "client/options.h"
#include "client/record_arguments.h"
#include "client/text.h"
#include "client/wrong_use.h"
#include "version.h"

namespace zef::client {
namespace {

constexpr char kDateHelp[] = "as 2024-05-17, \"2024-05-17 09:00\" or 5/17/2024";

constexpr char kUpgradeHelp[] = R"(First the database is copied to a new file beside it, such as people.db.backup,
with the same password. Then it is upgraded, all or nothing: after a failure it
is as it was before. A database that has the version gets no copy, and at most
indexes that it lacks.

)";

constexpr char kCopyHelp[] = R"(FROM and TO are files, or connection strings that begin with "Provider=". A file TO
must not exist, a database of a server must be there and be empty. Others cannot
write to FROM meanwhile. The copy is made whole or not at all, and each of its values
is compared with its original.

)";

constexpr char kConnectHelp[] = R"(A connection string:
  --connect "Provider=PostgreSQL;Host=db;Database=people;User ID=ann;Password=..."
  --connect "Provider=SQLite;Data Source=people.db"
Then a command takes no FILE, and info, create and upgrade work on what is there:
create fills an empty database, upgrade makes no copy of it first.)";

/// Refuses a value that is none of these.
CLI::Validator OneOf(const std::vector<std::string>& known) {
  const auto check = [known](const std::string& text) {
    const bool found = std::find(known.begin(), known.end(), text) != known.end();
    return found ? std::string() : fmt::format("'{}' is none of {}.", text, fmt::join(known, ", "));
  };
  return CLI::Validator(check, "");
}

void NoOptions(CLI::App&, Arguments&) {}

void CreateOptions(CLI::App& app, Arguments& arguments) {
  AddFile(app, arguments);
  AddText(app, "--schema", arguments.schema, "Version of the tables: 9.2.4, or 9.1 for trying out upgrades", "VERSION")
      ->check(OneOf({kCurrentSchema, kOlderSchema}));
}

void AddFolderOptions(CLI::App& app, Arguments& arguments) {
  AddFile(app, arguments);
  AddText(app, "NAME", arguments.name, "Name of the new folder", "")->required();
  AddText(app, "--parent", arguments.parent, "Identifier or name of the folder above; without it a root folder is made",
          "ID|NAME");
  AddText(app, "--kind", arguments.kind, "What it holds; without it the same as the folder above, or tasks", "KIND")
      ->check(OneOf({"contacts", "tasks", "notes", "events", "alarms"}));
  AddText(app, "--description", arguments.description, "A description");
}

void AddTaskOptions(CLI::App& app, Arguments& arguments) {
  AddFile(app, arguments);
  AddText(app, "NAME", arguments.name, "Name of the new task", "")->required();
  AddFolderOption(app, arguments, "Identifier or name of its folder; without it the root folder Tasks");
  AddDate(app, "--start", arguments.start, fmt::format("When it begins, {}", kDateHelp));
  AddDate(app, "--due", arguments.due, "When it is due; the day appears in the calendar");
  AddRule(app, arguments.rule);
  AddText(app, "--assigned-to", arguments.assigned_to, "Who is to do it", "WHO");
  AddText(app, "--priority", arguments.priority, "A priority of the database's list, such as High", "NAME");
  AddText(app, "--description", arguments.description, "A description");
}

void AddEventOptions(CLI::App& app, Arguments& arguments) {
  AddFile(app, arguments);
  AddText(app, "TEXT", arguments.name, "What takes place", "")->required();
  AddFolderOption(app, arguments, "Identifier or name of its folder; without it the root folder Calendar");
  AddDate(app, "--start", arguments.start, fmt::format("When it begins, {}", kDateHelp));
  app.get_option("--start")->required();
  AddDate(app, "--end", arguments.end, "When it ends; without it when it begins");
  AddText(app, "--location", arguments.location, "Where it takes place");
  AddNumber(app, "--reminder", arguments.reminder, "How long before to remind of it; a negative number for never", "N");
  AddRule(app, arguments.rule);
}

void TasksOptions(CLI::App& app, Arguments& arguments) {
  AddFile(app, arguments);
  AddFolderOption(app, arguments, "Identifier or name of a folder; without it the tasks of all folders");
  AddText(app, "--where", arguments.where,
          "A condition in SQL, such as \"TSK_DueDate < #6/1/2024# AND TSK_Completed = 0\"", "CONDITION");
}

void AgendaOptions(CLI::App& app, Arguments& arguments) {
  AddFile(app, arguments);
  app.add_option_function<std::string>(
         "--month", [&arguments](const std::string& text) { arguments.month = ReadMonth("--month", text); },
         "The month of the picture and, without --days, of the list; as 2024-05")
      ->type_name("MONTH");
  AddNumber(app, "--days", arguments.days, "How many days the list covers from today on; without it and --month, 31",
            "N", 1, 36600);
  AddDate(app, "--today", arguments.today, "The day that counts as today");
}

void SeenOptions(CLI::App& app, Arguments& arguments) {
  AddFile(app, arguments);
  AddNumber(app, "EVENT", arguments.event, "Identifier of the event", "", 1)->required();
  app.add_option_function<std::string>(
         "DATE", [&arguments](const std::string& text) { arguments.date = ReadDate("DATE", text); },
         fmt::format("Day, or day and time, of the occurrence, {}", kDateHelp))
      ->type_name("")
      ->required();
  app.add_flag("--mark", arguments.mark, "Notes that the user has seen it");
  AddNumber(app, "--user", arguments.user, "Identifier of the user; without it 1", "ID", 1);
}

void ListsOptions(CLI::App& app, Arguments& arguments) {
  AddFile(app, arguments);
  AddText(app, "LIST", arguments.list, "One of statuses, priorities, states and countries; without it all of them", "")
      ->check(OneOf({"statuses", "priorities", "states", "countries"}));
}

void LogInOptions(CLI::App& app, Arguments& arguments) {
  AddFile(app, arguments);
  AddText(app, "NAME", arguments.name, "What the user logs in with", "")->required();
  AddText(app, "--password", arguments.account_password, "Password of the account; without it, none", "PASSWORD");
  app.footer(kAccountHelp);
}

void UpgradeOptions(CLI::App& app, Arguments& arguments) {
  AddFile(app, arguments);
  app.footer(std::string(kUpgradeHelp) + kGlobalHelp);
}

std::string ReadPassword(const char* option, const std::string& text) {
  if (!text.empty()) return text;
  throw Failure(kWrongUse,
                fmt::format("{}: the password is empty; leave the option out for a file without one.", option));
}

void CopyDatabaseOptions(CLI::App& app, Arguments& arguments) {
  const auto add = [&app](const char* name, DatabasePlace& place, const char* help) {
    app.add_option_function<std::string>(
           name, [&place](const std::string& word) { place.PointTo(word); }, help)
        ->type_name("")
        ->required();
  };
  if (arguments.place.IsFile()) add("FROM", arguments.place, "The database");
  add("TO", arguments.copy, "The new database");
  app.add_option_function<std::string>(
         "--new-password",
         [&arguments](const std::string& text) { arguments.copy.password = ReadPassword("--new-password", text); },
         "Password of the new database; without it, none")
      ->type_name("PASSWORD");
  app.footer(std::string(kCopyHelp) + kGlobalHelp);
}

struct CommandEntry {
  Command command;
  const char* name;
  const char* help;
  void (*options)(CLI::App&, Arguments&);
};

constexpr CommandEntry kCommands[] = {
    {Command::Create, "create", "Make a new database; what exists is never overwritten", &CreateOptions},
    {Command::Info, "info", "Tell what a database is and how much it holds", &AddFile},
    {Command::Upgrade, "upgrade", "Bring a database of an older version to 9.2.4, behind a copy of it",
     &UpgradeOptions},
    {Command::CopyDatabase, "copy-database", "Copy a whole database to a new one, and compare the two",
     &CopyDatabaseOptions},
    {Command::Folders, "folders", "Show the tree of folders", &AddFile},
    {Command::Tasks, "tasks", "List tasks", &TasksOptions},
    {Command::Agenda, "agenda", "Show a month and what is coming up", &AgendaOptions},
    {Command::Seen, "seen", "Tell or note whether a user has seen an occurrence of an event", &SeenOptions},
    {Command::Lists, "lists", "Show the lists to choose from: statuses, priorities, states, countries", &ListsOptions},
    {Command::LogIn, "login", "Check a user's name and password and show the rights", &LogInOptions},
};

constexpr CommandEntry kAddCommands[] = {
    {Command::AddFolder, "folder", "Add a folder", &AddFolderOptions},
    {Command::AddTask, "task", "Add a task", &AddTaskOptions},
    {Command::AddEvent, "event", "Add an event to the calendar", &AddEventOptions},
};

/// About the library itself, and shown last.
constexpr CommandEntry kLibraryCommands[] = {
    {Command::Register, "register", "Enter the library's classes, so that programs can create them by name",
     &NoOptions},
    {Command::Unregister, "unregister", "Remove what register has entered", &NoOptions},
};

void AddCommand(CLI::App& parent, const CommandEntry& entry, Arguments& arguments) {
  CLI::App* const app = parent.add_subcommand(entry.name, entry.help);
  app->footer(kGlobalHelp);
  entry.options(*app, arguments);
  app->callback([&arguments, command = entry.command] { arguments.command = command; });
}

/// "--connect" in front of what ends the options: then no command takes a file.
std::string ConnectionIn(const std::vector<std::string>& words) {
  constexpr std::string_view kConnect = "--connect";
  for (std::size_t i = 0; i < words.size() && words[i] != "--"; ++i) {
    if (words[i] == kConnect && i + 1 < words.size()) return words[i + 1];
    if (words[i].starts_with(std::string(kConnect) + "=")) return words[i].substr(kConnect.size() + 1);
  }
  return {};
}

void AddGlobalOptions(CLI::App& app, Arguments& arguments) {
  app.add_flag("--json", arguments.json, "Print JSON, for programs");
  app.add_option_function<std::string>(
         "--password,--database-password",
         [&arguments](const std::string& text) { arguments.place.password = ReadPassword("--password", text); },
         "Password of the database")
      ->type_name("PASSWORD");
  app.add_option_function<std::string>(
         "--connect",
         [&arguments](const std::string& text) {
           if (text.empty()) throw Failure(kWrongUse, "--connect: the connection string is empty.");
           arguments.place.connection = text;
         },
         "A connection string in place of FILE, such as those below")
      ->type_name("STRING");
  app.footer(kConnectHelp);
  AddText(app, "--library", arguments.library, "The library; without it the one beside zef, in ../lib, or registered",
          "FILE");
  app.add_flag("--no-colour,--no-color", arguments.no_colour, "Print without colour, on a terminal too");
  app.set_version_flag("--version", fmt::format("zef {}", kVersion));
}

/// `--every 2 weeks` is two words that mean one value. So are "-1 day" and "1.5 days", to be refused as such.
void JoinIntervals(std::vector<std::string>& words) {
  const auto is_number = [](const std::string& word) {
    return !word.empty() && word.find_first_not_of("+-.0123456789") == std::string::npos;
  };
  for (std::size_t i = 0; i + 2 < words.size() && words[i] != "--"; ++i) {
    if (words[i] != "--every" || !is_number(words[i + 1]) || words[i + 2].starts_with('-')) continue;
    words[i + 1] += " " + words[i + 2];
    words.erase(words.begin() + static_cast<std::ptrdiff_t>(i) + 2);
  }
}

void RequireUtf8(const std::vector<std::string>& words) {
  if (std::all_of(words.begin(), words.end(), [](const std::string& word) { return IsValidUtf8(word); })) return;
  throw Failure(kWrongUse, "An argument is not UTF-8 text.");
}

}  // namespace

std::variant<Arguments, std::string> ReadArguments(std::vector<std::string> words) {
  RequireUtf8(words);
  JoinIntervals(words);
  Arguments arguments;
  arguments.place.connection = ConnectionIn(words);
  CLI::App app("Keeps a person's contacts, calendar, tasks and notes in a database file.", "zef");
  app.fallthrough()->require_subcommand(1);
  app.get_formatter()->column_width(28);
  AddGlobalOptions(app, arguments);
  for (const CommandEntry& entry : kCommands) AddCommand(app, entry, arguments);
  CLI::App* const add = app.add_subcommand("add", "Add a folder, a task, an event, a contact...");
  add->require_subcommand(1);
  for (const CommandEntry& entry : kAddCommands) AddCommand(*add, entry, arguments);
  AddRecordCommands(app, *add, arguments);
  for (const CommandEntry& entry : kLibraryCommands) AddCommand(app, entry, arguments);

  std::reverse(words.begin(), words.end());
  try {
    app.parse(std::move(words));
  } catch (const CLI::CallForHelp&) {
    return app.help();
  } catch (const CLI::CallForVersion& version) {
    return std::string(version.what()) + "\n";
  } catch (const CLI::ParseError& error) {
    throw Failure(kWrongUse, WrongUse(app, error));
  }
  return arguments;
}

}  // namespace zef::client
