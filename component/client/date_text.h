#pragma once

/// The texts of dates, US English whatever the locale of the process: the default form, and every form that is read.

#include <array>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

#include "ZEFComponents/date.h"

namespace zef {
inline namespace automation {

/// "5/1/2024 9:00:00 AM"; the date alone at midnight, the time alone on day zero, so date value 0 is "12:00:00 AM".
/// Raises 5 for a date out of range.
inline std::string ToText(Date date) {
  const Date moment = date.RoundedToSeconds();
  const int seconds = moment.SecondsOfDay();
  char day_text[48] = "";
  char time_text[48] = "";
  if (moment.DayNumber() != 0) {
    const std::chrono::year_month_day day = moment.YearMonthDay();
    std::snprintf(day_text, sizeof day_text, "%u/%u/%d", static_cast<unsigned>(day.month()),
                  static_cast<unsigned>(day.day()), static_cast<int>(day.year()));
  }
  if (seconds != 0 || moment.DayNumber() == 0) {
    const int hour = seconds / 3600;
    std::snprintf(time_text, sizeof time_text, "%d:%02d:%02d %s", (hour + 11) % 12 + 1, seconds / 60 % 60, seconds % 60,
                  hour < 12 ? "AM" : "PM");
  }
  const bool both = day_text[0] != 0 && time_text[0] != 0;
  return std::string(day_text) + (both ? " " : "") + time_text;
}

inline std::ostream& operator<<(std::ostream& out, Date date) { return out << ToText(date); }

/// How `ParseDate` reads.
namespace date_text {

inline constexpr std::array<std::string_view, 12> kMonths{"january",   "february", "march",    "april",
                                                          "may",       "june",     "july",     "august",
                                                          "september", "october",  "november", "december"};

constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }
constexpr char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }
constexpr bool IsLetter(char c) { return Lower(c) >= 'a' && Lower(c) <= 'z'; }

inline bool EqualsLowered(std::string_view word, std::string_view lowered) {
  if (word.size() != lowered.size()) return false;
  for (std::size_t i = 0; i < word.size(); ++i) {
    if (Lower(word[i]) != lowered[i]) return false;
  }
  return true;
}

/// 1 to 12 for an English month name or its first three letters, 0 for another word.
inline int MonthNamed(std::string_view word) {
  for (std::size_t i = 0; i < kMonths.size(); ++i) {
    if (EqualsLowered(word, kMonths[i]) || EqualsLowered(word, kMonths[i].substr(0, 3))) return static_cast<int>(i) + 1;
  }
  return 0;
}

struct Number {
  int value = 0;
  int digits = 0;  ///< 0 if there was no number
};

/// Walks over a text; what it does not find it leaves in place.
class Reader {
 public:
  explicit Reader(std::string_view text) : next_(text.data()), end_(text.data() + text.size()) {}

  bool AtEnd() const { return next_ == end_; }
  char Peek() const { return AtEnd() ? '\0' : *next_; }

  bool Accept(char c) {
    if (AtEnd() || *next_ != c) return false;
    ++next_;
    return true;
  }

  bool SkipBlanks() {
    const char* const start = next_;
    while (Accept(' ')) {
    }
    return next_ != start;
  }

  /// A number has four digits at most; more are left in place, where nothing accepts them.
  Number ReadNumber() {
    Number number;
    while (!AtEnd() && IsDigit(*next_) && number.digits < 4) {
      number.value = number.value * 10 + (*next_++ - '0');
      ++number.digits;
    }
    return number;
  }

  std::string_view ReadWord() {
    const char* const start = next_;
    while (!AtEnd() && IsLetter(*next_)) ++next_;
    return {start, static_cast<std::size_t>(next_ - start)};
  }

