#include <gtest/gtest.h>

#include <cstdint>
#include <random>

#include "calendar/next_occurrence.h"
#include "platform/run_time_error.h"

/// The walks said once more in nothing but dates, a step after the other, and compared on rules drawn at random.
namespace zef {
namespace {

constexpr int kCases = 20000;

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
    const int first = rule.week_number * 7 + 1;
    const int day = walk.candidate.Day();
    if (rule.week_number == 4 ? walk.LeavesMonthIn(7) : first <= day && day <= first + 6) return walk.candidate;
  }
}

Date InYearOf(Date reference, int month, int day) {
  const Date date = DateSerial(reference.Year(), month, day);
  return IsLater(date, reference) ? date : AddYears(date, 1);
}

Date YearlyByDay(const Rule& rule, Date reference) {
  const bool on_day = reference.Day() == rule.options2 && reference.Month() == rule.options1 + 1;
  return on_day ? AddYears(reference, 1) : InYearOf(reference, rule.options1 + 1, rule.options2);
}

Date YearlyByWeek(const Rule& rule, Date reference) {
  Walk walk{rule, reference};
  while (walk.Step(1)) {
    if (walk.candidate.Month() != rule.options2 + 1) {
      walk.candidate = InYearOf(reference, rule.options2 + 1, 1);
      continue;
    }
    if (!walk.OnWeekday()) continue;
    const int first = rule.week_number * 7 + 2;
    const int day = walk.candidate.Day();
    if (rule.week_number == 4 ? walk.LeavesMonthIn(7) : first <= day && day <= first + 6) return walk.candidate;
  }
  return Date();
}

template <class Kind>
Date OrZero(Kind kind, const Rule& rule, Date reference) {
  try {
    return kind(rule, reference);
  } catch (const RunTimeError&) {
    return Date();
  }
}

class Draw {
 public:
  std::int32_t Between(std::int32_t first, std::int32_t last) {
    return std::uniform_int_distribution<std::int32_t>(first, last)(random_);
  }

  /// Mostly our days, with some at both ends of the range and around day zero.
  Date Reference() {
    const double time = Between(0, 86399) / 86400.0;
    constexpr std::int32_t kFrom[] = {30000, 30000, 30000, -400, -657434, 2958000};
    const std::int32_t from = kFrom[Between(0, 5)];
    const std::int32_t day = Between(from, from == 30000 ? 60000 : from + 465);
    return Date(day < 0 ? day - time : day + time);
  }

 private:
  std::mt19937 random_{20240501};
};

template <class Kind, class MakeRule>
void CompareManyRules(Kind kind, MakeRule make_rule) {
  Draw draw;
  int found = 0;
  for (int i = 0; i < kCases; ++i) {
    const Rule rule = make_rule(draw);
    const Date reference = draw.Reference();
    const Date result = NextOccurrence(rule, reference);
    const Date expected = OrZero(kind, rule, reference);
    found += result.IsZero() ? 0 : 1;
    ASSERT_EQ(result, expected) << "from " << ToText(reference) << " to " << ToText(result) << " instead of "
                                << ToText(expected) << ", options " << rule.options1 << ' ' << rule.options2
                                << ", week " << rule.week_number << ", days " << rule.days;
  }
  EXPECT_GT(found, kCases / 4);
}

TEST(WalkInDates, WeeklyAgrees) {
  CompareManyRules(Weekly, [](Draw& draw) {
    return Rule{.type = 2, .options1 = draw.Between(-6, 12), .days = draw.Between(1, 127)};
  });
}

TEST(WalkInDates, MonthlyByDayAgrees) {
  CompareManyRules(MonthlyByDay, [](Draw& draw) {
    return Rule{.type = 3, .options1 = draw.Between(1, 33), .options2 = draw.Between(-3, 12)};
  });
}

TEST(WalkInDates, MonthlyByDayBeyondEveryMonthAgrees) {
  Draw draw;
  for (int i = 0; i < 200; ++i) {
    const Rule rule{.type = 3, .options1 = draw.Between(-2, 40000), .options2 = draw.Between(-3, 3)};
    const Date reference = draw.Reference();
    ASSERT_EQ(NextOccurrence(rule, reference), OrZero(MonthlyByDay, rule, reference)) << rule.options1;
  }
}

TEST(WalkInDates, MonthlyByWeekAgrees) {
  CompareManyRules(MonthlyByWeek, [](Draw& draw) {
    return Rule{.type = 3,
                .sub_type = 1,
                .options1 = draw.Between(-1, 7),
                .options2 = draw.Between(-3, 12),
                .week_number = draw.Between(0, 4)};
  });
}

TEST(WalkInDates, YearlyByDayAgrees) {
  CompareManyRules(YearlyByDay, [](Draw& draw) {
    return Rule{.type = 4, .options1 = draw.Between(-2, 14), .options2 = draw.Between(-2, 35)};
  });
}

TEST(WalkInDates, YearlyByDayOnItsDayAgrees) {
  Draw draw;
  for (int i = 0; i < kCases; ++i) {
    const Date reference = draw.Reference();
    const Rule rule{.type = 4, .options1 = reference.Month() - 1, .options2 = reference.Day()};
    ASSERT_EQ(NextOccurrence(rule, reference), OrZero(YearlyByDay, rule, reference)) << ToText(reference);
  }
}

TEST(WalkInDates, YearlyByWeekAgrees) {
  CompareManyRules(YearlyByWeek, [](Draw& draw) {
    return Rule{.type = 4,
                .sub_type = 1,
                .options1 = draw.Between(-1, 7),
                .options2 = draw.Between(0, 11),
                .week_number = draw.Between(0, 4)};
  });
}

TEST(WalkInDates, YearlyByWeekOfAMonthThatIsNoneAgrees) {
  Draw draw;
  for (int i = 0; i < 20; ++i) {
    const Rule rule{.type = 4, .sub_type = 1, .options1 = draw.Between(0, 6), .options2 = draw.Between(12, 40)};
    const Date reference = draw.Reference();
    ASSERT_EQ(NextOccurrence(rule, reference), OrZero(YearlyByWeek, rule, reference)) << rule.options2;
  }
}

}  // namespace
}  // namespace zef
