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
/// are savepoints, and so is what keeps a failed statement from ending the transaction around it. Waits for other
/// clients' locks end after 5 s.
class PostgresqlEngine final : public SqlEngine {
 public:
  explicit PostgresqlEngine(ConnectionHandle connection);
  ~PostgresqlEngine() override;

  std::optional<std::vector<std::string>> Relationships(std::string_view table) override;
  void BeginTrans() override;
  void CommitTrans() override;
  void RollbackTrans() override;
  int TransactionDepth() const override { return depth_; }

  /// Round trips to the server so far, for tests that count them.
  std::int64_t RoundTrips() const { return connection_.round_trips(); }

 protected:
  const sql::Dialect& SqlDialect() const override { return dialect_; }
  std::unique_ptr<PreparedStatement> Prepare(const sql::CompiledStatement& statement) override;
  sql::TableInfo Describe(std::string_view table) override;
  std::int64_t SchemaVersion() override;
  void ChangeSchema(const sql::SchemaChange& change) override;
  bool FailureEndsTransaction() const override { return true; }
  bool StatementsAreTransactions() const override { return true; }
  bool FailsForChangedTables(const RunTimeError& failure) const override;
  bool TransactionsMeet() const override { return true; }
  void TakeTurn(std::string_view turn) override;
  void RequireUsable() const override;

 private:
  std::string Savepoint() const { return "zef" + std::to_string(depth_); }
  void PrepareDatabase();

  ServerConnection connection_;
  PostgresqlDialect dialect_;
  int depth_ = 0;
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
