#include "platform/date.h"

#include <cmath>
#include <ctime>
#include <random>
#include <thread>

#include "platform/run_time_error.h"

namespace zef {
using Raised = RunTimeError;
}

#include "tests/support/date_tests.h"

namespace zef {
namespace {

// ---- parts

TEST(DatePartsOfDate, YearIsTheCalendarYear) { EXPECT_EQ(On(2024, 5, 31).Year(), 2024); }
TEST(DatePartsOfDate, MonthIsFrom1) { EXPECT_EQ(On(2024, 5, 31).Month(), 5); }
TEST(DatePartsOfDate, DayIsTheDayOfTheMonth) { EXPECT_EQ(On(2024, 5, 31).Day(), 31); }
TEST(DatePartsOfDate, WeekdayOfASundayIs1) { EXPECT_EQ(On(2024, 5, 5).Weekday(), 1); }
TEST(DatePartsOfDate, WeekdayOfASaturdayIs7) { EXPECT_EQ(On(2024, 5, 4).Weekday(), 7); }
TEST(DatePartsOfDate, WeekdayOfDayZeroIsSaturday) { EXPECT_EQ(Date().Weekday(), 7); }
TEST(DatePartsOfDate, WeekdayBeforeDayZeroGoesOn) { EXPECT_EQ(Date(-1.25).Weekday(), 6); }

TEST(DatePartsOfDate, TheLastMomentOfTheRangeIsInside) { EXPECT_EQ(Date(kLast + 0.99).Year(), 9999); }
TEST(DatePartsOfDate, TheLastMomentOfTheFirstDayIsInside) { EXPECT_EQ(Date(kFirst - 0.99).Day(), 1); }

TEST_P(OutOfRange, EveryOperationOfTheLibraryRaises5) {
  const Date date(GetParam());
  EXPECT_EQ(FailureOf([&] { date.Year(); }), 5);
  EXPECT_EQ(FailureOf([&] { date.Month(); }), 5);
  EXPECT_EQ(FailureOf([&] { date.Day(); }), 5);
  EXPECT_EQ(FailureOf([&] { date.Weekday(); }), 5);
  EXPECT_EQ(FailureOf([&] { date.WithoutTime(); }), 5);
  EXPECT_EQ(FailureOf([&] { AddDays(date, 0); }), 5);
  EXPECT_EQ(FailureOf([&] { AddMonths(date, 0); }), 5);
  EXPECT_EQ(FailureOf([&] { AddYears(date, 0); }), 5);
  EXPECT_EQ(FailureOf([&] { DateAdd("s", 0, date); }), 5);
  EXPECT_EQ(FailureOf([&] { DateDiff("d", date, Date()); }), 5);
  EXPECT_EQ(FailureOf([&] { DatePart("h", date); }), 5);
  EXPECT_EQ(FailureOf([&] { DaysBetween(Date(), date); }), 5);
  EXPECT_EQ(FailureOf([&] { ToText(date); }), 5);
  EXPECT_EQ(FailureOf([&] { ShortDateText(date); }), 5);
}

// ---- comparison

TEST(IsLater, ComparesTimesOfDay) { EXPECT_TRUE(IsLater(On(2024, 5, 1, 9, 0, 1), On(2024, 5, 1, 9))); }
TEST(IsLater, EqualDatesAreNotLater) { EXPECT_FALSE(IsLater(On(2024, 5, 1), On(2024, 5, 1))); }
TEST(IsLater, BeforeDayZeroALaterTimeIsLater) { EXPECT_TRUE(IsLater(Date(-1.75), Date(-1.25))); }
TEST(IsLater, BeforeDayZeroANextDayIsLater) { EXPECT_TRUE(IsLater(Date(-1.0), Date(-2.9))); }
TEST(IsLater, TheTwoFormsOfDayZeroAreTheSameMoment) { EXPECT_FALSE(IsLater(Date(0.5), Date(-0.5))); }
TEST(IsLater, ANumberThatIsNoneIsNeverLater) { EXPECT_FALSE(IsLater(Date(kNan), Date())); }

// ---- adding

TEST(AddDays, GivesTheBitPatternOfWholeDaysPlusSeconds) {
  std::mt19937 random(20240501);
  for (int i = 0; i < 10000; ++i) {
    const int day = static_cast<int>(random() % 80000);
    const int days = static_cast<int>(random() % 80000);
    const double fraction = static_cast<double>(random() % 86400) / 86400.0;
    const Date from(day + fraction);
    EXPECT_EQ(AddDays(from, days).value(), (day + days) + fraction);
  }
}

TEST(AddDays, FromANegativeDateAcrossDayZeroKeepsTheTime) { EXPECT_EQ(AddDays(Date(-1.25), 3), Date(2.25)); }
TEST(AddDays, BackAcrossDayZeroKeepsTheTime) { EXPECT_EQ(AddDays(Date(2.25), -3), Date(-1.25)); }
TEST(AddDays, UpToTheLastDayIsAllowed) { EXPECT_EQ(AddDays(Date(kLast - 1), 1), Date(kLast)); }

TEST(AddDays, BeyondTheLastDayRaises5) {
  EXPECT_EQ(FailureOf([] { AddDays(Date(kLast), 1); }), 5);
}

TEST(AddDays, BeforeTheFirstDayRaises5) {
  EXPECT_EQ(FailureOf([] { AddDays(Date(kFirst), -1); }), 5);
}

TEST(AddDays, TheLargestCountRaises5) {
  EXPECT_EQ(FailureOf([] { AddDays(Date(1), std::numeric_limits<std::int64_t>::max()); }), 5);
}

TEST(AddDays, TheSmallestCountRaises5) {
  EXPECT_EQ(FailureOf([] { AddDays(Date(1), std::numeric_limits<std::int64_t>::min()); }), 5);
}

TEST(AddMonths, KeepsDayAndTime) { EXPECT_EQ(AddMonths(On(2024, 1, 15, 9), 1), On(2024, 2, 15, 9)); }
TEST(AddMonths, CutsToTheEndOfAShorterMonth) { EXPECT_EQ(AddMonths(On(2024, 1, 31, 9), 1), On(2024, 2, 29, 9)); }
TEST(AddMonths, GoesBackAcrossAYear) { EXPECT_EQ(AddMonths(On(2024, 1, 31), -2), On(2023, 11, 30)); }
TEST(AddMonths, KeepsTheTimeBeforeDayZero) { EXPECT_EQ(AddMonths(On(1899, 11, 29, 6), 1), On(1899, 12, 29, 6)); }

TEST(AddMonths, BeyondTheRangeRaises5) {
  EXPECT_EQ(FailureOf([] { AddMonths(On(9999, 12, 1), 1); }), 5);
}

TEST(AddMonths, TheLargestCountRaises5) {
  EXPECT_EQ(FailureOf([] { AddMonths(Date(1), std::numeric_limits<std::int64_t>::max()); }), 5);
}

TEST(AddYears, TwentyNinthOfFebruaryBecomesTheTwentyEighth) {
  EXPECT_EQ(AddYears(On(2024, 2, 29, 9), 1), On(2025, 2, 28, 9));
}

TEST(AddYears, TwentyNinthOfFebruaryStaysInALeapYear) { EXPECT_EQ(AddYears(On(2024, 2, 29), 4), On(2028, 2, 29)); }

TEST(AddYears, BeyondTheRangeRaises5) {
  EXPECT_EQ(FailureOf([] { AddYears(On(9999, 1, 1), 1); }), 5);
}

TEST(AddYears, TheSmallestCountRaises5) {
  EXPECT_EQ(FailureOf([] { AddYears(Date(1), std::numeric_limits<std::int64_t>::min()); }), 5);
}

struct AddCase {
  const char* interval;
  double number;
  Date expected;
};

class DateAddInterval : public testing::TestWithParam<AddCase> {};

TEST_P(DateAddInterval, AddsTheNumber) {
  const auto& [interval, number, expected] = GetParam();
  const Date result = DateAdd(interval, number, On(2024, 1, 31, 9));
  EXPECT_EQ(result, expected) << interval << " gives " << ToText(result);
}

INSTANTIATE_TEST_SUITE_P(All, DateAddInterval,
                         testing::Values(AddCase{"d", 1, On(2024, 2, 1, 9)}, AddCase{"y", 1, On(2024, 2, 1, 9)},
                                         AddCase{"w", 1, On(2024, 2, 1, 9)}, AddCase{"ww", -1, On(2024, 1, 24, 9)},
                                         AddCase{"m", 1, On(2024, 2, 29, 9)}, AddCase{"q", 1, On(2024, 4, 30, 9)},
                                         AddCase{"yyyy", 1, On(2025, 1, 31, 9)}, AddCase{"h", 15, On(2024, 2, 1)},
                                         AddCase{"n", -1, On(2024, 1, 31, 8, 59)},
                                         AddCase{"s", 1, On(2024, 1, 31, 9, 0, 1)},
                                         AddCase{"YYYY", 1, On(2025, 1, 31, 9)}, AddCase{"d", 1.5, On(2024, 2, 2, 9)},
                                         AddCase{"d", 2.5, On(2024, 2, 2, 9)}));

TEST(DateAdd, SecondsBackAcrossDayZeroCountForwardFromMidnight) {
  EXPECT_EQ(DateAdd("s", -1, Date()), On(1899, 12, 29, 23, 59, 59));
}

TEST(DateAdd, AnUnknownIntervalRaises5) {
  EXPECT_EQ(FailureOf([] { DateAdd("x", 1, Date()); }), 5);
}

TEST(DateAdd, ANumberThatIsNoneRaises5) {
  EXPECT_EQ(FailureOf([] { DateAdd("d", kNan, Date()); }), 5);
}

TEST(DateAdd, AHugeNumberRaises5) {
  EXPECT_EQ(FailureOf([] { DateAdd("h", 1e300, Date()); }), 5);
}

TEST(DateAdd, HoursBeyondTheRangeRaise5) {
  EXPECT_EQ(FailureOf([] { DateAdd("h", 24, Date(kLast)); }), 5);
}

// ---- differences and parts

struct DiffCase {
  const char* interval;
  Date from;
  Date to;
  std::int32_t expected;
};

class DateDiffInterval : public testing::TestWithParam<DiffCase> {};

TEST_P(DateDiffInterval, CountsItsBoundaries) {
  const auto& [interval, from, to, expected] = GetParam();
  EXPECT_EQ(DateDiff(interval, from, to), expected) << interval << " from " << ToText(from) << " to " << ToText(to);
}

INSTANTIATE_TEST_SUITE_P(All, DateDiffInterval,
                         testing::Values(DiffCase{"d", On(2024, 5, 1, 23), On(2024, 5, 2, 1), 1},
                                         DiffCase{"d", On(2024, 5, 2, 1), On(2024, 5, 1, 23), -1},
                                         DiffCase{"y", On(2024, 5, 1), On(2024, 5, 31), 30},
                                         DiffCase{"yyyy", On(2023, 12, 31), On(2024, 1, 1), 1},
                                         DiffCase{"q", On(2024, 3, 31), On(2024, 4, 1), 1},
                                         DiffCase{"m", On(2023, 12, 31), On(2024, 2, 1), 2},
                                         DiffCase{"w", On(2024, 5, 1), On(2024, 5, 14), 1},
                                         DiffCase{"w", On(2024, 5, 14), On(2024, 5, 1), -1},
                                         DiffCase{"ww", On(2024, 5, 4), On(2024, 5, 5), 1},   // Saturday to Sunday
                                         DiffCase{"ww", On(2024, 5, 5), On(2024, 5, 11), 0},  // Sunday to Saturday
                                         DiffCase{"ww", On(1899, 12, 23), On(1899, 12, 24), 1},
                                         DiffCase{"h", On(2024, 5, 1, 9, 59), On(2024, 5, 1, 10), 1},
                                         DiffCase{"n", On(2024, 5, 1, 9, 0, 59), On(2024, 5, 1, 9, 1), 1},
                                         DiffCase{"s", On(2024, 5, 1, 23, 59, 59), On(2024, 5, 2, 0, 0, 1), 2},
                                         DiffCase{"S", Date(-1.25), Date(-1.0), -21600}));

TEST(DateDiff, SecondsBeyond32BitsRaise6) {
  EXPECT_EQ(FailureOf([] { DateDiff("s", On(1900, 1, 1), On(2024, 1, 1)); }), 6);
}

TEST(DateDiff, AnUnknownIntervalRaises5) {
  EXPECT_EQ(FailureOf([] { DateDiff("", Date(), Date()); }), 5);
}

struct PartCase {
  const char* interval;
  Date date;
  std::int32_t expected;
};

class DatePartInterval : public testing::TestWithParam<PartCase> {};

TEST_P(DatePartInterval, NamesItsPart) {
  const auto& [interval, date, expected] = GetParam();
  EXPECT_EQ(DatePart(interval, date), expected) << interval << " of " << ToText(date);
}

INSTANTIATE_TEST_SUITE_P(All, DatePartInterval,
                         testing::Values(PartCase{"yyyy", On(2024, 5, 1), 2024}, PartCase{"q", On(2024, 5, 1), 2},
                                         PartCase{"q", On(2024, 12, 1), 4}, PartCase{"m", On(2024, 5, 1), 5},
                                         PartCase{"d", On(2024, 5, 31), 31}, PartCase{"y", On(2024, 12, 31), 366},
                                         PartCase{"w", On(2024, 5, 5), 1}, PartCase{"ww", On(2024, 1, 6), 1},
                                         PartCase{"ww", On(2024, 1, 7), 2}, PartCase{"ww", On(2023, 1, 1), 1},
                                         PartCase{"ww", On(2024, 12, 31), 53},
                                         PartCase{"h", On(2024, 5, 1, 21, 30, 15), 21},
                                         PartCase{"n", On(2024, 5, 1, 21, 30, 15), 30},
                                         PartCase{"s", On(2024, 5, 1, 21, 30, 15), 15}));

TEST(DaysBetween, IgnoresTimesOfDay) { EXPECT_EQ(DaysBetween(On(2024, 5, 1, 23), On(2024, 5, 2, 1)), 1); }

// ---- DateSerial

TEST(DateSerial, GivesMidnightOfADay) { EXPECT_EQ(DateSerial(2024, 5, 1), On(2024, 5, 1)); }
TEST(DateSerial, ADayBehindTheMonthRunsOn) { EXPECT_EQ(DateSerial(2023, 2, 30), On(2023, 3, 2)); }
TEST(DateSerial, Month13IsJanuaryOfTheNextYear) { EXPECT_EQ(DateSerial(2024, 13, 1), On(2025, 1, 1)); }
TEST(DateSerial, Month0IsDecemberOfTheYearBefore) { EXPECT_EQ(DateSerial(2024, 0, 1), On(2023, 12, 1)); }
TEST(DateSerial, Day0IsTheLastOfTheMonthBefore) { EXPECT_EQ(DateSerial(2024, 3, 0), On(2024, 2, 29)); }
TEST(DateSerial, Year29Is2029) { EXPECT_EQ(DateSerial(29, 1, 1), On(2029, 1, 1)); }
TEST(DateSerial, Year30Is1930) { EXPECT_EQ(DateSerial(30, 1, 1), On(1930, 1, 1)); }
TEST(DateSerial, ALargeDayIsAllowed) { EXPECT_EQ(DateSerial(2024, 1, 32767), AddDays(On(2024, 1, 1), 32766)); }
TEST(DateSerial, MonthsFromAYearAboveTheRangeMayComeBack) { EXPECT_EQ(DateSerial(10000, -5, 1), On(9999, 7, 1)); }

TEST(DateSerial, APartBeyond16BitsRaises6) {
  EXPECT_EQ(FailureOf([] { DateSerial(2024, 1, 32768); }), 6);
  EXPECT_EQ(FailureOf([] { DateSerial(2024, -32769, 1); }), 6);
  EXPECT_EQ(FailureOf([] { DateSerial(32768, 1, 1); }), 6);
}

TEST(DateSerial, AResultOutOfRangeRaises5) {
  EXPECT_EQ(FailureOf([] { DateSerial(9999, 12, 32); }), 5);
  EXPECT_EQ(FailureOf([] { DateSerial(100, 1, 0); }), 5);
  EXPECT_EQ(FailureOf([] { DateSerial(-1, 1, 1); }), 5);
  EXPECT_EQ(FailureOf([] { DateSerial(32767, 32767, 32767); }), 5);
}

// ---- the calendar as a whole

TEST(Calendar, EveryDayOfTheRangeRoundTrips) {
  for (int day = static_cast<int>(kFirst); day <= static_cast<int>(kLast); day += 7) {
    ASSERT_EQ(Date(Date(static_cast<double>(day)).YearMonthDay()).value(), day);
  }
}

// ---- the clock

TEST(Clock, NowIsLocalTimeInWholeSeconds) {
  const Date now = Now();
  EXPECT_EQ(now, now.RoundedToSeconds());
  const std::time_t seconds = std::time(nullptr);
  const auto utc = static_cast<double>(seconds) / 86400.0 + 25569.0;
  EXPECT_LT(std::fabs(now.value() - utc), 0.7) << "local time differs from UTC by at most 14 hours";
}

TEST(ClockOverride, FixesNow) {
  const ClockOverride clock(On(2024, 5, 1, 9));
  EXPECT_EQ(Now(), On(2024, 5, 1, 9));
}

TEST(ClockOverride, SteersNow) {
  int calls = 0;
  const ClockOverride clock([&] { return Date(++calls); });
  Now();
  EXPECT_EQ(Now(), Date(2.0));
}

TEST(ClockOverride, GivesTheOuterOneBack) {
  const ClockOverride outer(Date(1.0));
  { const ClockOverride inner(Date(2.0)); }
  EXPECT_EQ(Now(), Date(1.0));
}

TEST(ClockOverride, EndsWithItsLife) {
  { const ClockOverride clock(Date(1.0)); }
  EXPECT_GT(Now().Year(), 2000);
}

TEST(ClockOverride, HoldsOnItsThreadOnly) {
  const ClockOverride clock(Date(1.0));
  Date elsewhere;
  std::thread([&] { elsewhere = Now(); }).join();
  EXPECT_GT(elsewhere.Year(), 2000);
}

}  // namespace
}  // namespace zef
