#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "tests/session/connect_fixture.h"
#include "tests/support/process.h"

namespace zef::test {
namespace {

std::string FileWith(const TemporaryFolder& folder, const std::string& content) {
  std::string path = (folder.path() / "file.db").string();
  std::ofstream(path, std::ios::binary) << content;
  return path;
}

TEST(ConnectFailure, OfAMissingFileIsUnusable) {
  const TemporaryFolder folder;
  EXPECT_EQ(NumberOf(Refusal((folder.path() / "missing.db").string())), kUnusable);
}

TEST(ConnectFailure, OfAMissingFileSaysSo) {
  const TemporaryFolder folder;
  EXPECT_TRUE(Contains(Refusal((folder.path() / "missing.db").string())->description(), "does not exist"));
}

TEST(ConnectFailure, OfAMissingFileMakesNoFile) {
  const TemporaryFolder folder;
  Refusal((folder.path() / "missing.db").string());
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST(ConnectFailure, OfAnEmptyNameIsUnusable) { EXPECT_EQ(NumberOf(Refusal("")), kUnusable); }

TEST(ConnectFailure, OfAFolderSaysSo) {
  const TemporaryFolder folder;
  const auto failure = Refusal(folder.path().string());
  EXPECT_EQ(NumberOf(failure), kUnusable);
  EXPECT_TRUE(Contains(failure->description(), "is a folder"));
}

TEST(ConnectFailure, OfATextFileSaysSo) {
  const TemporaryFolder folder;
  const auto failure = Refusal(FileWith(folder, std::string(5000, 'x')));
  EXPECT_EQ(NumberOf(failure), kUnusable);
  EXPECT_TRUE(Contains(failure->description(), "is not a database"));
}

TEST(ConnectFailure, OfAnEmptyFileSaysThatItIsNoDatabase) {
  const TemporaryFolder folder;
  EXPECT_TRUE(Contains(Refusal(FileWith(folder, ""))->description(), "is not a database"));
}

TEST(ConnectFailure, OfATextFileLeavesItAsItWas) {
  const TemporaryFolder folder;
  const std::string path = FileWith(folder, "dear diary");
  Refusal(path);
  EXPECT_EQ(std::filesystem::file_size(path), 10U);
}

TEST(ConnectFailure, OfATruncatedDatabaseSaysThatItIsDamaged) {
  const Database database;
  std::filesystem::resize_file(database.path(), std::filesystem::file_size(database.path()) / 2);
  const auto failure = Refusal(database.path());
  EXPECT_EQ(NumberOf(failure), kUnusable);
  EXPECT_TRUE(Contains(failure->description(), "damaged"));
}

TEST(ConnectFailure, OfADatabaseCutBehindItsHeadSaysThatItIsDamaged) {
  const Database database;
  std::filesystem::resize_file(database.path(), 200);
  EXPECT_TRUE(Contains(Refusal(database.path())->description(), "damaged"));
}

/// Gives up the rights of the superuser, who may read anything.
void BecomeNobody() {
  constexpr unsigned kNobody = 65534;
  if (geteuid() == 0 && (setgid(kNobody) != 0 || setuid(kNobody) != 0))
    throw RunTimeError(FailureNumber::PermissionDenied);
}

std::string RefusalForNobody(const std::string& path) {
  Process process([&] {
    BecomeNobody();
    const auto failure = Refusal(path);
    return failure ? std::to_string(failure->number()) + " " + failure->description() : std::string("connected");
  });
  return process.Result();
}

TEST(ConnectFailure, OfAnUnreadableFileSaysSo) {
  const Database database;
  chmod(std::filesystem::path(database.path()).parent_path().c_str(), 0755);
  chmod(database.path().c_str(), 0);
  EXPECT_EQ(RefusalForNobody(database.path()),
            "-2147467259 The database file '" + database.path() + "' cannot be read: permission denied.");
}

TEST(ConnectFailure, OfAReadOnlyFileSaysSo) {
  const Database database;
  chmod(std::filesystem::path(database.path()).parent_path().c_str(), 0755);
  chmod(database.path().c_str(), 0444);
  EXPECT_EQ(RefusalForNobody(database.path()), "-2147467259 The database file '" + database.path() + "' is read-only.");
}

TEST(ConnectFailure, OfAFileInAClosedFolderSaysThatItCannotBeReached) {
  const Database database;
  chmod(std::filesystem::path(database.path()).parent_path().c_str(), 0);
  const std::string refusal = RefusalForNobody(database.path());
  chmod(std::filesystem::path(database.path()).parent_path().c_str(), 0700);
  EXPECT_TRUE(Contains(refusal, "cannot be reached: permission denied")) << refusal;
}

}  // namespace
}  // namespace zef::test
