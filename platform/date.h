#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace zef {

/// An automation date: days since 30 December 1899, the time of day as the fraction. Before that day the fraction still
/// counts forward from midnight, so -1.25 is 29 December 1899, 06:00. Value 0 is the empty date. The type itself
/// holds any double; operations that need a calendar day raise failure 5 outside 1 January 100 to 31 December 9999.
class Date {
 public:
  constexpr Date() = default;
  constexpr explicit Date(double value) : value_(value) {}
  /// Midnight of a calendar day.
  explicit Date(std::chrono::year_month_day day);
  /// A calendar day and a time of day in whole seconds, 0 to 86399.
  Date(std::chrono::year_month_day day, int seconds);

  constexpr double value() const { return value_; }
  constexpr bool IsZero() const { return value_ == 0.0; }

  /// Two dates are equal when their numbers are.
  friend constexpr bool operator==(Date, Date) = default;

  /// Calendar parts; each raises 5 for a date outside the range.
  int Year() const;
  int Month() const;
  int Day() const;
  /// 1 Sunday to 7 Saturday.
  int Weekday() const;
  /// Time of day in seconds, 0 to 86399, rounded to the nearest second of the range; a time that rounds up to 24 hours
  /// belongs to the next day, and the calendar parts above agree with that only after `RoundedToSeconds`.
  int SecondsOfDay() const;
  std::chrono::year_month_day YearMonthDay() const;
  /// The same moment with its time of day in whole seconds.
  Date RoundedToSeconds() const;
  /// The same day at midnight.
  Date WithoutTime() const;
  /// The whole day number: the integer part towards zero.
  std::int64_t DayNumber() const;

 private:
  double value_ = 0.0;
};

/// True if `a` is a later moment than `b`, times of day included.
bool IsLater(Date a, Date b);

/// Adds whole days and keeps the time of day. Raises 5 if the result leaves the range.
Date AddDays(Date date, std::int64_t days);
/// Same day of the month `months` later, cut to the end of a shorter month; the time of day stays.
Date AddMonths(Date date, std::int64_t months);
/// Same month and day `years` later; 29 February becomes 28 February in a common year; the time of day stays.
Date AddYears(Date date, std::int64_t years);
/// Adds `number` of an interval named as in "d", "m", "yyyy", "q", "ww", "w", "y", "h", "n", "s" (letter case ignored).
/// Raises 5 for another name.
Date DateAdd(std::string_view interval, double number, Date date);
/// Boundaries of the interval between two dates, as DateAdd names them: "d" counts calendar days, times ignored; "ww"
/// Sundays, "w" whole weeks.
std::int32_t DateDiff(std::string_view interval, Date from, Date to);
/// One part of a date, as DateAdd names them; "w" is the weekday from Sunday 1, "ww" the week that holds 1 January
/// counted as 1, "y" the day of the year.
std::int32_t DatePart(std::string_view interval, Date date);
/// Midnight of a day from 16-bit parts. Months and days outside their usual range run on into neighbouring years and
/// months, so 30 February 2023 is 2 March; years 0 to 29 mean 2000 to 2029 and 30 to 99 mean 1930 to 1999. Raises 6 for
/// a part beyond 16 bits, 5 for a result out of range.
Date DateSerial(std::int32_t year, std::int32_t month, std::int32_t day);
/// Calendar days from one date to another, times ignored.
std::int64_t DaysBetween(Date from, Date to);

/// The default text form, US English whatever the process's locale: "5/1/2024 9:00:00 AM"; the date alone at midnight,
/// the time alone on day zero, so value 0 is "12:00:00 AM". Raises 5 for a date out of range.
std::string ToText(Date date);
/// Appends the default text form.
void AppendText(std::string& text, Date date);
/// The named format "Short Date": "5/1/2024", and "12/30/1899" for value 0.
std::string ShortDateText(Date date);
/// Reads a date text: month first, or year first with hyphens; a month may be an English name; the time may have AM or
/// PM, seconds are optional; a time alone lies on day zero. Gives the bit pattern of whole days plus seconds/86400.
/// Nothing if the text is no date.
std::optional<Date> ParseDate(std::string_view text);

/// The local date and time in whole seconds.
Date Now();

/// Fixes or steers what `Now` answers on this thread for as long as it lives; of several, the inner one ends first.
class ClockOverride {
 public:
  explicit ClockOverride(std::function<Date()> now);
  explicit ClockOverride(Date fixed);
  ~ClockOverride();
  ClockOverride(const ClockOverride&) = delete;
  ClockOverride& operator=(const ClockOverride&) = delete;

 private:
  friend Date Now();

  std::function<Date()> now_;
  const ClockOverride* previous_;
};

}  // namespace zef
