#pragma once

#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/engine.h"
#include "platform/reference.h"
#include "platform/sql/compile.h"
#include "platform/sql/lexer.h"
#include "platform/sql/statement_clock.h"

namespace zef {

/// A statement that an engine has prepared and that is run again and again.
class PreparedStatement {
 public:
  enum class Step { Row, Done, SchemaChanged };

  virtual ~PreparedStatement() = default;
  /// Binds parameter `number`, from 1. With `lasting` the value is copied, else it outlives the run.
  virtual void Bind(int number, const Value& value, bool lasting) = 0;
  /// Goes to the next row. `SchemaChanged` comes before anything was read or written and means that the statement must
  /// be worked out anew.
  virtual Step Next() = 0;
  /// Reads values of the current row as `Cursor::Read` does; `types` are those of all columns.
  virtual void Read(Positions columns, std::span<const sql::Type> types, std::span<Value> values) const = 0;
  /// Reads values straight into where they belong as `Cursor::Fill` does. It may stop wherever it likes.
  virtual std::size_t Fill(Positions columns, std::span<const sql::Type> types, std::span<const Slot> slots) const = 0;
  /// Ends a run; the statement may be bound and run again.
  virtual void Reset() = 0;
  /// Rows that the last run wrote.
  virtual std::int64_t RowsWritten() const = 0;
  /// Where the row that the last run wrote stands now, see `Result`.
  virtual std::optional<Value> RowId() const { return std::nullopt; }
};

/// The worked-out form of all statements of one shape.
struct Plan : RefCounted<Plan> {
  static constexpr std::size_t kMostIdle = 4;

  explicit Plan(sql::CompiledStatement statement) : shape(std::move(statement)) { idle.reserve(kMostIdle); }

  RowShape shape;
  /// Statements that wait for their next run. There is room for all, so that giving one back cannot fail.
  std::vector<std::unique_ptr<PreparedStatement>> idle;
};

/// Plans by shape key; the least recently used one goes first.
class PlanCache {
 public:
  explicit PlanCache(std::size_t capacity) : capacity_(capacity) {}
  /// The plan of a shape, or null.
  Ref<Plan> Find(std::string_view key);
  void Add(const std::string& key, Ref<Plan> plan);
  void Clear();
  std::size_t size() const { return entries_.size(); }

 private:
  struct Entry {
    std::string key;
    Ref<Plan> plan;
  };
  std::size_t capacity_;
  std::list<Entry> entries_;
  std::unordered_map<std::string_view, std::list<Entry>::iterator> by_key_;
};

class SqlCursor;

/// What every SQL engine shares: the dialect's front end, plans and prepared statements by shape, cursors that keep
/// what they saw. A table that another client changes meanwhile is noticed before a statement of the old shape reads or
/// writes anything.
class SqlEngine : public Engine, protected sql::Catalog {
 public:
  ~SqlEngine() override;
  Result Execute(const Command& command) final;
  /// Plans in the cache, for tests of its bound.
  std::size_t CachedPlans() const { return plans_.size(); }

 protected:
  virtual const sql::Dialect& SqlDialect() const = 0;
  virtual std::unique_ptr<PreparedStatement> Prepare(const sql::CompiledStatement& statement) = 0;
  /// The columns of a table as the database tells them now; no columns if there is no such table.
  virtual sql::TableInfo Describe(std::string_view table) = 0;
  /// A number that changes with every change of any table's columns or indexes, by whichever client.
  virtual std::int64_t SchemaVersion() = 0;
  virtual void ChangeSchema(const sql::SchemaChange& change) = 0;
  /// Asked for a plan that was just worked out: false if the tables have changed meanwhile. An engine whose new
  /// statements find that out by themselves and fail, see `FailsForChangedTables`, has no need to look.
  virtual bool TablesUnchanged() { return SchemaVersion() == tables_version_; }
  /// True if a failure may come from tables that have changed since the statement was worked out, for an engine whose
  /// statements do not tell so by `SchemaChanged`.
  virtual bool FailsForChangedTables(const RunTimeError& /*failure*/) const { return false; }
  /// True for an engine in which a failure makes the running transaction unusable: it runs each statement in a nested
  /// one, which `BeginStatement` opens.
  virtual bool FailureEndsTransaction() const { return false; }
  virtual void BeginStatement(bool /*reads*/, const sql::CompileOptions& /*options*/) { BeginTrans(); }
  /// True for an engine in which a writing statement outside of a transaction is one by itself.
  virtual bool StatementsAreTransactions() const { return false; }
  /// True for an engine whose transactions run side by side: a row that one reads by its key is then locked.
  virtual bool TransactionsMeet() const { return false; }
  /// Waits for a turn and keeps it until the transaction ends, for an engine whose transactions run side by side.
  virtual void TakeTurn(std::string_view /*turn*/) {}
  /// Raises if a statement must not run now, as in a transaction that the engine has undone by itself.
  virtual void RequireUsable() const = 0;

  /// The number that `SchemaVersion` gave before the first table was described.
  std::int64_t TablesVersion() const { return tables_version_; }
  /// Forgets everything worked out from the tables' columns.
  void Forget();
  /// Lets running cursors take their rows into memory; called before anything is written.
  void DetachCursors();
  /// For engines that go away: no cursor touches them again.
  void AbandonCursors();

  const sql::TableInfo* FindTable(std::string_view name) final;

 private:
  friend class SqlCursor;

  class Lease;
  struct OfStatement;

  /// The plan that is kept for a statement, or null; reads the statement's shape.
  Ref<Plan> KnownPlan(const Command& command);
  /// Works out the plan of the statement whose shape was read, or null if the tables changed meanwhile.
  Ref<Plan> NewPlan(const Command& command);
  bool RunUnlessChanged(const Ref<Plan>& plan, const Command& command, Result& result);
  /// False if nothing was done because the tables have changed since the plan was worked out.
  bool Run(const Ref<Plan>& plan, const Command& command, Result& result);
  sql::CompiledStatement CompileShape(sql::CompileOptions options);
  void GiveBack(Plan& plan, std::unique_ptr<PreparedStatement> statement);
  void BindAll(PreparedStatement& statement, const sql::CompiledStatement& compiled, const Command& command);
  const Value& Given(const sql::ParameterPlan& plan, const Command& command, sql::StatementClock& clock,
                     Value& scratch) const;
  Result ExecuteSchemaChange(const Command& command);
  Command InTransaction(Command command) const;

  sql::Shape shape_;              ///< of the statement that is being executed
  std::vector<Value> converted_;  ///< its values after conversion; they outlive the run
  PlanCache plans_{256};
  std::unordered_map<std::string, sql::TableInfo> tables_;
  std::int64_t tables_version_ = -1;
  std::vector<SqlCursor*> cursors_;
};

}  // namespace zef
