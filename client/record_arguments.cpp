#include "client/record_arguments.h"

#include <fmt/format.h>

#include "client/assignment.h"
#include "client/number_words.h"
#include "client/options.h"
#include "client/record_kinds.h"

namespace zef::client {
namespace {

/// Adds a command that is about a kind of record; its callback tells the arguments so.
CLI::App& AddCommand(CLI::App& parent, const char* name, const std::string& help, Command command, RecordType type,
                     Arguments& arguments) {
  CLI::App* const app = parent.add_subcommand(name, help);
  app->footer(kGlobalHelp);
  AddFile(*app, arguments);
  app->callback([&arguments, command, type] {
    arguments.command = command;
    arguments.type = type;
  });
  return *app;
}

void AddIdentifier(CLI::App& app, Arguments& arguments, const char* name = "ID") {
  AddNumber(app, name, arguments.id, "Its identifier", "", 1)->required();
}

void AddFolderOf(CLI::App& app, Arguments& arguments, const RecordKind& kind) {
  if (kind.root_folder == nullptr) return;
  AddFolderOption(app, arguments,
                  fmt::format("Identifier or name of its folder; without it the root folder {}", kind.root_folder));
}

void AddList(CLI::App& app, const RecordKind& kind, Arguments& arguments) {
  CLI::App& list =
      AddCommand(app, kind.plural, fmt::format("List {}", kind.plural), Command::List, kind.type, arguments);
  AddText(list, "--where", arguments.where, "A condition in SQL", "CONDITION");
  if (kind.root_folder == nullptr) return;
  AddFolderOption(list, arguments,
                  fmt::format("Identifier or name of a folder; without it the {} of all folders", kind.plural));
}

/// What was given with an option becomes a value of its property at once, so that a wrong one is told by its own name.
void AddValue(CLI::App& app, const RecordKind& kind, const AddOption& option, Arguments& arguments) {
  const auto assign = [&arguments, &option,
                       property = PropertyNamed(kind.type, option.property)](const std::string& text) {
    arguments.values.emplace_back(option.property, ReadValue(option.name, property, text));
  };
  if (option.type == nullptr) {
    app.add_flag_callback(
        option.name, [assign] { assign("1"); }, option.help);
    return;
  }
  app.add_option_function<std::string>(option.name, assign, option.help)
      ->type_name(option.type)
      ->required(option.required);
}

void AddAdding(CLI::App& app, const RecordKind& kind, Arguments& arguments) {
  CLI::App& adding =
      AddCommand(app, kind.name, fmt::format("Add to the {}", kind.plural), Command::AddRecord, kind.type, arguments);
  for (const AddOption& option : kind.options) AddValue(adding, kind, option, arguments);
  AddFolderOf(adding, arguments, kind);
  if (kind.type == RecordType::Alarm) AddRule(adding, arguments.rule);
  if (kind.type == RecordType::User) adding.footer(kAccountHelp);
}

std::string PropertiesHelp(const RecordKind& kind) {
  std::string names;
  std::string words;
  for (const PropertyInfo& property : PropertiesOf(kind.type)) {
    if (property.read_only) continue;
    names += (names.empty() ? "" : ", ") + std::string(property.name);
    if (property.words != nullptr) words += fmt::format("\n{} is one of {}.", property.name, AllWords(*property.words));
  }
  return fmt::format(
      "Properties: {}.\nDates are given as 2024-05-17 or \"2024-05-17 09:00\", nothing for no date; flags "
      "as yes or no.{}\n\n{}",
      names, words, kGlobalHelp);
}

void AddShowing(CLI::App& app, const RecordKind& kind, Arguments& arguments) {
  AddIdentifier(
      AddCommand(app, kind.name, fmt::format("Show one of the {}", kind.plural), Command::Show, kind.type, arguments),
      arguments);
}

void AddSetting(CLI::App& app, const RecordKind& kind, Arguments& arguments) {
  CLI::App& setting =
      AddCommand(app, kind.name, fmt::format("Change one of the {}", kind.plural), Command::Set, kind.type, arguments);
  AddIdentifier(setting, arguments);
  const auto assign = [&arguments, &kind](const std::vector<std::string>& words) {
    for (const std::string& word : words) arguments.values.push_back(ReadAssignment(kind, word));
  };
  setting
      .add_option_function<std::vector<std::string>>("CHANGE", assign,
                                                     "What to set, as Property=value; as many as there are")
      ->type_name("")
      ->required();
  setting.footer(PropertiesHelp(kind));
}

void AddDeleting(CLI::App& app, const RecordKind& kind, Arguments& arguments) {
  CLI::App& deleting = AddCommand(app, kind.name, fmt::format("Delete one of the {}", kind.plural), Command::Delete,
                                  kind.type, arguments);
  AddIdentifier(deleting, arguments);
  if (kind.type != RecordType::Folder) return;
  deleting.add_flag("--yes", arguments.yes, "Deletes the folder with all that is in and below it");
}

void AddExporting(CLI::App& app, const RecordKind& kind, Arguments& arguments) {
  if (!CanBeExported(kind.type)) return;
  CLI::App& exporting = AddCommand(app, kind.name, fmt::format("Write one of the {} to a text file", kind.plural),
                                   Command::Export, kind.type, arguments);
  AddIdentifier(exporting, arguments);
  AddText(exporting, "TARGET", arguments.target,
          "The file to be made, in Windows-1252; a character that this lacks becomes \"?\"", "")
      ->required();
  exporting.add_flag("--yes", arguments.yes, "Writes over a file that exists; a link is refused");
}

/// Adds a command that has a command of its own for each kind of record, or for some.
void AddForEachKind(CLI::App& app, const char* name, const char* help,
                    void (*add)(CLI::App&, const RecordKind&, Arguments&), Arguments& arguments) {
  CLI::App* const command = app.add_subcommand(name, help);
  command->require_subcommand(1);
  for (const RecordKind& kind : RecordKinds()) add(*command, kind, arguments);
}

void AddSteps(CLI::App& app, Arguments& arguments) {
  CLI::App& done = AddCommand(app, "done", "Note that a task is done; one that repeats goes on with its next instance",
                              Command::Done, RecordType::Task, arguments);
  AddIdentifier(done, arguments, "TASK");
  AddDate(done, "--today", arguments.today, "The day on which it was done; without it, today");

  CLI::App* const copy = app.add_subcommand("copy", "Copy a folder with all that is in and below it");
  copy->require_subcommand(1);
  CLI::App& folder =
      AddCommand(*copy, "folder", "Copy a folder into another one", Command::CopyFolder, RecordType::Folder, arguments);
  AddText(folder, "SOURCE", arguments.source, "Identifier or name of the folder", "")->required();
  AddText(folder, "TARGET", arguments.target, "Identifier or name of the folder that gets the copy", "")->required();

  CLI::App& find = AddCommand(app, "find", "Find the contact with a telephone number", Command::Find,
                              RecordType::Contact, arguments);
  AddText(find, "NUMBER", arguments.number, "The number exactly as it was entered", "")->required();

  CLI::App* const attachment = app.add_subcommand("attachment", "Work with the file that is attached to an alarm");
  attachment->require_subcommand(1);
  CLI::App& save = AddCommand(*attachment, "save", "Write it to a new file; what exists is never overwritten",
                              Command::SaveAttachment, RecordType::Alarm, arguments);
  AddIdentifier(save, arguments, "ALARM");
  AddText(save, "TARGET", arguments.target, "The file to be made", "")->required();
}

}  // namespace

void AddRecordCommands(CLI::App& app, CLI::App& add, Arguments& arguments) {
  for (const RecordKind& kind : RecordKinds()) {
    if (kind.columns.empty()) continue;
    AddList(app, kind, arguments);
    AddAdding(add, kind, arguments);
  }
  AddForEachKind(app, "show", "Show all that a record holds", &AddShowing, arguments);
  AddForEachKind(app, "set", "Change properties of a record", &AddSetting, arguments);
  AddForEachKind(app, "delete", "Delete a record", &AddDeleting, arguments);
  AddForEachKind(app, "export", "Write a record to a text file", &AddExporting, arguments);
  AddSteps(app, arguments);
}

}  // namespace zef::client
