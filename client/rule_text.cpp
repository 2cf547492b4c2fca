#include "client/rule_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <vector>

#include "client/calendar_names.h"
#include "client/date_option.h"
#include "client/failure.h"
#include "client/text.h"

namespace zef::client {
namespace {

constexpr std::int32_t kLongestInterval = 9999;

using Words = std::vector<std::string>;

[[noreturn]] void WrongRule(const std::string& sentence) { throw Failure(kWrongUse, sentence); }

/// The words of a text in small letters, cut at blanks and commas, without those that only make it read well.
Words WordsOf(std::string_view text) {
  constexpr std::string_view kFillers[] = {"the", "of", "and", "day"};
  const std::string lower = LowerAscii(text);
  Words words;
  for (std::size_t at = 0; at < lower.size();) {
    const std::size_t start = lower.find_first_not_of(" ,", at);
    if (start == std::string::npos) break;
    at = std::min(lower.find_first_of(" ,", start), lower.size());
    std::string word = lower.substr(start, at - start);
    if (std::find(std::begin(kFillers), std::end(kFillers), word) == std::end(kFillers))
      words.push_back(std::move(word));
  }
  return words;
}

/// The number that a word is, if it lies between 1 and the limit.
std::optional<std::int32_t> NumberOf(std::string_view word, std::int32_t limit) {
  std::int32_t number = 0;
  const char* const end = word.data() + word.size();
  const auto [stopped, error] = std::from_chars(word.data(), end, number);
  if (error != std::errc() || stopped != end || number < 1 || number > limit) return std::nullopt;
  return number;
}

/// The index of the name that a word abbreviates, with three letters at least.
std::optional<std::int32_t> IndexOf(std::span<const std::string_view> names, std::string_view word) {
  if (word.size() < 3) return std::nullopt;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (LowerAscii(names[i]).starts_with(word)) return static_cast<std::int32_t>(i);
  }
  return std::nullopt;
}

/// The index of a whole name.
std::optional<std::int32_t> IndexOfWhole(std::span<const std::string_view> names, std::string_view word) {
  const auto found = std::find(names.begin(), names.end(), word);
  if (found == names.end()) return std::nullopt;
  return static_cast<std::int32_t>(found - names.begin());
}

std::int32_t WeekdayIndex(Date date) { return static_cast<std::int32_t>(date.Weekday().iso_encoding()) - 1; }
std::int32_t MonthIndex(Date date) {
  return static_cast<std::int32_t>(static_cast<unsigned>(date.YearMonthDay().month())) - 1;
}
std::int32_t DayOf(Date date) { return static_cast<std::int32_t>(static_cast<unsigned>(date.YearMonthDay().day())); }

// ---- the days of each kind of rule

/// What `--on` says, or the first day where it says nothing.
struct Days {
  std::optional<std::string> on;
  std::optional<Date> first;

