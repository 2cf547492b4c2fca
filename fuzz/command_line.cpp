/// The client's command line: any words, and drawn ones, on a new database. A byte 0 ends a word; a byte from 128 on is
/// a word of the list.

#include <fstream>
#include <iterator>
#include <string>
#include <variant>
#include <vector>

#include "client/arguments.h"
#include "client/commands.h"
#include "client/failure.h"
#include "client/library.h"
#include "fuzz/support/input.h"

namespace zef::fuzz {
namespace {

using namespace zef::client;

constexpr const char* kWords[] = {"create",
                                  "info",
                                  "upgrade",
                                  "copy-database",
                                  "folders",
                                  "tasks",
                                  "agenda",
                                  "seen",
                                  "lists",
                                  "login",
                                  "add",
                                  "contacts",
                                  "notes",
                                  "alarms",
                                  "calls",
                                  "categories",
                                  "users",
                                  "show",
                                  "set",
                                  "delete",
                                  "export",
                                  "done",
                                  "copy",
                                  "find",
                                  "attachment",
                                  "folder",
                                  "task",
                                  "event",
                                  "contact",
                                  "note",
                                  "alarm",
                                  "call",
                                  "category",
                                  "user",
                                  "--json",
                                  "--password",
                                  "--connect",
                                  "--no-colour",
                                  "--help",
                                  "--version",
                                  "--schema",
                                  "--folder",
                                  "--parent",
                                  "--kind",
                                  "--description",
                                  "--due",
                                  "--start",
                                  "--end",
                                  "--priority",
                                  "--assigned-to",
                                  "--location",
                                  "--reminder",
                                  "--where",
                                  "--month",
                                  "--days",
                                  "--today",
                                  "--mark",
                                  "--user",
                                  "--yes",
                                  "--every",
                                  "--until",
                                  "--times",
                                  "--new-password",
                                  "a.db",
                                  "b.db",
                                  "1",
                                  "9",
                                  "0",
                                  "-1",
                                  "2147483648",
                                  "5/1/2024",
                                  "2024-05-01",
                                  "2024-05",
                                  "Name=x",
                                  "DueDate=5/1/2024",
                                  "LastName=O'Hara",
                                  "Birthday=5/1/1980",
                                  "Calendar",
                                  "Tasks\\All Tasks",
                                  "Provider=SQLite;Data Source=a.db",
                                  "9.1",
                                  "9.2.4",
                                  "week",
                                  "2 months",
                                  "monday",
                                  "TSK_ID>0",
                                  "'",
                                  "=",
                                  "--",
                                  "ä"};

/// No word can lead out of the working folder.
std::vector<std::string> Words(const std::uint8_t* data, std::size_t size) {
  std::vector<std::string> words(1);
  for (std::size_t i = 0; i < size; ++i) {
    if (data[i] == 0) {
      words.emplace_back();
    } else if (data[i] < 128) {
      words.back() += data[i] == '/' ? '_' : static_cast<char>(data[i]);
    } else {
      words.back() += kWords[(data[i] - 128) % std::size(kWords)];
    }
  }
  return words;
}

bool IsSafe(const Arguments& arguments) {
  const bool registers = arguments.command == Command::Register || arguments.command == Command::Unregister;
  return !registers && arguments.library.empty() && arguments.place.IsFile() && arguments.copy.IsFile();
}

/// A new database in the working folder; made once, for that takes long.
void PlaceDatabase() {
  constexpr const char* kName = "a.db";
  static const std::string made = [] {
    UseLibrary(ZEF_LIBRARY);
    Arguments create;
    create.command = Command::Create;
    create.place.file = kName;
    Run(create, Screen());
    std::ifstream file(kName, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
  }();
  std::ofstream(kName, std::ios::binary) << made;
}

void Do(std::vector<std::string> words) {
  const auto read = ReadArguments(std::move(words));
  const auto* const arguments = std::get_if<Arguments>(&read);
  if (arguments == nullptr || !IsSafe(*arguments)) return;
  PlaceDatabase();
  Run(*arguments, Screen());
}

}  // namespace
}  // namespace zef::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  zef::fuzz::RunApart([=] {
    try {
      zef::fuzz::Do(zef::fuzz::Words(data, size));
    } catch (const zef::client::Failure&) {  // a refusal is an answer
    }
  });
  return 0;
}
