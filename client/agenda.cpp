#include "client/agenda.h"

#include <fmt/format.h>

#include <algorithm>

#include "client/calendar_names.h"
#include "client/date_option.h"
#include "client/month.h"
#include "client/rule_text.h"
#include "client/table.h"
#include "client/views.h"

namespace zef::client {
namespace {

constexpr std::int64_t kDefaultDays = 31;

Date DateOf(std::int64_t day) { return Date(static_cast<double>(day)); }

std::string DayTextOf(std::int64_t day) { return DayText(DateOf(day)); }

std::int64_t FirstDayOf(std::chrono::year_month month) { return Date(month / 1).DayNumber(); }
std::int64_t LastDayOf(std::chrono::year_month month) {
  return Date(std::chrono::year_month_day(month / std::chrono::last)).DayNumber();
}

/// The days of the picture that occurrences cover.
void Mark(const std::vector<Occurrence>& occurrences, std::chrono::year_month month, std::set<unsigned>& marked) {
  const std::int64_t first = FirstDayOf(month);
  const std::int64_t last = LastDayOf(month);
  for (const Occurrence& occurrence : occurrences) {
    const std::int64_t end = std::min(occurrence.last_day, last);
    for (std::int64_t day = std::max(occurrence.first_day, first); day <= end; ++day) {
      marked.insert(static_cast<unsigned>(day - first + 1));
    }
  }
}

bool IsEarlier(const AgendaEntry& a, const AgendaEntry& b) {
  if (!(a.occurrence.start == b.occurrence.start)) return a.occurrence.start < b.occurrence.start;
  return a.event.id < b.event.id;
}

/// "Fri 2024-05-17".
std::string DayWithWeekday(Date date) {
  return fmt::format("{} {}", kWeekdays[date.Weekday().iso_encoding() - 1].substr(0, 3), DayText(date));
}

/// "09:00", "09:00-10:30", "09:00 to 2024-05-19 12:00", "to 2024-05-19"; empty for a whole day.
std::string TimeSpan(const Occurrence& occurrence) {
  std::string start = TimeText(occurrence.start);
  if (occurrence.end == occurrence.start) return start;
  if (occurrence.end.DayNumber() == occurrence.start.DayNumber()) {
    return fmt::format("{}-{}", start.empty() ? "00:00" : start, TimeText(occurrence.end));
  }
  return fmt::format("{}to {}", start.empty() ? "" : start + " ", DateText(occurrence.end));
}

std::string ListText(const std::vector<AgendaEntry>& entries, const Screen& screen) {
  constexpr Table::Align kLeft = Table::Align::Left;
  Table table({{"DAY"},
               {"TIME"},
               {"EVENT", Table::Align::Right},
               {"WHAT", kLeft, true},
               {"KIND"},
               {"WHERE", kLeft, true},
               {"REPEATS", kLeft, true}});
  for (const auto& [occurrence, event] : entries) {
    table.Add({DayWithWeekday(occurrence.start), TimeSpan(occurrence), std::to_string(event.id), event.text,
               EventKindInWords(event.type), event.location, RuleInWords(event.rule)});
  }
  return table.Text(screen);
}

Json JsonOfEntry(const AgendaEntry& entry) {
  Json::Object members = JsonOf(entry.event);
  for (auto& [name, value] : members) {
    if (name == "start") value = JsonOf(entry.occurrence.start);
    if (name == "end") value = JsonOf(entry.occurrence.end);
  }
  return members;
}

}  // namespace

AgendaSpan SpanOf(Date today, std::optional<std::chrono::year_month> month, std::optional<std::int32_t> days) {
  const std::chrono::year_month_day day = today.YearMonthDay();
  AgendaSpan span{.month = month.value_or(day.year() / day.month()), .today = today.DayNumber()};
  span.first_day = span.today;
  span.last_day = span.today + days.value_or(kDefaultDays) - 1;
  span.last_day = std::min(span.last_day, Date::kLastDay);
  if (!month || days) return span;
  span.first_day = FirstDayOf(*month);
  span.last_day = LastDayOf(*month);
  if (span.today <= span.last_day) span.first_day = std::max(span.first_day, span.today);
  return span;
}

Agenda MakeAgenda(const AgendaSpan& span, const std::vector<EventInfo>& events) {
  Agenda agenda{.span = span, .entries = {}, .marked = {}};
  for (const EventInfo& event : events) {
    Mark(OccurrencesBetween(event, FirstDayOf(span.month), LastDayOf(span.month)), span.month, agenda.marked);
    for (const Occurrence& occurrence : OccurrencesBetween(event, span.first_day, span.last_day)) {
      agenda.entries.push_back({occurrence, event});
    }
  }
  std::stable_sort(agenda.entries.begin(), agenda.entries.end(), &IsEarlier);
  return agenda;
}

std::string AgendaText(const Agenda& agenda, const Screen& screen) {
  const AgendaSpan& span = agenda.span;
  const std::int64_t today = span.today - FirstDayOf(span.month) + 1;
  const bool shows_today = today >= 1 && span.today <= LastDayOf(span.month);
  const auto marked_today = shows_today ? std::optional(static_cast<unsigned>(today)) : std::nullopt;
  const std::string days = fmt::format("{} to {}", DayTextOf(span.first_day), DayTextOf(span.last_day));
  std::string text = MonthPicture(span.month, agenda.marked, marked_today, screen.colour) + '\n';
  if (agenda.entries.empty()) return text + fmt::format("Nothing from {}.\n", days);
  return text + fmt::format("From {}:\n\n", days) + ListText(agenda.entries, screen);
}

std::string AgendaJson(const Agenda& agenda) {
  const AgendaSpan& span = agenda.span;
  Json::Array marked(agenda.marked.begin(), agenda.marked.end());
  Json::Array occurrences;
  for (const AgendaEntry& entry : agenda.entries) occurrences.push_back(JsonOfEntry(entry));
  const std::string month =
      fmt::format("{:04}-{:02}", static_cast<int>(span.month.year()), static_cast<unsigned>(span.month.month()));
  return JsonLine({{"month", month},
                   {"days", std::move(marked)},
                   {"today", DayTextOf(span.today)},
                   {"from", DayTextOf(span.first_day)},
                   {"to", DayTextOf(span.last_day)},
                   {"occurrences", std::move(occurrences)}});
}

}  // namespace zef::client
