#include "tests/support/plain_occurrence.h"

#include <cstdint>

#include "calendar/recurrence_type.h"
#include "platform/checked_number.h"

namespace zef::test {
namespace {

struct Walk {
  const Rule& rule;
  Date reference;
  Date candidate = reference;
  std::int64_t walked = 0;

  bool Step(std::int64_t days) {
    candidate = AddDays(candidate, days);
    walked += days;
    return walked <= 30000;
  }

  bool OnWeekday() const {
    if (rule.options1 < 0 || rule.options1 > 6) return true;
    return candidate.Weekday() == (rule.options1 == 6 ? 1 : rule.options1 + 2);
  }

  bool LeavesMonthIn(int days) const { return AddDays(candidate, days).Month() != candidate.Month(); }

  /// In the rule's week of the month, the first of which begins on `first_day`.
  bool InWeek(int first_day) const {
    if (rule.week_number == 4) return LeavesMonthIn(7);
    const std::int64_t first = std::int64_t{rule.week_number} * 7 + first_day;
    return first <= candidate.Day() && candidate.Day() <= first + 6;
  }
};

std::int64_t Remainder(std::int64_t value, std::int64_t divisor) {
  if (divisor == 0) throw RunTimeError(FailureNumber::DivisionByZero);
  return value % divisor;
}

Date Weekly(const Rule& rule, Date reference) {
  Walk walk{rule, reference};
  std::int64_t weeks = 0;
  while (walk.Step(1)) {
    const int weekday = walk.candidate.Weekday();
    if (weekday == 2) ++weeks;
    if (const auto rest = Remainder(weeks, rule.options1); rest != 0) {
      const std::int64_t skipped = rule.options1 - rest - 1;
      weeks += skipped;
      walk.candidate = AddDays(walk.candidate, 8 - weekday + 7 * skipped);
    } else if ((rule.days >> (weekday == 1 ? 6 : weekday - 2)) & 1) {
      return walk.candidate;
    }
  }
  return Date();
}

Date FirstOfNextMonth(Date date) { return AddMonths(DateSerial(date.Year(), date.Month(), 1), 1); }

Date MonthlyByDay(const Rule& rule, Date reference) {
  Walk walk{rule, reference};
  std::int64_t months = 0;
  while (true) {
    if (walk.candidate.Day() < rule.options1) {
      walk.Step(rule.options1 - walk.candidate.Day());
    } else {
      const Date next = FirstOfNextMonth(walk.candidate);
      walk.walked += DaysBetween(walk.candidate, next);
      walk.candidate = next;
    }
    if (walk.walked > 30000) return Date();
    if (walk.candidate.Day() == 1) ++months;
    if (Remainder(months, rule.options2) == 0 && walk.candidate.Day() == rule.options1) return walk.candidate;
  }
}

Date MonthlyByWeek(const Rule& rule, Date reference) {
  Walk walk{rule, reference};
  std::int64_t months = 0;
  while (true) {
    const bool named = rule.options1 >= 0 && rule.options1 <= 6;
    const int step = named && walk.OnWeekday() ? 7 : 1;
    if (walk.LeavesMonthIn(step)) ++months;
    if (!walk.Step(step)) return Date();
    if (Remainder(months, rule.options2) != 0 || !walk.OnWeekday()) continue;
    if (walk.InWeek(1)) return walk.candidate;
  }
}

/// The month behind one that is counted from 0.
std::int32_t MonthBehind(std::int32_t index) { return Sum(index, 1); }

Date InYearOf(Date reference, std::int32_t month, std::int32_t day) {
  const Date date = DateSerial(reference.Year(), month, day);
  return IsLater(date, reference) ? date : AddYears(date, 1);
}

Date YearlyByDay(const Rule& rule, Date reference) {
  const std::int32_t month = MonthBehind(rule.options1);
  const bool on_day = reference.Day() == rule.options2 && reference.Month() == month;
  return on_day ? AddYears(reference, 1) : InYearOf(reference, month, rule.options2);
}

Date YearlyByWeek(const Rule& rule, Date reference) {
  Walk walk{rule, reference};
  while (walk.Step(1)) {
    const std::int32_t month = MonthBehind(rule.options2);
    if (walk.candidate.Month() != month) {
      walk.candidate = InYearOf(reference, month, 1);
      continue;
    }
    if (!walk.OnWeekday()) continue;
    if (walk.InWeek(2)) return walk.candidate;
  }
  return Date();
}

Date Daily(const Rule& rule, Date reference) { return AddDays(reference, rule.sub_type == 0 ? rule.options1 : 1); }

Date Found(const Rule& rule, Date reference) {
  const bool first_kind = rule.sub_type == 0;
  if (rule.type == REC_DAILY) return Daily(rule, reference);
  if (rule.type == REC_WEEKLY) return Weekly(rule, reference);
  if (rule.type == REC_MONTHLY) return first_kind ? MonthlyByDay(rule, reference) : MonthlyByWeek(rule, reference);
  if (rule.type == REC_YEARLY) return first_kind ? YearlyByDay(rule, reference) : YearlyByWeek(rule, reference);
  return Date();
}

}  // namespace

Date PlainNextOccurrence(const Rule& rule, Date reference) {
  try {
    const Date found = Found(rule, reference);
    return !rule.end.IsZero() && IsLater(found, rule.end) ? Date() : found;
  } catch (const RunTimeError&) {
    return Date();
  }
}

}  // namespace zef::test
