#include "platform/text_file.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "platform/text.h"
#include "platform/windows_1252.h"
#include "tests/support/database.h"
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

class TextFiles : public testing::Test {
 protected:
  std::string ReadBack(const std::string& content) const {
    std::ofstream(path_, std::ios::binary) << content;
    TextReader file(path_);
    std::string text;
    for (std::string part = file.Next(); !part.empty(); part = file.Next()) text += part;
    return text;
  }

  TemporaryFolder folder_;
  std::string path_ = (folder_.path() / "text").string();
};

TEST_F(TextFiles, AreReadAcrossPortions) {
  const std::string content(200'000, '\xe4');
  EXPECT_EQ(ReadBack(content), Decoded(content));
}

TEST_F(TextFiles, WithoutBytesGiveNothing) { EXPECT_EQ(ReadBack(""), ""); }

TEST_F(TextFiles, DoNotEndAtTheByte26) {
  EXPECT_EQ(ReadBack("a\x1a"
                     "b"),
            "a\x1a"
            "b");
}

TEST_F(TextFiles, ThatAreMissingRaise53) {
  EXPECT_EQ(NumberRaised([&] { TextReader file(path_); }), 53);
}

TEST_F(TextFiles, WithAllNumbersTakenRaise67BeforeTheFileIsLookedFor) {
  for (std::int32_t number = 1; number <= 511; ++number) OpenForOutput(path_ + ".taken", number);
  EXPECT_EQ(NumberRaised([&] { TextReader file(path_); }), 67);
  for (std::int32_t number = 1; number <= 511; ++number) CloseFile(number);
}

}  // namespace
}  // namespace zef::test
