#include "tests/support/fault_sweep.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/dump.h"
#include "tests/support/engine_wrapper.h"

namespace zef::test {
namespace {

/// No operation needs as many calls; one that never succeeds must not run for ever.
constexpr int kMostCalls = 500;

std::vector<std::string> Tables(Unchanged unchanged) {
  std::vector<std::string> tables = TableNames();
  if (unchanged == Unchanged::AllButSequences) std::erase(tables, "Sequences");
  return tables;
}

/// Lets the calls that begin with a text neither fail nor count.
class SparingEngine final : public Engine {
 public:
  SparingEngine(std::unique_ptr<Engine> engine, std::shared_ptr<EngineLog> log, std::string spared)
      : engine_(std::move(engine)), log_(std::move(log)), spared_(std::move(spared)) {}

  Result Execute(const Command& command) override {
    if (command.text.starts_with(spared_) && log_->fail_at > 0) ++log_->fail_at;
    return engine_->Execute(command);
  }
  void BeginTrans() override { engine_->BeginTrans(); }
  void CommitTrans() override { engine_->CommitTrans(); }
  void RollbackTrans() override { engine_->RollbackTrans(); }
  int TransactionDepth() const override { return engine_->TransactionDepth(); }

 private:
  std::unique_ptr<Engine> engine_;
  std::shared_ptr<EngineLog> log_;
  std::string spared_;
};

std::shared_ptr<EngineLog> WatchSparing(Connection& connection, const std::string& spared) {
  const std::shared_ptr<EngineLog> log = Watch(connection);
  if (spared.empty()) return log;
  connection.WrapEngine(
      [&](std::unique_ptr<Engine> engine) { return std::make_unique<SparingEngine>(std::move(engine), log, spared); });
  return log;
}

/// The call that failed is the last one but for the rollbacks that follow it and the reading that goes on; it is found
/// by its number.
std::string FailedCall(const EngineLog& log, int number, const std::string& spared) {
  int seen = 0;
  for (const std::string& text : log.texts) {
    if (!spared.empty() && text.starts_with(spared)) continue;
    if (text != "ROLLBACK" && ++seen == number) return text;
  }
  return "no such call";
}

void ExpectNothingOpen(CSession& session) {
  EXPECT_FALSE(session.TransactionStarted());
  EXPECT_EQ(session.conDBConnection->OpenedEngine().TransactionDepth(), 0);
  EXPECT_TRUE(session.BeginTransaction());
  EXPECT_TRUE(session.RollbackTransaction());
}

}  // namespace

std::vector<InjectedFailure> FailEachCall(const Database& database, CSession& session,
                                          const std::function<bool()>& operation,
                                          const std::function<std::string()>& state, Unchanged unchanged,
                                          const std::string& spared) {
  const std::function<std::string()> observed = state ? state : [] { return std::string(); };
  const Ref<Connection> outside = database.Connect();
  const std::vector<std::string> tables = Tables(unchanged);
  const std::string tables_before = Dump(*outside, tables);
  const std::string state_before = observed();
  const std::shared_ptr<EngineLog> log = WatchSparing(*session.conDBConnection, spared);
  std::vector<InjectedFailure> failures;
  for (int number = 1; number <= kMostCalls; ++number) {
    log->texts.clear();
    session.ClearError();
    log->fail_at = number;
    const bool done = operation();
    const bool failed_a_call = log->fail_at == 0;
    log->fail_at = 0;
    if (!failed_a_call) {
      EXPECT_TRUE(done) << "with no call failing: " << session.GetEntireErrorDesc();
      return failures;
    }
    failures.push_back({FailedCall(*log, number, spared), session.GetErrorProcedure()});
    SCOPED_TRACE("call " + std::to_string(number) + ": " + failures.back().call);
    EXPECT_FALSE(done);
    EXPECT_TRUE(session.GetErrorFlag());
    EXPECT_EQ(observed(), state_before);
    ExpectNothingOpen(session);
    EXPECT_EQ(Dump(*outside, tables), tables_before);
    if (done || testing::Test::HasFailure()) return failures;
  }
  ADD_FAILURE() << "The operation does not come to an end.";
  return failures;
}

}  // namespace zef::test
