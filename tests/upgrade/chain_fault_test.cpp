#include <algorithm>
#include <filesystem>

#include "tests/support/filled_database.h"
#include "tests/upgrade/upgrade_fixture.h"
#include "tests/upgrade/upgrading_client.h"

namespace zef::test {
namespace {

/// The calls are dealt out to so many tests, since each takes a database of its own.
constexpr int kShares = 8;

/// Copies of one filled database.
class ChainFault : public testing::TestWithParam<int> {
 protected:
  ChainFault() {
    const Ref<Connection> connection = older_.Connect();
    FillOlderDatabase(*connection);
    rows_ = KeptRows(*connection);
  }
  std::string Copy() {
    std::filesystem::remove(path_);  // not every system's library replaces it
    std::filesystem::copy_file(older_.path(), path_);
    return copy_;
  }
  void ExpectFinished(const std::string& failed) {
    UpgradingClient again(copy_);
    EXPECT_TRUE(again.Upgrade()) << again.session->GetEntireErrorDesc();
    EXPECT_EQ(again.StoredVersion(), "9.2.4");
    Connection& connection = *again.session->conDBConnection;
    EXPECT_EQ(Count(connection, "Folders"), 12);
    // A column that was added and not filled counts as done, too.
    const int filled = failed.starts_with("UPDATE EVENTS ") ? 0 : 2;
    EXPECT_EQ(Count(connection, "Events WHERE EVE_Type='E' AND EVE_LinkID=-1"), filled);
    EXPECT_EQ(KeptRows(connection), rows_);
  }

  Database older_{"9.1"};
  TemporaryFolder folder_;
  std::string path_ = (folder_.path() / "copy.db").string();
  std::string copy_ = "Provider=SQLite;Data Source=" + path_;
  std::string rows_;
};

/// Runs the chain with its n-th call failing; the text of that call, or an empty one if there are not so many.
std::string FailedCall(const std::string& copy, int number) {
  UpgradingClient client(copy);
  const std::shared_ptr<EngineLog> log = Watch(*client.session->conDBConnection);
  log->fail_at = number;
  const bool done = client.Upgrade();
  const bool failed_a_call = log->fail_at == 0;
  log->fail_at = 0;
  EXPECT_NE(done, failed_a_call);
  if (!failed_a_call) return {};
  const auto last = std::find_if(log->texts.rbegin(), log->texts.rend(), [](auto& text) { return text != "ROLLBACK"; });
  const std::string call = *last;
  const bool asked = number > 1;
  EXPECT_EQ(client.version, asked ? client.StoredVersion() : "") << "the version stays";
  EXPECT_NE(client.session->GetErrorDescription(), "");
  EXPECT_FALSE(client.session->TransactionStarted());
  return call;
}

TEST_P(ChainFault, AtACallIsToldAndASecondRunComesToTheEnd) {
  int number = GetParam();
  for (;; number += kShares) {
    const std::string call = FailedCall(Copy(), number);
    if (call.empty()) break;
    SCOPED_TRACE("call " + std::to_string(number) + ": " + call);
    ExpectFinished(call);
    if (HasFailure()) return;
  }
  EXPECT_GT(number, 100);
}

INSTANTIATE_TEST_SUITE_P(EveryCall, ChainFault, testing::Range(1, kShares + 1));

}  // namespace
}  // namespace zef::test
