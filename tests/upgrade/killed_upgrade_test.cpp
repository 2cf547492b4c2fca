#include <signal.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <random>
#include <thread>

#include "platform/sqlite/sqlite_file.h"
#include "platform/sqlite/sqlite_statement.h"
#include "tests/support/filled_database.h"
#include "tests/support/forwarding_engine.h"
#include "tests/support/process.h"
#include "tests/upgrade/upgrade_fixture.h"
#include "tests/upgrade/upgrading_client.h"

namespace zef::test {
namespace {

/// An engine that ends its process at the n-th statement, once it has run.
class Deadly final : public ForwardingEngine {
 public:
  Deadly(std::unique_ptr<Engine> engine, int statement) : ForwardingEngine(std::move(engine)), left_(statement) {}

  Result Execute(const Command& command) override {
    Result result = ForwardingEngine::Execute(command);
    if (--left_ == 0) kill(getpid(), SIGKILL);
    return result;
  }

 private:
  int left_;
};

/// An upgrade in a process that does not live to its end.
class KilledUpgrade : public testing::Test {
 protected:
  void Fill(int contacts) {
    {
      const Ref<Connection> connection = older_.Connect();
      FillOlderDatabase(*connection);
      AddManyRows(*connection, contacts);
      rows_ = KeptRows(*connection);
    }
    if (!OnServer()) Restore();
  }
  void Restore() {
    std::filesystem::remove(path_ + "-wal");
    std::filesystem::remove(path_ + "-shm");
    std::filesystem::copy_file(older_.path(), path_, std::filesystem::copy_options::overwrite_existing);
  }
  /// Nothing is lost, a file is sound, and a second client brings it to the end.
  void ExpectFinishedBySecondClient() {
    if (!OnServer()) {
      EXPECT_EQ(IntegrityCheck(), "ok");
    }
    UpgradingClient again(upgraded_);
    EXPECT_EQ(KeptRows(*again.session->conDBConnection), rows_);
    EXPECT_TRUE(again.Upgrade()) << again.session->GetEntireErrorDesc();
    EXPECT_EQ(again.StoredVersion(), "9.2.4");
    EXPECT_EQ(KeptRows(*again.session->conDBConnection), rows_);
  }
  std::string IntegrityCheck() const {
    const DatabaseHandle db = OpenDatabaseFile(path_, "");
    const StatementHandle check = PrepareOwn(db.get(), "PRAGMA integrity_check");
    sqlite3_step(check.get());
    return reinterpret_cast<const char*>(sqlite3_column_text(check.get(), 0));
  }

  Database older_{"9.1"};
  TemporaryFolder folder_;
  std::string path_ = (folder_.path() / "copy.db").string();
  /// The copy of the file, or the database on the server itself.
  std::string upgraded_ = OnServer() ? older_.ConnectionString() : "Provider=SQLite;Data Source=" + path_;
  std::string rows_;
};

std::string UpgradeDyingAt(const std::string& connection_string, int statement) {
  UpgradingClient client(connection_string);
  client.session->conDBConnection->WrapEngine(
      [&](std::unique_ptr<Engine> engine) { return std::make_unique<Deadly>(std::move(engine), statement); });
  return client.Upgrade() ? "done" : client.session->GetEntireErrorDesc();
}

class KilledUpgradeAt : public KilledUpgrade, public testing::WithParamInterface<int> {};

TEST_P(KilledUpgradeAt, ThisStatementLosesNothingAndIsFinishedByTheNextClient) {
  Fill(5);
  EXPECT_EQ(Process([&] { return UpgradeDyingAt(upgraded_, GetParam()); }).Result(), "");
  ExpectFinishedBySecondClient();
}

INSTANTIATE_TEST_SUITE_P(Statements, KilledUpgradeAt, testing::Values(3, 4, 10, 20, 24, 45, 58, 61, 66, 68, 76, 82));

/// A proof on a database of real size, run by bench/upgrade_proof.sh. It takes minutes, and when the process dies
/// depends on the machine.
TEST_F(KilledUpgrade, DISABLED_OfRealSizeLosesNothingWheneverItDies) {
  using Milliseconds = std::chrono::duration<double, std::milli>;
  constexpr int kDeaths = 100;
  Fill(50'000);
  const auto begin = std::chrono::steady_clock::now();
  ASSERT_EQ(Process([&] { return UpgradeDyingAt(upgraded_, 0); }).Result(), "done");
  const Milliseconds whole = std::chrono::steady_clock::now() - begin;
  setvbuf(stdout, nullptr, _IOLBF, 0);
  std::printf("50,000 contacts, 50,000 tasks and 100,000 events upgraded in %.0f ms\n", whole.count());
  ExpectFinishedBySecondClient();
  std::mt19937 random(1);
  for (int deaths = 0; deaths < kDeaths && !HasFailure();) {
    Restore();
    const Milliseconds life = whole * std::uniform_real_distribution<>(0, 1)(random);
    Process upgrade([&] { return UpgradeDyingAt(upgraded_, 0); });
    std::this_thread::sleep_for(life);
    upgrade.Kill();
    if (!upgrade.Result().empty()) continue;  // killed too late
    std::printf("death %3d: after %4.0f ms\n", ++deaths, life.count());
    ExpectFinishedBySecondClient();
  }
}

}  // namespace
}  // namespace zef::test
