#include "platform/file.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "tests/support/database.h"
#include "tests/support/process.h"
#include "tests/support/raised.h"

namespace zef::test {
namespace {

namespace fs = std::filesystem;

std::span<const std::byte> BytesOf(const std::string& text) { return std::as_bytes(std::span(text)); }

class Files : public testing::Test {
 protected:
  std::string Path(const std::string& name) const { return (folder_.path() / name).string(); }
  void Put(const std::string& name, const std::string& content) const {
    std::ofstream(Path(name), std::ios::binary) << content;
  }
  std::string Content(const std::string& name) const {
    std::ifstream file(Path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder_.path())) names.push_back(entry.path().filename());
    return names;
  }
  std::int32_t OpeningRaises(const std::string& name) const {
    return NumberRaised([&] { InputFile file(Path(name)); });
  }
  std::int32_t WritingRaises(const std::string& name) const {
    return NumberRaised([&] { WriteWholeFile(Path(name), BytesOf("new")); });
  }

 private:
  TemporaryFolder folder_;
};

// ---- reading

TEST_F(Files, AreReadToTheirEndAcrossSeveralBuffers) {
  Put("a", "0123456789");
  InputFile file(Path("a"));
  std::byte buffer[4];
  EXPECT_EQ(file.size(), 10u);
  EXPECT_EQ(file.Read(buffer), 4u);
  EXPECT_EQ(file.Read(buffer), 4u);
  EXPECT_EQ(file.Read(buffer), 2u);
  EXPECT_EQ(file.Read(buffer), 0u);
}

TEST_F(Files, ThatAreMissingRaise53) { EXPECT_EQ(OpeningRaises("a"), 53); }

TEST_F(Files, InAMissingFolderRaise76) { EXPECT_EQ(OpeningRaises("no/a"), 76); }

TEST_F(Files, BelowAFileRaise76) {
  Put("a", "");
  EXPECT_EQ(OpeningRaises("a/b"), 76);
}

TEST_F(Files, ThatAreFoldersRaise75) { EXPECT_EQ(OpeningRaises(""), 75); }

TEST_F(Files, ThatArePipesRaise75WithoutWaiting) {
  ASSERT_EQ(mkfifo(Path("pipe").c_str(), 0600), 0);
  EXPECT_EQ(OpeningRaises("pipe"), 75);
}

TEST_F(Files, ThatAreDevicesRaise75) {
  EXPECT_EQ(NumberRaised([] { InputFile file("/dev/zero"); }), 75);
}

TEST_F(Files, WithoutANameRaise75) {
  EXPECT_EQ(NumberRaised([] { InputFile file(""); }), 75);
}

TEST_F(Files, WithAZeroCharacterInTheNameRaise75) {
  Put("a", "");
  EXPECT_EQ(OpeningRaises(std::string("a\0b", 3)), 75);
}

TEST_F(Files, WithATooLongNameRaise75) { EXPECT_EQ(OpeningRaises(std::string(300, 'a')), 75); }

TEST_F(Files, ThatTheUserMayNotReadRaise70) {
  Put("a", "");
  fs::permissions(fs::path(Path("a")).parent_path(), fs::perms::all);
  fs::permissions(Path("a"), fs::perms::none);
  Process child([&]() -> std::string {
    if (geteuid() == 0 && setuid(65534) != 0) return "70";  // cannot become another user here
    return std::to_string(OpeningRaises("a"));
  });
  EXPECT_EQ(child.Result(), "70");
}

TEST_F(Files, ThatCannotBeReadRaise75) {
  InputFile file("/proc/self/mem");  // a regular file whose first bytes cannot be read
  std::byte buffer[4];
  EXPECT_EQ(NumberRaised([&] { file.Read(buffer); }), 75);
}

TEST_F(Files, AreNamedInTheSentence) {
  const auto failure = Raised([&] { InputFile file(Path("a")); });
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->description(), "The file '" + Path("a") + "' cannot be used: No such file or directory.");
}

// ---- existence

TEST_F(Files, ExistAsFolderFileOrLinkThatLeadsNowhere) {
  Put("a", "");
  fs::create_symlink("nowhere", Path("link"));
  EXPECT_TRUE(PathExists(Path("")));
  EXPECT_TRUE(PathExists(Path("a")));
  EXPECT_TRUE(PathExists(Path("link")));
}

TEST_F(Files, ThatAreMissingDoNotExist) {
  EXPECT_FALSE(PathExists(Path("a")));
  EXPECT_FALSE(PathExists(Path("no/a")));
}

TEST_F(Files, OfWhichNobodyCanTellRaise) {
  EXPECT_EQ(NumberRaised([&] { PathExists(Path(std::string(300, 'a'))); }), 75);
}

// ---- writing

TEST_F(Files, AreWrittenWhole) {
  WriteWholeFile(Path("a"), BytesOf(std::string("a\0b\r\n", 5)));
  EXPECT_EQ(Content("a"), std::string("a\0b\r\n", 5));
}

