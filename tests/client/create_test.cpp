#include "client/create.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <algorithm>
#include <fstream>

#include "client/place_file.h"
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
    return FailureOf([&] { CreateDatabase(File(name), "", kCurrentSchema); });
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

TEST_F(CreateDatabaseTest, NameWithQuotesAndSemicolonsIsTaken) {
  EXPECT_EQ(Create("a\";b=';c.db"), "");
  EXPECT_THAT(Names(), ElementsAre("a\";b=';c.db"));
}

TEST_F(CreateDatabaseTest, FailureWhileFillingLeavesNothingBehind) {
  const char* const kTwice = "CREATE TABLE T (A Long);\nCREATE TABLE T (A Long);\n";
  EXPECT_NE(FailureOf([&] { CreateDatabaseFrom(kTwice, File("a.db"), ""); }), "");
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
