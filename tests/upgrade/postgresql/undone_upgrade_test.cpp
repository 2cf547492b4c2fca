#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include "tests/support/engine_wrapper.h"
#include "tests/support/filled_database.h"
#include "tests/support/forwarding_engine.h"
#include "tests/support/process.h"
#include "tests/support/server.h"
#include "tests/upgrade/upgrading_client.h"

namespace zef::test {
namespace {

/// Does something before the n-th statement reaches the engine.
class Disturbing final : public ForwardingEngine {
 public:
  Disturbing(std::unique_ptr<Engine> engine, int statement, std::function<void()> disturb)
      : ForwardingEngine(std::move(engine)), left_(statement), disturb_(std::move(disturb)) {}

  Result Execute(const Command& command) override {
    if (--left_ == 0) disturb_();
    return ForwardingEngine::Execute(command);
  }

 private:
  int left_;
  std::function<void()> disturb_;
};

/// The whole upgrade in one transaction on the server, which does not come to its end.
class UndoneUpgradePostgreSQL : public testing::TestWithParam<int> {
 protected:
  UndoneUpgradePostgreSQL() {
    FillOlderDatabase(*Connect());
    before_ = State();
  }

  Ref<Connection> Connect() const {
    auto connection = MakeRef<Connection>();
    connection->Open(database_.ConnectionString());
    return connection;
  }
  /// All columns, keys and rows.
  std::string State() const {
    return database_.Ask(
               "SELECT string_agg(format('%s.%s %s %s', table_name, column_name, data_type, character_maximum_length),"
               " E'\\n' ORDER BY table_name, ordinal_position) FROM information_schema.columns"
               " WHERE table_schema = current_schema()") +
           database_.Ask("SELECT string_agg(conname, ',' ORDER BY conname) FROM pg_constraint") + KeptRows(*Connect());
  }
  static bool Upgrade(UpgradingClient& client) {
    CSession& session = *client.session;
    if (!session.BeginTransaction()) return false;
    if (client.Upgrade() && session.CommitTransaction()) return true;
    session.RollbackTransaction();
    return false;
  }
  /// True if it was upgraded in spite of it.
  bool UpgradeDisturbed(const std::function<void()>& disturb) const {
    UpgradingClient client(database_.ConnectionString());
    client.session->conDBConnection->WrapEngine([&](std::unique_ptr<Engine> engine) {
      return std::make_unique<Disturbing>(std::move(engine), GetParam(), disturb);
    });
    return Upgrade(client);
  }
  void ExpectAsBeforeAndRepeatable() {
    EXPECT_EQ(State(), before_);
    UpgradingClient again(database_.ConnectionString());
    EXPECT_TRUE(Upgrade(again)) << again.session->GetEntireErrorDesc();
    EXPECT_EQ(again.StoredVersion(), "9.2.4");
  }

  const ServerDatabase database_{"9.1"};
  std::string before_;
};

/// The calls are dealt out to tests that run side by side.
class FailedUpgradePostgreSQL : public UndoneUpgradePostgreSQL {};
constexpr int kShares = 4;
constexpr int kStride = 3 * kShares;

TEST_P(FailedUpgradePostgreSQL, AtACallLeavesEverythingAsItWasAndCanBeRepeated) {
  int number = GetParam();
  for (;; number += kStride) {
    SCOPED_TRACE("call " + std::to_string(number));
    UpgradingClient client(database_.ConnectionString());
    const std::shared_ptr<EngineLog> log = Watch(*client.session->conDBConnection);
    log->fail_at = 1 + number;  // behind the beginning of the transaction
    if (Upgrade(client)) break;
    ASSERT_EQ(log->fail_at, 0) << client.session->GetEntireErrorDesc();
    ASSERT_EQ(State(), before_);
  }
  EXPECT_GT(number, 100);
}

INSTANTIATE_TEST_SUITE_P(Calls, FailedUpgradePostgreSQL, testing::Range(1, kStride, 3));

TEST_P(UndoneUpgradePostgreSQL, ByALostConnectionLeavesEverythingAsItWasAndCanBeRepeated) {
  EXPECT_FALSE(UpgradeDisturbed([&] { database_.EndConnections(); }));
  ExpectAsBeforeAndRepeatable();
}

TEST_P(UndoneUpgradePostgreSQL, ByTheEndOfItsProcessLeavesEverythingAsItWasAndCanBeRepeated) {
  Process upgrade([&] { return UpgradeDisturbed([] { kill(getpid(), SIGKILL); }) ? "done" : "failed"; });
  EXPECT_EQ(upgrade.Result(), "");
  ExpectAsBeforeAndRepeatable();
}

INSTANTIATE_TEST_SUITE_P(Statements, UndoneUpgradePostgreSQL, testing::Values(2, 20, 60, 90));

}  // namespace
}  // namespace zef::test
