#include "ZEFComponents/date.h"

namespace zef {
using Raised = Failure;
}

#include "tests/support/date_tests.h"

namespace zef {
namespace {

TEST(DatePartsOfDate, WeekdayOfDayZeroIsSaturday) { EXPECT_EQ(Date().Weekday(), Saturday); }
TEST(DatePartsOfDate, WeekdayBeforeDayZeroGoesOn) { EXPECT_EQ(Date(-1.25).Weekday(), Friday); }
TEST(DateOrder, ComparesTimesOfDay) { EXPECT_GT(On(2024, 5, 1, 9, 0, 1), On(2024, 5, 1, 9)); }
TEST(DateOrder, EqualDatesAreNotLater) { EXPECT_FALSE(On(2024, 5, 1) > On(2024, 5, 1)); }
TEST(DateOrder, BeforeDayZeroALaterTimeIsLater) { EXPECT_GT(Date(-1.75), Date(-1.25)); }
TEST(DateOrder, BeforeDayZeroANextDayIsLater) { EXPECT_GT(Date(-1.0), Date(-2.9)); }
TEST(DateOrder, TheTwoFormsOfDayZeroAreTheSameMoment) { EXPECT_FALSE(Date(0.5) > Date(-0.5)); }
TEST(DateOrder, ANumberThatIsNoneIsNeverLater) { EXPECT_FALSE(Date(kNan) > Date()); }

TEST(Clock, IsAMomentInWholeSeconds) {
  const Date now = Now();
  EXPECT_EQ(now.RoundedToSeconds(), now);
}

}  // namespace
}  // namespace zef
