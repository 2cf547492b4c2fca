#include "tests/platform/conformance/backend.h"

namespace zef::test {
namespace {

/// A clock that goes on by six hours with each look at it.
class Clocks : public Conformance {
 protected:
  double next_ = 45413.375;
  const ClockOverride clock_{[this] {
    const Date now(next_);
    next_ += 0.25;
    return now;
  }};
};

INSTANTIATE_TEST_SUITE_P(Engines, Clocks, testing::ValuesIn(Backends()), BackendName);

TEST_P(Clocks, StandStillBetweenTwoMentions) {
  EXPECT_EQ(Text("SELECT CStr(Now()) & ', ' & CStr(Now())"), "5/1/2024 9:00:00 AM, 5/1/2024 9:00:00 AM");
}

TEST_P(Clocks, StandStillBetweenNowAndDateAndTime) { EXPECT_EQ(Text("SELECT Now()-Date()-Time()"), "0"); }

TEST_P(Clocks, StandStillBetweenRows) {
  MakeTable();
  Execute("INSERT INTO Things (T_ID) VALUES (2)");
  Execute("UPDATE Things SET T_Date=Now() WHERE Now()=Now()");
  EXPECT_EQ(Rows("SELECT DISTINCT T_Date FROM Things"), "5/1/2024 9:00:00 AM");
}

TEST_P(Clocks, AreReadAgainForTheNextRun) {
  Text("SELECT Now()");
  EXPECT_EQ(Text("SELECT Now()"), "5/1/2024 3:00:00 PM");
}

TEST_P(Clocks, AreNotReadWithoutAMention) {
  Text("SELECT 1");
  EXPECT_EQ(next_, 45413.375);
}

TEST_P(Clocks, ServeTheKeysOfGroups) {
  MakeTable();
  EXPECT_EQ(Text("SELECT Year(Now())+T_ID FROM Things GROUP BY Year(Now())+T_ID"), "2025");
}

}  // namespace
}  // namespace zef::test
