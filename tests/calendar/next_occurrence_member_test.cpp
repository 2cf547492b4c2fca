#include <gtest/gtest.h>

#include "calendar/recurrence.h"
#include "platform/date_parts.h"
#include "tests/support/database.h"

namespace zef::test {
namespace {

using namespace std::chrono_literals;

/// A rule as a client makes it: without a session, saved or not, and without an end.
Ref<CRecurrence> Rule(RecurrenceType type) {
  auto rule = MakeRef<CRecurrence>();
  rule->RType = type;
  rule->EndDate = Date();
  return rule;
}

const Date kWednesday(2024y / 5 / 15, 9 * 3600);

TEST(NextOccuranceDate, ReadsTheDaysOfAWeeklyRule) {
  const Ref<CRecurrence> rule = Rule(REC_WEEKLY);
  rule->Options1 = 2;
  rule->Monday = true;
  EXPECT_EQ(rule->NextOccuranceDate(kWednesday), Date(2024y / 5 / 27, 9 * 3600));
}

TEST(NextOccuranceDate, ReadsBothOptionsOfAMonthlyRule) {
  const Ref<CRecurrence> rule = Rule(REC_MONTHLY);
  rule->Options1 = 20;
  rule->Options2 = 3;
  EXPECT_EQ(rule->NextOccuranceDate(Date(2024y / 5 / 20)), Date(2024y / 8 / 20));
}

TEST(NextOccuranceDate, ReadsTheSubTypeAndWeekOfAYearlyRule) {
  const Ref<CRecurrence> rule = Rule(REC_YEARLY);
  rule->SubType = 1;
  rule->Options1 = 0;
  rule->Options2 = 5;
  rule->WeekNumber = 4;
  EXPECT_EQ(rule->NextOccuranceDate(Date(2024y / 6 / 4, 9 * 3600)), Date(2024y / 6 / 24, 9 * 3600));
}

TEST(NextOccuranceDate, OfANewRuleEndsAtTheMomentOfItsCreation) {
  const ClockOverride clock(kWednesday);
  auto rule = MakeRef<CRecurrence>();
  rule->RType = REC_DAILY;
  rule->Options1 = 1;
  EXPECT_EQ(rule->NextOccuranceDate(kWednesday), Date());
  EXPECT_EQ(rule->NextOccuranceDate(AddDays(kWednesday, -1)), kWednesday);
}

TEST(NextOccuranceDate, MarksNothingAsModified) {
  const Ref<CRecurrence> rule = Rule(REC_DAILY);
  rule->Options1 = 1;
  rule->ResetFlagsX(false, false);
  rule->NextOccuranceDate(kWednesday);
  EXPECT_FALSE(rule->IsModified());
}

TEST(NextOccuranceDate, OfARuleThatFailsRecordsNothing) {
  const Database database;
  const Ref<CSession> session = database.OpenSession();
  const Ref<CRecurrence> rule = Rule(REC_WEEKLY);
  rule->SetSession(session);
  EXPECT_EQ(rule->NextOccuranceDate(kWednesday), Date());
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST(NextOccuranceDate, KeepsEverySecondOfTheDayExactlyAcrossTheDecades) {
  const Ref<CRecurrence> rule = Rule(REC_DAILY);
  for (const auto& [start, days] : {std::pair(Date(1985y / 3 / 4), 14309), {Date(2024y / 5 / 1), 30000}}) {
    rule->Options1 = days;
    const auto first = date_parts::CalendarDay(start.DayNumber());
    const auto last = date_parts::CalendarDay(start.DayNumber() + days);
    for (int second = 0; second < 86400; second += 7) {
      ASSERT_EQ(rule->NextOccuranceDate(Date(first, second)), Date(last, second)) << second;
    }
  }
}

TEST(NextOccuranceDate, EqualToTheEndDateStaysAcrossTheDecades) {
  const Ref<CRecurrence> rule = Rule(REC_DAILY);
  rule->Options1 = 14309;
  for (int second = 0; second < 86400; second += 60) {
    const Date end(2024y / 5 / 7, second);
    rule->EndDate = end;
    ASSERT_EQ(rule->NextOccuranceDate(Date(1985y / 3 / 4, second)), end) << second;
  }
}

}  // namespace
}  // namespace zef::test
