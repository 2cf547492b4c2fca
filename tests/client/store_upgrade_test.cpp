#include <gmock/gmock.h>
#include <signal.h>
#include <unistd.h>

#include <filesystem>

#include "platform/recordset.h"
#include "platform/sqlite/sqlite_file.h"
#include "platform/sqlite/sqlite_statement.h"
#include "tests/client/upgrading.h"
#include "tests/support/database.h"
#include "tests/support/dump.h"
#include "tests/support/filled_database.h"
#include "tests/support/process.h"

namespace zef {
namespace {

/// An upgrade in a process that dies when it tells that it has come to a certain point.
class KilledUpgrade : public testing::TestWithParam<const char*> {
 protected:
  KilledUpgrade() { test::FillOlderDatabase(*database_.Connect()); }

  std::string UpgradeUntil(const std::string& point) const {
    test::UpgradeTelling(database_.path(), [&](const std::string& text) {
      if (text == point) kill(getpid(), SIGKILL);
    });
    return "done";
  }
  std::string All() const { return test::Dump(*database_.Connect()); }
  std::string IntegrityCheck() const {
    const DatabaseHandle db = OpenDatabaseFile(database_.path(), "");
    const StatementHandle check = PrepareOwn(db.get(), "PRAGMA integrity_check");
    sqlite3_step(check.get());
    return reinterpret_cast<const char*>(sqlite3_column_text(check.get(), 0));
  }

  test::Database database_{"9.1"};
};

INSTANTIATE_TEST_SUITE_P(Points, KilledUpgrade,
                         testing::Values("Copying the database", "Upgrading to 9.2.1", "Upgrading to 9.2.2",
                                         "Upgrading to 9.2.3", "Upgrading to 9.2.4", "Looking after the indexes"));

TEST_P(KilledUpgrade, LeavesTheDatabaseAsItWas) {
  const std::string before = All();
  ASSERT_EQ(test::Process([&] { return UpgradeUntil(GetParam()); }).Result(), "");
  EXPECT_EQ(All(), before);
  EXPECT_EQ(IntegrityCheck(), "ok");
}

TEST_P(KilledUpgrade, IsDoneByTheNextOneWithEveryRowAndName) {
  const std::string before = test::KeptRows(*database_.Connect());
  ASSERT_EQ(test::Process([&] { return UpgradeUntil(GetParam()); }).Result(), "");
  EXPECT_EQ(UpgradeUntil("never"), "done");
  EXPECT_EQ(test::KeptRows(*database_.Connect()), before);
}

/// An upgrade in a process that people end with Ctrl-C while it copies the database.
TEST(InterruptedUpgrade, LeavesTheDatabaseAsItWasAndNoPartOfACopy) {
  const test::Database database("9.1");
  test::FillOlderDatabase(*database.Connect());
  const std::string before = test::Dump(*database.Connect());
  test::Process upgrade([&] {
    test::UpgradeTelling(database.path(), [](const std::string&) { raise(SIGINT); });
    return std::string("done");
  });
  EXPECT_EQ(upgrade.Result(), "");
  EXPECT_EQ(test::Dump(*database.Connect()), before);
  std::vector<std::string> names;
  const auto folder = std::filesystem::path(database.path()).parent_path();
  for (const auto& entry : std::filesystem::directory_iterator(folder)) names.push_back(entry.path().filename());
  EXPECT_THAT(names, testing::Each(testing::StartsWith("test.db")));
  EXPECT_THAT(names, testing::Not(testing::Contains("test.db.backup")));
}

}  // namespace
}  // namespace zef
