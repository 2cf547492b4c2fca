#include "platform/date.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "platform/checked_number.h"
#include "platform/date_parts.h"
#include "platform/text.h"

namespace zef {
namespace {

using namespace date_parts;
using std::chrono::sys_days;
using std::chrono::year_month;
using std::chrono::year_month_day;

// Steps beyond these leave the range from any date in it, so nothing below can overflow.
constexpr std::int64_t kMostDays = kLastDay - kFirstDay;
constexpr std::int64_t kMostMonths = std::int64_t{12} * 9900;
constexpr double kMostSteps = 1e12;

enum class Interval { Year, Quarter, Month, DayOfYear, Day, Weekday, Week, Hour, Minute, Second };

struct NamedInterval {
  std::string_view name;
  Interval interval;
};

constexpr std::array<NamedInterval, 10> kIntervals{{
    {"d", Interval::Day},
    {"m", Interval::Month},
    {"yyyy", Interval::Year},
    {"q", Interval::Quarter},
    {"ww", Interval::Week},
    {"w", Interval::Weekday},
    {"y", Interval::DayOfYear},
    {"h", Interval::Hour},
    {"n", Interval::Minute},
    {"s", Interval::Second},
}};

[[noreturn]] void RaiseInvalidCall() { throw RunTimeError(FailureNumber::InvalidCall); }

Interval IntervalOf(std::string_view name) {
  for (const auto& [known, interval] : kIntervals) {
    if (text::EqualNames(known, name)) return interval;
  }
  RaiseInvalidCall();
}

constexpr std::int64_t FloorDivide(std::int64_t value, std::int64_t divisor) {
  return value / divisor - (value % divisor < 0 ? 1 : 0);
}

std::int64_t CheckedDayNumber(year_month_day day) {
  if (!day.ok()) RaiseInvalidCall();
  return CheckedDay(ToDayNumber(sys_days(day)));
}

int CheckedSeconds(int seconds) {
  if (seconds < 0 || seconds >= kSecondsPerDay) RaiseInvalidCall();
  return seconds;
}

int YearOf(year_month_day day) { return static_cast<int>(day.year()); }
int MonthOf(year_month_day day) { return static_cast<int>(static_cast<unsigned>(day.month())); }
int DayOf(year_month_day day) { return static_cast<int>(static_cast<unsigned>(day.day())); }
int QuarterOf(year_month_day day) { return (MonthOf(day) + 2) / 3; }

/// 1 Sunday to 7 Saturday.
int WeekdayOf(sys_days day) { return static_cast<int>(std::chrono::weekday(day).c_encoding()) + 1; }

sys_days FirstOfYear(year_month_day day) { return day.year() / std::chrono::January / 1; }

int DayOfYear(year_month_day day) { return static_cast<int>((sys_days(day) - FirstOfYear(day)).count()) + 1; }

int WeekOfYear(year_month_day day) { return (DayOfYear(day) + WeekdayOf(FirstOfYear(day)) - 2) / 7 + 1; }

/// Weeks from Sunday to Saturday, numbered through all years; day 1 was a Sunday.
std::int64_t WeekNumber(std::int64_t day) { return FloorDivide(day - 1, 7); }

std::int64_t TotalSeconds(Date date) {
  const auto [day, seconds] = SplitSeconds(date);
  return day * kSecondsPerDay + seconds;
}

Date AddSeconds(Date date, std::int64_t seconds) {
  const std::int64_t total = TotalSeconds(date) + seconds;
  const std::int64_t day = FloorDivide(total, kSecondsPerDay);
  return Join({CheckedDay(day), static_cast<int>(total - day * kSecondsPerDay)});
}

/// The number, counted through all years, of the interval that a date lies in.
std::int64_t Ordinal(Interval kind, Date date) {
  switch (kind) {
    case Interval::Year: return date.Year();
    case Interval::Quarter: return 4 * date.Year() + QuarterOf(date.YearMonthDay());
    case Interval::Month: return 12 * date.Year() + date.Month();
    case Interval::DayOfYear:
    case Interval::Day:
    case Interval::Weekday: return date.DayNumber();
    case Interval::Week: return WeekNumber(date.DayNumber());
    case Interval::Hour: return FloorDivide(TotalSeconds(date), 3600);
    case Interval::Minute: return FloorDivide(TotalSeconds(date), 60);
    case Interval::Second: return TotalSeconds(date);
  }
  RaiseInvalidCall();
}

/// Years as people write them: two digits mean 1930 to 2029.
int FullYear(int year) {
  if (year < 0 || year > 99) return year;
  return year < 30 ? 2000 + year : 1900 + year;
}

int To16Bits(std::int32_t part) {
  if (part < std::numeric_limits<std::int16_t>::min() || part > std::numeric_limits<std::int16_t>::max()) {
    throw RunTimeError(FailureNumber::Overflow);
  }
  return part;
}

}  // namespace

Date::Date(year_month_day day) : Date(day, 0) {}

Date::Date(year_month_day day, int seconds) : Date(Join({CheckedDayNumber(day), CheckedSeconds(seconds)})) {}

int Date::Year() const { return YearOf(YearMonthDay()); }
int Date::Month() const { return MonthOf(YearMonthDay()); }
int Date::Day() const { return DayOf(YearMonthDay()); }
int Date::Weekday() const { return WeekdayOf(ToSysDays(DayNumber())); }
int Date::SecondsOfDay() const { return SplitSeconds(*this).seconds; }
year_month_day Date::YearMonthDay() const { return CalendarDay(DayNumber()); }
Date Date::RoundedToSeconds() const { return Join(SplitSeconds(*this)); }
Date Date::WithoutTime() const { return Join(DayNumber(), 0.0); }
std::int64_t Date::DayNumber() const { return Split(*this).day; }

bool IsLater(Date a, Date b) {
  const double day_a = std::trunc(a.value());
  const double day_b = std::trunc(b.value());
  if (day_a != day_b) return day_a > day_b;
  return std::fabs(a.value() - day_a) > std::fabs(b.value() - day_b);
}

Date AddDays(Date date, std::int64_t days) {
  const auto [day, fraction] = Split(date);
  if (days < -kMostDays || days > kMostDays) RaiseInvalidCall();
  return Join(CheckedDay(day + days), fraction);
}

Date AddMonths(Date date, std::int64_t months) {
  const auto [day, fraction] = Split(date);
  if (months < -kMostMonths || months > kMostMonths) RaiseInvalidCall();
  const year_month_day from = CalendarDay(day);
  const year_month to = from.year() / from.month() + std::chrono::months(static_cast<int>(months));
  const auto last = (to / std::chrono::last).day();
  return Join(CheckedDay(ToDayNumber(to / std::min(from.day(), last))), fraction);
}

Date AddYears(Date date, std::int64_t years) {
  if (years < -kMostMonths || years > kMostMonths) RaiseInvalidCall();
  return AddMonths(date, 12 * years);
}

Date DateAdd(std::string_view interval, double number, Date date) {
  const Interval kind = IntervalOf(interval);
  if (!(std::fabs(number) < kMostSteps)) RaiseInvalidCall();
  const auto steps = static_cast<std::int64_t>(std::nearbyint(number));
  switch (kind) {
    case Interval::Year: return AddYears(date, steps);
    case Interval::Quarter: return AddMonths(date, 3 * steps);
    case Interval::Month: return AddMonths(date, steps);
    case Interval::DayOfYear:
    case Interval::Day:
    case Interval::Weekday: return AddDays(date, steps);
    case Interval::Week: return AddDays(date, 7 * steps);
    case Interval::Hour: return AddSeconds(date, 3600 * steps);
    case Interval::Minute: return AddSeconds(date, 60 * steps);
    case Interval::Second: return AddSeconds(date, steps);
  }
  RaiseInvalidCall();
}

std::int32_t DateDiff(std::string_view interval, Date from, Date to) {
  const Interval kind = IntervalOf(interval);
  const std::int64_t difference = Ordinal(kind, to) - Ordinal(kind, from);
  return To32Bits(kind == Interval::Weekday ? difference / 7 : difference);
}

std::int32_t DatePart(std::string_view interval, Date date) {
  switch (IntervalOf(interval)) {
    case Interval::Year: return date.Year();
    case Interval::Quarter: return QuarterOf(date.YearMonthDay());
    case Interval::Month: return date.Month();
    case Interval::DayOfYear: return DayOfYear(date.YearMonthDay());
    case Interval::Day: return date.Day();
    case Interval::Weekday: return date.Weekday();
    case Interval::Week: return WeekOfYear(date.YearMonthDay());
    case Interval::Hour: return date.SecondsOfDay() / 3600;
    case Interval::Minute: return date.SecondsOfDay() / 60 % 60;
    case Interval::Second: return date.SecondsOfDay() % 60;
  }
  RaiseInvalidCall();
}

Date DateSerial(std::int32_t year, std::int32_t month, std::int32_t day) {
  const std::int64_t months = std::int64_t{12} * FullYear(To16Bits(year)) + To16Bits(month) - 1;
  const std::int64_t full_year = FloorDivide(months, 12);
  const int days = To16Bits(day) - 1;
  if (full_year < 0 || full_year > 10100) RaiseInvalidCall();  // 16 bits of days are less than a hundred years
  const auto month_of_year = std::chrono::month(static_cast<unsigned>(months - 12 * full_year + 1));
  const sys_days first = std::chrono::year(static_cast<int>(full_year)) / month_of_year / 1;
  return Join(CheckedDay(ToDayNumber(first) + days), 0.0);
}

std::int64_t DaysBetween(Date from, Date to) { return to.DayNumber() - from.DayNumber(); }

}  // namespace zef
