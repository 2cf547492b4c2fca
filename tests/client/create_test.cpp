#include "client/create.h"

#include <gmock/gmock.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>

#include "client/place_file.h"
#include "client/schema_names.h"
#include "tests/client/failure_of.h"
#include "tests/support/database.h"

namespace zef::client {
namespace {

namespace fs = std::filesystem;
using test::FailureOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;

class CreateDatabaseTest : public testing::Test {
 protected:
  fs::path File(const char* name) const { return folder_.path() / name; }
  std::string Create(const char* name) const {
    return FailureOf([&] { CreateDatabase({.file = File(name)}, kCurrentSchema); });
  }
  void Write(const char* name, const char* text) const { std::ofstream(File(name)) << text; }
  std::string Content(const char* name) const {
    std::string text;
    std::getline(std::ifstream(File(name)), text);
    return text;
  }
  /// All names in the folder, so that leftovers show.
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder_.path())) names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
  }

 private:
  test::TemporaryFolder folder_;
};

TEST_F(CreateDatabaseTest, LeavesTheDatabaseAndNothingElse) {
  EXPECT_EQ(Create("a.db"), "");
  EXPECT_THAT(Names(), ElementsAre("a.db"));
}

TEST_F(CreateDatabaseTest, FileIsPrivateToTheUser) {
  Create("a.db");
  struct stat status {};
  stat(File("a.db").c_str(), &status);
  EXPECT_EQ(status.st_mode & 0777, 0600U);
}

TEST_F(CreateDatabaseTest, FileThatExistsIsRefusedAndKept) {
  Write("a.db", "precious");
  EXPECT_THAT(Create("a.db"), EndsWith("a.db' exists already."));
  EXPECT_EQ(Content("a.db"), "precious");
}

TEST_F(CreateDatabaseTest, FolderThatExistsIsRefused) {
  fs::create_directory(File("a.db"));
  EXPECT_THAT(Create("a.db"), EndsWith("a.db' exists already."));
}

TEST_F(CreateDatabaseTest, DanglingLinkIsRefusedAndNotFollowed) {
  fs::create_symlink("elsewhere", File("a.db"));
  EXPECT_THAT(Create("a.db"), EndsWith("a.db' exists already."));
  EXPECT_THAT(Names(), ElementsAre("a.db"));
}

TEST_F(CreateDatabaseTest, LogLeftOverFromAnotherDatabaseIsRefused) {
  Write("a.db-wal", "");
  EXPECT_THAT(Create("a.db"), EndsWith("a.db-wal' is left over from another database; remove it first."));
  EXPECT_THAT(Names(), ElementsAre("a.db-wal"));
}

TEST_F(CreateDatabaseTest, MissingFolderIsRefused) {
  EXPECT_THAT(Create("nowhere/a.db"), EndsWith("nowhere': No such file or directory."));
}

TEST_F(CreateDatabaseTest, FileInTheFoldersPlaceIsRefused) {
  Write("file", "");
  EXPECT_THAT(Create("file/a.db"), EndsWith("file': Not a directory."));
}

TEST_F(CreateDatabaseTest, NameThatEndsWithASlashIsRefused) {
  EXPECT_THAT(Create("a/"), EndsWith("a/' names no file."));
}

TEST_F(CreateDatabaseTest, NameWithQuotesAndBlanksInItsMiddleIsTaken) {
  EXPECT_EQ(Create("a\" b'c.db"), "");
  EXPECT_THAT(Names(), ElementsAre("a\" b'c.db"));
}

/// What the joined connection string of `Connect2Database` cannot carry.
class UnconnectableTest : public CreateDatabaseTest, public testing::WithParamInterface<const char*> {
 protected:
  std::string CreateWith(const std::string& password) const {
    return FailureOf([&] { CreateDatabase({.file = File("a.db"), .password = password}, kCurrentSchema); });
  }
};

TEST_P(UnconnectableTest, PasswordIsRefusedAndNotTold) {
  EXPECT_EQ(
      CreateWith(GetParam()),
      "1: --password: it must not have a semicolon, a quotation mark at the beginning, or a blank at either end.");
  EXPECT_THAT(Names(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Passwords, UnconnectableTest,
                         testing::Values("a;b", ";", "'a", "\"a\"", "''", " a", "a ", " "));

TEST_F(CreateDatabaseTest, NameWithASemicolonIsRefused) {
  EXPECT_THAT(Create("a;b.db"), testing::HasSubstr("a;b.db': the name must not have a semicolon"));
  EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(CreateDatabaseTest, NameWithABlankAtItsEndIsRefused) {
  EXPECT_THAT(Create("a.db "), testing::HasSubstr("a blank at either end."));
}

TEST_F(CreateDatabaseTest, SignalLeavesNothingBehindAndEndsTheProgram) {
  std::string statements = "CREATE TABLE T (A Long);\n";
  for (int i = 0; i < 300000; ++i) statements += "INSERT INTO T (A) VALUES (1);\n";
  const pid_t child = fork();
  if (child == 0) {
    FailureOf([&] { CreateDatabaseFrom(statements, {.file = File("a.db")}); });
    _exit(0);
  }
  while (Names().empty()) usleep(1000);
  kill(child, SIGTERM);
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGTERM) << status;
  EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(CreateDatabaseTest, FailureWhileFillingLeavesNothingBehind) {
  const char* const kTwice = "CREATE TABLE T (A Long);\nCREATE TABLE T (A Long);\n";
  EXPECT_NE(FailureOf([&] { CreateDatabaseFrom(kTwice, {.file = File("a.db")}); }), "");
  EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(CreateDatabaseTest, FileThatAppearsMeanwhileIsNotOverwritten) {
  Write("new", "new");
  Write("a.db", "precious");
  EXPECT_THAT(FailureOf([&] { PlaceFile(File("new"), File("a.db")); }), EndsWith("a.db' exists already."));
  EXPECT_EQ(Content("a.db"), "precious");
}

TEST_F(CreateDatabaseTest, PlacedFileHasItsNewNameOnly) {
  Write("new", "new");
  PlaceFile(File("new"), File("a.db"));
  EXPECT_THAT(Names(), ElementsAre("a.db"));
}

}  // namespace
}  // namespace zef::client
