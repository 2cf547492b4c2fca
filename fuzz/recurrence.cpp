/// The next date of a repetition rule against the same walk made plainly, for rules and dates of every kind.

#include <cmath>
#include <span>

#include "fuzz/support/input.h"
#include "platform/run_time_error.h"
#include "tests/support/plain_occurrence.h"
#include "tests/support/random/choices.h"

namespace zef::fuzz {
namespace {

/// Mostly a number that users choose, now and then any.
std::int32_t Number(test::Choices& choices) {
  if (choices.OneIn(32)) return choices.Raw<std::int32_t>();
  return choices.OneIn(8) ? choices.Raw<std::int8_t>() % 40 : static_cast<std::int32_t>(choices.Below(12));
}

/// Mostly a moment of the calendar, now and then any number.
Date Moment(test::Choices& choices) {
  if (choices.OneIn(8)) return Date(choices.Raw<double>());
  const double day = choices.Raw<std::int32_t>() % 3000000;
  const double time = choices.Raw<std::uint32_t>() % 86400 / 86400.0;
  return Date(day < 0 ? day - time : day + time);
}

Rule DrawnRule(test::Choices& choices) {
  Rule rule;
  rule.type = static_cast<std::int32_t>(choices.Below(6));
  rule.sub_type = static_cast<std::int32_t>(choices.Below(3));
  rule.options1 = Number(choices);
  rule.options2 = Number(choices);
  rule.week_number = Number(choices);
  rule.days = choices.Raw<std::uint8_t>();
  if (choices.OneIn(4)) rule.end = Moment(choices);
  return rule;
}

/// Parts of a second are carried along as exactly as the arithmetic allows.
bool Same(Date a, Date b) {
  constexpr double kPartOfASecond = 1e-7;
  return a == b || std::fabs(a.value() - b.value()) < kPartOfASecond;
}

bool HasWholeSeconds(Date date) {
  try {
    return date.RoundedToSeconds() == date;
  } catch (const RunTimeError&) {
    return false;
  }
}

}  // namespace
}  // namespace zef::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  zef::test::Choices choices(std::span(data, size));
  const zef::Rule rule = zef::fuzz::DrawnRule(choices);
  const zef::Date reference = zef::fuzz::Moment(choices);
  const zef::Date next = zef::NextOccurrence(rule, reference);
  const zef::Date expected = zef::test::PlainNextOccurrence(rule, reference);
  const bool agree = zef::fuzz::HasWholeSeconds(reference) ? next == expected : zef::fuzz::Same(next, expected);
  if (!agree) {
    zef::fuzz::Report("from " + std::to_string(reference.value()) + " to " + std::to_string(next.value()) +
                      " instead of " + std::to_string(expected.value()));
  }
  return 0;
}
