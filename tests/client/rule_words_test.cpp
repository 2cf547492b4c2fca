#include <gtest/gtest.h>

#include <ostream>

#include "client/rule_text.h"

namespace zef::client {
namespace {

using namespace std::chrono_literals;

struct Spoken {
  const char* every;
  const char* on;
  const char* words;

  friend void PrintTo(const Spoken& spoken, std::ostream* out) { *out << spoken.words; }
};

/// A rule from the command line and back.
class SpokenRule : public testing::TestWithParam<Spoken> {};

TEST_P(SpokenRule, IsToldInTheseWords) {
  const auto [every, on, words] = GetParam();
  const std::optional<std::string> days = *on == '\0' ? std::nullopt : std::optional<std::string>(on);
  EXPECT_EQ(RuleInWords(ReadRule({.every = every, .on = days, .until = {}, .times = {}}, std::nullopt)), words);
}

INSTANTIATE_TEST_SUITE_P(RuleInWords, SpokenRule,
                         testing::Values(Spoken{"day", "", "every day"}, Spoken{"3 days", "", "every 3 days"},
                                         Spoken{"week", "fri", "every week on Friday"},
                                         Spoken{"2 weeks", "fri,mon", "every 2 weeks on Monday and Friday"},
                                         Spoken{"week", "mon,wed,sun", "every week on Monday, Wednesday and Sunday"},
                                         Spoken{"month", "15", "every month on day 15"},
                                         Spoken{"6 months", "last friday", "every 6 months on the last Friday"},
                                         Spoken{"year", "15 june", "every year on 15 June"},
                                         Spoken{"year", "24 december", "every year on 24 December"},
                                         Spoken{"year", "first monday of june",
                                                "every year on the first Monday of June"}));

/// What a rule says of its days can be given to --on again.
TEST(RuleInWords, DaysAsToldAreUnderstood) {
  const RuleSpec rule = ReadRule({.every = "year", .on = "the first Monday of June", .until = {}, .times = {}}, {});
  EXPECT_EQ(RuleInWords(rule), "every year on the first Monday of June");
}

TEST(RuleInWords, NoRuleIsEmpty) { EXPECT_EQ(RuleInWords({}), ""); }

TEST(RuleInWords, EveryDayOfTheSecondKindIgnoresTheInterval) {
  EXPECT_EQ(RuleInWords({.type = kDaily, .sub_type = 1, .options1 = 5}), "every day");
}

TEST(RuleInWords, EndDateIsTold) {
  EXPECT_EQ(RuleInWords({.type = kDaily, .options1 = 1, .end = Date(2024y / 6 / 1)}), "every day, until 2024-06-01");
}

TEST(RuleInWords, EndOfADayIsToldAsTheDay) {
  EXPECT_EQ(RuleInWords({.type = kDaily, .options1 = 1, .end = Date(2024y / 6 / 1, 86399)}),
            "every day, until 2024-06-01");
}

TEST(RuleInWords, EndDateWinsOverTheNumberOfTimes) {
  EXPECT_EQ(RuleInWords({.type = kDaily, .options1 = 1, .end = Date(2024y / 6 / 1), .occurrences = 3}),
            "every day, until 2024-06-01");
}

TEST(RuleInWords, NumberOfTimesIsTold) {
  EXPECT_EQ(RuleInWords({.type = kDaily, .options1 = 1, .occurrences = 3}), "every day, 3 times");
}

TEST(RuleInWords, OneTimeIsOnce) {
  EXPECT_EQ(RuleInWords({.type = kDaily, .options1 = 1, .occurrences = 1}), "every day, once");
}

TEST(RuleInWords, WeeklyRuleWithoutDaysSaysSo) {
  EXPECT_EQ(RuleInWords({.type = kWeekly, .options1 = 1}), "every week on no day");
}

TEST(RuleInWords, NumbersWithoutANameAreQuestionMarks) {
  EXPECT_EQ(RuleInWords({.type = kYearly, .sub_type = 1, .options1 = 7, .options2 = -1, .week_number = 5}),
            "every year on the ? ? of ?");
}

TEST(RuleInWords, UnknownTypeSaysSo) { EXPECT_EQ(RuleInWords({.type = 9}), "by a rule of an unknown kind"); }

}  // namespace
}  // namespace zef::client
