#include "platform/sql_engine.h"

#include <algorithm>

#include "platform/sql/convert.h"
#include "platform/sql/parser.h"
#include "platform/sql_cursor.h"
#include "platform/text.h"
#include "platform/transaction_guard.h"

namespace zef {
namespace {

constexpr int kMostRecent = 4;
/// Behind the shape of a plan's key stand the options that it was compiled for.
constexpr std::size_t kOptionBytes = 4;
/// Another client that changes the schema again and again must not keep us here for ever.
constexpr int kSchemaRetries = 50;

bool IsSelect(std::string_view statement) {
  constexpr std::string_view kSelect = "SELECT";
  const std::size_t first = std::min(statement.find_first_not_of(" \t\r\n"), statement.size());
  return text::EqualNames(statement.substr(first, kSelect.size()), kSelect);
}

}  // namespace

Ref<Plan> PlanCache::Find(std::string_view key) {
  // The same few statements come in turn: comparing with those is quicker than working out a hash.
  auto recent = entries_.begin();
  for (int i = 0; i < kMostRecent && recent != entries_.end(); ++i, ++recent) {
    if (recent->key != key) continue;
    entries_.splice(entries_.begin(), entries_, recent);
    return entries_.front().plan;
  }
  const auto found = by_key_.find(key);
  if (found == by_key_.end()) return nullptr;
  entries_.splice(entries_.begin(), entries_, found->second);
  return found->second->plan;
}

void PlanCache::Add(const std::string& key, Ref<Plan> plan) {
  std::list<Entry> added;
  added.push_front({key, std::move(plan)});
  by_key_.emplace(added.front().key, added.begin());
  entries_.splice(entries_.begin(), added);
  if (entries_.size() <= capacity_) return;
  by_key_.erase(entries_.back().key);
  entries_.pop_back();
}

void PlanCache::Clear() {
  by_key_.clear();
  entries_.clear();
}

SqlEngine::~SqlEngine() = default;

void SqlEngine::Forget() {
  plans_.Clear();
  tables_.clear();
  tables_version_ = -1;
}

void SqlEngine::DetachCursors() {
  while (!cursors_.empty()) cursors_.back()->Detach();
}

void SqlEngine::AbandonCursors() {
  for (SqlCursor* cursor : cursors_) cursor->Abandon();
  cursors_.clear();
}

const sql::TableInfo* SqlEngine::FindTable(std::string_view name) {
  std::string key = text::LowerCase(name);
  auto entry = tables_.find(key);
  if (entry == tables_.end()) entry = tables_.emplace(std::move(key), Describe(name)).first;
  return entry->second.columns.empty() ? nullptr : &entry->second;
}

/// A prepared statement taken from its plan for one run; it goes back to the plan unless it is taken.
class SqlEngine::Lease {
 public:
  Lease(SqlEngine& engine, Plan& plan) : engine_(engine), plan_(plan) {}
  ~Lease() { Return(); }
  Lease(const Lease&) = delete;
  Lease& operator=(const Lease&) = delete;

  /// Takes the statement and binds its values; false if the tables have changed since the plan was worked out.
  bool MakeReady(const Command& command);
  PreparedStatement& statement() { return *statement_; }
  std::unique_ptr<PreparedStatement> Take() { return std::move(statement_); }
  void Return() {
    if (statement_) engine_.GiveBack(plan_, std::move(statement_));
  }

