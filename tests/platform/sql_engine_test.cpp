#include "platform/sql_engine.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/sqlite/sqlite_dialect.h"
#include "tests/support/raised.h"

namespace zef::test {
namespace {

using Texts = std::vector<std::string>;

/// What a scripted engine is to do, and what it was asked for.
struct Script {
  bool changed = false;  ///< another program has changed the tables; the next run fails for it
  bool failure_ends_transaction = false;
  bool fail = false;  ///< the next run of a statement
  Texts log;          ///< transactions and runs
  Texts described;    ///< tables whose columns were asked for
  int prepared = 0;
  int version = 1;
};

/// A statement that writes one row or delivers none.
class ScriptedStatement final : public PreparedStatement {
 public:
  explicit ScriptedStatement(Script& script) : script_(script) {}

  void Bind(int, const Value&, bool) override {}
  Step Next() override {
    script_.log.push_back("run");
    if (std::exchange(script_.changed, false)) {
      ++script_.version;
      throw RunTimeError(FailureNumber::NoSuchColumn);
    }
    if (script_.fail) throw RunTimeError(FailureNumber::ConstraintViolated);
    return Step::Done;
  }
  void Read(Positions, std::span<const sql::Type>, std::span<Value>) const override {}
  std::size_t Fill(Positions, std::span<const sql::Type>, std::span<const Slot>) const override { return 0; }
  void Reset() override {}
  std::int64_t RowsWritten() const override { return 1; }

 private:
  Script& script_;
};

/// An engine with a table T of one column A, which keeps no rows.
class ScriptedEngine final : public SqlEngine {
 public:
  explicit ScriptedEngine(Script& script) : script_(script) {}
  ~ScriptedEngine() override {
    AbandonCursors();
    Forget();
  }

  void BeginTrans() override { script_.log.push_back("begin " + std::to_string(++depth_)); }
  void CommitTrans() override { script_.log.push_back("commit " + std::to_string(depth_--)); }
  void RollbackTrans() override { script_.log.push_back("undo " + std::to_string(depth_--)); }
  int TransactionDepth() const override { return depth_; }
  std::optional<std::vector<std::string>> Relationships(std::string_view) override { return std::nullopt; }

 protected:
  const sql::Dialect& SqlDialect() const override { return dialect_; }
  std::unique_ptr<PreparedStatement> Prepare(const sql::CompiledStatement&) override {
    ++script_.prepared;
    return std::make_unique<ScriptedStatement>(script_);
  }
  sql::TableInfo Describe(std::string_view table) override {
    script_.described.emplace_back(table);
    return {"T", {{"A", sql::Type::Long}}, "rowid"};
  }
  std::int64_t SchemaVersion() override { return script_.version; }
  void ChangeSchema(const sql::SchemaChange&) override {}
  bool FailsForChangedTables(const RunTimeError& failure) const override {
    return failure.code() == FailureNumber::NoSuchColumn;
  }
  bool FailureEndsTransaction() const override { return script_.failure_ends_transaction; }
  void RequireUsable() const override {}

 private:
  Script& script_;
  SqliteDialect dialect_;
  int depth_ = 0;
};

class SqlEngineTest : public testing::Test {
 protected:
  static constexpr std::string_view kWrite = "UPDATE T SET A=1";
  static constexpr std::string_view kRead = "SELECT A FROM T";

  Result Run(std::string_view text) { return engine.Execute({.text = text}); }

  Script script;
  ScriptedEngine engine{script};
};

TEST_F(SqlEngineTest, KeepsAPlan) {
  Run(kWrite);
  Run(kWrite);
  EXPECT_EQ(script.prepared, 1);
  EXPECT_EQ(script.described, Texts{"T"});
}

TEST_F(SqlEngineTest, WorksAPlanOutAnewThatFailsForChangedTables) {
  Run(kWrite);
  script.changed = true;
  EXPECT_EQ(Run(kWrite).rows, 1);
  EXPECT_EQ(script.prepared, 2);
  EXPECT_EQ(script.described, (Texts{"T", "T"}));
}

TEST_F(SqlEngineTest, ForgetsEveryPlanWithOneThatFailsForChangedTables) {
  Run(kWrite);
  Run(kRead);
  script.changed = true;
  Run(kWrite);
  EXPECT_EQ(engine.CachedPlans(), 1u);
}

TEST_F(SqlEngineTest, RunsAStatementInsideATransactionAsItIs) {
  engine.BeginTrans();
  Run(kWrite);
  EXPECT_EQ(script.log, (Texts{"begin 1", "run"}));
}

TEST_F(SqlEngineTest, GivesAWriteOutsideATransactionOneOfItsOwn) {
  Run(kWrite);
  EXPECT_EQ(script.log, (Texts{"begin 1", "run", "commit 1"}));
}

TEST_F(SqlEngineTest, WhoseFailuresEndTransactionsRunsAWriteInANestedOne) {
  script.failure_ends_transaction = true;
  engine.BeginTrans();
  Run(kWrite);
  EXPECT_EQ(script.log, (Texts{"begin 1", "begin 2", "run", "commit 2"}));
}

TEST_F(SqlEngineTest, WhoseFailuresEndTransactionsRunsASelectInANestedOne) {
  script.failure_ends_transaction = true;
  engine.BeginTrans();
  Run(kRead);
  EXPECT_EQ(script.log, (Texts{"begin 1", "begin 2", "run", "commit 2"}));
}

TEST_F(SqlEngineTest, WhoseFailuresEndTransactionsUndoesTheNestedOneAlone) {
  script.failure_ends_transaction = true;
  script.fail = true;
  engine.BeginTrans();
  EXPECT_TRUE(Raised([&] { Run(kWrite); }));
  EXPECT_EQ(script.log, (Texts{"begin 1", "begin 2", "run", "undo 2"}));
  EXPECT_EQ(engine.TransactionDepth(), 1);
}

TEST_F(SqlEngineTest, WhoseFailuresEndTransactionsNeedsNoneForASelectOutsideOfOne) {
  script.failure_ends_transaction = true;
  Run(kRead);
  EXPECT_EQ(script.log, Texts{"run"});
}

}  // namespace
}  // namespace zef::test
