#pragma once

#include <CLI/CLI.hpp>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>

#include "client/arguments.h"
#include "client/number_option.h"

/// Options and arguments that several commands take.
namespace zef::client {

inline constexpr char kGlobalHelp[] =
    "Every command also takes --json, --password, --connect and --no-colour; see zef --help.";

inline constexpr char kAccountHelp[] =
    "Here --password is that of the account; the one of the database is --database-password.\n\n"
    "Every command also takes --json, --connect and --no-colour; see zef --help.";

template <class Target>
CLI::Option* AddText(CLI::App& app, const char* name, Target& target, const std::string& help,
                     const char* type = "TEXT") {
  return app.add_option(name, target, help)->type_name(type);
}

/// Adds an option or argument that is a whole number.
template <class Target>
CLI::Option* AddNumber(CLI::App& app, const std::string& name, Target& target, const std::string& help,
                       const char* type, std::int32_t least = std::numeric_limits<std::int32_t>::min(),
                       std::int32_t most = std::numeric_limits<std::int32_t>::max()) {
  const auto read = [&target, name, least, most](const std::string& text) {
    target = ReadNumber(name, text, least, most);
  };
  return app.add_option_function<std::string>(name, read, help)->type_name(type);
}

/// Adds an option whose text becomes a date at once, so that a wrong one is told by its own name.
void AddDate(CLI::App& app, const std::string& name, std::optional<Date>& date, const std::string& help);

/// Adds the argument that names the database, unless a connection string does.
void AddFile(CLI::App& app, Arguments& arguments);
void AddFolderOption(CLI::App& app, Arguments& arguments, const std::string& help);

/// Adds the options of a rule of repetition, and puts what they accept into the command's help.
void AddRule(CLI::App& app, RuleOptions& rule);

}  // namespace zef::client
