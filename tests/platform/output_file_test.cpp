#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>

#include "platform/windows_1252.h"
#include "tests/support/database.h"
#include "tests/support/file_numbers.h"
#include "tests/support/open_file.h"
#include "tests/support/raised.h"

namespace zef::test {
namespace {

TEST(Windows1252Encoding, LeavesAsciiAsItIs) { EXPECT_EQ(ToWindows1252("a\r\n~\x7f"), "a\r\n~\x7f"); }

TEST(Windows1252Encoding, WritesEveryCharacterThatReadingGives) {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  std::string text;
  AppendFromWindows1252(text, std::as_bytes(std::span(bytes)));
  EXPECT_EQ(ToWindows1252(text), bytes);
}

TEST(Windows1252Encoding, CharacterThatItLacksBecomesAQuestionMark) {
  EXPECT_EQ(ToWindows1252("ł"), "?");
  EXPECT_EQ(ToWindows1252("\u0080"), "?");
  EXPECT_EQ(ToWindows1252("a😀b"), "a?b");
}

TEST(Windows1252Encoding, MalformedTextBecomesAQuestionMark) {
  EXPECT_EQ(ToWindows1252("a\xff"
                          "b"),
            "a?b");
}

class OutputByNumber : public testing::Test {
 protected:
  std::string Path(const std::string& name = "text") const { return (folder_.path() / name).string(); }
  std::string Content(const std::string& name = "text") const {
    std::ifstream file(Path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  TemporaryFolder folder_;

 private:
  FreeFileNumbers free_numbers_;
};

TEST_F(OutputByNumber, FirstFreeNumberIsOne) { EXPECT_EQ(FreeFile(), 1); }

TEST_F(OutputByNumber, FreeNumberStaysFreeUntilAFileIsOpened) {
  FreeFile();
  EXPECT_EQ(FreeFile(), 1);
  OpenForOutput(Path(), 1);
  EXPECT_EQ(FreeFile(), 2);
}

TEST_F(OutputByNumber, NumberOfAClosedFileIsFreeAgain) {
  OpenForOutput(Path("a"), 1);
  OpenForOutput(Path("b"), 2);
  CloseFile(1);
  EXPECT_EQ(FreeFile(), 1);
  CloseFile(2);
}

TEST_F(OutputByNumber, TextIsThereBeforeTheFileIsClosed) {
  OpenForOutput(Path(), 1);
  Print(1, "ä");
  Print(1, "\r\n");
  EXPECT_EQ(Content(), "\xe4\r\n");
}

TEST_F(OutputByNumber, TwoFilesDoNotMix) {
  OpenForOutput(Path("a"), 1);
  OpenForOutput(Path("b"), 2);
  Print(1, "to a");
  Print(2, "to b");
  EXPECT_EQ(Content("a") + Content("b"), "to ato b");
}

TEST_F(OutputByNumber, ThereAre511Numbers) {
  TakeAllFileNumbers(Path());
  EXPECT_EQ(NumberRaised([] { FreeFile(); }), 67);
}

TEST_F(OutputByNumber, NumberOutOfRangeIsRaised) {
  EXPECT_EQ(NumberRaised([&] { OpenForOutput(Path(), 0); }), 52);
  EXPECT_EQ(NumberRaised([&] { OpenForOutput(Path(), 512); }), 52);
  EXPECT_FALSE(std::filesystem::exists(Path()));
}

TEST_F(OutputByNumber, NumberThatIsTakenIsRaisedAndTouchesNoFile) {
  OpenForOutput(Path("a"), 1);
  EXPECT_EQ(NumberRaised([&] { OpenForOutput(Path("b"), 1); }), 55);
  EXPECT_FALSE(std::filesystem::exists(Path("b")));
}

TEST_F(OutputByNumber, NumberWithoutAFileIsRaised) {
  EXPECT_EQ(NumberRaised([] { Print(1, "x"); }), 52);
  EXPECT_EQ(NumberRaised([] { CloseFile(1); }), 52);
}

TEST_F(OutputByNumber, FileThatCannotBeOpenedTakesNoNumber) {
  EXPECT_EQ(NumberRaised([&] { OpenForOutput(folder_.path().string(), 1); }), 75);
  EXPECT_EQ(FreeFile(), 1);
}

TEST_F(OutputByNumber, ExistingFileIsReplacedAndKeepsItsPermissions) {
  std::ofstream(Path()) << "a longer text";
  ASSERT_EQ(chmod(Path().c_str(), 0644), 0);
  OpenForOutput(Path(), 1);
  Print(1, "new");
  EXPECT_EQ(Content(), "new");
  struct stat status {};
  ASSERT_EQ(stat(Path().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0644u);
}

TEST_F(OutputByNumber, LinkIsRefusedAndWhatItNamesIsUntouched) {
  std::ofstream(Path("target")) << "kept";
  std::filesystem::create_symlink(Path("target"), Path());
  EXPECT_EQ(NumberRaised([&] { OpenForOutput(Path(), 1); }), 75);
  EXPECT_EQ(Content("target"), "kept");
}

TEST_F(OutputByNumber, PipeIsRefusedWithoutWaiting) {
  ASSERT_EQ(mkfifo(Path().c_str(), 0600), 0);
  EXPECT_EQ(NumberRaised([&] { OpenForOutput(Path(), 1); }), 75);
}

TEST_F(OutputByNumber, NameWithAZeroCharacterIsRefused) {
  EXPECT_EQ(NumberRaised([&] { OpenForOutput(Path(std::string("a\0b", 3)), 1); }), 75);
  EXPECT_FALSE(std::filesystem::exists(Path("a")));
}

TEST_F(OutputByNumber, NumbersOfAnotherThreadAreItsOwn) {
  OpenForOutput(Path("a"), 1);
  std::int32_t other = 0;
  std::thread([&] { other = FreeFile(); }).join();
  EXPECT_EQ(other, 1);
}

TEST_F(OutputByNumber, FileThatAThreadLeavesOpenIsClosedWithIt) {
  bool was_open = false;
  std::thread([&] {
    OpenForOutput(Path(), 1);
    was_open = IsOpen(Path());
  }).join();
  EXPECT_TRUE(was_open);
  EXPECT_FALSE(IsOpen(Path()));
}

TEST_F(OutputByNumber, ReleaseClosesWhatThisThreadHasLeftOpen) {
  OpenForOutput(Path(), 3);
  ReleaseFileNumbers();
  EXPECT_FALSE(IsOpen(Path()));
  EXPECT_EQ(NumberRaised([] { CloseFile(3); }), 52);
}

TEST_F(OutputByNumber, NumbersServeAgainAfterTheirRelease) {
  ReleaseFileNumbers();
  OpenForOutput(Path(), 1);
  Print(1, "again");
  CloseFile(1);
  EXPECT_EQ(Content(), "again");
}

}  // namespace
}  // namespace zef::test
