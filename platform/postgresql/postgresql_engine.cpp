#include "platform/postgresql/postgresql_engine.h"

#include <charconv>
#include <string_view>

#include "platform/ignoring_failures.h"
#include "platform/postgresql/postgresql_error.h"
#include "platform/postgresql/postgresql_statement.h"
#include "platform/postgresql/schema_change.h"
#include "platform/postgresql/support_schema.h"
#include "platform/postgresql/table_description.h"
#include "platform/transaction_guard.h"

namespace zef {
namespace {

/// The settings that the engine counts on, and the version of the database's support, in one round trip.
constexpr const char* kSettings =
    "SELECT obj_description(to_regnamespace('zef')::oid, 'pg_namespace'), set_config('lock_timeout', '5s', false),"
    " set_config('DateStyle', 'ISO, MDY', false), set_config('standard_conforming_strings', 'on', false),"
    " set_config('client_min_messages', 'warning', false), set_config('jit', 'off', false)";

std::int64_t NumberIn(const PGresult* result) {
  std::int64_t number = 0;
  const std::string_view text(PQgetvalue(result, 0, 0));
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

}  // namespace

PostgresqlEngine::PostgresqlEngine(ConnectionHandle connection)
    : connection_(std::move(connection), [this] { DetachCursors(); }) {
  if (connection_.Setting("server_encoding") != "UTF8") {
    throw RunTimeError(FailureNumber::FileUnusable, "The database on the server does not hold UTF-8 texts.");
  }
  PrepareDatabase();
}

/// Clients that come first at the same time wait for one another.
void PostgresqlEngine::PrepareDatabase() {
  if (NumberIn(connection_.Query(kSettings).get()) >= kSupportVersion) return;
  try {
    connection_.RunScript("BEGIN;" + SupportStatements() + "COMMIT");
  } catch (const RunTimeError& failure) {
    IgnoringFailures([&] { connection_.RunScript("ROLLBACK"); });
    throw RunTimeError(
        FailureNumber::FileUnusable,
        "The database is not prepared for this library, and preparing it failed: " + failure.description());
  }
}

PostgresqlEngine::~PostgresqlEngine() {
  AbandonCursors();
  connection_.Close();
  Forget();
}

std::unique_ptr<PreparedStatement> PostgresqlEngine::Prepare(const sql::CompiledStatement& statement) {
  return std::make_unique<PostgresqlStatement>(connection_, statement, "zef" + std::to_string(++statements_));
}

/// Goes with the statement that needs it, which sees what those before in the turn have committed.
void PostgresqlEngine::TakeTurn(std::string_view turn) {
  connection_.Defer("SELECT pg_advisory_xact_lock(hashtext(current_schema()), hashtext('" + std::string(turn) + "'))");
}

void PostgresqlEngine::RequireUsable() const {
  if (connection_.lost()) throw ConnectionLost();
}

bool PostgresqlEngine::FailsForChangedTables(const RunTimeError& failure) const {
  if (connection_.lost()) return false;
  switch (failure.code()) {
    case FailureNumber::NoSuchTable:
    case FailureNumber::NoSuchColumn:
    case FailureNumber::StatementError:
    case FailureNumber::TypesDoNotConvert: return true;
    default: return false;
  }
}

std::optional<std::vector<std::string>> PostgresqlEngine::Relationships(std::string_view table) {
  RequireUsable();
  return RelationshipsOf(connection_, table);
}

void PostgresqlEngine::BeginTrans() {
  RequireUsable();
  connection_.Defer(depth_ == 0 ? "BEGIN" : "SAVEPOINT " + Savepoint());
  ++depth_;
}

void PostgresqlEngine::CommitTrans() {
  if (depth_ == 0) throw RunTimeError(FailureNumber::NoTransaction);
  RequireUsable();
  if (depth_ == 1) {
    const ResultHandle ended = connection_.TakeBack("BEGIN") ? nullptr : connection_.Query("COMMIT");
    --depth_;
    schema_changed_ = false;
    // The server answers the end of a transaction that had failed in this way.
    if (ended && std::string_view(PQcmdStatus(ended.get())) != "COMMIT") {
      throw RunTimeError(FailureNumber::FileUnusable, "The transaction was undone after a failure.");
    }
    return;
  }
  --depth_;
  if (!connection_.TakeBack("SAVEPOINT " + Savepoint())) connection_.Defer("RELEASE " + Savepoint());
}

void PostgresqlEngine::RollbackTrans() {
  if (depth_ == 0) throw RunTimeError(FailureNumber::NoTransaction);
  --depth_;
  const bool unsent = connection_.TakeBack(depth_ == 0 ? "BEGIN" : "SAVEPOINT " + Savepoint());
  if (!unsent && !connection_.lost()) {
    if (depth_ == 0) {
      connection_.Query("ROLLBACK");
    } else {
      connection_.Defer("ROLLBACK TO " + Savepoint());
      connection_.Defer("RELEASE " + Savepoint());
    }
  }
  if (schema_changed_) Forget();
  if (depth_ == 0) schema_changed_ = false;
}

std::int64_t PostgresqlEngine::SchemaVersion() {
  return NumberIn(connection_.Query("SELECT zef.tables_version()").get());
}

sql::TableInfo PostgresqlEngine::Describe(std::string_view table) { return DescribeTable(connection_, table); }

void PostgresqlEngine::ChangeSchema(const sql::SchemaChange& change) {
  TransactionGuard<Engine> guard(*this);
  schema_changed_ = true;
  connection_.Query("SELECT pg_advisory_xact_lock(hashtext('zef tables'), hashtext(current_schema()))");
  ApplySchemaChange(connection_, change);
  guard.Commit();
}

std::unique_ptr<Engine> OpenPostgresql(const ConnectionString& connection) {
  return std::make_unique<PostgresqlEngine>(ConnectToServer(connection));
}

void CreatePostgresql(const ConnectionString& connection) {
  ServerConnection asked(ConnectToServer(connection), [] {});
  const ResultHandle tables = asked.Query(
      "SELECT relname FROM pg_class WHERE relnamespace = to_regnamespace(quote_ident(current_schema())) AND relkind IN"
      " ('r', 'p', 'v', 'm', 'f') ORDER BY oid LIMIT 1");
  if (PQntuples(tables.get()) > 0) {
    const std::string table(PQgetvalue(tables.get(), 0, 0));
    throw RunTimeError(FailureNumber::PathFileAccess, "The database is not empty: it has a table '" + table + "'.");
  }
  OpenPostgresql(connection);
}

void BackUpPostgresql(const ConnectionString& /*connection*/, const std::string& /*path*/,
                      const BackupProgress& /*progress*/) {
  throw RunTimeError(FailureNumber::FileUnusable,
                     "A database on a server is copied by the server's own programs, not into a file.");
}

}  // namespace zef
