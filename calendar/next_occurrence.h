#pragma once

#include <cstdint>

#include "platform/date.h"

namespace zef {

/// What a repetition rule is made of, as far as its next date is concerned.
struct Rule {
  std::int32_t type = 0;      ///< a `RecurrenceType`; anything else has no next date
  std::int32_t sub_type = 0;  ///< 0, or any other value for the second kind of a type
  std::int32_t options1 = 0;
  std::int32_t options2 = 0;
  std::int32_t week_number = 0;  ///< 0 first to 3 fourth, 4 last
  std::int32_t days = 0;         ///< weekday bits, bit 0 Monday to bit 6 Sunday
  Date end = {};                 ///< the last moment that counts; zero for none
};

/// The date of the rule's next occurrence after `reference`, or the zero date if there is none. Any failure on the way,
/// such as an interval of 0 or a date out of range, is silent and means the same.
Date NextOccurrence(const Rule& rule, Date reference) noexcept;

}  // namespace zef
