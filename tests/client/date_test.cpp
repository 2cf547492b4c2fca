#include "ZEFComponents/date.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace zef {
namespace {

using namespace std::chrono;

Date On(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
  const year_month_day calendar_day(std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
                                    std::chrono::day(static_cast<unsigned>(day)));
  return Date(calendar_day, (hour * 60 + minute) * 60 + second);
}

template <class Action>
std::int32_t FailureOf(Action action) {
  try {
    action();
  } catch (const Failure& failure) {
    return failure.number();
  }
  return 0;
}

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kFirst = -657434.0;
constexpr double kLast = 2958465.0;

// ---- construction and parts

TEST(ClientDate, DefaultIsTheZeroDate) { EXPECT_TRUE(Date().IsZero()); }

TEST(ClientDate, DayZeroIs30December1899) { EXPECT_EQ(On(1899, 12, 30).value, 0.0); }

TEST(ClientDate, ADayCountsFromDayZero) { EXPECT_EQ(On(2024, 5, 1).value, 45413.0); }

TEST(ClientDate, TheTimeOfDayIsSecondsOverADay) { EXPECT_EQ(On(2024, 5, 1, 9).value, 45413.0 + 32400 / 86400.0); }

TEST(ClientDate, BeforeDayZeroTheTimeCountsForwardFromMidnight) { EXPECT_EQ(On(1899, 12, 29, 6).value, -1.25); }

TEST(ClientDate, TheFirstDayOfTheRangeIsHeld) { EXPECT_EQ(On(100, 1, 1).value, kFirst); }

TEST(ClientDate, TheLastDayOfTheRangeIsHeld) { EXPECT_EQ(On(9999, 12, 31).value, kLast); }

TEST(ClientDate, ADayThatIsNoneIsRefused) {
  EXPECT_EQ(FailureOf([] { On(2023, 2, 29); }), 5);
}

TEST(ClientDate, AYearBelowTheRangeIsRefused) {
  EXPECT_EQ(FailureOf([] { On(99, 12, 31); }), 5);
}

TEST(ClientDate, AYearAboveTheRangeIsRefused) {
  EXPECT_EQ(FailureOf([] { On(10000, 1, 1); }), 5);
}

TEST(ClientDate, SecondsOfANextDayAreRefused) {
  EXPECT_EQ(FailureOf([] { Date(2024y / May / 1, 86400); }), 5);
}

TEST(ClientDate, NegativeSecondsAreRefused) {
  EXPECT_EQ(FailureOf([] { Date(2024y / May / 1, -1); }), 5);
}

TEST(ClientDateParts, TheLastMomentOfTheRangeHasTheLastSecond) {
  const Date last(std::nextafter(kLast + 1, 0));
  EXPECT_EQ(last.SecondsOfDay(), 86399);
  EXPECT_EQ(last.RoundedToSeconds(), On(9999, 12, 31, 23, 59, 59));
}

TEST(ClientDateParts, CalendarDayOfAPositiveDate) { EXPECT_EQ(Date(45413.375).YearMonthDay(), 2024y / May / 1); }

TEST(ClientDateParts, CalendarDayOfANegativeDate) { EXPECT_EQ(Date(-1.25).YearMonthDay(), 1899y / December / 29); }

TEST(ClientDateParts, AFractionBelowZeroLiesOnDayZero) { EXPECT_EQ(Date(-0.5).YearMonthDay(), 1899y / December / 30); }

TEST(ClientDateParts, WeekdayOfDayZeroIsSaturday) { EXPECT_EQ(Date().Weekday(), Saturday); }
TEST(ClientDateParts, WeekdayBeforeDayZeroGoesOn) { EXPECT_EQ(Date(-1.25).Weekday(), Friday); }
TEST(ClientDateParts, WithoutTimeIsTheMidnightOfTheDay) { EXPECT_EQ(Date(-1.25).WithoutTime(), Date(-1.0)); }

TEST(ClientDateParts, SecondsOfDayCountFromMidnight) { EXPECT_EQ(On(2024, 5, 1, 23, 59, 59).SecondsOfDay(), 86399); }
TEST(ClientDateParts, SecondsOfDayOfANegativeDateCountForward) { EXPECT_EQ(Date(-1.25).SecondsOfDay(), 21600); }
TEST(ClientDateParts, SecondsOfDayRoundToTheNearest) { EXPECT_EQ(Date(1 + 10.6 / 86400).SecondsOfDay(), 11); }
TEST(ClientDateParts, SecondsThatRoundUpToMidnightAre0) { EXPECT_EQ(Date(1 + 86399.7 / 86400).SecondsOfDay(), 0); }

TEST(ClientDateParts, DayNumberGoesTowardsZero) { EXPECT_EQ(Date(-1.75).DayNumber(), -1); }

class ClientDateOutOfRange : public testing::TestWithParam<double> {};

TEST_P(ClientDateOutOfRange, EveryCalendarOperationRaises5) {
  const Date date(GetParam());
  EXPECT_EQ(FailureOf([&] { date.YearMonthDay(); }), 5);
  EXPECT_EQ(FailureOf([&] { date.SecondsOfDay(); }), 5);
  EXPECT_EQ(FailureOf([&] { date.DayNumber(); }), 5);
  EXPECT_EQ(FailureOf([&] { date.RoundedToSeconds(); }), 5);
}

INSTANTIATE_TEST_SUITE_P(Values, ClientDateOutOfRange,
                         testing::Values(kLast + 1, kFirst - 1, 1e300, -1e300, kInfinity, -kInfinity, kNan));

// ---- rounding and comparison

TEST(ClientDateRoundedToSeconds, GivesTheBitPatternOfDayAndSeconds) {
  EXPECT_EQ(Date(45413.3750001).RoundedToSeconds(), On(2024, 5, 1, 9));
}

TEST(ClientDateRoundedToSeconds, CarriesIntoTheNextDay) {
  EXPECT_EQ(Date(45413 + 86399.7 / 86400).RoundedToSeconds(), On(2024, 5, 2));
}

TEST(ClientDateRoundedToSeconds, CarriesForwardBeforeDayZero) {
  EXPECT_EQ(Date(-5 - 86399.7 / 86400).RoundedToSeconds(), Date(-4.0));
}

TEST(ClientDateOrder, ComparesTimesOfDay) { EXPECT_GT(On(2024, 5, 1, 9, 0, 1), On(2024, 5, 1, 9)); }
TEST(ClientDateOrder, EqualDatesAreNotLater) { EXPECT_FALSE(On(2024, 5, 1) > On(2024, 5, 1)); }
TEST(ClientDateOrder, BeforeDayZeroALaterTimeIsLater) { EXPECT_GT(Date(-1.75), Date(-1.25)); }
TEST(ClientDateOrder, BeforeDayZeroANextDayIsLater) { EXPECT_GT(Date(-1.0), Date(-2.9)); }
TEST(ClientDateOrder, TheTwoFormsOfDayZeroAreTheSameMoment) { EXPECT_FALSE(Date(0.5) > Date(-0.5)); }
TEST(ClientDateOrder, ANumberThatIsNoneIsNeverLater) { EXPECT_FALSE(Date(kNan) > Date()); }

TEST(ClientDateNow, IsAMomentInWholeSeconds) {
  const Date now = Now();
  EXPECT_EQ(now.RoundedToSeconds(), now);
}

}  // namespace
}  // namespace zef
