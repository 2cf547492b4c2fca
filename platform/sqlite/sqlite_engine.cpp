#include "platform/sqlite/sqlite_engine.h"

#include <algorithm>
#include <chrono>
#include <thread>

#include "platform/sqlite/functions.h"
#include "platform/sqlite/schema_change.h"
#include "platform/sqlite/sqlite_backup.h"
#include "platform/sqlite/sqlite_error.h"
#include "platform/sqlite/table_description.h"
#include "platform/text.h"
#include "platform/transaction_guard.h"

namespace zef {
namespace {

constexpr std::chrono::seconds kLockWait(5);
constexpr std::chrono::microseconds kLockPause(500);

/// Waits in short, even steps: the engine's own growing pauses let a crowd of writers starve one of them.
int WaitForLock(void* waiting_since, int times) {
  using Clock = std::chrono::steady_clock;
  auto& since = *static_cast<Clock::time_point*>(waiting_since);
  if (times == 0) since = Clock::now();
  if (Clock::now() - since > kLockWait) return 0;
  std::this_thread::sleep_for(kLockPause);
  return 1;
}

struct FileName {
  std::string path;
  std::string password;
};

FileName FileOf(const ConnectionString& connection) {
  // The keys of the last line are those that clients of this kind of provider commonly send; nothing here depends on
  // them.
  connection.Require({"Provider", "Data Source", "User ID", "Password", "Jet OLEDB:Database Password", "Mode",
                      "Persist Security Info", "Extended Properties", "Locale Identifier", "OLE DB Services",
                      "Jet OLEDB:Engine Type", "Jet OLEDB:System Database"});
  std::string_view password = connection.Get("Jet OLEDB:Database Password");
  if (password.empty()) password = connection.Get("Password");
  return {std::string(connection.Get("Data Source")), std::string(password)};
}

void Exec(sqlite3* db, const char* text) { CheckSqlite(db, sqlite3_exec(db, text, nullptr, nullptr, nullptr)); }

/// What the key "Mode" of a connection string asks for, by name or number.
bool IsReadOnly(std::string_view mode) {
  const auto is_one_of = [mode](std::initializer_list<std::string_view> names) {
    return std::any_of(names.begin(), names.end(), [mode](auto name) { return text::EqualNames(name, mode); });
  };
  if (is_one_of({"Read", "1"})) return true;
  if (is_one_of({"", "ReadWrite", "3", "Share Deny None", "16"})) return false;
  throw RunTimeError(FailureNumber::StatementError,
                     "The key 'Mode' of the connection string is Read, ReadWrite or Share Deny None.");
}

}  // namespace

void SqliteEngine::Own::Run(sqlite3* db, std::string_view text) {
  if (!handle_) handle_ = PrepareOwn(db, text);
  sqlite3_step(handle_.get());
  CheckSqlite(db, sqlite3_reset(handle_.get()));
}

std::int64_t SqliteEngine::Own::Number(sqlite3* db, const char* text) {
  if (!handle_) handle_ = PrepareOwn(db, text);
  const bool row = sqlite3_step(handle_.get()) == SQLITE_ROW;
  const std::int64_t number = row ? sqlite3_column_int64(handle_.get(), 0) : -1;
  CheckSqlite(db, sqlite3_reset(handle_.get()));
  return number;
}

SqliteEngine::SqliteEngine(DatabaseHandle db) : db_(std::move(db)) {
  sqlite3_busy_handler(db_.get(), &WaitForLock, &waiting_since_);
  RegisterFunctions(db_.get(), [this](RunTimeError failure) { failure_ = std::move(failure); });
  Exec(db_.get(), "PRAGMA synchronous=FULL; PRAGMA foreign_keys=OFF; PRAGMA trusted_schema=OFF");
#ifdef ZEF_SYSTEM_SQLITE
  sqlite3_db_config(db_.get(), SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  sqlite3_db_config(db_.get(), SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
#endif
}

SqliteEngine::~SqliteEngine() {
  AbandonCursors();
  Forget();
  if (depth_ > 0) sqlite3_exec(db_.get(), "ROLLBACK", nullptr, nullptr, nullptr);
}

std::unique_ptr<PreparedStatement> SqliteEngine::Prepare(const sql::CompiledStatement& statement) {
  return std::make_unique<SqliteStatement>(db_.get(), statement, failure_);
}

void SqliteEngine::RunSavepoint(SavepointVerb verb, int depth) {
  constexpr std::string_view kTexts[kVerbs] = {"SAVEPOINT zef", "RELEASE zef", "ROLLBACK TO zef"};
  const auto index = static_cast<std::size_t>(depth);
  if (savepoints_.size() <= index) savepoints_.resize(index + 1);
  Own& statement = savepoints_[index][verb];
  if (statement.prepared()) return statement.Run(db_.get(), {});
  statement.Run(db_.get(), std::string(kTexts[verb]) + std::to_string(depth));
}

/// A full disk and the like make the engine undo the whole transaction by itself; going on would write outside of it.
void SqliteEngine::RequireUsable() const {
  if (depth_ > 0 && sqlite3_get_autocommit(db_.get()) != 0) {
    throw RunTimeError(FailureNumber::FileUnusable,
                       "The transaction was undone after a failure of the disk; roll it back.");
  }
}

std::optional<std::vector<std::string>> SqliteEngine::Relationships(std::string_view table) {
  RequireUsable();
  return RelationshipsOf(db_.get(), table);
}

void SqliteEngine::BeginTrans() {
  DetachCursors();
  if (depth_ == 0) {
    begin_.Run(db_.get(), "BEGIN IMMEDIATE");
  } else {
    RequireUsable();
    RunSavepoint(kSet, depth_);
  }
  ++depth_;
}

void SqliteEngine::CommitTrans() {
  if (depth_ == 0) throw RunTimeError(FailureNumber::NoTransaction);
  RequireUsable();
  DetachCursors();
  if (depth_ == 1) {
    commit_.Run(db_.get(), "COMMIT");
    schema_changed_ = false;
  } else {
    RunSavepoint(kRelease, depth_ - 1);
  }
  --depth_;
}

void SqliteEngine::RollbackTrans() {
  if (depth_ == 0) throw RunTimeError(FailureNumber::NoTransaction);
  DetachCursors();
  const bool undone_already = sqlite3_get_autocommit(db_.get()) != 0;
  if (!undone_already && depth_ == 1) rollback_.Run(db_.get(), "ROLLBACK");
  if (!undone_already && depth_ > 1) {
    RunSavepoint(kRollBack, depth_ - 1);
    RunSavepoint(kRelease, depth_ - 1);
  }
  // The number of the schema goes back as well, and another client's change may take the same number again.
  if (schema_changed_) Forget();
  if (--depth_ == 0) schema_changed_ = false;
}

std::int64_t SqliteEngine::SchemaVersion() { return version_.Number(db_.get(), "PRAGMA schema_version"); }

sql::TableInfo SqliteEngine::Describe(std::string_view table) { return DescribeTable(db_.get(), table); }

void SqliteEngine::ChangeSchema(const sql::SchemaChange& change) {
  TransactionGuard<Engine> guard(*this);
  schema_changed_ = true;
  ApplySchemaChange(db_.get(), change, failure_);
  guard.Commit();
}

std::unique_ptr<Engine> OpenSqlite(const ConnectionString& connection) {
  const FileName file = FileOf(connection);
  const bool read_only = IsReadOnly(connection.Get("Mode"));
  DatabaseHandle db = OpenDatabaseFile(file.path, file.password);
  if (read_only) Exec(db.get(), "PRAGMA query_only=ON");
  return std::make_unique<SqliteEngine>(std::move(db));
}

void CreateSqlite(const ConnectionString& connection) {
  const FileName file = FileOf(connection);
  CreateDatabaseFile(file.path, file.password);
}

void BackUpSqlite(const ConnectionString& connection, const std::string& path, const BackupProgress& progress) {
  const FileName file = FileOf(connection);
  BackUpDatabaseFile(file.path, file.password, path, progress);
}

}  // namespace zef
