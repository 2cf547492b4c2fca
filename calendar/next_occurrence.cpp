#include "calendar/next_occurrence.h"

#include <chrono>

#include "calendar/recurrence_type.h"
#include "platform/checked_number.h"
#include "platform/date_parts.h"
#include "platform/run_time_error.h"

/// The next date of a rule is found by walking over the calendar with counters, and the odd results of such a walk (a
/// time of day that gets lost at the first of a month, a month that is not counted because its first day was leapt
/// over) are what users' data was made with. So the walks stay walks.
namespace zef {
namespace {

using namespace date_parts;

constexpr std::int32_t kMostDaysWalked = 30000;
constexpr std::int32_t kLastWeek = 4;  ///< the week number that means the last one of a month

/// The remainder has the sign of the value.
std::int32_t Modulo(std::int32_t value, std::int32_t divisor) {
  if (divisor == 0) throw RunTimeError(FailureNumber::DivisionByZero);
  return divisor == -1 ? 0 : value % divisor;  // the smallest integer by -1 does not fit
}

/// 0 Monday to 6 Sunday; day 0 was a Saturday.
std::int32_t WeekdayIndexOf(std::int64_t day) {
  constexpr std::int64_t kSomeMonday = -700000 + 2;
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(day - kSomeMonday) % 7);
}

/// 1 Sunday to 7 Saturday.
std::int32_t WeekdayNumberOf(std::int64_t day) { return (WeekdayIndexOf(day) + 1) % 7 + 1; }

std::int32_t NextWeekdayNumber(std::int32_t weekday) { return weekday % 7 + 1; }

/// The bit of a weekday number in a rule.
std::int32_t BitOf(std::int32_t weekday) { return 1 << (weekday + 5) % 7; }

bool NamesWeekday(std::int32_t index) { return index >= 0 && index <= 6; }

/// The day that a walk stands on, with its calendar parts and the time of day. Raises 5 when it leaves the range.
class Candidate {
 public:
  explicit Candidate(Date date) { MoveTo(date); }

  void MoveTo(Date date) {
    const auto [day, fraction] = Split(date);
    fraction_ = fraction;
    MoveToDay(day);
  }

  void AddDays(std::int32_t days) {
    const std::int64_t day = CheckedDay(day_ + days);
    if (day_of_month_ + (day - day_) > month_length_) return MoveToDay(day);
    day_of_month_ += days;
    day_ = day;
  }

  void MoveToFirstOfNextMonth() {
    MoveToDay(CheckedDay(day_ + DaysToNextMonth()));
    fraction_ = 0.0;
  }

  std::int32_t DaysToNextMonth() const { return month_length_ - day_of_month_ + 1; }

  bool IsInAnotherMonthAfter(std::int32_t days) const {
    CheckedDay(day_ + days);
    return day_of_month_ + days > month_length_;
  }

  /// True for an index that names no weekday, too: such a rule takes any day.
  bool FallsOn(std::int32_t weekday_index) const {
    return !NamesWeekday(weekday_index) || weekday_index == WeekdayIndexOf(day_);
  }

  std::int32_t day_of_month() const { return day_of_month_; }
  std::int32_t month() const { return month_; }
  Date date() const { return Join(day_, fraction_); }

 private:
  void MoveToDay(std::int64_t day) {
    const std::chrono::year_month_day parts = CalendarDay(day);
    day_ = day;
    day_of_month_ = static_cast<std::int32_t>(static_cast<unsigned>(parts.day()));
    month_ = static_cast<std::int32_t>(static_cast<unsigned>(parts.month()));
    const auto last = (parts.year() / parts.month() / std::chrono::last).day();
    month_length_ = static_cast<std::int32_t>(static_cast<unsigned>(last));
  }

