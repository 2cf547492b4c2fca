#include "client/json.h"

#include <gtest/gtest.h>

#include <limits>

namespace zef::client {
namespace {

TEST(Json, NullIsNull) { EXPECT_EQ(Json(nullptr).Text(), "null"); }

TEST(Json, BooleansAreWords) { EXPECT_EQ(Json(Json::Array{true, false}).Text(), "[true, false]"); }

TEST(Json, SmallestIntegerKeepsAllItsDigits) {
  EXPECT_EQ(Json(std::numeric_limits<std::int32_t>::min()).Text(), "-2147483648");
}

TEST(Json, TextIsQuoted) { EXPECT_EQ(Json("a").Text(), "\"a\""); }

TEST(Json, QuoteIsEscaped) { EXPECT_EQ(Json("a\"b").Text(), R"("a\"b")"); }

TEST(Json, BackslashIsEscaped) { EXPECT_EQ(Json("a\\b").Text(), R"("a\\b")"); }

TEST(Json, LineEndIsEscaped) { EXPECT_EQ(Json("a\nb").Text(), R"("a\u000ab")"); }

TEST(Json, EscapeCharacterIsEscaped) { EXPECT_EQ(Json("\x1b").Text(), R"("\u001b")"); }

TEST(Json, EightBitControlCharacterIsEscaped) { EXPECT_EQ(Json("\u009b").Text(), R"("\u009b")"); }

TEST(Json, ZeroCharacterIsEscaped) { EXPECT_EQ(Json(std::string("a\0b", 3)).Text(), R"("a\u0000b")"); }

TEST(Json, LettersBeyondAsciiStay) { EXPECT_EQ(Json("Café 🌱").Text(), "\"Café 🌱\""); }

TEST(Json, MalformedByteBecomesTheReplacementCharacter) { EXPECT_EQ(Json("a\xff").Text(), "\"a\uFFFD\""); }

TEST(Json, EmptyArrayIsAPairOfBrackets) { EXPECT_EQ(Json(Json::Array{}).Text(), "[]"); }

TEST(Json, ObjectKeepsTheOrderOfItsMembers) {
  EXPECT_EQ(Json(Json::Object{{"b", 1}, {"a", nullptr}}).Text(), R"({"b": 1, "a": null})");
}

TEST(Json, MemberNameIsEscaped) { EXPECT_EQ(Json(Json::Object{{"\"", 1}}).Text(), R"({"\"": 1})"); }

TEST(Json, ArraysAndObjectsNest) {
  EXPECT_EQ(Json(Json::Object{{"a", Json::Array{Json::Object{{"b", 1}}}}}).Text(), R"({"a": [{"b": 1}]})");
}

}  // namespace
}  // namespace zef::client
