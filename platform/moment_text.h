#pragma once

#include <array>
#include <charconv>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

/// The texts of dates, US English whatever the locale of the process: the default form, and every form that is read.
/// The library and its clients' header read and write dates by this one, which knows neither's type of a date.
namespace zef::moment_text {

inline constexpr std::chrono::sys_days kDayZero{std::chrono::December / 30 / 1899};

/// A day from 30 December 1899, and a time of day in seconds, 0 to 86399.
struct Moment {
  std::int64_t day = 0;
  int seconds = 0;
};

/// Builds a date text in place; "12/31/9999 11:59:59 PM" is the longest.
class Writer {
 public:
  /// The default form: the date alone at midnight, the time alone on day zero.
  void Whole(Moment moment) {
    if (moment.day == 0) return Time(moment.seconds);
    Day(kDayZero + std::chrono::days(static_cast<int>(moment.day)));
    if (moment.seconds == 0) return;
    Character(' ');
    Time(moment.seconds);
  }

  void Day(std::chrono::year_month_day day) {
    Number(static_cast<unsigned>(day.month()));
    Character('/');
    Number(static_cast<unsigned>(day.day()));
    Character('/');
    Number(static_cast<unsigned>(static_cast<int>(day.year())));
  }

  void Time(int seconds) {
    const int hour = seconds / 3600;
    Number(static_cast<unsigned>((hour + 11) % 12 + 1));
    Character(':');
    TwoDigits(seconds / 60 % 60);
    Character(':');
    TwoDigits(seconds % 60);
    Character(' ');
    Character(hour < 12 ? 'A' : 'P');
    Character('M');
  }

  std::string_view text() const { return {buffer_.data(), static_cast<std::size_t>(end_ - buffer_.data())}; }

 private:
  void Character(char c) { *end_++ = c; }

  void Number(unsigned number) { end_ = std::to_chars(end_, buffer_.data() + buffer_.size(), number).ptr; }

  void TwoDigits(int number) {
    Character(static_cast<char>('0' + number / 10));
    Character(static_cast<char>('0' + number % 10));
  }

  std::array<char, 32> buffer_;
  char* end_ = buffer_.data();
};

// ---- reading

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
  return (std::chrono::sys_days(date) - kDayZero).count();
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

inline std::optional<Moment> TimeAlone(Reader& reader, Number hour) {
  const std::optional<int> seconds = TimeFrom(reader, hour);
  if (!seconds || !reader.AtEnd()) return std::nullopt;
  return Moment{0, *seconds};
}

/// What may follow a day: nothing, or a time behind blanks or the letter T.
inline std::optional<Moment> WithTime(Reader& reader, std::optional<std::int64_t> day) {
  if (!day) return std::nullopt;
  const bool apart = reader.SkipBlanks();
  if (reader.AtEnd()) return Moment{*day, 0};
  if (!apart && !reader.Accept('T')) return std::nullopt;
  const std::optional<int> seconds = TimeFrom(reader, reader.ReadNumber());
  reader.SkipBlanks();
  if (!seconds || !reader.AtEnd()) return std::nullopt;
  return Moment{*day, *seconds};
}

/// Reads a date text: month first, or year first with hyphens; a month may be an English name; the time may have AM or
/// PM, seconds are optional; a time alone lies on day zero. Nothing if the text is no date.
inline std::optional<Moment> Read(std::string_view text) {
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

}  // namespace zef::moment_text