  std::int64_t day_ = 0;
  double fraction_ = 0.0;
  std::int32_t day_of_month_ = 0;  ///< only ever moves forward within its month
  std::int32_t month_ = 0;
  std::int32_t month_length_ = 0;
};

Date Daily(const Rule& rule, Date reference) { return AddDays(reference, rule.sub_type == 0 ? rule.options1 : 1); }

/// A week begins on Monday; the week of the reference is active. The walk to an active week lands on the Sunday before
/// it, and only the days that are looked at count towards the limit.
Date Weekly(const Rule& rule, Date reference) {
  auto [day, fraction] = Split(reference);
  std::int32_t weekday = WeekdayNumberOf(day);
  std::int32_t weeks = 0;
  for (std::int32_t walked = 1; walked <= kMostDaysWalked; ++walked) {
    day = CheckedDay(day + 1);
    weekday = NextWeekdayNumber(weekday);
    if (weekday == 2) weeks = Sum(weeks, 1);
    const std::int32_t into_interval = Modulo(weeks, rule.options1);
    if (into_interval != 0) {
      const std::int32_t skipped = Difference(Difference(rule.options1, into_interval), 1);
      weeks = Sum(weeks, skipped);
      day = CheckedDay(day + Sum(8 - weekday, Product(7, skipped)));
      weekday = WeekdayNumberOf(day);
    } else if ((rule.days & BitOf(weekday)) != 0) {
      return Join(day, fraction);
    }
  }
  return {};
}

/// Goes towards the day within the month, or else to the first of the next month, where the time of day gets lost. A
/// month counts when its first day is reached.
Date MonthlyByDay(const Rule& rule, Date reference) {
  const std::int32_t wanted = rule.options1;
  Candidate candidate(reference);
  std::int32_t walked = 0;
  std::int32_t months = 0;
  while (true) {
    if (candidate.day_of_month() < wanted) {
      const std::int32_t days = Difference(wanted, candidate.day_of_month());
      walked = Sum(walked, days);
      candidate.AddDays(days);
    } else {
      walked = Sum(walked, candidate.DaysToNextMonth());
      candidate.MoveToFirstOfNextMonth();
    }
    if (walked > kMostDaysWalked) return {};
    if (candidate.day_of_month() == 1) months = Sum(months, 1);
    if (Modulo(months, rule.options2) == 0 && candidate.day_of_month() == wanted) return candidate.date();
  }
}

/// True if the candidate lies in the wanted week of its month: the seven days from `first_day` on, a week further for
/// each week number, or the last week.
bool IsInWeek(const Candidate& candidate, std::int32_t week_number, std::int64_t first_day) {
  if (week_number == kLastWeek) return candidate.IsInAnotherMonthAfter(7);
  const std::int64_t first = std::int64_t{week_number} * 7 + first_day;
  return candidate.day_of_month() >= first && candidate.day_of_month() < first + 7;
}

/// Goes day by day to the weekday and from there week by week.
Date MonthlyByWeek(const Rule& rule, Date reference) {
  const bool by_weekday = NamesWeekday(rule.options1);
  Candidate candidate(reference);
  std::int32_t walked = 0;
  std::int32_t months = 0;
  while (true) {
    const std::int32_t step = by_weekday && candidate.FallsOn(rule.options1) ? 7 : 1;
    if (candidate.IsInAnotherMonthAfter(step)) months = Sum(months, 1);
    candidate.AddDays(step);
    walked += step;
    if (walked > kMostDaysWalked) return {};
    if (Modulo(months, rule.options2) != 0 || !candidate.FallsOn(rule.options1)) continue;
    if (IsInWeek(candidate, rule.week_number, 1)) return candidate.date();
  }
}

/// A day of the year of the reference, or of the next year if that is not later than the reference.
Date DayAfter(Date reference, std::int32_t month, std::int32_t day) {
  const Date date = DateSerial(reference.Year(), month, day);
  return IsLater(date, reference) ? date : AddYears(date, 1);
}

Date YearlyByDay(const Rule& rule, Date reference) {
  const std::int32_t month = Sum(rule.options1, 1);
  if (reference.Day() == rule.options2 && reference.Month() == month) return AddYears(reference, 1);
  return DayAfter(reference, month, rule.options2);
}

/// Outside the month the walk jumps to its first day, always counted from the year of the reference, and goes on from
/// the second; the weeks of a month are counted from its second day, too.
Date YearlyByWeek(const Rule& rule, Date reference) {
  const std::int32_t month = Sum(rule.options2, 1);
  Candidate candidate(reference);
  for (std::int32_t walked = 1; walked <= kMostDaysWalked; ++walked) {
    candidate.AddDays(1);
    if (candidate.month() != month) {
      candidate.MoveTo(DayAfter(reference, month, 1));
    } else if (candidate.FallsOn(rule.options1) && IsInWeek(candidate, rule.week_number, 2)) {
      return candidate.date();
    }
  }
  return {};
}

Date Unbounded(const Rule& rule, Date reference) {
  switch (rule.type) {
    case REC_DAILY: return Daily(rule, reference);
    case REC_WEEKLY: return Weekly(rule, reference);
    case REC_MONTHLY: return rule.sub_type == 0 ? MonthlyByDay(rule, reference) : MonthlyByWeek(rule, reference);
    case REC_YEARLY: return rule.sub_type == 0 ? YearlyByDay(rule, reference) : YearlyByWeek(rule, reference);
    default: return {};
  }
}

}  // namespace

Date NextOccurrence(const Rule& rule, Date reference) noexcept {
  try {
    const Date candidate = Unbounded(rule, reference);
    const bool ended = !rule.end.IsZero() && IsLater(candidate, rule.end);
    return ended ? Date() : candidate;
  } catch (...) {  // a rule that fails has no next date, and nobody is told
    return {};
  }
}

}  // namespace zef
