#pragma once

/// What dates are between calendar and number, for both of their homes: the library, and the header of its clients,
/// which needs nothing of it. Each includes this behind its own `Date` and the type of failures as `Raised`.

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <cstdint>
#include <limits>

namespace zef {
namespace {

using namespace std::chrono;

Date On(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
  const year_month_day calendar_day(std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
                                    std::chrono::day(static_cast<unsigned>(day)));
  return Date(calendar_day, (hour * 60 + minute) * 60 + second);
}

/// The number of the failure that an action raises, 0 for none.
template <class Action>
std::int32_t FailureOf(Action action) {
  try {
    action();
  } catch (const Raised& failure) {
    return failure.number();
  }
  return 0;
}

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kFirst = -657434.0;
constexpr double kLast = 2958465.0;

// ---- construction and parts

TEST(DateValue, DefaultIsTheZeroDate) { EXPECT_TRUE(Date().IsZero()); }

TEST(DateValue, DayZeroIs30December1899) { EXPECT_EQ(On(1899, 12, 30), Date(0.0)); }

TEST(DateValue, ADayCountsFromDayZero) { EXPECT_EQ(On(2024, 5, 1), Date(45413.0)); }

TEST(DateValue, TheTimeOfDayIsSecondsOverADay) { EXPECT_EQ(On(2024, 5, 1, 9), Date(45413.0 + 32400 / 86400.0)); }

TEST(DateValue, BeforeDayZeroTheTimeCountsForwardFromMidnight) { EXPECT_EQ(On(1899, 12, 29, 6), Date(-1.25)); }

TEST(DateValue, TheFirstDayOfTheRangeIsHeld) { EXPECT_EQ(On(100, 1, 1), Date(kFirst)); }

TEST(DateValue, TheLastDayOfTheRangeIsHeld) { EXPECT_EQ(On(9999, 12, 31), Date(kLast)); }

TEST(DateValue, ADayThatIsNoneIsRefused) {
  EXPECT_EQ(FailureOf([] { On(2023, 2, 29); }), 5);
}

TEST(DateValue, AYearBelowTheRangeIsRefused) {
  EXPECT_EQ(FailureOf([] { On(99, 12, 31); }), 5);
}

TEST(DateValue, AYearAboveTheRangeIsRefused) {
  EXPECT_EQ(FailureOf([] { On(10000, 1, 1); }), 5);
}

TEST(DateValue, SecondsOfANextDayAreRefused) {
  EXPECT_EQ(FailureOf([] { Date(2024y / May / 1, 86400); }), 5);
}

TEST(DateValue, NegativeSecondsAreRefused) {
  EXPECT_EQ(FailureOf([] { Date(2024y / May / 1, -1); }), 5);
}

TEST(DatePartsOfDate, CalendarDayOfAPositiveDate) { EXPECT_EQ(Date(45413.375).YearMonthDay(), 2024y / May / 1); }

TEST(DatePartsOfDate, CalendarDayOfANegativeDate) { EXPECT_EQ(Date(-1.25).YearMonthDay(), 1899y / December / 29); }

TEST(DatePartsOfDate, AFractionBelowZeroLiesOnDayZero) { EXPECT_EQ(Date(-0.5).YearMonthDay(), 1899y / December / 30); }

TEST(DatePartsOfDate, WithoutTimeIsTheMidnightOfTheDay) { EXPECT_EQ(Date(-1.25).WithoutTime(), Date(-1.0)); }

TEST(DatePartsOfDate, SecondsOfDayCountFromMidnight) { EXPECT_EQ(On(2024, 5, 1, 23, 59, 59).SecondsOfDay(), 86399); }
TEST(DatePartsOfDate, SecondsOfDayOfANegativeDateCountForward) { EXPECT_EQ(Date(-1.25).SecondsOfDay(), 21600); }
TEST(DatePartsOfDate, SecondsOfDayRoundToTheNearest) { EXPECT_EQ(Date(1 + 10.6 / 86400).SecondsOfDay(), 11); }
TEST(DatePartsOfDate, SecondsThatRoundUpToMidnightAre0) { EXPECT_EQ(Date(1 + 86399.7 / 86400).SecondsOfDay(), 0); }

TEST(DatePartsOfDate, DayNumberGoesTowardsZero) { EXPECT_EQ(Date(-1.75).DayNumber(), -1); }

class OutOfRange : public testing::TestWithParam<double> {};

TEST_P(OutOfRange, EveryCalendarOperationRaises5) {
  const Date date(GetParam());
  EXPECT_EQ(FailureOf([&] { date.YearMonthDay(); }), 5);
  EXPECT_EQ(FailureOf([&] { date.SecondsOfDay(); }), 5);
  EXPECT_EQ(FailureOf([&] { date.DayNumber(); }), 5);
  EXPECT_EQ(FailureOf([&] { date.RoundedToSeconds(); }), 5);
}

INSTANTIATE_TEST_SUITE_P(Values, OutOfRange,
                         testing::Values(kLast + 1, kFirst - 1, 1e300, -1e300, kInfinity, -kInfinity, kNan));

// ---- rounding and comparison

TEST(RoundedToSeconds, GivesTheBitPatternOfDayAndSeconds) {
  EXPECT_EQ(Date(45413.3750001).RoundedToSeconds(), On(2024, 5, 1, 9));
}

TEST(RoundedToSeconds, CarriesIntoTheNextDay) {
  EXPECT_EQ(Date(45413 + 86399.7 / 86400).RoundedToSeconds(), On(2024, 5, 2));
}

TEST(RoundedToSeconds, CarriesForwardBeforeDayZero) {
  EXPECT_EQ(Date(-5 - 86399.7 / 86400).RoundedToSeconds(), Date(-4.0));
}

TEST(RoundedToSeconds, OfTheLastMomentOfTheRangeIsItsLastSecond) {
  const Date last(std::nextafter(kLast + 1, 0));
  EXPECT_EQ(last.SecondsOfDay(), 86399);
  EXPECT_EQ(last.RoundedToSeconds(), On(9999, 12, 31, 23, 59, 59));
}

}  // namespace
}  // namespace zef
