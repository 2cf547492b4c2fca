#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "client/store.h"

namespace zef::client {

/// One time that an event takes place. Days are whole automation dates.
struct Occurrence {
  Date start{};
  Date end{};  ///< as long after the start as the event itself lasts
  std::int64_t first_day = 0;
  std::int64_t last_day =
      0;  ///< both included; an end at midnight of a later day belongs to the day before if the start has a time
};

/// Tells the occurrences of an event in order, the first of them its own start, until there are no more or `wanted`
/// answers False. A rule without an end date stops after its number of occurrences; one that does not go forward stops
/// at once.
void ForEachOccurrence(const EventInfo& event, const std::function<bool(const Occurrence&)>& wanted);

/// The occurrences that touch a span of days, both included.
std::vector<Occurrence> OccurrencesBetween(const EventInfo& event, std::int64_t first_day, std::int64_t last_day);

/// The start of the occurrence at a moment; a moment without a time of day also finds the first occurrence that begins
/// on that day.
std::optional<Date> OccurrenceAt(const EventInfo& event, Date moment);

}  // namespace zef::client
