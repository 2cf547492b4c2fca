#pragma once

#include <chrono>
#include <cmath>
#include <cstdint>

#include "platform/date.h"
#include "platform/moment_text.h"
#include "platform/run_time_error.h"

/// The day number and the time of day that an automation date is made of, for sources that work on day numbers.
namespace zef::date_parts {

using moment_text::kDayZero;
constexpr std::int64_t kFirstDay = -657434;  ///< 1 January 100
constexpr std::int64_t kLastDay = 2958465;   ///< 31 December 9999
constexpr int kSecondsPerDay = 86400;

/// A day number and a time of day as the fraction from that day's midnight.
struct DayAndFraction {
  std::int64_t day;
  double fraction;
};

/// A day number and a time of day in seconds, 0 to 86399.
struct DayAndSeconds {
  std::int64_t day;
  int seconds;
};

/// Raises 5 for a day outside the range.
inline std::int64_t CheckedDay(std::int64_t day) {
  if (day < kFirstDay || day > kLastDay) throw RunTimeError(FailureNumber::InvalidCall);
  return day;
}

/// True if the number lies within the range; NaN does not.
inline bool InRange(double value) {
  return value > static_cast<double>(kFirstDay - 1) && value < static_cast<double>(kLastDay + 1);
}

/// The date of a day in range; before day zero the fraction still counts forward, so it is taken off the number.
inline Date Join(std::int64_t day, double fraction) {
  const auto whole = static_cast<double>(day);
  return Date(day < 0 ? whole - fraction : whole + fraction);
}

/// Raises 5 for a date outside the range. A time of day in whole seconds comes as exactly seconds/86400: what a large
/// day number has rounded off would otherwise show once the time is joined to a day with more room.
inline DayAndFraction Split(Date date) {
  if (!InRange(date.value())) throw RunTimeError(FailureNumber::InvalidCall);
  const auto day = static_cast<std::int64_t>(date.value());
  const double fraction = std::fabs(date.value() - static_cast<double>(day));
  const double exact = std::nearbyint(fraction * kSecondsPerDay) / kSecondsPerDay;
  return {day, Join(day, exact) == date ? exact : fraction};
}

inline Date Join(DayAndSeconds moment) { return Join(moment.day, moment.seconds / double{kSecondsPerDay}); }

/// The nearest whole second; 24 hours carry into the next day, but on the last one of the range, every moment of which
/// has a second of that day. Raises 5 outside the range.
inline DayAndSeconds SplitSeconds(Date date) {
  const auto [day, fraction] = Split(date);
  const int seconds = static_cast<int>(std::lround(fraction * kSecondsPerDay));
  if (seconds < kSecondsPerDay) return {day, seconds};
  if (day == kLastDay) return {day, kSecondsPerDay - 1};
  return {day + 1, 0};
}

constexpr std::chrono::sys_days ToSysDays(std::int64_t day) {
  return kDayZero + std::chrono::days(static_cast<int>(day));
}

constexpr std::chrono::year_month_day CalendarDay(std::int64_t day) { return {ToSysDays(day)}; }

constexpr std::int64_t ToDayNumber(std::chrono::sys_days day) { return (day - kDayZero).count(); }

}  // namespace zef::date_parts
