#pragma once

#include <cstdint>

#include "client/date.h"

namespace zef::client {

enum RuleType : std::int32_t { kNoRule = 0, kDaily = 1, kWeekly = 2, kMonthly = 3, kYearly = 4 };

/// A repetition rule as the database keeps it; it may hold any numbers. What `options1` and `options2` say depends on
/// the type:
///
/// | type    | sub_type | options1         | options2          | week_number     |
/// |---------|----------|------------------|-------------------|-----------------|
/// | daily   | 0        | days             |                   |                 |
/// | daily   | other    |                  |                   |                 |
/// | weekly  | any      | weeks            |                   |                 |
/// | monthly | 0        | day of the month | months            |                 |
/// | monthly | other    | weekday          | months            | week of a month |
/// | yearly  | 0        | month            | day of the month  |                 |
/// | yearly  | other    | weekday          | month             | week of a month |
///
/// Weekdays, months and weeks count from 0: Monday, January, the first week; week 4 is the last one.
struct RuleSpec {
  std::int32_t type = kNoRule;
  std::int32_t sub_type = 0;
  std::int32_t options1 = 0;
  std::int32_t options2 = 0;
  std::int32_t week_number = 0;
  std::int32_t days = 0;         ///< the weekdays of a weekly rule, bit 0 Monday to bit 6 Sunday
  Date end{};                    ///< the last moment that counts; zero for none
  std::int32_t occurrences = 0;  ///< how often it happens if there is no end; 0 for no limit

  friend bool operator==(const RuleSpec&, const RuleSpec&) = default;
};

}  // namespace zef::client
