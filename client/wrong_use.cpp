#include "client/wrong_use.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>
#include <vector>

namespace zef::client {
namespace {

/// The innermost command that was given.
const CLI::App& InnermostCommand(const CLI::App& app) {
  const std::vector<CLI::App*> given = app.get_subcommands();
  return given.empty() ? app : InnermostCommand(*given.front());
}

/// "zef add task".
std::string FullName(const CLI::App& app) {
  const CLI::App* const parent = app.get_parent();
  return parent == nullptr ? app.get_name() : FullName(*parent) + " " + app.get_name();
}

/// A command that was not named, or is not known.
std::string MissingCommand(const CLI::App& app, const CLI::App& command) {
  std::vector<std::string> known;
  for (const CLI::App* sub : command.get_subcommands([](const CLI::App*) { return true; })) {
    known.push_back(sub->get_name());
  }
  const std::vector<std::string> unknown = app.remaining(true);
  const std::string what = unknown.empty()
                               ? fmt::format("'{}' needs a command", FullName(command))
                               : fmt::format("'{}' has no command '{}'", FullName(command), unknown.front());
  return fmt::format("{}; there are {}.", what, fmt::join(known, ", "));
}

/// The words come in the order of no reader; an option among them is what the others belong to.
std::string Surplus(const std::vector<std::string>& words) {
  const auto is_option = [](const std::string& word) { return word.starts_with('-'); };
  const auto option = std::find_if(words.begin(), words.end(), is_option);
  return fmt::format("'{}' is not expected here.", option == words.end() ? words.front() : *option);
}

/// The part of the parser's sentence that names an option or argument.
std::string_view NameIn(std::string_view sentence) { return sentence.substr(0, sentence.find_first_of(": ")); }

std::string Sentence(const CLI::App& app, const CLI::ParseError& error) {
  const std::string said = error.what();
  switch (static_cast<CLI::ExitCodes>(error.get_exit_code())) {
    case CLI::ExitCodes::RequiredError: return fmt::format("{} is missing.", NameIn(said));
    case CLI::ExitCodes::ArgumentMismatch: return fmt::format("{} needs a value.", NameIn(said));
    case CLI::ExitCodes::ExtrasError: return Surplus(app.remaining(true));
    default: return said;
  }
}

}  // namespace

std::string WrongUse(const CLI::App& app, const CLI::ParseError& error) {
  const CLI::App& command = InnermostCommand(app);
  const bool wants_command = command.get_require_subcommand_min() > 0;
  const std::string sentence = wants_command ? MissingCommand(app, command) : Sentence(app, error);
  return fmt::format("{} (See {} --help.)", sentence, FullName(command));
}

}  // namespace zef::client
