#include "platform/text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "platform/run_time_error.h"

namespace zef::text {
namespace {

using std::string;
using std::string_view;

constexpr string_view kMalformed[] = {"\x80",     "\xC3",    "a\xE2\x82", "\xED\xA0\x80", "\xF5\x80\x80\x80",
                                      "\xC0\xAF", "\xFF\xFE"};

int Sign(int order) { return (order > 0) - (order < 0); }

template <class Action>
std::int32_t FailureOf(Action action) {
  try {
    action();
  } catch (const RunTimeError& failure) {
    return failure.number();
  }
  return 0;
}

string RandomText(std::mt19937& random, std::size_t longest, string_view alphabet) {
  string text;
  for (auto length = random() % (longest + 1); length > 0; --length) text += alphabet[random() % alphabet.size()];
  return text;
}

// ---- comparison

TEST(Compare, LetterCaseDoesNotCount) { EXPECT_EQ(Compare("Meeting", "mEETING"), 0); }
TEST(Compare, LetterCaseDoesNotCountBeyondAscii) { EXPECT_EQ(Compare("ÄRGER Ж", "ärger ж"), 0); }
TEST(Compare, AccentsCount) { EXPECT_LT(Compare("resume", "résumé"), 0); }
TEST(Compare, AnAccentedLetterStandsBeforeTheNextLetter) { EXPECT_LT(Compare("äz", "b"), 0); }
TEST(Compare, ComposedAndDecomposedLettersAreTheSame) { EXPECT_EQ(Compare("\u00E9", "e\u0301"), 0); }
TEST(Compare, MarksInAnotherOrderAreTheSame) { EXPECT_EQ(Compare("a\u0323\u0302", "a\u0302\u0323"), 0); }
TEST(Compare, DigitsStandBeforeLetters) { EXPECT_LT(Compare("9", "a"), 0); }
TEST(Compare, TheEmptyTextComesFirst) { EXPECT_LT(Compare("", " "), 0); }
TEST(Compare, EmptyTextsAreEqual) { EXPECT_EQ(Compare("", string_view()), 0); }
TEST(Compare, APrefixComesFirst) { EXPECT_LT(Compare("plan", "Plans"), 0); }
TEST(Compare, BlanksAndPunctuationCount) { EXPECT_NE(Compare("co-op", "coop"), 0); }

TEST(Compare, LettersThatAreNearTwoOthersAreNotEqualToThem) {
  EXPECT_LT(Compare("strasse", "STRA\u00DFE"), 0);
  EXPECT_LT(Compare("Caesar", "C\u00E6sar"), 0);
  EXPECT_EQ(Compare("Stra\u00DFe", "STRA\u1E9EE"), 0);
}

TEST(Compare, LongAsciiTextsDifferAtTheirEnd) {
  const string shared(1000, 'x');
  EXPECT_LT(Compare(shared + "a", shared + "B"), 0);
}

TEST(Compare, MalformedTextNeverCrashes) {
  for (const string_view a : kMalformed) {
    for (const string_view b : kMalformed) EXPECT_EQ(Sign(Compare(a, b)), -Sign(Compare(b, a)));
  }
}

TEST(Compare, BeginsAnewAfterItsRelease) {
  EXPECT_LT(Compare("äpfel", "Ärger"), 0);
  ReleaseOrder();
  EXPECT_LT(Compare("äpfel", "Ärger"), 0);
}

TEST(Compare, RunsOnManyThreadsAtOnce) {
  std::vector<std::thread> threads;
  std::vector<int> orders(4, -9);
  for (int& order : orders) threads.emplace_back([&order] { order = Compare("ÄPFEL", "äpfel") + Compare("A", "a"); });
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(orders, std::vector<int>(4, 0));
}

TEST(EqualNames, LetterCaseOfAsciiDoesNotCount) { EXPECT_TRUE(EqualNames("FLD_Name", "fld_NAME")); }
TEST(EqualNames, OtherLengthsDiffer) { EXPECT_FALSE(EqualNames("a", "ab")); }
TEST(EqualNames, NeighboursOfTheLettersStayApart) { EXPECT_FALSE(EqualNames("@[`{", "`{@[")); }
TEST(EqualNames, LetterCaseBeyondAsciiCounts) { EXPECT_FALSE(EqualNames("Ä", "ä")); }

// ---- well-formedness

TEST(IsValidUtf8, TakesEveryLength) { EXPECT_TRUE(IsValidUtf8("a\u00E9\u20AC\U0001F600")); }
TEST(IsValidUtf8, TakesAZeroCharacter) { EXPECT_TRUE(IsValidUtf8(string_view("a\0b", 3))); }

TEST(IsValidUtf8, RefusesMalformedText) {
  for (const string_view text : kMalformed) EXPECT_FALSE(IsValidUtf8(text));
}

TEST(IsPlainAscii, TakesFromBlankToTildeInEveryPlace) {
  for (std::size_t place = 0; place < 20; ++place) {
    for (int byte = 0; byte < 256; ++byte) {
      string text(20, 'x');
      text[place] = static_cast<char>(byte);
      ASSERT_EQ(IsPlainAscii(text), byte >= 0x20 && byte <= 0x7E) << place << ' ' << byte;
    }
  }
}

TEST(IsPlainAscii, TakesTheEmptyText) { EXPECT_TRUE(IsPlainAscii("")); }

// ---- letter case

TEST(LowerCase, LowersAllOfUnicode) { EXPECT_EQ(LowerCase("ABC ÄÖÜ ЖΣ 1[@`{"), "abc äöü жσ 1[@`{"); }
TEST(UpperCase, RaisesAllOfUnicode) { EXPECT_EQ(UpperCase("abc äöü жσ 1[@`{"), "ABC ÄÖÜ ЖΣ 1[@`{"); }
TEST(UpperCase, ALetterWithoutOneCapitalStays) { EXPECT_EQ(UpperCase("Straße"), "STRAßE"); }
TEST(LowerAscii, LeavesOtherLettersAlone) { EXPECT_EQ(LowerAscii("ABC ÄÖÜ"), "abc ÄÖÜ"); }

TEST(LetterCase, MalformedBytesBecomeReplacementCharacters) {
  EXPECT_EQ(LowerCase("A\xFF"), "a\uFFFD");
  EXPECT_EQ(UpperCase("a\xC3"), "A\uFFFD");
}

// ---- positions

TEST(Length, CountsCodePoints) { EXPECT_EQ(Length("a\u00E9\u20AC\U0001F600"), 4); }
TEST(Length, CountsAZeroCharacter) { EXPECT_EQ(Length(string_view("a\0b", 3)), 3); }
TEST(Length, OfTheEmptyTextIs0) { EXPECT_EQ(Length(""), 0); }

TEST(Mid, CountsCodePointsFrom1) { EXPECT_EQ(Mid("äöüß", 2, 2), "öü"); }
TEST(Mid, GivesWhatThereIs) { EXPECT_EQ(Mid("abc", 2, 100), "bc"); }
TEST(Mid, BehindTheEndIsEmpty) { EXPECT_EQ(Mid("abc", 4, 1), ""); }
TEST(Mid, FarBehindTheEndIsEmpty) { EXPECT_EQ(Mid("abc", std::numeric_limits<std::int64_t>::max(), 1), ""); }
TEST(Left, GivesTheBeginning) { EXPECT_EQ(Left("äöü", 2), "äö"); }
TEST(Left, OfMoreThanThereIsGivesAll) { EXPECT_EQ(Left("äöü", 9), "äöü"); }
TEST(Left, OfNothingIsEmpty) { EXPECT_EQ(Left("abc", 0), ""); }
TEST(Right, GivesTheEnd) { EXPECT_EQ(Right("äöü", 2), "öü"); }
TEST(Right, OfMoreThanThereIsGivesAll) { EXPECT_EQ(Right("äöü", 9), "äöü"); }

TEST(Positions, WhatCannotBeOneRaises5) {
  EXPECT_EQ(FailureOf([] { Mid("abc", 0, 1); }), 5);
  EXPECT_EQ(FailureOf([] { Mid("abc", 1, -1); }), 5);
  EXPECT_EQ(FailureOf([] { Left("abc", -1); }), 5);
  EXPECT_EQ(FailureOf([] { Right("abc", -1); }), 5);
  EXPECT_EQ(FailureOf([] { Find("abc", "a", 0); }), 5);
}

TEST(Trim, TakesBlanksFromBothEnds) { EXPECT_EQ(Trim("  a b  "), "a b"); }
TEST(Trim, LeavesOtherWhiteSpace) { EXPECT_EQ(Trim(" \ta\n "), "\ta\n"); }
TEST(Trim, OfBlanksIsEmpty) { EXPECT_EQ(Trim("   "), ""); }

TEST(Find, GivesThePositionInCodePoints) { EXPECT_EQ(Find("äöü plan", "plan"), 5); }
TEST(Find, LetterCaseDoesNotCount) { EXPECT_EQ(Find("Der ÄRGER", "ärger"), 5); }
TEST(Find, WhatIsNotThereIs0) { EXPECT_EQ(Find("abc", "abd"), 0); }
TEST(Find, StartsAtAPosition) { EXPECT_EQ(Find("abcabc", "A", 2), 4); }
TEST(Find, TakesAMatchAtItsStart) { EXPECT_EQ(Find("abcabc", "a", 4), 4); }
TEST(Find, AnEmptyPartIsFoundAtTheStart) { EXPECT_EQ(Find("abc", "", 2), 2); }
TEST(Find, AnEmptyPartBehindTheTextIsNotFound) { EXPECT_EQ(Find("abc", "", 4), 0); }
TEST(Find, AnEmptyPartOfAnEmptyTextIsNotFound) { EXPECT_EQ(Find("", ""), 0); }
TEST(Find, APartLongerThanTheTextIsNotFound) { EXPECT_EQ(Find("ab", "abc"), 0); }
TEST(Find, AnOverlappingBeginningIsNoHindrance) { EXPECT_EQ(Find("aab", "ab"), 2); }

// ---- LIKE

struct LikeCase {
  const char* text;
  const char* pattern;
  bool expected;
};

void PrintTo(const LikeCase& example, std::ostream* out) { *out << example.text << " like " << example.pattern; }

class LikePattern : public testing::TestWithParam<LikeCase> {};

TEST_P(LikePattern, Matches) { EXPECT_EQ(Like(GetParam().text, GetParam().pattern), GetParam().expected); }

INSTANTIATE_TEST_SUITE_P(
    Patterns, LikePattern,
    testing::Values(LikeCase{"abc", "abc", true}, LikeCase{"abc", "ABC", true}, LikeCase{"abc", "ab", false},
                    LikeCase{"ab", "abc", false}, LikeCase{"", "", true}, LikeCase{"", "%", true},
                    LikeCase{"", "_", false}, LikeCase{"abc", "", false}, LikeCase{"abc", "%", true},
                    LikeCase{"abc", "a%", true}, LikeCase{"abc", "%c", true}, LikeCase{"abc", "%b%", true},
                    LikeCase{"abc", "%d%", false}, LikeCase{"abcabd", "%abd", true}, LikeCase{"abc", "a_c", true},
                    LikeCase{"äöü", "___", true}, LikeCase{"äöü", "__", false}, LikeCase{"ÄRGER", "ärg%", true},
                    LikeCase{"abc", "%%%c", true}, LikeCase{"aXbXc", "a%X%c", true}, LikeCase{"aab", "%ab", true}));

INSTANTIATE_TEST_SUITE_P(
    Sets, LikePattern,
    testing::Values(LikeCase{"b", "[a-c]", true}, LikeCase{"B", "[a-c]", true}, LikeCase{"b", "[A-C]", true},
                    LikeCase{"d", "[a-c]", false}, LikeCase{"d", "[!a-c]", true}, LikeCase{"b", "[!a-c]", false},
                    LikeCase{"", "[!a]", false}, LikeCase{"50%", "50[%]", true}, LikeCase{"50x", "50[%]", false},
                    LikeCase{"a_b", "a[_]b", true}, LikeCase{"axb", "a[_]b", false}, LikeCase{"[", "[[]", true},
                    LikeCase{"-", "[a-]", true}, LikeCase{"-", "[-a]", true}, LikeCase{"b", "[a-]", false},
                    LikeCase{"!", "[a!]", true}, LikeCase{"!", "[!]", true}, LikeCase{"a", "[]", false},
                    LikeCase{"c", "[c-a]", false}, LikeCase{"7", "[a-c0-9]", true}, LikeCase{"é", "[À-Ý]", true},
                    LikeCase{"x]", "[x]]", true}, LikeCase{"[ab", "[ab", true}, LikeCase{"a", "[ab", false},
                    LikeCase{"x[", "%[", true}, LikeCase{"x]y", "x]y", true},
                    LikeCase{"room 12", "%[0-9][0-9]", true}));

TEST(Like, MalformedTextNeverCrashes) {
  for (const string_view text : kMalformed) {
    EXPECT_TRUE(Like(text, "%"));
    EXPECT_TRUE(Like(text, text));
    EXPECT_FALSE(Like(text, string(text) + "[\xFF"));
  }
}

TEST(Like, ManyRunsCostTheProductOfTheLengthsAtWorst) {
  string pattern;
  for (int i = 0; i < 200; ++i) pattern += "%a";
  const auto start = std::chrono::steady_clock::now();
  EXPECT_FALSE(Like(string(20000, 'a'), pattern + "b"));
  EXPECT_FALSE(Like(string(2000, '['), "%" + string(1000, '[') + "b"));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

/// What a pattern without sets means, said the slow way.
bool SlowLike(string_view text, string_view pattern) {
  if (pattern.empty()) return text.empty();
  if (pattern[0] == '%')
    return SlowLike(text, pattern.substr(1)) || (!text.empty() && SlowLike(text.substr(1), pattern));
  return !text.empty() && (pattern[0] == '_' || pattern[0] == text[0]) && SlowLike(text.substr(1), pattern.substr(1));
}

TEST(Like, AgreesWithTheSlowMeaning) {
  std::mt19937 random(20240501);
  for (int i = 0; i < 100000; ++i) {
    const string text = RandomText(random, 8, "ab");
    const string pattern = RandomText(random, 6, "ab%_");
    ASSERT_EQ(Like(text, pattern), SlowLike(text, pattern)) << text << " | " << pattern;
  }
}

// ---- UTF-16

TEST(Utf16, HoldsSurrogatePairs) { EXPECT_EQ(ToUtf16("a\u20AC\U0001F600"), u"a\u20AC\U0001F600"); }
TEST(Utf16, ReadsSurrogatePairs) { EXPECT_EQ(ToUtf8(u"a\u20AC\U0001F600"), "a\u20AC\U0001F600"); }
TEST(Utf16, KeepsZeroCharacters) { EXPECT_EQ(ToUtf8(ToUtf16(string_view("a\0b", 3))), string("a\0b", 3)); }
TEST(Utf16, MalformedBytesBecomeReplacementCharacters) { EXPECT_EQ(ToUtf16("a\xFFz"), u"a\uFFFDz"); }

TEST(Utf16, ALoneSurrogateBecomesAReplacementCharacter) {
  const char16_t lone[] = {u'a', 0xD83D, u'z', 0xDE00, 0};
  EXPECT_EQ(ToUtf8(lone), "a\uFFFDz\uFFFD");
}

TEST(Utf16, EveryCodePointRoundTrips) {
  for (char32_t c = 0; c <= 0x10FFFF; ++c) {
    if (c >= 0xD800 && c <= 0xDFFF) continue;
    std::u16string text;
    if (c < 0x10000) {
      text = static_cast<char16_t>(c);
    } else {
      text = {static_cast<char16_t>(0xD7C0 + (c >> 10)), static_cast<char16_t>(0xDC00 + (c & 0x3FF))};
    }
    ASSERT_EQ(ToUtf16(ToUtf8(text)), text);
  }
}

}  // namespace
}  // namespace zef::text
