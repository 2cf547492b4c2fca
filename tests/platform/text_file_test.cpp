#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "platform/text.h"
#include "platform/windows_1252.h"
#include "tests/support/database.h"
#include "tests/support/file_numbers.h"
#include "tests/support/open_file.h"
#include "tests/support/raised.h"

namespace zef::test {
namespace {

std::string Decoded(const std::string& bytes) {
  std::string text;
  AppendFromWindows1252(text, std::as_bytes(std::span(bytes)));
  return text;
}

TEST(Windows1252, LeavesAsciiAsItIs) { EXPECT_EQ(Decoded("a\r\n~\x7f"), "a\r\n~\x7f"); }

TEST(Windows1252, ReadsTheUpperHalfAsLatin1) { EXPECT_EQ(Decoded("\xa0\xe4\xff"), "\u00a0äÿ"); }

TEST(Windows1252, ReadsTheMiddleAsItsOwnCharacters) {
  EXPECT_EQ(Decoded("\x80\x82\x83\x84\x85\x86\x87\x88\x89\x8a\x8b\x8c\x8e"), "€‚ƒ„…†‡ˆ‰Š‹ŒŽ");
  EXPECT_EQ(Decoded("\x91\x92\x93\x94\x95\x96\x97\x98\x99\x9a\x9b\x9c\x9e\x9f"), "‘’“”•–—˜™š›œžŸ");
}

TEST(Windows1252, ReadsUndefinedBytesAsControlCharacters) {
  EXPECT_EQ(Decoded("\x81\x8d\x8f\x90\x9d"), "\u0081\u008d\u008f\u0090\u009d");
}

TEST(Windows1252, ReadsEveryByteAsOneCharacter) {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  EXPECT_EQ(text::Length(Decoded(bytes)), 256);
  EXPECT_TRUE(text::IsValidUtf8(Decoded(bytes)));
}

TEST(Windows1252, AppendsToWhatIsThere) {
  std::string text = "ä";
  AppendFromWindows1252(text, std::as_bytes(std::span("b", 1)));
  EXPECT_EQ(text, "äb");
}

class InputByNumber : public testing::Test {
 protected:
  /// Opens a file of these bytes under number 1.
  void Open(const std::string& content) {
    std::ofstream(path_, std::ios::binary) << content;
    OpenForInput(path_, 1);
  }
  static std::string RestOf(std::int32_t number) {
    std::string text;
    for (std::string part = Input(number); !part.empty(); part = Input(number)) text += part;
    return text;
  }

  TemporaryFolder folder_;
  std::string path_ = (folder_.path() / "text").string();

 private:
  FreeFileNumbers free_numbers_;
};

TEST_F(InputByNumber, IsReadAcrossPortions) {
  const std::string content(200'000, '\xe4');
  Open(content);
  EXPECT_EQ(RestOf(1), Decoded(content));
}

TEST_F(InputByNumber, FileWithoutBytesGivesNothing) {
  Open("");
  EXPECT_EQ(RestOf(1), "");
}

TEST_F(InputByNumber, FileDoesNotEndAtTheByte26) {
  Open(
      "a\x1a"
      "b");
  EXPECT_EQ(RestOf(1),
            "a\x1a"
            "b");
}

TEST_F(InputByNumber, TwoFilesDoNotMix) {
  Open("one");
  std::ofstream(path_ + "2") << "two";
  OpenForInput(path_ + "2", 2);
  EXPECT_EQ(Input(2) + Input(1), "twoone");
}

TEST_F(InputByNumber, NumberStaysTakenUntilTheFileIsClosed) {
  Open("");
  EXPECT_EQ(FreeFile(), 2);
  CloseFile(1);
  EXPECT_EQ(FreeFile(), 1);
}

TEST_F(InputByNumber, ClosedFileIsNotOpenAnyMore) {
  Open("");
  ASSERT_TRUE(IsOpen(path_));
  CloseFile(1);
  EXPECT_FALSE(IsOpen(path_));
}

TEST_F(InputByNumber, FileThatCannotBeReadKeepsItsNumber) {
  OpenForInput("/proc/self/mem", 1);
  EXPECT_EQ(NumberRaised([] { Input(1); }), 75);
  EXPECT_EQ(FreeFile(), 2);
}

TEST_F(InputByNumber, MissingFileIsRaisedAndTakesNoNumber) {
  EXPECT_EQ(NumberRaised([&] { OpenForInput(path_, 1); }), 53);
  EXPECT_EQ(FreeFile(), 1);
}

TEST_F(InputByNumber, NumberOutOfRangeIsRaised) {
  EXPECT_EQ(NumberRaised([&] { OpenForInput(path_, 0); }), 52);
  EXPECT_EQ(NumberRaised([&] { OpenForInput(path_, 512); }), 52);
}

TEST_F(InputByNumber, NumberOfAnOutputFileIsTakenAndRaised) {
  OpenForOutput(path_, 1);
  EXPECT_EQ(NumberRaised([&] { OpenForInput(path_, 1); }), 55);
}

TEST_F(InputByNumber, NumberWithoutAFileIsRaised) {
  EXPECT_EQ(NumberRaised([] { Input(1); }), 52);
}

TEST_F(InputByNumber, WritingToAFileOpenForInputIsRaisedAndLeavesIt) {
  Open("kept");
  EXPECT_EQ(NumberRaised([] { Print(1, "x"); }), 54);
  EXPECT_EQ(RestOf(1), "kept");
}

TEST_F(InputByNumber, ReadingAFileOpenForOutputIsRaised) {
  OpenForOutput(path_, 1);
  EXPECT_EQ(NumberRaised([] { Input(1); }), 54);
}

}  // namespace
}  // namespace zef::test
