#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "client/database_place.h"
#include "client/date.h"
#include "client/record_values.h"
#include "client/rule_text.h"
#include "client/schema_names.h"

namespace zef::client {

enum class Command {
  Create,
  Register,
  Unregister,
  Info,
  Folders,
  AddFolder,
  AddTask,
  AddEvent,
  Tasks,
  Agenda,
  Seen,
  List,
  AddRecord,
  Show,
  Set,
  Delete,
  Done,
  CopyFolder,
  CopyDatabase,
  Find,
  SaveAttachment,
  Export,
  Lists,
  LogIn,
  Upgrade
};

/// What a command line asks for. A command reads only what belongs to it.
struct Arguments {
  Command command = Command::Info;
  bool json = false;
  bool no_colour = false;
  DatabasePlace place;
  std::string schema = kCurrentSchema;
  std::string library;  ///< its file; empty for the one that the program finds

  std::string name;  ///< of a new folder or task, or of a user; the text of a new event
  std::optional<std::string> folder;
  std::optional<std::string> parent;
  std::optional<std::string> kind;
  std::string description;
  std::string assigned_to;
  std::optional<std::string> priority;
  std::string location;
  std::int32_t reminder = -1;
  std::optional<Date> start;
  std::optional<Date> due;
  std::optional<Date> end;
  RuleOptions rule;

  std::string where;
  std::optional<std::chrono::year_month> month;
  std::optional<std::int32_t> days;
  std::optional<Date> today;

  std::int32_t event = 0;
  Date date;
  bool mark = false;
  std::int32_t user = 1;

  RecordType type{};               ///< of the record or records that a command is about
  std::int32_t id = 0;             ///< of that record
  std::vector<Assignment> values;  ///< what a new record holds, or what is to be set
  bool yes = false;                ///< consent to what takes something away
  std::string source;              ///< the folder to be copied
  std::string target;              ///< where to: a folder, or a file
  std::string number;
  std::string list;              ///< empty for all
  std::string account_password;  ///< that of a user, while the place holds the database's
  DatabasePlace copy;            ///< the new database that gets a copy
};

/// Reads the words behind the program's name. A text instead of arguments is to be shown and nothing else to be done:
/// help, or the version. What cannot be understood raises a `Failure` with `kWrongUse`.
std::variant<Arguments, std::string> ReadArguments(std::vector<std::string> words);

}  // namespace zef::client