  /// False if the days are to be taken from the first day.
  bool Given(const char* unit) const {
    if (!on && !first) {
      WrongRule(fmt::format("A rule by the {} needs --on with its days, or a date to take them from.", unit));
    }
    return on.has_value();
  }
};

/// Fills week and weekday from "last friday"; false if the words say something else.
bool ReadWeekday(const Words& words, RuleSpec& rule) {
  if (words.size() < 2) return false;
  const auto week = IndexOfWhole(kWeeks, words[0]);
  const auto weekday = IndexOf(kWeekdays, words[1]);
  if (!week || !weekday) return false;
  rule.sub_type = 1;
  rule.options1 = *weekday;
  rule.week_number = *week;
  return true;
}

void ReadDaily(const Days& days, std::int32_t number, RuleSpec& rule) {
  if (days.on) WrongRule("--on does not go with --every day; leave it out, or write --every week.");
  rule.options1 = number;
}

void ReadWeekly(const Days& days, std::int32_t number, RuleSpec& rule) {
  rule.options1 = number;
  if (!days.Given("week")) {
    rule.days = 1 << WeekdayIndex(*days.first);
    return;
  }
  const Words words = WordsOf(*days.on);
  for (const std::string& word : words) {
    const auto weekday = IndexOf(kWeekdays, word);
    if (!weekday) WrongRule(fmt::format("--on '{}' does not name weekdays. Write them as in mon,fri.", *days.on));
    rule.days |= 1 << *weekday;
  }
  if (words.empty()) WrongRule("--on names no weekday. Write them as in mon,fri.");
}

void ReadMonthly(const Days& days, std::int32_t number, RuleSpec& rule) {
  rule.options2 = number;
  if (!days.Given("month")) {
    rule.options1 = DayOf(*days.first);
    return;
  }
  const Words words = WordsOf(*days.on);
  const auto day = words.size() == 1 ? NumberOf(words[0], 31) : std::nullopt;
  if (day) {
    rule.options1 = *day;
  } else if (words.size() != 2 || !ReadWeekday(words, rule)) {
    WrongRule(fmt::format(
        "--on '{}' does not name a day of the month. Write 1 to 31, or first, second, third, fourth or last "
        "and a weekday as in \"last friday\".",
        *days.on));
  }
}

/// Fills month and day from "15 june" or "june 15"; false if the words say something else.
bool ReadDayOfYear(const Words& words, RuleSpec& rule) {
  constexpr std::array<std::int32_t, 12> kLengths{31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (words.size() != 2) return false;
  const bool day_first = NumberOf(words[0], 31).has_value();
  const auto day = NumberOf(words[day_first ? 0 : 1], 31);
  const auto month = IndexOf(kMonths, words[day_first ? 1 : 0]);
  if (!day || !month || *day > kLengths[static_cast<std::size_t>(*month)]) return false;
  rule.options1 = *month;
  rule.options2 = *day;
  return true;
}

bool ReadWeekdayOfYear(const Words& words, RuleSpec& rule) {
  const auto month = words.size() == 3 ? IndexOf(kMonths, words[2]) : std::nullopt;
  if (!month || !ReadWeekday(words, rule)) return false;
  rule.options2 = *month;
  return true;
}

void ReadYearly(const Days& days, std::int32_t number, RuleSpec& rule) {
  if (number != 1) WrongRule("A rule by the year comes back every year; write --every year.");
  if (!days.Given("year")) {
    rule.options1 = MonthIndex(*days.first);
    rule.options2 = DayOf(*days.first);
    return;
  }
  const Words words = WordsOf(*days.on);
  if (ReadDayOfYear(words, rule) || ReadWeekdayOfYear(words, rule)) return;
  WrongRule(fmt::format(
      "--on '{}' does not name a day of the year. Write it as in \"15 june\" or \"first monday of june\".", *days.on));
}

// ---- the options

struct Unit {
  std::string_view name;
  RuleType type;
  void (*read)(const Days&, std::int32_t, RuleSpec&);
};

constexpr Unit kUnits[] = {
    {"day", kDaily, &ReadDaily},
    {"week", kWeekly, &ReadWeekly},
    {"month", kMonthly, &ReadMonthly},
    {"year", kYearly, &ReadYearly},
};

struct Interval {
  std::int32_t number;
  const Unit* unit;
};

const Unit* UnitNamed(std::string_view word) {
  for (const Unit& unit : kUnits) {
    if (word == unit.name || (word.starts_with(unit.name) && word.substr(unit.name.size()) == "s")) return &unit;
  }
  return nullptr;
}

/// "week" or "2 weeks".
Interval ReadEvery(const std::string& text) {
  const std::string lower = LowerAscii(Trim(text));
  const std::size_t blank = lower.find(' ');
  const bool numbered = blank != std::string::npos;
  const auto number = numbered ? NumberOf(std::string_view(lower).substr(0, blank), kLongestInterval) : 1;
  const Unit* const unit = UnitNamed(numbered ? Trim(std::string_view(lower).substr(blank)) : lower);
  if (!number || unit == nullptr) {
    WrongRule(
        fmt::format("--every '{}' is no interval. Write day, week, month or year, or a number from 1 to {} and one of "
                    "them as in \"2 weeks\".",
                    text, kLongestInterval));
  }
  return {*number, unit};
}

void ReadEnd(const RuleOptions& options, std::optional<Date> first, RuleSpec& rule) {
  if (options.until && options.times) WrongRule("--until and --times exclude each other; give one of them.");
  if (options.times) rule.occurrences = *options.times;
  if (!options.until) return;
  rule.end = *options.until;
  const bool whole_day = rule.end.SecondsOfDay() == 0;
  if (first && whole_day && first->SecondsOfDay() != 0) rule.end = Date(rule.end.YearMonthDay(), kLastSecondOfDay);
  if (first && *first > rule.end) WrongRule("--until lies before the first day.");
}

}  // namespace

RuleSpec ReadRule(const RuleOptions& options, std::optional<Date> first) {
  RuleSpec rule;
  if (!options.every) {
    if (options.on || options.until || options.times) {
      WrongRule("--on, --until and --times belong to a rule; give --every as well.");
    }
    return rule;
  }
  const auto [number, unit] = ReadEvery(*options.every);
  rule.type = unit->type;
  unit->read({options.on, first}, number, rule);
  ReadEnd(options, first, rule);
  return rule;
}

}  // namespace zef::client
