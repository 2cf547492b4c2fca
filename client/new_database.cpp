#include "client/new_database.h"

#include <fmt/format.h>

#include <filesystem>

#include "client/place_file.h"
#include "client/schema_names.h"
#include "client/text.h"

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
    Refuse(fmt::format("'{}' is left over from another database; remove it first.", log.string()));
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
void FillInTransaction(const Connection& connection, const std::function<void()>& fill) {
  connection.BeginTrans();
  fill();
  connection.CommitTrans();
}

bool HasTable(const Connection& connection, const std::string& table) {
  try {
    connection.Execute(fmt::format("SELECT Count(*) FROM [{}]", table));
    return true;
  } catch (const automation::Failure& failure) {
    if (failure.number() != kNoSuchTable) throw;
    return false;
  }
}

void RequireNoTables(const Connection& connection) {
  for (const std::string& table : TablesOf(kCurrentSchema)) {
    if (HasTable(connection, table)) Refuse(fmt::format("The database is not empty: it has a table '{}'.", table));
  }
}

using Fill = std::function<void(const Connection&, const HeldSignals&)>;

void MakeInFile(const DatabasePlace& place, const Fill& fill, const HeldSignals& signals) {
  const std::string text = place.ConnectionString();
  const Connection connection = NewConnection();
  connection.CreateDatabase(text);
  connection.Open(text);
  FillInTransaction(connection, [&] { fill(connection, signals); });
  connection.Close();
  // Closing writes the log into the file and removes it; a log that is still there holds what the file lacks.
  if (NameIsTaken(WithEnding(place.file, "-wal"))) Refuse("The new database could not be written completely.");
}

void MakeFile(const DatabasePlace& place, const Fill& fill) {
  RequireConnectable(place.file, place.password);
  RequireFreePlace(place.file);
  const HeldSignals signals;  // goes last, when the temporary file is gone
  const TemporaryFile temporary(place.file);
  Telling([&] { MakeInFile({.file = temporary.path().string(), .password = place.password}, fill, signals); });
  signals.StopIfAsked();
  PlaceFile(temporary.path(), place.file);
}

void FillEmpty(const DatabasePlace& place, const Fill& fill) {
  const HeldSignals signals;
  Telling([&] {
    const std::string text = place.ConnectionString();
    const Connection connection = NewConnection();
    if (place.IsOnServer()) connection.CreateDatabase(text);  // refuses one with anybody's tables
    connection.Open(text);
    FillInTransaction(connection, [&] {
      RequireNoTables(connection);
      fill(connection, signals);
    });
    connection.Close();
  });
}

}  // namespace

void MakeNewDatabase(const DatabasePlace& place,
                     const std::function<void(const Connection&, const HeldSignals&)>& fill) {
  place.IsFile() ? MakeFile(place, fill) : FillEmpty(place, fill);
}

}  // namespace zef::client
