#include "session/bas_global.h"

#include <gtest/gtest.h>

#include <limits>

namespace zef {
namespace {

TEST(DayName, CountsFromMonday) { EXPECT_EQ(GetDayName(0), "Monday"); }
TEST(DayName, OfIndex1IsTuesday) { EXPECT_EQ(GetDayName(1), "Tuesday"); }
TEST(DayName, OfIndex2IsSpeltAsClientsKnowIt) { EXPECT_EQ(GetDayName(2), "Wendsday"); }
TEST(DayName, OfIndex3IsThursday) { EXPECT_EQ(GetDayName(3), "Thursday"); }
TEST(DayName, OfIndex4IsFriday) { EXPECT_EQ(GetDayName(4), "Friday"); }
TEST(DayName, OfIndex5IsSaturday) { EXPECT_EQ(GetDayName(5), "Saturday"); }
TEST(DayName, EndsWithSunday) { EXPECT_EQ(GetDayName(6), "Sunday"); }
TEST(DayName, BehindTheLastIsEmpty) { EXPECT_EQ(GetDayName(7), ""); }
TEST(DayName, BeforeTheFirstIsEmpty) { EXPECT_EQ(GetDayName(-1), ""); }
TEST(DayName, OfTheSmallestNumberIsEmpty) { EXPECT_EQ(GetDayName(std::numeric_limits<std::int32_t>::min()), ""); }
TEST(DayName, OfTheLargestNumberIsEmpty) { EXPECT_EQ(GetDayName(std::numeric_limits<std::int32_t>::max()), ""); }

TEST(MonthName, CountsFromJanuary) { EXPECT_EQ(GetMonthName(0), "January"); }

TEST(MonthName, FollowsTheYearToNovember) {
  constexpr const char* kNames[] = {"February", "March",  "April",     "May",     "June",
                                    "July",     "August", "September", "October", "November"};
  for (std::int32_t index = 1; index <= 10; ++index) EXPECT_EQ(GetMonthName(index), kNames[index - 1]) << index;
}

TEST(MonthName, OfIndex11IsEmpty) { EXPECT_EQ(GetMonthName(11), ""); }
TEST(MonthName, OfIndex12IsDecember) { EXPECT_EQ(GetMonthName(12), "December"); }
TEST(MonthName, OfIndex13IsEmpty) { EXPECT_EQ(GetMonthName(13), ""); }
TEST(MonthName, BeforeTheFirstIsEmpty) { EXPECT_EQ(GetMonthName(-1), ""); }
TEST(MonthName, OfTheSmallestNumberIsEmpty) { EXPECT_EQ(GetMonthName(std::numeric_limits<std::int32_t>::min()), ""); }
TEST(MonthName, OfTheLargestNumberIsEmpty) { EXPECT_EQ(GetMonthName(std::numeric_limits<std::int32_t>::max()), ""); }

TEST(Nz, GivesTheDefaultForNull) { EXPECT_EQ(Nz(Value(Null{}), Value(7)), Value(7)); }
TEST(Nz, GivesTheValueOtherwise) { EXPECT_EQ(Nz(Value(3), Value(7)), Value(3)); }
TEST(Nz, TakesTheEmptyTextForAValue) { EXPECT_EQ(Nz(Value(std::string()), Value(7)), Value(std::string())); }
TEST(Nz, TakesZeroForAValue) { EXPECT_EQ(Nz(Value(0), Value(7)), Value(0)); }
TEST(Nz, GivesNullIfTheDefaultIsNull) { EXPECT_EQ(Nz(Value(Null{}), Value(Null{})), Value(Null{})); }
TEST(Nz, LeavesTheKindOfTheDefault) { EXPECT_EQ(Nz(Value(Null{}), Value(std::string("x"))), Value(std::string("x"))); }

}  // namespace
}  // namespace zef