TEST_F(Files, AreWrittenPrivateToTheUserWhateverTheMask) {
  const mode_t mask = umask(0);
  WriteWholeFile(Path("a"), BytesOf("x"));
  umask(mask);
  EXPECT_EQ(fs::status(Path("a")).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(Files, ReplaceWhatStoodThereAndItsPermissions) {
  Put("a", "old and longer");
  fs::permissions(Path("a"), fs::perms::all);
  WriteWholeFile(Path("a"), BytesOf("new"));
  EXPECT_EQ(Content("a"), "new");
  EXPECT_EQ(fs::status(Path("a")).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(Files, ReplaceALinkAndLeaveWhatItLedTo) {
  Put("target", "old");
  fs::create_symlink("target", Path("a"));
  WriteWholeFile(Path("a"), BytesOf("new"));
  EXPECT_EQ(Content("target"), "old");
  EXPECT_FALSE(fs::is_symlink(Path("a")));
}

TEST_F(Files, WithoutContentAreEmpty) {
  WriteWholeFile(Path("a"), {});
  EXPECT_TRUE(fs::is_empty(Path("a")));
}

TEST_F(Files, LeaveNothingBesideThem) {
  WriteWholeFile(Path("a"), BytesOf("x"));
  EXPECT_EQ(Names(), std::vector<std::string>{"a"});
}

TEST_F(Files, InTheCurrentFolderNeedNoFolderInTheirPath) {
  Process child([&]() -> std::string {
    if (chdir(fs::path(Path("a")).parent_path().c_str()) != 0) return "no folder";
    WriteWholeFile("a", BytesOf("x"));
    return Content("a");
  });
  EXPECT_EQ(child.Result(), "x");
}

TEST_F(Files, CannotReplaceAFolder) {
  fs::create_directory(Path("a"));
  EXPECT_EQ(WritingRaises("a"), 75);
  EXPECT_EQ(Names(), std::vector<std::string>{"a"});
}

TEST_F(Files, CannotReplaceAPipe) {
  ASSERT_EQ(mkfifo(Path("a").c_str(), 0600), 0);
  EXPECT_EQ(WritingRaises("a"), 75);
  EXPECT_TRUE(fs::is_fifo(Path("a")));
}

TEST_F(Files, CannotBeWrittenInAMissingFolder) { EXPECT_EQ(WritingRaises("no/a"), 76); }

TEST_F(Files, CannotBeWrittenInAFolderThatRefuses) {
  fs::permissions(fs::path(Path("a")).parent_path(), static_cast<fs::perms>(0555));
  Process child([&]() -> std::string {
    if (geteuid() == 0 && setuid(65534) != 0) return "70";  // cannot become another user here
    return std::to_string(WritingRaises("a"));
  });
  EXPECT_EQ(child.Result(), "70");
}

TEST_F(Files, ThatCannotBeWrittenToTheirEndLeaveTheOldOneAndNothingBesideIt) {
  Put("a", "old");
  Process child([&]() -> std::string {
    signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{100, 100};
    setrlimit(RLIMIT_FSIZE, &limit);
    return std::to_string(NumberRaised([&] { WriteWholeFile(Path("a"), BytesOf(std::string(1000, 'x'))); }));
  });
  EXPECT_EQ(child.Result(), "75");
  EXPECT_EQ(Content("a"), "old");
  EXPECT_EQ(Names(), std::vector<std::string>{"a"});
}

// ---- the temporary folder

TEST(TemporaryFolders, AreNamedByTheEnvironment) {
  Process child([] {
    setenv("TMPDIR", "/some/where", 1);
    return zef::TemporaryFolder();
  });
  EXPECT_EQ(child.Result(), "/some/where");
}

TEST(TemporaryFolders, AreTheSystemsIfTheEnvironmentNamesNone) {
  Process child([] {
    unsetenv("TMPDIR");
    return zef::TemporaryFolder();
  });
  EXPECT_EQ(child.Result(), "/tmp");
}

TEST(TemporaryFolders, AreTheSystemsIfTheNameIsEmpty) {
  Process child([] {
    setenv("TMPDIR", "", 1);
    return zef::TemporaryFolder();
  });
  EXPECT_EQ(child.Result(), "/tmp");
}

TEST(PathsInFolders, JoinWithOneSeparator) {
  EXPECT_EQ(PathInFolder("/tmp", "a.txt"), "/tmp/a.txt");
  EXPECT_EQ(PathInFolder("/tmp/", "a.txt"), "/tmp/a.txt");
}

TEST(PathsInFolders, MayNotLeadOut) {
  for (const char* name : {"a.x/../../b", "a./", "/etc/passwd", "../a"}) {
    EXPECT_EQ(NumberRaised([&] { PathInFolder("/tmp", name); }), 75) << name;
  }
}

}  // namespace
}  // namespace zef::test
