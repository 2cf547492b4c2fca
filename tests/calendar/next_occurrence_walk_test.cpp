#include <gtest/gtest.h>

#include <cstdint>
#include <random>

#include "calendar/next_occurrence.h"
#include "tests/support/plain_occurrence.h"

/// The walks compared with plain ones on rules drawn at random.
namespace zef::test {
namespace {

constexpr int kCases = 20000;

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

template <class MakeRule>
void CompareManyRules(MakeRule make_rule) {
  Draw draw;
  int found = 0;
  for (int i = 0; i < kCases; ++i) {
    const Rule rule = make_rule(draw);
    const Date reference = draw.Reference();
    const Date result = NextOccurrence(rule, reference);
    const Date expected = PlainNextOccurrence(rule, reference);
    found += result.IsZero() ? 0 : 1;
    ASSERT_EQ(result, expected) << "from " << ToText(reference) << " to " << ToText(result) << " instead of "
                                << ToText(expected) << ", options " << rule.options1 << ' ' << rule.options2
                                << ", week " << rule.week_number << ", days " << rule.days;
  }
  EXPECT_GT(found, kCases / 4);
}

TEST(WalkInDates, WeeklyAgrees) {
  CompareManyRules(
      [](Draw& draw) { return Rule{.type = 2, .options1 = draw.Between(-6, 12), .days = draw.Between(1, 127)}; });
}

TEST(WalkInDates, MonthlyByDayAgrees) {
  CompareManyRules(
      [](Draw& draw) { return Rule{.type = 3, .options1 = draw.Between(1, 33), .options2 = draw.Between(-3, 12)}; });
}

TEST(WalkInDates, MonthlyByDayBeyondEveryMonthAgrees) {
  Draw draw;
  for (int i = 0; i < 200; ++i) {
    const Rule rule{.type = 3, .options1 = draw.Between(-2, 40000), .options2 = draw.Between(-3, 3)};
    const Date reference = draw.Reference();
    ASSERT_EQ(NextOccurrence(rule, reference), PlainNextOccurrence(rule, reference)) << rule.options1;
  }
}

TEST(WalkInDates, MonthlyByWeekAgrees) {
  CompareManyRules([](Draw& draw) {
    return Rule{.type = 3,
                .sub_type = 1,
                .options1 = draw.Between(-1, 7),
                .options2 = draw.Between(-3, 12),
                .week_number = draw.Between(0, 4)};
  });
}

TEST(WalkInDates, YearlyByDayAgrees) {
  CompareManyRules(
      [](Draw& draw) { return Rule{.type = 4, .options1 = draw.Between(-2, 14), .options2 = draw.Between(-2, 35)}; });
}

TEST(WalkInDates, YearlyByDayOnItsDayAgrees) {
  Draw draw;
  for (int i = 0; i < kCases; ++i) {
    const Date reference = draw.Reference();
    const Rule rule{.type = 4, .options1 = reference.Month() - 1, .options2 = reference.Day()};
    ASSERT_EQ(NextOccurrence(rule, reference), PlainNextOccurrence(rule, reference)) << ToText(reference);
  }
}

TEST(WalkInDates, YearlyByWeekAgrees) {
  CompareManyRules([](Draw& draw) {
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
    ASSERT_EQ(NextOccurrence(rule, reference), PlainNextOccurrence(rule, reference)) << rule.options2;
  }
}

}  // namespace
}  // namespace zef::test
