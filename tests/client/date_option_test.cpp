#include "client/date_option.h"

#include <gmock/gmock.h>

#include <limits>

#include "tests/client/failure_of.h"

namespace zef::client {
namespace {

using namespace std::chrono_literals;
using test::FailureOf;
using testing::HasSubstr;
using testing::StartsWith;

class WrongDate : public testing::TestWithParam<const char*> {};

TEST_P(WrongDate, IsWrongUseThatNamesTheOptionAndTheForms) {
  EXPECT_THAT(FailureOf([] { ReadDate("--due", GetParam()); }),
              testing::AllOf(StartsWith("2: --due: '"), HasSubstr("2024-05-17")));
}

INSTANTIATE_TEST_SUITE_P(DateOption, WrongDate,
                         testing::Values("", "tomorrow", "2024-02-30", "2024-13-01", "09:00", "45429"));

TEST(ReadDate, DayZeroIsWrongUseThatTellsWhatItStandsFor) {
  for (const char* const text : {"1899-12-30", "12/30/1899", "1899-12-30 09:00"}) {
    EXPECT_THAT(FailureOf([&] { ReadDate("--due", text); }),
                testing::AllOf(StartsWith("2: --due: '"), HasSubstr("that day stands for \"no date\"")));
  }
}

TEST(ReadDate, TakesYearMonthDay) { EXPECT_EQ(ReadDate("", "2024-05-17"), Date(2024y / 5 / 17)); }

TEST(ReadDate, TakesATimeOfDay) { EXPECT_EQ(ReadDate("", "2024-05-17 09:30"), Date(2024y / 5 / 17, 34200)); }

TEST(ReadDate, TakesTheAmericanForm) { EXPECT_EQ(ReadDate("", "5/17/2024 9:30:00 AM"), Date(2024y / 5 / 17, 34200)); }

class WrongMonth : public testing::TestWithParam<const char*> {};

TEST_P(WrongMonth, IsWrongUse) {
  EXPECT_THAT(FailureOf([] { ReadMonth("--month", GetParam()); }), StartsWith("2: --month: '"));
}

INSTANTIATE_TEST_SUITE_P(DateOption, WrongMonth,
                         testing::Values("", "may", "2024", "2024-00", "2024-13", "24-05", "2024-05-01", "2024-5x",
                                         "2024--5", "0099-01"));

TEST(ReadMonth, TakesTwoDigits) { EXPECT_EQ(ReadMonth("", "2024-05"), 2024y / 5); }

TEST(ReadMonth, TakesOneDigit) { EXPECT_EQ(ReadMonth("", "2024-5"), 2024y / 5); }

TEST(DateText, DayAloneAtMidnight) { EXPECT_EQ(DateText(Date(2024y / 5 / 7)), "2024-05-07"); }

TEST(DateText, TimeOfDayInMinutes) { EXPECT_EQ(DateText(Date(2024y / 5 / 7, 32700)), "2024-05-07 09:05"); }

TEST(DateText, SecondsIfThereAreSome) { EXPECT_EQ(DateText(Date(2024y / 5 / 7, 32701)), "2024-05-07 09:05:01"); }

TEST(DateText, EmptyDateIsEmpty) { EXPECT_EQ(DateText(Date()), ""); }

TEST(DateText, DateBeforeTheYear1900KeepsItsTime) {
  EXPECT_EQ(DateText(Date(1899y / 12 / 29, 21600)), "1899-12-29 06:00");
}

TEST(DateText, DateBeyondTheCalendarIsAQuestionMark) { EXPECT_EQ(DateText(Date(1e9)), "?"); }

TEST(DateText, NoNumberIsAQuestionMark) { EXPECT_EQ(DateText(Date(std::numeric_limits<double>::quiet_NaN())), "?"); }

}  // namespace
}  // namespace zef::client
