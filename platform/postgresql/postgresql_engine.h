#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/backup.h"
#include "platform/connection_string.h"
#include "platform/postgresql/postgresql_dialect.h"
#include "platform/postgresql/server_connection.h"
#include "platform/sql_engine.h"

namespace zef {

/// The engine on a server: one connection to one database. A transaction begins with its first statement; nested ones
/// are savepoints, and so is what keeps a failed statement from ending the transaction around it. As long as nothing
/// was written since the last savepoint, or since the beginning, that one serves for a further one. Waits for other
/// clients' locks end after 5 s.
class PostgresqlEngine final : public SqlEngine {
 public:
  /// With `pools_transactions` nothing is kept on the connection from one transaction to the next: no setting, no
  /// prepared statement.
  PostgresqlEngine(ConnectionHandle connection, bool pools_transactions);
  ~PostgresqlEngine() override;

  std::optional<std::vector<std::string>> Relationships(std::string_view table) override;
  void BeginTrans() override;
  void CommitTrans() override;
  void RollbackTrans() override;
  int TransactionDepth() const override { return static_cast<int>(levels_.size()); }

  /// Round trips to the server so far, for tests that count them.
  std::int64_t RoundTrips() const { return connection_.round_trips(); }

 protected:
  const sql::Dialect& SqlDialect() const override { return dialect_; }
  std::unique_ptr<PreparedStatement> Prepare(const sql::CompiledStatement& statement) override;
  sql::TableInfo Describe(std::string_view table) override;
  std::int64_t SchemaVersion() override;
  bool TablesUnchanged() override { return true; }
  void ChangeSchema(const sql::SchemaChange& change) override;
  bool FailureEndsTransaction() const override { return true; }
  void BeginStatement(bool reads, const sql::CompileOptions& options) override;
  bool StatementsAreTransactions() const override { return true; }
  bool FailsForChangedTables(const RunTimeError& failure) const override;
  bool TransactionsMeet() const override { return true; }
  void TakeTurn(std::string_view turn) override;
  void RequireUsable() const override;

 private:
  /// What statements inside of transactions have done so far.
  struct Deeds {
    std::int64_t writes = 0;
    std::int64_t locks = 0;
  };
  /// A transaction that is open, the outermost one or one inside another.
  struct Level {
    bool own = true;  ///< begun by a command of its own; else what the level below was begun by serves for it
    Deeds before;
    std::int64_t trips_before = 0;
  };

  void PrepareDatabase();
  static std::string Savepoint(std::size_t level) { return "zef" + std::to_string(level); }
  bool Unchanged(const Deeds& since, bool locks_count) const;
  void Begin(bool locks_count);
  Commands Undoing() const;

  const bool pools_transactions_;
  ServerConnection connection_;
  PostgresqlDialect dialect_;
  std::vector<Level> levels_;
  Deeds deeds_;
  Deeds released_;               ///< before the savepoint that was released last
  bool schema_changed_ = false;  ///< by the open transaction
  std::int64_t statements_ = 0;  ///< prepared so far
};

/// Connects to the database that the connection string names, see `ConnectToServer`, and makes what the library needs
/// in it beside the tables, if that is missing. Raises -2147467259 if the user may not do so.
std::unique_ptr<Engine> OpenPostgresql(const ConnectionString& connection);
/// Prepares that database, which the server's administrator has made. Raises 75 if it holds tables.
void CreatePostgresql(const ConnectionString& connection);
/// Raises -2147467259: the server's own programs copy a database.
void BackUpPostgresql(const ConnectionString& connection, const std::string& path, const BackupProgress& progress);

}  // namespace zef
