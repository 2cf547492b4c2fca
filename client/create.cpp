#include "client/create.h"

#include <fmt/format.h>

#include <filesystem>
#include <utility>

#include "client/components.h"
#include "client/connection_string.h"
#include "client/held_signals.h"
#include "client/place_file.h"
#include "schema/schema_text.h"
#include "schema/statements.h"

namespace zef::client {
namespace {

namespace fs = std::filesystem;

constexpr const char* kLogEndings[] = {"-wal", "-shm", "-journal"};

fs::path WithEnding(fs::path path, const char* ending) { return path += ending; }

/// A file under a name of its own beside the final place, gone with its logs at the end of the block unless it was
/// placed.
class TemporaryFile {
 public:
  explicit TemporaryFile(const fs::path& place) : path_(TemporaryNameBeside(place)) {}
  ~TemporaryFile() {
    std::error_code ignored;
    fs::remove(path_, ignored);
    for (const char* const ending : kLogEndings) fs::remove(WithEnding(path_, ending), ignored);
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  const fs::path& path() const { return path_; }

 private:
  fs::path path_;
};

/// The log of another database under this name would be played into the new one.
void RequireFreePlace(const fs::path& place) {
  RequireNewPlace(place);
  for (const char* const ending : kLogEndings) {
    const fs::path log = WithEnding(place, ending);
    if (!NameIsTaken(log)) continue;
    Refuse(fmt::format("'{}' is left over from another database; remove it first.", log.native()));
  }
}

/// Programs open a database through `Connect2Database`, which joins its parts unquoted.
void RequireConnectable(const std::string& file, const std::string& password) {
  const auto survives = [](const std::string& value) {
    const bool quoted = value.starts_with('"') || value.starts_with('\'');
    return !quoted && Trim(value) == value && value.find(';') == std::string::npos;
  };
  constexpr char kNever[] = "a semicolon, a quotation mark at the beginning, or a blank at either end";
  if (!survives(file)) Refuse(fmt::format("'{}': the name must not have {}.", file, kNever));
  if (!password.empty() && !survives(password)) {
    Refuse(fmt::format("--password: it must not have {}.", kNever));
  }
}

/// The connection object of a session that has not come to connect.
Connection NewConnection() {
  const CSession session = Make<CSession>();
  try {
    session.Connect2DatabaseCS("");
  } catch (const automation::Failure&) {  // nothing has been named to connect to
  }
  return session.conDBConnection;
}

/// All or nothing: closing the connection undoes what was not committed.
void Fill(const Connection& connection, std::string_view statements, const HeldSignals& signals) {
  connection.BeginTrans();
  for (const std::string& statement : schema::Statements(statements)) {
    signals.StopIfAsked();
    connection.Execute(statement);
  }
  connection.CommitTrans();
}

void MakeDatabase(const fs::path& path, const std::string& password, std::string_view statements,
                  const HeldSignals& signals) {
  const std::string text = ConnectionString(path.native(), password);
  const Connection connection = NewConnection();
  connection.CreateDatabase(text);
  connection.Open(text);
  Fill(connection, statements, signals);
  connection.Close();
  // Closing writes the log into the file and removes it; a log that is still there holds what the file lacks.
  if (NameIsTaken(WithEnding(path, "-wal"))) Refuse("The new database could not be written completely.");
}

}  // namespace

void CreateDatabase(const std::string& file, const std::string& password, const std::string& schema) {
  CreateDatabaseFrom(std::string(schema::Text(schema)), file, password);
}

void CreateDatabaseFrom(const std::string& statements, const std::string& file, const std::string& password) {
  const fs::path place(file);
  RequireConnectable(file, password);
  RequireFreePlace(place);
  const HeldSignals signals;  // goes last, when the temporary file is gone
  const TemporaryFile temporary(place);
  Telling([&] { MakeDatabase(temporary.path(), password, statements, signals); });
  signals.StopIfAsked();
  PlaceFile(temporary.path(), place);
}

}  // namespace zef::client
