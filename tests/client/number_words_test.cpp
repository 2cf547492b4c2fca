#include "client/number_words.h"

#include <gmock/gmock.h>

#include "tests/client/failure_of.h"

namespace zef::client {
namespace {

using test::FailureOf;
using testing::Optional;
using testing::StrEq;

const NumberWords& Rights() { return *WordsOf(RecordType::User, "Rights"); }
const NumberWords& Directions() { return *WordsOf(RecordType::Call, "Direction"); }

TEST(NumberWords, ArePropertiesOfTheirTypeOnly) {
  EXPECT_EQ(WordsOf(RecordType::Task, "Rights"), nullptr);
  EXPECT_EQ(WordsOf(RecordType::User, "ID"), nullptr);
}

TEST(NumberWords, NumberIsAWord) { EXPECT_THAT(WordsFor(Directions(), 1), Optional(StrEq("outgoing"))); }

TEST(NumberWords, NumberBeyondTheWordsHasNone) { EXPECT_EQ(WordsFor(Directions(), 2), std::nullopt); }

TEST(NumberWords, EachBitIsAWord) {
  EXPECT_THAT(WordsFor(Rights(), 7), Optional(StrEq("administrator, editor, viewer")));
}

TEST(NumberWords, NoBitIsAWordToo) { EXPECT_THAT(WordsFor(Rights(), 0), Optional(StrEq("none"))); }

TEST(NumberWords, BitWithoutAWordLeavesTheNumber) {
  EXPECT_EQ(WordsFor(Rights(), 8), std::nullopt);
  EXPECT_EQ(WordsFor(Rights(), 9), std::nullopt);
  EXPECT_EQ(WordsFor(Rights(), -1), std::nullopt);
}

TEST(NumberWords, AreReadInAnyLetterCase) { EXPECT_EQ(ReadWords("--x", Directions(), "OutGoing"), 1); }

TEST(NumberWords, AreReadSeveralAtOnceWithBlanks) { EXPECT_EQ(ReadWords("--x", Rights(), "editor , viewer"), 6); }

TEST(NumberWords, DigitsAreReadToo) { EXPECT_EQ(ReadWords("--x", Rights(), "3"), 3); }

TEST(NumberWords, DigitsWithoutAWordAreWrongUse) {
  EXPECT_EQ(FailureOf([] { ReadWords("--x", Directions(), "2"); }), "2: --x: '2' is none of incoming, outgoing.");
}

TEST(NumberWords, SeveralOfThoseThatExcludeEachOtherAreWrongUse) {
  EXPECT_EQ(FailureOf([] { ReadWords("--x", Directions(), "incoming,outgoing"); }),
            "2: --x: 'incoming,outgoing' is none of incoming, outgoing.");
}

TEST(NumberWords, EmptyTextIsWrongUse) {
  EXPECT_EQ(FailureOf([] { ReadWords("--x", Rights(), ""); }),
            "2: --x: '' is none of administrator, editor, viewer, none, nor several of them with commas between.");
}

TEST(NumberWords, MissingWordBetweenCommasIsWrongUse) {
  EXPECT_NE(FailureOf([] { ReadWords("--x", Rights(), "editor,,viewer"); }), "");
}

}  // namespace
}  // namespace zef::client
