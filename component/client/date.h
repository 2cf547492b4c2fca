#pragma once

/// Dates as the components hold them, between calendar and number.

#include <algorithm>
#include <chrono>
#include <cmath>
#include <compare>
#include <cstdint>
#include <ctime>

#include "ZEFComponents/failure.h"
#include "ZEFComponents/local_time.h"

namespace zef {
inline namespace automation {

/// An automation date: days since 30 December 1899, the time of day as the fraction. Before that day the fraction still
/// counts forward from midnight, so -1.25 is 29 December 1899, 06:00. Value 0 is the empty date. The type itself holds
/// any double; what needs a calendar day raises failure 5 outside 1 January 100 to 31 December 9999.
struct Date {
  static constexpr std::int64_t kFirstDay = -657434;
  static constexpr std::int64_t kLastDay = 2958465;
  static constexpr int kSecondsPerDay = 86400;

  double value = 0;

  constexpr Date() = default;
  constexpr explicit Date(double days) : value(days) {}
  /// A calendar day and a time of day in whole seconds, 0 to 86399; raises 5 for anything else.
  Date(std::chrono::year_month_day day, int seconds = 0) {
    if (!day.ok() || seconds < 0 || seconds >= kSecondsPerDay) RaiseInvalidCall();
    *this = At((std::chrono::sys_days(day) - kDayZero).count(), seconds);
  }
  /// A day number and a time of day in whole seconds, 0 to 86399.
  static Date At(std::int64_t day, int seconds) {
    if (day < kFirstDay || day > kLastDay) RaiseInvalidCall();
    const auto whole = static_cast<double>(day);
    const double fraction = seconds / double{kSecondsPerDay};
    return Date(day < 0 ? whole - fraction : whole + fraction);
  }

  constexpr bool IsZero() const { return value == 0; }
  /// True if the date lies on a day of the calendar from 1 January 100 to 31 December 9999; NaN does not.
  constexpr bool IsInRange() const {
    return value > static_cast<double>(kFirstDay - 1) && value < static_cast<double>(kLastDay + 1);
  }

  // These raise 5 out of range.

  std::chrono::year_month_day YearMonthDay() const {
    return kDayZero + std::chrono::days(static_cast<int>(DayNumber()));
  }
  std::chrono::weekday Weekday() const { return std::chrono::sys_days(YearMonthDay()); }
  /// The time of day, 0 to 86399, rounded to the nearest second of the range; one that rounds up to 24 hours is
  /// midnight of the next day, with which `YearMonthDay` agrees only after `RoundedToSeconds`.
  int SecondsOfDay() const { return NearestSecond() % kSecondsPerDay; }
  /// The whole day number: the integer part towards zero.
  std::int64_t DayNumber() const {
    if (!IsInRange()) RaiseInvalidCall();
    return static_cast<std::int64_t>(value);
  }
  /// The same day at midnight.
  Date WithoutTime() const { return At(DayNumber(), 0); }
  /// The same moment with its time of day in whole seconds.
  Date RoundedToSeconds() const {
    const int seconds = NearestSecond();
    return At(DayNumber() + seconds / kSecondsPerDay, seconds % kSecondsPerDay);
  }

  /// Two dates are equal when their numbers are.
  friend constexpr bool operator==(Date, Date) = default;
  /// The later moment is the greater one, times of day included.
  friend std::partial_ordering operator<=>(Date a, Date b) {
    const double day_a = std::trunc(a.value);
    const double day_b = std::trunc(b.value);
    if (const auto days = day_a <=> day_b; days != 0) return days;
    return std::fabs(a.value - day_a) <=> std::fabs(b.value - day_b);
  }

  [[noreturn]] static void RaiseInvalidCall() {
    constexpr std::int32_t kInvalidCall = 5;
    throw Failure(kInvalidCall, "Invalid procedure call or argument");
  }

 private:
  static constexpr std::chrono::sys_days kDayZero{std::chrono::December / 30 / 1899};

  /// 0 to 86400; on the last day of the range, behind which there is none, to 86399.
  int NearestSecond() const {
    const std::int64_t day = DayNumber();
    const double fraction = std::fabs(value - static_cast<double>(day));
    const int most = day == kLastDay ? kSecondsPerDay - 1 : kSecondsPerDay;
    return std::min(static_cast<int>(std::lround(fraction * kSecondsPerDay)), most);
  }
};

/// The local date and time in whole seconds. A leap second counts as the second before it.
inline Date Now() {
  const std::tm local = LocalTime(std::time(nullptr));
  const std::chrono::year_month_day day(std::chrono::year(local.tm_year + 1900),
                                        std::chrono::month(static_cast<unsigned>(local.tm_mon + 1)),
                                        std::chrono::day(static_cast<unsigned>(local.tm_mday)));
  return Date(day, (local.tm_hour * 60 + local.tm_min) * 60 + std::min(local.tm_sec, 59));
}

}  // namespace automation
}  // namespace zef