 private:
  const char* next_;
  const char* end_;
};

/// The year as it is written: up to two digits mean 1930 to 2029. 0, which is no year, for anything else below 100.
inline int WrittenYear(Number number) {
  if (number.digits == 0) return 0;
  if (number.digits > 2) return number.value < 100 ? 0 : number.value;
  return number.value < 30 ? 2000 + number.value : 1900 + number.value;
}

inline std::optional<std::int64_t> DayOf(Number year, int month, Number day) {
  if (day.digits == 0 || day.digits > 2 || WrittenYear(year) == 0) return std::nullopt;
  const std::chrono::year_month_day date(std::chrono::year(WrittenYear(year)),
                                         std::chrono::month(static_cast<unsigned>(month)),
                                         std::chrono::day(static_cast<unsigned>(day.value)));
  if (!date.ok()) return std::nullopt;
  return Date(date).DayNumber();
}

inline int NumericMonth(Number month) { return month.digits > 2 ? 0 : month.value; }

inline std::optional<std::int64_t> MonthFirst(Reader& reader, Number month) {
  const Number day = reader.ReadNumber();
  if (!reader.Accept('/')) return std::nullopt;
  return DayOf(reader.ReadNumber(), NumericMonth(month), day);
}

inline std::optional<std::int64_t> YearFirst(Reader& reader, Number year) {
  if (year.digits < 3) return std::nullopt;
  const Number month = reader.ReadNumber();
  if (!reader.Accept('-')) return std::nullopt;
  return DayOf(year, NumericMonth(month), reader.ReadNumber());
}

/// "May 1, 2024"; the comma may be missing.
inline std::optional<std::int64_t> NameFirst(Reader& reader) {
  const int month = MonthNamed(reader.ReadWord());
  reader.SkipBlanks();
  const Number day = reader.ReadNumber();
  const bool comma = reader.Accept(',');
  if (!reader.SkipBlanks() && !comma) return std::nullopt;
  return DayOf(reader.ReadNumber(), month, day);
}

/// "May 2024" of "1 May 2024".
inline std::optional<std::int64_t> DayFirst(Reader& reader, std::string_view month, Number day) {
  reader.SkipBlanks();
  return DayOf(reader.ReadNumber(), MonthNamed(month), day);
}

/// Hours and minutes of a clock are one or two digits below a limit; -1 for anything else.
inline int ClockPart(Number number, int limit) {
  return number.digits == 0 || number.digits > 2 || number.value >= limit ? -1 : number.value;
}

/// The hour of the day from 1 to 12 with AM or PM; -1 for another hour or word.
inline int TwelveHourClock(int hour, std::string_view half) {
  if (hour < 1 || hour > 12) return -1;
  if (EqualsLowered(half, "am")) return hour % 12;
  return EqualsLowered(half, "pm") ? hour % 12 + 12 : -1;
}

inline std::optional<int> SecondsOf(int hour, int minute, int second) {
  if (hour < 0 || minute < 0 || second < 0) return std::nullopt;
  return (hour * 60 + minute) * 60 + second;
}

/// The rest of a time behind its hour. An hour alone needs AM or PM.
inline std::optional<int> TimeFrom(Reader& reader, Number first) {
  const bool with_minutes = reader.Accept(':');
  const int minute = with_minutes ? ClockPart(reader.ReadNumber(), 60) : 0;
  const int second = with_minutes && reader.Accept(':') ? ClockPart(reader.ReadNumber(), 60) : 0;
  reader.SkipBlanks();
  const int hour = ClockPart(first, 24);
  const std::string_view half = reader.ReadWord();
  if (!half.empty()) return SecondsOf(TwelveHourClock(hour, half), minute, second);
  return with_minutes ? SecondsOf(hour, minute, second) : std::nullopt;
}

inline std::optional<Date> TimeAlone(Reader& reader, Number hour) {
  const std::optional<int> seconds = TimeFrom(reader, hour);
  if (!seconds || !reader.AtEnd()) return std::nullopt;
  return Date::At(0, *seconds);
}

/// What may follow a day: nothing, or a time behind blanks or the letter T.
inline std::optional<Date> WithTime(Reader& reader, std::optional<std::int64_t> day) {
  if (!day) return std::nullopt;
  const bool apart = reader.SkipBlanks();
  if (reader.AtEnd()) return Date::At(*day, 0);
  if (!apart && !reader.Accept('T')) return std::nullopt;
  const std::optional<int> seconds = TimeFrom(reader, reader.ReadNumber());
  reader.SkipBlanks();
  if (!seconds || !reader.AtEnd()) return std::nullopt;
  return Date::At(*day, *seconds);
}

}  // namespace date_text

/// Reads a date text: month first, or year first with hyphens; a month may be an English name; the time may have AM or
/// PM, seconds are optional; a time alone lies on day zero. Gives the bit pattern of whole days plus seconds/86400.
/// Nothing if the text is no date.
inline std::optional<Date> ParseDate(std::string_view text) {
  using namespace date_text;
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  Reader reader(text);
  reader.SkipBlanks();
  if (IsLetter(reader.Peek())) return WithTime(reader, NameFirst(reader));
  const Number first = reader.ReadNumber();
  if (reader.Accept('/')) return WithTime(reader, MonthFirst(reader, first));
  if (reader.Accept('-')) return WithTime(reader, YearFirst(reader, first));
  Reader ahead = reader;
  ahead.SkipBlanks();
  const std::string_view word = ahead.ReadWord();
  if (MonthNamed(word) != 0) return WithTime(ahead, DayFirst(ahead, word, first));
  return TimeAlone(reader, first);
}

}  // namespace automation
}  // namespace zef
