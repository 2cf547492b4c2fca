#include "client/agenda.h"

#include <gmock/gmock.h>

namespace zef::client {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;

std::int64_t Day(std::chrono::year_month_day day) { return Date(day).DayNumber(); }

const Date kToday(2024y / 5 / 17);

// ---- the span

TEST(AgendaSpan, PicturesTheMonthOfToday) { EXPECT_EQ(SpanOf(kToday, {}, {}).month, 2024y / 5); }

TEST(AgendaSpan, ListsThirtyOneDaysFromTodayOn) {
  const AgendaSpan span = SpanOf(kToday, {}, {});
  EXPECT_EQ(span.last_day - span.first_day, 30);
}

TEST(AgendaSpan, TodayWithATimeIsTheDay) {
  EXPECT_EQ(SpanOf(Date(2024y / 5 / 17, 80000), {}, {}).today, Day(2024y / 5 / 17));
}

TEST(AgendaSpan, DaysAreCountedFromTodayOnThoughAMonthIsWanted) {
  const AgendaSpan span = SpanOf(kToday, 2024y / 8, 2);
  EXPECT_THAT(std::pair(span.first_day, span.last_day), testing::Pair(Day(2024y / 5 / 17), Day(2024y / 5 / 18)));
}

TEST(AgendaSpan, ThisMonthIsListedFromTodayOn) {
  EXPECT_EQ(SpanOf(kToday, 2024y / 5, {}).first_day, Day(2024y / 5 / 17));
}

TEST(AgendaSpan, MonthToComeIsListedWhole) {
  const AgendaSpan span = SpanOf(kToday, 2024y / 6, {});
  EXPECT_THAT(std::pair(span.first_day, span.last_day), testing::Pair(Day(2024y / 6 / 1), Day(2024y / 6 / 30)));
}

TEST(AgendaSpan, MonthGoneByIsListedWhole) {
  const AgendaSpan span = SpanOf(kToday, 2024y / 4, {});
  EXPECT_THAT(std::pair(span.first_day, span.last_day), testing::Pair(Day(2024y / 4 / 1), Day(2024y / 4 / 30)));
}

TEST(AgendaSpan, ListStopsAtTheEndOfTheCalendar) {
  EXPECT_EQ(SpanOf(Date(9999y / 12 / 30), {}, {}).last_day, Day(9999y / 12 / 31));
}

// ---- marks and entries

Agenda InMay(const std::vector<EventInfo>& events) { return MakeAgenda(SpanOf(kToday, 2024y / 5, {}), events); }

EventInfo Event(std::int32_t id, Date start, Date end) {
  return {.id = id, .text = "Event", .start = start, .end = end};
}

TEST(Agenda, MarksDaysBeforeTodayToo) {
  EXPECT_THAT(InMay({Event(1, Date(2024y / 5 / 3), Date(2024y / 5 / 3))}).marked, ElementsAre(3U));
}

TEST(Agenda, MarksAllDaysOfALongEvent) {
  EXPECT_THAT(InMay({Event(1, Date(2024y / 5 / 20), Date(2024y / 5 / 22))}).marked, ElementsAre(20U, 21U, 22U));
}

TEST(Agenda, MarksNoDayOutsideTheMonth) {
  EXPECT_THAT(
      InMay({Event(1, Date(2024y / 4 / 29), Date(2024y / 5 / 1)), Event(2, Date(2024y / 5 / 31), Date(2024y / 6 / 2))})
          .marked,
      ElementsAre(1U, 31U));
}

TEST(Agenda, ListsEntriesInTheOrderOfTime) {
  const Agenda agenda = InMay({Event(1, Date(2024y / 5 / 21), Date(2024y / 5 / 21)),
                               Event(2, Date(2024y / 5 / 20, 60), Date(2024y / 5 / 20, 60)),
                               Event(3, Date(2024y / 5 / 20), Date(2024y / 5 / 20))});
  std::vector<std::int32_t> ids;
  for (const AgendaEntry& entry : agenda.entries) ids.push_back(entry.event.id);
  EXPECT_THAT(ids, ElementsAre(3, 2, 1));
}

// ---- texts

std::string LineOf(const EventInfo& event) { return AgendaText(InMay({event}), {}); }

TEST(AgendaText, WithoutEntriesSaysSo) {
  EXPECT_THAT(AgendaText(InMay({}), {}), EndsWith("Nothing from 2024-05-17 to 2024-05-31.\n"));
}

TEST(AgendaText, EventOfAWholeDayHasNoTime) {
  EXPECT_THAT(LineOf(Event(7, Date(2024y / 5 / 20), Date(2024y / 5 / 20))),
              HasSubstr("Mon 2024-05-20            7  Event\n"));
}

TEST(AgendaText, EventWithinADayHasBothTimes) {
  EXPECT_THAT(LineOf(Event(7, Date(2024y / 5 / 20, 32400), Date(2024y / 5 / 20, 36000))), HasSubstr("  09:00-10:00  "));
}

TEST(AgendaText, EventThatBeginsAtMidnightHasBothTimes) {
  EXPECT_THAT(LineOf(Event(7, Date(2024y / 5 / 20), Date(2024y / 5 / 20, 36000))), HasSubstr("  00:00-10:00  "));
}

TEST(AgendaText, EventOverDaysTellsItsEnd) {
  EXPECT_THAT(LineOf(Event(7, Date(2024y / 5 / 20, 32400), Date(2024y / 5 / 21, 36000))),
              HasSubstr("  09:00 to 2024-05-21 10:00  "));
}

TEST(AgendaText, DueDateIsToldAsOne) {
  EventInfo event = Event(7, Date(2024y / 5 / 20), Date(2024y / 5 / 20));
  event.type = "T";
  EXPECT_THAT(LineOf(event), HasSubstr("Event  due date\n"));
}

TEST(AgendaJson, HoldsTheSpanTheMarksAndTheOccurrences) {
  EventInfo event = Event(7, Date(2024y / 5 / 30), Date(2024y / 5 / 30));
  event.rule = {.type = kDaily, .options1 = 9};
  EXPECT_EQ(
      AgendaJson(InMay({event})),
      R"({"month": "2024-05", "days": [30], "today": "2024-05-17", "from": "2024-05-17", "to": "2024-05-31", )"
      R"("occurrences": [{"id": 7, "folder": 0, "text": "Event", "location": "", "start": "2024-05-30", )"
      R"("end": "2024-05-30", "reminder": -1, "type": "", "link": 0, "rule": {"words": "every 9 days", "type": 1, )"
      R"("sub_type": 0, "options1": 9, "options2": 0, "week_number": 0, "days": 0, "until": null, "times": 0}}]})"
      "\n");
}

}  // namespace
}  // namespace zef::client
