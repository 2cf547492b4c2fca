#include "platform/backup.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "platform/recordset.h"
#include "platform/sqlite/sqlite_file.h"
#include "platform/sqlite/sqlite_statement.h"
#include "tests/support/database.h"
#include "tests/support/dump.h"
#include "tests/support/raised.h"

namespace zef::test {
namespace {

namespace fs = std::filesystem;

/// A database with a row that is known, and a place for its copy.
class Backup : public testing::Test {
 protected:
  Backup() { connection_->Execute("INSERT INTO Notes (NOT_ID,NOT_Title) VALUES (1,'It''s Ünder')"); }

  static void Ignore(std::int64_t /*done*/, std::int64_t /*all*/) {}
  void Copy(const BackupProgress& progress = &Ignore) const {
    BackUpDatabase(database_.ConnectionString(), place(), progress);
  }
  std::string place() const { return (folder_.path() / "copy.db").string(); }
  Ref<Connection> Copied() const {
    auto connection = MakeRef<Connection>();
    connection->Open("Provider=SQLite;Data Source=" + place());
    return connection;
  }
  std::string Title(const Ref<Connection>& connection) const {
    return Scalar(*connection, "SELECT NOT_Title FROM Notes");
  }
  /// Fills more pages than one portion has.
  void Enlarge() const { connection_->Execute("UPDATE Notes SET NOT_Text='" + std::string(8'000'000, 'n') + "'"); }

  Database database_;
  Ref<Connection> connection_ = database_.Connect();
  TemporaryFolder folder_;
};

TEST_F(Backup, HoldsEveryRow) {
  Copy();
  EXPECT_EQ(Dump(*Copied()), Dump(*connection_));
}

TEST_F(Backup, IsSound) {
  Copy();
  const DatabaseHandle db = OpenDatabaseFile(place(), "");
  const StatementHandle check = PrepareOwn(db.get(), "PRAGMA integrity_check");
  ASSERT_EQ(sqlite3_step(check.get()), SQLITE_ROW);
  EXPECT_STREQ(reinterpret_cast<const char*>(sqlite3_column_text(check.get(), 0)), "ok");
}

TEST_F(Backup, IsOneFilePrivateToTheUser) {
  Copy();
  struct stat status {};
  ASSERT_EQ(stat(place().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0600U);
  EXPECT_EQ(std::distance(fs::directory_iterator(folder_.path()), fs::directory_iterator()), 1);
}

TEST_F(Backup, HoldsWhatWasCommittedAndNotWhatIsOpen) {
  connection_->BeginTrans();
  connection_->Execute("UPDATE Notes SET NOT_Title='open'");
  Copy();
  EXPECT_EQ(Title(Copied()), "It's Ünder");
}

TEST_F(Backup, LeavesTheWriterItsTransaction) {
  connection_->BeginTrans();
  connection_->Execute("UPDATE Notes SET NOT_Title='open'");
  Copy();
  connection_->CommitTrans();
  EXPECT_EQ(Title(database_.Connect()), "open");
}

TEST_F(Backup, OfALargeDatabaseTellsItsProgressUntilAllIsDone) {
  Enlarge();
  std::vector<std::int64_t> left;
  Copy([&](std::int64_t done, std::int64_t all) { left.push_back(all - done); });
  EXPECT_GT(left.size(), 1u);
  EXPECT_EQ(left.back(), 0);
  EXPECT_EQ(Dump(*Copied()), Dump(*connection_));
}

TEST_F(Backup, ThatIsStoppedLeavesNoFile) {
  EXPECT_THROW(Copy([](std::int64_t, std::int64_t) { throw std::runtime_error("stop"); }), std::runtime_error);
  EXPECT_TRUE(fs::is_empty(folder_.path()));
}

TEST_F(Backup, NeverOverwritesAFile) {
  std::ofstream(place()) << "mine";
  EXPECT_EQ(NumberRaised([&] { Copy(); }), 75);
  EXPECT_EQ(fs::file_size(place()), 4u);
}

TEST_F(Backup, DoesNotFollowALink) {
  fs::create_symlink(folder_.path() / "elsewhere", place());
  EXPECT_EQ(NumberRaised([&] { Copy(); }), 75);
  EXPECT_FALSE(fs::exists(folder_.path() / "elsewhere"));
}

TEST_F(Backup, IntoAMissingFolderIsRefused) {
  EXPECT_EQ(NumberRaised([&] { BackUpDatabase(database_.ConnectionString(), "/nowhere/copy.db", &Ignore); }), 75);
}

TEST_F(Backup, OfAMissingDatabaseIsRefusedAndLeavesNoFile) {
  EXPECT_EQ(NumberRaised([&] { BackUpDatabase("Provider=SQLite;Data Source=/nowhere.db", place(), &Ignore); }),
            -2147467259);
  EXPECT_TRUE(fs::is_empty(folder_.path()));
}

TEST_F(Backup, OfAnUnknownProviderIsRefused) {
  EXPECT_EQ(NumberRaised([&] { BackUpDatabase("Provider=Other;Data Source=x", place(), &Ignore); }), 3706);
}

TEST_F(Backup, OfADatabaseWithOtherPagesThanUsualHoldsEveryRow) {
  const std::string small = (folder_.path() / "small.db").string();
  {
    const DatabaseHandle made = OpenNewDatabaseFile(small, "");
    sqlite3_exec(made.get(),
                 "PRAGMA page_size=1024; PRAGMA journal_mode=WAL; CREATE TABLE T (A); INSERT INTO T VALUES (7)",
                 nullptr, nullptr, nullptr);
  }
  BackUpDatabase("Provider=SQLite;Data Source=" + small, place(), &Ignore);
  EXPECT_EQ(Scalar(*Copied(), "SELECT A FROM T"), "7");
}

#ifndef ZEF_SYSTEM_SQLITE

class EncryptedBackup : public testing::Test {
 protected:
  EncryptedBackup() {
    database_.Connect()->Execute("INSERT INTO Notes (NOT_ID,NOT_Title) VALUES (1,'a rare word')");
    BackUpDatabase(database_.ConnectionString(), place(), [](std::int64_t, std::int64_t) {});
  }
  std::string place() const { return (folder_.path() / "copy.db").string(); }

  Database database_{"9.2.4", "p'w d"};
  TemporaryFolder folder_;
};

TEST_F(EncryptedBackup, OpensWithTheSamePassword) {
  auto connection = MakeRef<Connection>();
  connection->Open("Provider=SQLite;Data Source=" + place() + ";Password=\"p'w d\"");
  EXPECT_EQ(Dump(*connection), Dump(*database_.Connect()));
}

TEST_F(EncryptedBackup, IsRefusedWithoutIt) {
  EXPECT_EQ(NumberRaised([&] { OpenDatabaseFile(place(), ""); }), -2147217843);
  EXPECT_EQ(NumberRaised([&] { OpenDatabaseFile(place(), "other"); }), -2147217843);
}

TEST_F(EncryptedBackup, ShowsNothingOfItsContent) {
  std::ifstream file(place(), std::ios::binary);
  const std::string bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  EXPECT_EQ(bytes.find("rare word"), std::string::npos);
  EXPECT_EQ(bytes.find("CREATE TABLE"), std::string::npos);
}

#endif

}  // namespace
}  // namespace zef::test
