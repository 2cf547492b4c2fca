#pragma once

#include <array>
#include <chrono>
#include <deque>
#include <optional>

#include "platform/backup.h"
#include "platform/connection_string.h"
#include "platform/sql_engine.h"
#include "platform/sqlite/sqlite_dialect.h"
#include "platform/sqlite/sqlite_file.h"
#include "platform/sqlite/sqlite_statement.h"

namespace zef {

/// The embedded engine: one database file. Transactions take the write lock at once and commit durably; nested ones are
/// savepoints.
class SqliteEngine final : public SqlEngine {
 public:
  explicit SqliteEngine(DatabaseHandle db);
  ~SqliteEngine() override;

  std::optional<std::vector<std::string>> Relationships(std::string_view table) override;
  void BeginTrans() override;
  void CommitTrans() override;
  void RollbackTrans() override;
  int TransactionDepth() const override { return depth_; }

 protected:
  const sql::Dialect& SqlDialect() const override { return dialect_; }
  std::unique_ptr<PreparedStatement> Prepare(const sql::CompiledStatement& statement) override;
  sql::TableInfo Describe(std::string_view table) override;
  std::int64_t SchemaVersion() override;
  void ChangeSchema(const sql::SchemaChange& change) override;
  void RequireUsable() const override;

 private:
  /// A short statement of the engine's own, prepared at its first use.
  class Own {
   public:
    bool prepared() const { return handle_ != nullptr; }
    void Run(sqlite3* db, std::string_view text);
    std::int64_t Number(sqlite3* db, const char* text);

   private:
    StatementHandle handle_;
  };

  enum SavepointVerb { kSet, kRelease, kRollBack, kVerbs };
  void RunSavepoint(SavepointVerb verb, int depth);

  std::chrono::steady_clock::time_point waiting_since_;  ///< of the wait for another client's lock
  DatabaseHandle db_;
  std::optional<RunTimeError> failure_;  ///< what went wrong in one of our functions during a statement
  SqliteDialect dialect_;
  Own begin_, commit_, rollback_, version_;
  std::deque<std::array<Own, kVerbs>> savepoints_;  ///< by depth
  int depth_ = 0;
  bool schema_changed_ = false;  ///< by the open transaction
};

/// Opens the file that `Data Source` names; the password stands under `Jet OLEDB:Database Password` or `Password`.
std::unique_ptr<Engine> OpenSqlite(const ConnectionString& connection);
/// Makes that file, with write-ahead logging.
void CreateSqlite(const ConnectionString& connection);
/// Copies that file to a new one.
void BackUpSqlite(const ConnectionString& connection, const std::string& path, const BackupProgress& progress);

}  // namespace zef
