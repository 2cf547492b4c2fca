#include "client/occurrences.h"

#include <gmock/gmock.h>

#include "client/date_option.h"

namespace zef::client {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr RuleSpec kEveryDay{.type = kDaily, .options1 = 1};

EventInfo Event(Date start, RuleSpec rule = {}, std::optional<Date> end = std::nullopt) {
  return {.start = start, .end = end.value_or(start), .rule = rule};
}

std::int64_t Day(std::chrono::year_month_day day) { return Date(day).DayNumber(); }

/// The starts of the occurrences in May 2024, as texts.
std::vector<std::string> InMay(const EventInfo& event) {
  std::vector<std::string> starts;
  for (const Occurrence& occurrence : OccurrencesBetween(event, Day(2024y / 5 / 1), Day(2024y / 5 / 31))) {
    starts.push_back(DateText(occurrence.start));
  }
  return starts;
}

TEST(Occurrences, EventWithoutARuleHasOne) {
  EXPECT_THAT(InMay(Event(Date(2024y / 5 / 7))), ElementsAre("2024-05-07"));
}

TEST(Occurrences, WeeklyRuleComesBackFromTheStartOn) {
  const RuleSpec fridays{.type = kWeekly, .options1 = 1, .days = 16};
  EXPECT_THAT(InMay(Event(Date(2024y / 5 / 10, 32400), fridays)),
              ElementsAre("2024-05-10 09:00", "2024-05-17 09:00", "2024-05-24 09:00", "2024-05-31 09:00"));
}

TEST(Occurrences, StartCountsThoughTheRuleNamesOtherDays) {
  const RuleSpec fridays{.type = kWeekly, .options1 = 1, .days = 16, .end = Date(2024y / 5 / 12)};
  EXPECT_THAT(InMay(Event(Date(2024y / 5 / 7), fridays)), ElementsAre("2024-05-07", "2024-05-10"));
}

TEST(Occurrences, NumberOfTimesIncludesTheStart) {
  EXPECT_THAT(InMay(Event(Date(2024y / 5 / 1), {.type = kDaily, .options1 = 1, .occurrences = 2})),
              ElementsAre("2024-05-01", "2024-05-02"));
}

TEST(Occurrences, NumberOfTimesCountsThoseBeforeTheSpanToo) {
  EXPECT_THAT(InMay(Event(Date(2024y / 4 / 29), {.type = kDaily, .options1 = 1, .occurrences = 3})),
              ElementsAre("2024-05-01"));
}

TEST(Occurrences, EndDateWinsOverTheNumberOfTimes) {
  const RuleSpec rule{.type = kDaily, .options1 = 1, .end = Date(2024y / 5 / 3), .occurrences = 1};
  EXPECT_THAT(InMay(Event(Date(2024y / 5 / 1), rule)), ElementsAre("2024-05-01", "2024-05-02", "2024-05-03"));
}

TEST(Occurrences, RuleThatStandsStillHasItsStartOnly) {
  EXPECT_THAT(InMay(Event(Date(2024y / 5 / 1), {.type = kDaily, .options1 = 0})), ElementsAre("2024-05-01"));
}

TEST(Occurrences, RuleThatGoesBackHasItsStartOnly) {
  EXPECT_THAT(InMay(Event(Date(2024y / 5 / 9), {.type = kDaily, .options1 = -1})), ElementsAre("2024-05-09"));
}

TEST(Occurrences, EventWithoutAStartHasNone) { EXPECT_THAT(InMay(Event(Date(), kEveryDay)), IsEmpty()); }

TEST(Occurrences, EventBeyondTheCalendarHasNone) { EXPECT_THAT(InMay(Event(Date(1e12), kEveryDay)), IsEmpty()); }

TEST(Occurrences, EventThatBeganBeforeTheSpanTouchesIt) {
  EXPECT_THAT(InMay(Event(Date(2024y / 4 / 30), {}, Date(2024y / 5 / 2))), ElementsAre("2024-04-30"));
}

TEST(Occurrences, EventThatEndsAtMidnightDoesNotTouchTheDayBehind) {
  EXPECT_THAT(InMay(Event(Date(2024y / 4 / 30, 72000), {}, Date(2024y / 5 / 1))), IsEmpty());
}

TEST(Occurrences, RepeatedEventKeepsItsLength) {
  const EventInfo event = Event(Date(2024y / 5 / 1, 32400), kEveryDay, Date(2024y / 5 / 1, 37200));
  EXPECT_EQ(DateText(OccurrencesBetween(event, Day(2024y / 5 / 9), Day(2024y / 5 / 9)).at(0).end), "2024-05-09 10:20");
}

TEST(Occurrences, EndBeforeTheStartCountsAsTheStart) {
  const EventInfo event = Event(Date(2024y / 5 / 9), {}, Date(2024y / 5 / 1));
  EXPECT_EQ(OccurrencesBetween(event, Day(2024y / 5 / 9), Day(2024y / 5 / 9)).at(0).last_day, Day(2024y / 5 / 9));
}

TEST(Occurrences, StopAtTheEndOfTheCalendar) {
  EXPECT_EQ(OccurrencesBetween(Event(Date(9999y / 12 / 30), kEveryDay), Day(9999y / 12 / 1), 1LL << 40).size(), 2U);
}

TEST(OccurrenceAt, DayFindsTheOccurrenceThatBeginsOnIt) {
  EXPECT_EQ(OccurrenceAt(Event(Date(2024y / 5 / 1, 33600), kEveryDay), Date(2024y / 5 / 9)),
            Date(2024y / 5 / 9, 33600));
}

TEST(OccurrenceAt, MomentFindsTheSameMomentBitByBit) {
  EXPECT_EQ(OccurrenceAt(Event(Date(1985y / 5 / 1, 33600), kEveryDay), Date(2024y / 5 / 9, 33600)),
            Date(2024y / 5 / 9, 33600));
}

TEST(OccurrenceAt, OtherMomentOfTheDayFindsNothing) {
  EXPECT_EQ(OccurrenceAt(Event(Date(2024y / 5 / 1, 33600), kEveryDay), Date(2024y / 5 / 9, 33601)), std::nullopt);
}

TEST(OccurrenceAt, DayBetweenOccurrencesFindsNothing) {
  EXPECT_EQ(OccurrenceAt(Event(Date(2024y / 5 / 1), {.type = kDaily, .options1 = 7}), Date(2024y / 5 / 9)),
            std::nullopt);
}

TEST(OccurrenceAt, DayBeforeTheStartFindsNothing) {
  EXPECT_EQ(OccurrenceAt(Event(Date(2024y / 5 / 1), kEveryDay), Date(2024y / 4 / 30)), std::nullopt);
}

}  // namespace
}  // namespace zef::client
