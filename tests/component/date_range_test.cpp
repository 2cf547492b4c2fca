#include <gtest/gtest.h>

#include <cmath>

#include "tests/component/library.h"

namespace zef::test {
namespace {

constexpr double kFirst = -657434.0;  // 1 January 100
constexpr double kLast = 2958465.0;   // 31 December 9999
constexpr double kLastSecond = kLast + 86399.0 / 86400;

class DateRange : public ConnectedTest {
 protected:
  HRESULT Set(double date) { return event.Put("StartDate", Variant::Date(date)).result; }

  const Object event = session.Call("CreateEvent").value.object();
};

struct Moment {
  double given;
  double saved;
};

class DateInRange : public DateRange, public testing::WithParamInterface<Moment> {};

TEST_P(DateInRange, IsTakenAsItIsAndSavedToTheSecond) {
  event.Put("FolderID", 1);
  EXPECT_EQ(Set(GetParam().given), S_OK);
  EXPECT_EQ(event.Get("StartDate").value.date(), GetParam().given);
  ASSERT_TRUE(event.Call("Save").value.truth());
  const Object read = session.Call("GetEvent", event.Get("ID").value.number()).value.object();
  EXPECT_EQ(read.Get("StartDate").value.date(), GetParam().saved);
}
INSTANTIATE_TEST_SUITE_P(Ends, DateInRange,
                         testing::Values(Moment{kFirst, kFirst}, Moment{std::nextafter(kFirst - 1, 0), kFirst + 1},
                                         Moment{kLast, kLast}, Moment{kLast + 86399.6 / 86400, kLastSecond},
                                         Moment{std::nextafter(kLast + 1, 0), kLastSecond}));

class DateOutOfRange : public DateRange, public testing::WithParamInterface<double> {};

TEST_P(DateOutOfRange, IsRefusedAndNothingIsChanged) {
  Set(45413.375);
  EXPECT_EQ(Set(GetParam()), DISP_E_OVERFLOW);
  EXPECT_EQ(event.Get("StartDate").value.date(), 45413.375);
}
INSTANTIATE_TEST_SUITE_P(Ends, DateOutOfRange, testing::Values(kFirst - 1, kLast + 1, 1e300, -1e300, std::nan("")));

}  // namespace
}  // namespace zef::test
