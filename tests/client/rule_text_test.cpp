#include "client/rule_text.h"

#include <gmock/gmock.h>

#include "tests/client/failure_of.h"

namespace zef::client {
namespace {

using namespace std::chrono_literals;
using test::FailureOf;
using testing::HasSubstr;
using testing::StartsWith;

// A Friday.
const Date kFirst(2024y / 5 / 17);

RuleSpec Rule(std::string every, std::optional<std::string> on = std::nullopt, std::optional<Date> first = kFirst) {
  return ReadRule({.every = std::move(every), .on = std::move(on), .until = {}, .times = {}}, first);
}

std::string Complaint(std::optional<std::string> every, std::optional<std::string> on = std::nullopt,
                      std::optional<Date> first = kFirst) {
  return FailureOf(
      [&] { ReadRule({.every = std::move(every), .on = std::move(on), .until = {}, .times = {}}, first); });
}

RuleSpec Weekly(std::int32_t weeks, std::int32_t days) { return {.type = kWeekly, .options1 = weeks, .days = days}; }

// ---- no rule

TEST(ReadRule, WithoutOptionsIsNone) { EXPECT_EQ(ReadRule({}, kFirst), RuleSpec()); }

TEST(ReadRule, DaysWithoutAnIntervalAreWrongUse) {
  EXPECT_THAT(Complaint(std::nullopt, "fri"), StartsWith("2: --on, --until and --times belong to a rule"));
}

// ---- intervals

TEST(ReadRule, DayIsADailyRule) { EXPECT_EQ(Rule("day"), (RuleSpec{.type = kDaily, .options1 = 1})); }

TEST(ReadRule, NumberOfDaysIsTheInterval) { EXPECT_EQ(Rule("3 days"), (RuleSpec{.type = kDaily, .options1 = 3})); }

TEST(ReadRule, IntervalIgnoresLetterCaseAndBlanksAround) { EXPECT_EQ(Rule(" 2  Weeks ", "fri"), Weekly(2, 16)); }

class WrongInterval : public testing::TestWithParam<const char*> {};

TEST_P(WrongInterval, IsWrongUseThatTellsWhatIsAccepted) {
  EXPECT_THAT(Complaint(GetParam()), testing::AllOf(StartsWith("2: --every '"), HasSubstr("day, week, month or year")));
}

INSTANTIATE_TEST_SUITE_P(ReadRule, WrongInterval,
                         testing::Values("", "fortnight", "0 weeks", "-1 weeks", "10000 days", "two weeks", "2",
                                         "2 weeksx", "1.5 days", "99999999999 days", "2 weeks more"));

// ---- by the day

TEST(ReadRule, DailyRuleTakesNoDays) { EXPECT_THAT(Complaint("day", "fri"), StartsWith("2: --on does not go with")); }

// ---- by the week

TEST(ReadRule, WeekdaysBecomeBitsFromMondayOn) { EXPECT_EQ(Rule("week", "mon,fri"), Weekly(1, 1 + 16)); }

TEST(ReadRule, WholeNamesOfWeekdaysAreTaken) { EXPECT_EQ(Rule("week", "Saturday and SUNDAY"), Weekly(1, 32 + 64)); }

TEST(ReadRule, WeekdayGivenTwiceCountsOnce) { EXPECT_EQ(Rule("week", "fri, friday"), Weekly(1, 16)); }

TEST(ReadRule, WeeklyRuleTakesTheWeekdayOfTheFirstDay) { EXPECT_EQ(Rule("2 weeks"), Weekly(2, 16)); }

TEST(ReadRule, WeeklyRuleWithoutDaysAndFirstDayIsWrongUse) {
  EXPECT_THAT(Complaint("week", std::nullopt, std::nullopt), StartsWith("2: A rule by the week needs --on"));
}

class WrongWeekdays : public testing::TestWithParam<const char*> {};

TEST_P(WrongWeekdays, AreWrongUseThatTellsTheForm) {
  EXPECT_THAT(Complaint("week", GetParam()), testing::AllOf(StartsWith("2: --on "), HasSubstr("mon,fri")));
}

INSTANTIATE_TEST_SUITE_P(ReadRule, WrongWeekdays,
                         testing::Values("", ",", "mo", "mondays", "15", "mon,june", "mon-fri"));

// ---- by the month

RuleSpec MonthlyByDay(std::int32_t day, std::int32_t months) {
  return {.type = kMonthly, .options1 = day, .options2 = months};
}

TEST(ReadRule, DayOfTheMonthIsItsNumber) { EXPECT_EQ(Rule("month", "15"), MonthlyByDay(15, 1)); }

TEST(ReadRule, NumberOfMonthsIsTheInterval) { EXPECT_EQ(Rule("3 months", "31"), MonthlyByDay(31, 3)); }

TEST(ReadRule, MonthlyRuleTakesTheDayOfTheFirstDay) { EXPECT_EQ(Rule("month"), MonthlyByDay(17, 1)); }

TEST(ReadRule, LastFridayIsAWeekdayOfTheLastWeek) {
  EXPECT_EQ(Rule("month", "last friday"),
            (RuleSpec{.type = kMonthly, .sub_type = 1, .options1 = 4, .options2 = 1, .week_number = 4}));
}

TEST(ReadRule, FirstWeekCountsFromZero) { EXPECT_EQ(Rule("month", "first monday").week_number, 0); }

class WrongDayOfMonth : public testing::TestWithParam<const char*> {};

TEST_P(WrongDayOfMonth, IsWrongUseThatTellsTheForms) {
  EXPECT_THAT(Complaint("month", GetParam()), testing::AllOf(StartsWith("2: --on '"), HasSubstr("last friday")));
}

INSTANTIATE_TEST_SUITE_P(ReadRule, WrongDayOfMonth,
                         testing::Values("", "0", "32", "fri", "fifth friday", "last 15", "friday last", "15 16",
                                         "first monday of june"));

// ---- by the year

RuleSpec YearlyByDay(std::int32_t month, std::int32_t day) {
  return {.type = kYearly, .options1 = month, .options2 = day};
}

TEST(ReadRule, DayOfTheYearIsMonthFromZeroAndDay) { EXPECT_EQ(Rule("year", "15 june"), YearlyByDay(5, 15)); }

TEST(ReadRule, MonthMayComeBeforeTheDay) { EXPECT_EQ(Rule("year", "December 24"), YearlyByDay(11, 24)); }

TEST(ReadRule, LeapDayIsADayOfTheYear) { EXPECT_EQ(Rule("year", "29 feb"), YearlyByDay(1, 29)); }

TEST(ReadRule, YearlyRuleTakesMonthAndDayOfTheFirstDay) { EXPECT_EQ(Rule("year"), YearlyByDay(4, 17)); }

TEST(ReadRule, WeekdayOfAMonthHasTheMonthInTheSecondPlace) {
  EXPECT_EQ(Rule("year", "third monday of june"),
            (RuleSpec{.type = kYearly, .sub_type = 1, .options1 = 0, .options2 = 5, .week_number = 2}));
}

TEST(ReadRule, NumberOfYearsIsWrongUse) { EXPECT_THAT(Complaint("2 years"), StartsWith("2: A rule by the year")); }

class WrongDayOfYear : public testing::TestWithParam<const char*> {};

TEST_P(WrongDayOfYear, IsWrongUseThatTellsTheForms) {
  EXPECT_THAT(Complaint("year", GetParam()), testing::AllOf(StartsWith("2: --on '"), HasSubstr("15 june")));
}

INSTANTIATE_TEST_SUITE_P(ReadRule, WrongDayOfYear,
                         testing::Values("", "15", "june", "31 june", "30 february", "0 june", "last friday",
                                         "first monday of may x", "first june of monday"));

// ---- the end

RuleSpec Ending(std::optional<Date> until, std::optional<std::int32_t> times, std::optional<Date> first = kFirst) {
  return ReadRule({.every = "day", .on = {}, .until = until, .times = times}, first);
}

TEST(ReadRule, WithoutAnEndHasTheEmptyDateAndNoNumber) {
  const RuleSpec rule = Rule("day");
  EXPECT_TRUE(rule.end.IsZero() && rule.occurrences == 0);
}

TEST(ReadRule, UntilIsTheEndDate) { EXPECT_EQ(Ending(Date(2024y / 6 / 1), {}).end, Date(2024y / 6 / 1)); }

TEST(ReadRule, UntilADayMeansTheEndOfThatDayForAFirstDayWithATime) {
  EXPECT_EQ(Ending(Date(2024y / 6 / 1), {}, Date(2024y / 5 / 17, 32400)).end, Date(2024y / 6 / 1, 86399));
}

TEST(ReadRule, UntilWithATimeStaysAsItIs) {
  EXPECT_EQ(Ending(Date(2024y / 6 / 1, 3600), {}, Date(2024y / 5 / 17, 32400)).end, Date(2024y / 6 / 1, 3600));
}

TEST(ReadRule, UntilTheFirstDayIsAllowed) { EXPECT_EQ(Ending(kFirst, {}).end, kFirst); }

TEST(ReadRule, UntilBeforeTheFirstDayIsWrongUse) {
  EXPECT_EQ(FailureOf([] { Ending(Date(2024y / 5 / 16), {}); }), "2: --until lies before the first day.");
}

TEST(ReadRule, TimesIsTheNumberOfOccurrences) { EXPECT_EQ(Ending({}, 5).occurrences, 5); }

TEST(ReadRule, UntilAndTimesTogetherAreWrongUse) {
  EXPECT_THAT(FailureOf([] { Ending(kFirst, 2); }), StartsWith("2: --until and --times exclude each other"));
}

}  // namespace
}  // namespace zef::client