 private:
  SqlEngine& engine_;
  Plan& plan_;
  std::unique_ptr<PreparedStatement> statement_;
};

bool SqlEngine::Lease::MakeReady(const Command& command) try {
  if (plan_.idle.empty()) {
    statement_ = engine_.Prepare(plan_.shape.statement());
  } else {
    statement_ = std::move(plan_.idle.back());
    plan_.idle.pop_back();
  }
  engine_.BindAll(*statement_, plan_.shape.statement(), command);
  return true;
} catch (const RunTimeError&) {
  // What the columns of the plan refuse, those that another client has made of them meanwhile may take.
  if (engine_.SchemaVersion() == engine_.tables_version_) throw;
  return false;
}

void SqlEngine::GiveBack(Plan& plan, std::unique_ptr<PreparedStatement> statement) {
  statement->Reset();
  if (plan.idle.size() < Plan::kMostIdle) plan.idle.push_back(std::move(statement));
}

Ref<Plan> SqlEngine::KnownPlan(const Command& command) {
  const auto find = [&] {
    shape_.key += command.options.updatable ? 'u' : ' ';
    shape_.key += command.options.lock_rows ? 'l' : ' ';
    shape_.key += command.options.by_row_id ? 'r' : ' ';
    shape_.key += command.options.lock_found ? 'f' : ' ';
    return plans_.Find(shape_.key);
  };
  if (sql::GuessShape(command.text, shape_)) {
    if (Ref<Plan> plan = find()) return plan;
  }
  sql::ReadShape(command.text, shape_);
  return find();
}

sql::CompiledStatement SqlEngine::CompileShape(sql::CompileOptions options) {
  struct WithoutOptions {
    std::string& key;
    const std::string whole = key;
    ~WithoutOptions() { key = whole; }
  };
  const WithoutOptions kept{shape_.key};
  shape_.key.resize(shape_.key.size() - kOptionBytes);
  return sql::Compile(sql::Parse(shape_), shape_, *this, SqlDialect(), options);
}

Ref<Plan> SqlEngine::NewPlan(const Command& command) try {
  if (tables_version_ < 0) tables_version_ = SchemaVersion();
  sql::CompiledStatement compiled = CompileShape(command.options);
  // Tables were described one by one and maybe long ago; only an unchanged number tells that they still hold.
  if (!TablesUnchanged()) return nullptr;
  auto plan = MakeRef<Plan>(std::move(compiled));
  if (plan->shape.statement().cacheable) plans_.Add(shape_.key, plan);
  return plan;
} catch (const RunTimeError&) {
  if (SchemaVersion() == tables_version_) throw;
  return nullptr;
}

const Value& SqlEngine::Given(const sql::ParameterPlan& plan, const Command& command, sql::StatementClock& clock,
                              Value& scratch) const {
  using Source = sql::ParameterPlan::Source;
  if (plan.source == Source::Literal) return shape_.literals[plan.index];
  if (plan.source != Source::Placeholder) return scratch = clock.Read(plan.source);
  if (plan.index < command.parameters.size()) return command.parameters[plan.index];
  throw RunTimeError(FailureNumber::NoSuchColumn, "No value was given for a placeholder of the statement.");
}

void SqlEngine::BindAll(PreparedStatement& statement, const sql::CompiledStatement& compiled, const Command& command) {
  const bool lasting = compiled.kind == sql::CompiledStatement::Kind::Select;
  sql::StatementClock clock;
  converted_.resize(compiled.parameters.size());
  for (std::size_t i = 0; i < compiled.parameters.size(); ++i) {
    const sql::ParameterPlan& plan = compiled.parameters[i];
    const Value& given = Given(plan, command, clock, converted_[i]);
    statement.Bind(static_cast<int>(i + 1), sql::Converted(given, plan, converted_[i]), lasting);
  }
}

Result SqlEngine::ExecuteSchemaChange(const Command& command) {
  sql::ReadShape(command.text, shape_);
  const sql::Statement statement = sql::Parse(shape_);
  DetachCursors();
  Forget();
  ChangeSchema(*statement.schema_change);
  return {};
}

/// A record set that was opened for reading only locks nothing.
Command SqlEngine::InTransaction(Command command) const {
  constexpr std::int32_t kReadOnly = 1;
  command.options.lock_found = IsSelect(command.text) && command.request.lock_type != kReadOnly;
  return command;
}

Result SqlEngine::Execute(const Command& given) {
  RequireUsable();
  const Command command = TransactionsMeet() && TransactionDepth() > 0 ? InTransaction(given) : given;
  Result result;
  for (int attempt = 0; attempt < kSchemaRetries; ++attempt) {
    Ref<Plan> plan = KnownPlan(command);
    if (!plan && sql::IsSchemaChange(command.text)) return ExecuteSchemaChange(command);
    if (!plan) plan = NewPlan(command);
    if (plan && RunUnlessChanged(plan, command, result)) return result;
    Forget();
  }
  throw RunTimeError(FailureNumber::FileUnusable, "The tables are being changed by another program; try again later.");
}

/// What another client has made of the tables meanwhile may be why a statement failed.
bool SqlEngine::RunUnlessChanged(const Ref<Plan>& plan, const Command& command, Result& result) try {
  return Run(plan, command, result);
} catch (const RunTimeError& failure) {
  if (!FailsForChangedTables(failure) || SchemaVersion() == tables_version_) throw;
  return false;
}

/// The transaction around one statement.
struct SqlEngine::OfStatement {
  SqlEngine& engine;
  bool reads;
  const sql::CompileOptions& options;

  void BeginTrans() { engine.BeginStatement(reads, options); }
  void CommitTrans() { engine.CommitTrans(); }
  void RollbackTrans() { engine.RollbackTrans(); }
};

bool SqlEngine::Run(const Ref<Plan>& plan, const Command& command, Result& result) {
  const bool reads = plan->shape.statement().kind == sql::CompiledStatement::Kind::Select;
  if (!reads) DetachCursors();
  const bool outside = TransactionDepth() == 0;
  OfStatement transaction{*this, reads, command.options};
  TransactionGuard own(transaction, outside ? !reads && !StatementsAreTransactions() : FailureEndsTransaction());
  if (!command.turn.empty()) TakeTurn(command.turn);
  Lease lease(*this, *plan);
  if (!lease.MakeReady(command)) return false;
  const PreparedStatement::Step step = lease.statement().Next();
  if (step == PreparedStatement::Step::SchemaChanged) return false;
  if (reads) {
    result.cursor = std::make_unique<SqlCursor>(*this, plan, lease.Take(), step == PreparedStatement::Step::Row);
  } else {
    result.rows = lease.statement().RowsWritten();
    result.row_id = lease.statement().RowId();
    lease.Return();
  }
  own.Commit();
  return true;
}

}  // namespace zef
