#include <fmt/format.h>

#include <vector>

#include "client/calendar_names.h"
#include "client/date_option.h"
#include "client/rule_text.h"

namespace zef::client {
namespace {

std::string Every(std::int32_t number, std::string_view unit) {
  return number == 1 ? fmt::format("every {}", unit) : fmt::format("every {} {}s", number, unit);
}

/// "Monday", "Monday and Friday", "Monday, Wednesday and Friday".
std::string WeekdaysInWords(std::int32_t days) {
  std::vector<std::string_view> names;
  for (std::size_t i = 0; i < kWeekdays.size(); ++i) {
    if ((days >> i & 1) != 0) names.push_back(kWeekdays[i]);
  }
  if (names.empty()) return "no day";
  std::string words(names[0]);
  for (std::size_t i = 1; i < names.size(); ++i) words.append(i + 1 == names.size() ? " and " : ", ").append(names[i]);
  return words;
}

std::string WeekdayOfWeek(const RuleSpec& rule) {
  return fmt::format("the {} {}", NameAt(kWeeks, rule.week_number), NameAt(kWeekdays, rule.options1));
}

std::string DailyInWords(const RuleSpec& rule) { return Every(rule.sub_type == 0 ? rule.options1 : 1, "day"); }

std::string WeeklyInWords(const RuleSpec& rule) {
  return Every(rule.options1, "week") + " on " + WeekdaysInWords(rule.days);
}

std::string MonthlyInWords(const RuleSpec& rule) {
  const std::string when = rule.sub_type == 0 ? fmt::format("day {}", rule.options1) : WeekdayOfWeek(rule);
  return Every(rule.options2, "month") + " on " + when;
}

std::string YearlyInWords(const RuleSpec& rule) {
  if (rule.sub_type == 0) return fmt::format("every year on {} {}", rule.options2, NameAt(kMonths, rule.options1));
  return fmt::format("every year on {} of {}", WeekdayOfWeek(rule), NameAt(kMonths, rule.options2));
}

/// A rule that ends with a day, and not in it, is told by the day.
std::string EndDateText(Date end) {
  const bool whole_day = IsCalendarDate(end) && end.SecondsOfDay() == kLastSecondOfDay;
  return whole_day ? DayText(end) : DateText(end);
}

std::string EndInWords(const RuleSpec& rule) {
  if (!rule.end.IsZero()) return ", until " + EndDateText(rule.end);
  if (rule.occurrences == 0) return "";
  return rule.occurrences == 1 ? ", once" : fmt::format(", {} times", rule.occurrences);
}

}  // namespace

std::string RuleInWords(const RuleSpec& rule) {
  switch (rule.type) {
    case kNoRule: return "";
    case kDaily: return DailyInWords(rule) + EndInWords(rule);
    case kWeekly: return WeeklyInWords(rule) + EndInWords(rule);
    case kMonthly: return MonthlyInWords(rule) + EndInWords(rule);
    case kYearly: return YearlyInWords(rule) + EndInWords(rule);
    default: return "by a rule of an unknown kind";
  }
}

}  // namespace zef::client
