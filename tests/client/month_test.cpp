#include "client/month.h"

#include <gmock/gmock.h>

namespace zef::client {
namespace {

using namespace std::chrono_literals;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

TEST(MonthPicture, ShowsWeeksFromMondayOn) {
  EXPECT_EQ(MonthPicture(2024y / 5, {}, std::nullopt, false),
            "          May 2024\n"
            " Mo  Tu  We  Th  Fr  Sa  Su\n"
            "          1   2   3   4   5\n"
            "  6   7   8   9  10  11  12\n"
            " 13  14  15  16  17  18  19\n"
            " 20  21  22  23  24  25  26\n"
            " 27  28  29  30  31\n");
}

TEST(MonthPicture, MonthThatBeginsOnMondayHasNoBlanksInFront) {
  EXPECT_THAT(MonthPicture(2024y / 4, {}, std::nullopt, false), HasSubstr("\n  1   2   3   4   5   6   7\n"));
}

TEST(MonthPicture, MonthThatBeginsOnSundayHasItAlone) {
  EXPECT_THAT(MonthPicture(2024y / 9, {}, std::nullopt, false), HasSubstr("Su\n                          1\n"));
}

TEST(MonthPicture, MonthThatEndsOnSundayHasNoEmptyWeek) {
  EXPECT_THAT(MonthPicture(2024y / 6, {}, std::nullopt, false), EndsWith(" 29  30\n"));
}

TEST(MonthPicture, LeapYearHas29DaysInFebruary) {
  EXPECT_THAT(MonthPicture(2024y / 2, {}, std::nullopt, false), HasSubstr("29"));
}

TEST(MonthPicture, CommonYearHas28DaysInFebruary) {
  EXPECT_THAT(MonthPicture(2023y / 2, {}, std::nullopt, false), Not(HasSubstr("29")));
}

TEST(MonthPicture, MarkedDayHasAStar) {
  EXPECT_THAT(MonthPicture(2024y / 5, {7, 12}, std::nullopt, false), HasSubstr("  6   7*  8   9  10  11  12*\n"));
}

TEST(MonthPicture, TodayHasASign) { EXPECT_THAT(MonthPicture(2024y / 5, {}, 6, false), HasSubstr("\n >6   7   8")); }

TEST(MonthPicture, TodayCanBeMarked) { EXPECT_THAT(MonthPicture(2024y / 5, {31}, 31, false), HasSubstr(">31*\n")); }

TEST(MonthPicture, MarkedDayStandsOutInColour) {
  EXPECT_THAT(MonthPicture(2024y / 5, {7}, std::nullopt, true), HasSubstr("\x1b[1;33m  7*\x1b[0m"));
}

TEST(MonthPicture, WithoutColourHasNoCodes) {
  EXPECT_THAT(MonthPicture(2024y / 5, {7}, 7, false), Not(HasSubstr("\x1b")));
}

}  // namespace
}  // namespace zef::client
