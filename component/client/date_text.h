#pragma once

/// Dates as texts.

#include <optional>
#include <ostream>
#include <string>
#include <string_view>

#include "ZEFComponents/date.h"
#include "ZEFComponents/moment_text.h"

namespace zef {
inline namespace automation {

/// "5/1/2024 9:00:00 AM"; the date alone at midnight, the time alone on day zero, so date value 0 is "12:00:00 AM".
/// Raises 5 for a date out of range.
inline std::string ToText(Date date) {
  const Date moment = date.RoundedToSeconds();
  moment_text::Writer writer;
  writer.Whole({moment.DayNumber(), moment.SecondsOfDay()});
  return std::string(writer.text());
}

inline std::ostream& operator<<(std::ostream& out, Date date) { return out << ToText(date); }

/// Reads a date text: month first, or year first with hyphens; a month may be an English name; the time may have AM or
/// PM, seconds are optional; a time alone lies on day zero. Gives the bit pattern of whole days plus seconds/86400.
/// Nothing if the text is no date.
inline std::optional<Date> ParseDate(std::string_view text) {
  const std::optional<moment_text::Moment> moment = moment_text::Read(text);
  if (!moment) return std::nullopt;
  return Date::At(moment->day, moment->seconds);
}

}  // namespace automation
}  // namespace zef
