#include "client/text.h"

#include <gtest/gtest.h>

namespace zef::client {
namespace {

TEST(ClientText, WellFormedTextIsValid) { EXPECT_TRUE(IsValidUtf8("a\u00E4\u20AC\U0001F600")); }
TEST(ClientText, TheEmptyTextIsValid) { EXPECT_TRUE(IsValidUtf8("")); }
TEST(ClientText, AReplacementCharacterIsValid) { EXPECT_TRUE(IsValidUtf8("\uFFFD")); }
TEST(ClientText, AZeroCharacterIsValid) { EXPECT_TRUE(IsValidUtf8(std::string_view("a\0b", 3))); }

class MalformedClientText : public testing::TestWithParam<const char*> {};
TEST_P(MalformedClientText, IsNotValid) { EXPECT_FALSE(IsValidUtf8(GetParam())); }
INSTANTIATE_TEST_SUITE_P(Texts, MalformedClientText,
                         testing::Values("\xFF", "a\x80", "\xC3", "\xE2\x82", "\xC0\xAF", "\xED\xA0\x80",
                                         "\xF4\x90\x80\x80", "\xF0\x9F\x98", "\xEF\xBF"));

TEST(ClientText, LowersAsciiLettersOnly) { EXPECT_EQ(LowerAscii("A[Z\u00C4"), "a[z\u00C4"); }

TEST(ClientText, NamesAreEqualInAnyCase) { EXPECT_TRUE(EqualNames("FolderID", "folderid")); }
TEST(ClientText, ANameIsNotItsBeginning) { EXPECT_FALSE(EqualNames("Folder", "FolderID")); }

TEST(ClientText, TrimsBlanksAtBothEnds) { EXPECT_EQ(Trim("  a b "), "a b"); }
TEST(ClientText, OfBlanksAloneNothingIsLeft) { EXPECT_EQ(Trim("  "), ""); }

TEST(ClientText, LengthCountsCodePoints) { EXPECT_EQ(Length("a\u00E4\U0001F600"), 3U); }
TEST(ClientText, LengthCountsAMalformedByteAsOne) { EXPECT_EQ(Length("a\xFF"), 2U); }

TEST(ClientText, LeftCutsBehindACodePoint) { EXPECT_EQ(Left("\u00E4b\u00E4", 2), "\u00E4b"); }
TEST(ClientText, LeftOfAShorterTextIsAllOfIt) { EXPECT_EQ(Left("a", 5), "a"); }

TEST(ClientText, QuotationMarksInAQuotedTextAreDoubled) { EXPECT_EQ(Quoted("a\"b", '"'), "\"a\"\"b\""); }
TEST(ClientText, AnApostropheInALiteralIsDoubled) { EXPECT_EQ(SqlQuoted("O'Hara"), "'O''Hara'"); }
TEST(ClientText, TheEmptyLiteralIsTwoApostrophes) { EXPECT_EQ(SqlQuoted(""), "''"); }

}  // namespace
}  // namespace zef::client
