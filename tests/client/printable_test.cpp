#include "client/printable.h"

#include <gtest/gtest.h>

namespace zef::client {
namespace {

TEST(Printable, PlainAndAccentedLettersStay) { EXPECT_EQ(Printable("Café 東京 🌱"), "Café 東京 🌱"); }

TEST(Printable, EscapeCharacterIsReplaced) { EXPECT_EQ(Printable("\x1b[31mred"), "\uFFFD[31mred"); }

TEST(Printable, EightBitControlCharacterIsReplaced) { EXPECT_EQ(Printable("\u009b31m"), "\uFFFD31m"); }

TEST(Printable, DeleteCharacterIsReplaced) { EXPECT_EQ(Printable("a\x7f"), "a\uFFFD"); }

TEST(Printable, ZeroCharacterIsReplaced) { EXPECT_EQ(Printable(std::string_view("a\0b", 3)), "a\uFFFDb"); }

TEST(Printable, LineEndsAndTabsBecomeBlanks) { EXPECT_EQ(Printable("a\nb\tc\rd"), "a b c d"); }

TEST(Printable, CharacterThatTurnsTheDirectionOfWritingIsReplaced) { EXPECT_EQ(Printable("\u202Eabc"), "\uFFFDabc"); }

TEST(Printable, MalformedByteIsReplaced) { EXPECT_EQ(Printable("a\xff"), "a\uFFFD"); }

TEST(Width, CountsCodePointsNotBytes) { EXPECT_EQ(Width("Café"), 4U); }

}  // namespace
}  // namespace zef::client
