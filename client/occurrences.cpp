#include "client/occurrences.h"

#include <algorithm>

#include "client/date_option.h"
#include "client/record_info.h"

namespace zef::client {
namespace {

/// How long the event lasts, in days; 0 for an end that is no date or lies before the start.
double LengthOf(const EventInfo& event) {
  return IsCalendarDate(event.end) ? std::max(0.0, event.end.value - event.start.value) : 0.0;
}

Occurrence OccurrenceFrom(Date start, double length) {
  Occurrence occurrence{.start = start};
  const Date end(start.value + length);
  occurrence.end = IsCalendarDate(end) ? end : start;
  occurrence.first_day = occurrence.start.DayNumber();
  occurrence.last_day = occurrence.end.DayNumber();
  const bool ends_at_midnight = occurrence.end.SecondsOfDay() == 0 && occurrence.start.SecondsOfDay() != 0;
  if (ends_at_midnight && occurrence.last_day > occurrence.first_day) --occurrence.last_day;
  return occurrence;
}

/// How often the event takes place at most; 0 for no limit.
std::int32_t LimitOf(const RuleSpec& rule) { return rule.end.IsZero() ? rule.occurrences : 0; }

}  // namespace

void ForEachOccurrence(const EventInfo& event, const std::function<bool(const Occurrence&)>& wanted) {
  const double length = IsCalendarDate(event.start) ? LengthOf(event) : 0.0;
  const std::int32_t limit = LimitOf(event.rule);
  const CRecurrence rule = event.rule.type == kNoRule ? CRecurrence() : RecordOf(event.rule);
  Date date = event.start;
  for (std::int32_t told = 1; IsCalendarDate(date); ++told) {
    if (!wanted(OccurrenceFrom(date, length)) || told == limit) return;
    const Date next = rule ? rule.NextOccuranceDate(date) : Date();
    if (!(next > date)) return;
    date = next;
  }
}

std::vector<Occurrence> OccurrencesBetween(const EventInfo& event, std::int64_t first_day, std::int64_t last_day) {
  std::vector<Occurrence> found;
  ForEachOccurrence(event, [&](const Occurrence& occurrence) {
    if (occurrence.first_day > last_day) return false;
    if (occurrence.last_day >= first_day) found.push_back(occurrence);
    return true;
  });
  return found;
}

std::optional<Date> OccurrenceAt(const EventInfo& event, Date moment) {
  const bool whole_day = moment.SecondsOfDay() == 0;
  std::optional<Date> found;
  ForEachOccurrence(event, [&](const Occurrence& occurrence) {
    const bool same_day = whole_day && occurrence.first_day == moment.DayNumber();
    if (same_day || occurrence.start == moment) found = occurrence.start;
    return !found && !(occurrence.start > moment);
  });
  return found;
}

}  // namespace zef::client
