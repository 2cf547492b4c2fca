#include "platform/postgresql/postgresql_engine.h"

#include <fmt/format.h>

#include <charconv>
#include <string_view>
#include <utility>

#include "platform/ignoring_failures.h"
#include "platform/postgresql/postgresql_error.h"
#include "platform/postgresql/postgresql_statement.h"
#include "platform/postgresql/schema_change.h"
#include "platform/postgresql/support_schema.h"
#include "platform/postgresql/table_description.h"
#include "platform/sql/writing.h"
#include "platform/transaction_guard.h"

namespace zef {
namespace {

/// The settings that the engine counts on, for the connection or for a transaction.
std::string Settings(bool of_transaction) {
  constexpr std::pair<const char*, const char*> kSettings[] = {{"lock_timeout", "5s"},
                                                               {"DateStyle", "ISO, MDY"},
                                                               {"standard_conforming_strings", "on"},
                                                               {"client_min_messages", "warning"},
                                                               {"jit", "off"}};
  std::string text;
  for (const auto& [name, value] : kSettings) {
    text += fmt::format("{}set_config('{}', '{}', {})", text.empty() ? "" : ", ", name, value, of_transaction);
  }
  return text;
}

std::int64_t NumberIn(const PGresult* result) {
  std::int64_t number = 0;
  const std::string_view text(PQgetvalue(result, 0, 0));
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

}  // namespace

PostgresqlEngine::PostgresqlEngine(ConnectionHandle connection, bool pools_transactions)
    : pools_transactions_(pools_transactions),
      connection_(
          std::move(connection), [this] { DetachCursors(); }, pools_transactions ? "SELECT " + Settings(true) : "") {
  if (connection_.Setting("server_encoding") != "UTF8") {
    throw RunTimeError(FailureNumber::FileUnusable, "The database on the server does not hold UTF-8 texts.");
  }
  PrepareDatabase();
}

/// The version of the database's support and the settings come in one round trip. Clients that come first at the same
/// time wait for one another.
void PostgresqlEngine::PrepareDatabase() {
  std::string first = "SELECT obj_description(to_regnamespace('zef')::oid, 'pg_namespace')";
  if (!pools_transactions_) first += ", " + Settings(false);
  if (NumberIn(connection_.Query(first).get()) >= kSupportVersion) return;
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
  const std::string name = pools_transactions_ ? "" : "zef" + std::to_string(++statements_);
  return std::make_unique<PostgresqlStatement>(connection_, statement, name, RequireTablesVersion(TablesVersion()));
}

/// Goes with the statement that needs it, which sees what those before in the turn have committed.
void PostgresqlEngine::TakeTurn(std::string_view turn) {
  ++deeds_.locks;
  connection_.Defer("SELECT pg_advisory_xact_lock(hashtext(current_schema()), hashtext(" + sql::QuotedText(turn) +
                    "))");
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

/// Going back to a savepoint lets go of rows that were locked since.
bool PostgresqlEngine::Unchanged(const Deeds& since, bool locks_count) const {
  return since.writes == deeds_.writes && (!locks_count || since.locks == deeds_.locks);
}

void PostgresqlEngine::Begin(bool locks_count) {
  RequireUsable();
  Level level{.before = deeds_, .trips_before = connection_.round_trips()};
  const std::string savepoint = Savepoint(levels_.size());
  if (levels_.empty()) {
    connection_.Defer(kBegin);
  } else if (Unchanged(levels_.back().before, locks_count)) {
    level.own = false;
  } else {
    const bool still_there = Unchanged(released_, locks_count) && connection_.TakeBack("RELEASE " + savepoint);
    if (!still_there) connection_.Defer("SAVEPOINT " + savepoint);
  }
  levels_.push_back(level);
}

void PostgresqlEngine::BeginTrans() { Begin(true); }

/// A row that was locked to be written is written under the savepoint that it was locked under: the server goes to
/// great lengths for one that two of them have changed.
void PostgresqlEngine::BeginStatement(bool reads, const sql::CompileOptions& options) {
  Begin(!options.by_row_id);
  if (!reads) ++deeds_.writes;
  if (options.lock_rows || options.lock_found) ++deeds_.locks;
}

/// What leads back to the beginning of the innermost level.
Commands PostgresqlEngine::Undoing() const {
  std::size_t level = levels_.size() - 1;
  while (!levels_[level].own) --level;
  if (level == 0) return {"ROLLBACK", kBegin};
  return {"ROLLBACK TO " + Savepoint(level)};
}

void PostgresqlEngine::CommitTrans() {
  if (levels_.empty()) throw RunTimeError(FailureNumber::NoTransaction);
  RequireUsable();
  if (levels_.size() == 1) {
    const ResultHandle ended = connection_.TakeBack(kBegin) ? nullptr : connection_.Query("COMMIT");
    levels_.pop_back();
    schema_changed_ = false;
    // The server answers the end of a transaction that had failed in this way.
    if (ended && std::string_view(PQcmdStatus(ended.get())) != "COMMIT") {
      throw RunTimeError(FailureNumber::FileUnusable, "The transaction was undone after a failure.");
    }
    return;
  }
  connection_.UndoLateFailureBy(Undoing());
  const Level level = levels_.back();
  levels_.pop_back();
  const std::string savepoint = Savepoint(levels_.size());
  if (!level.own || connection_.TakeBack("SAVEPOINT " + savepoint)) return;
  connection_.Defer("RELEASE " + savepoint);
  released_ = level.before;
}

void PostgresqlEngine::RollbackTrans() {
  if (levels_.empty()) throw RunTimeError(FailureNumber::NoTransaction);
  const Commands undoing = Undoing();
  const Level level = levels_.back();
  levels_.pop_back();
  const std::string savepoint = Savepoint(levels_.size());
  const bool outermost = levels_.empty();
  const bool unsent = level.own ? connection_.TakeBack(outermost ? kBegin : "SAVEPOINT " + savepoint)
                                : connection_.round_trips() == level.trips_before;
  if (!unsent && !connection_.lost()) {
    if (outermost) {
      connection_.Query("ROLLBACK");
    } else {
      for (const std::string& command : undoing) connection_.Defer(command);
      if (level.own) connection_.Defer("RELEASE " + savepoint);
    }
  }
  if (schema_changed_) Forget();
  if (outermost) schema_changed_ = false;
}

std::int64_t PostgresqlEngine::SchemaVersion() {
  return NumberIn(connection_.Query("SELECT zef.tables_version()").get());
}

sql::TableInfo PostgresqlEngine::Describe(std::string_view table) { return DescribeTable(connection_, table); }

void PostgresqlEngine::ChangeSchema(const sql::SchemaChange& change) {
  TransactionGuard<Engine> guard(*this);
  schema_changed_ = true;
  ++deeds_.writes;
  connection_.Query("SELECT pg_advisory_xact_lock(hashtext('zef tables'), hashtext(current_schema()))");
  ApplySchemaChange(connection_, change);
  guard.Commit();
}

std::unique_ptr<Engine> OpenPostgresql(const ConnectionString& connection) {
  return std::make_unique<PostgresqlEngine>(ConnectToServer(connection), PoolsTransactions(connection));
}

void CreatePostgresql(const ConnectionString& connection) {
  ServerConnection asked(ConnectToServer(connection), [] {}, {});
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
