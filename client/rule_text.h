#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "client/rule.h"

namespace zef::client {

/// A repetition rule as it is given on the command line.
struct RuleOptions {
  std::optional<std::string> every;  ///< "day", "2 weeks"
  std::optional<std::string> on;     ///< "mon,fri", "15", "last friday", "15 june", "first monday of june"
  std::optional<Date> until;
  std::optional<std::int32_t> times;  ///< from 1 on
};

/// The rule that the options give, `kNoRule` if there is none. Days that `on` does not name are those of `first`, the
/// day on which it begins, if there is one. An `until` without a time of day means the end of that day if the first day
/// has one. What makes no rule is wrong use, told with what is accepted.
RuleSpec ReadRule(const RuleOptions& options, std::optional<Date> first);

/// The rule in words: "every 2 weeks on Monday and Friday, until 2024-12-31"; empty for none.
std::string RuleInWords(const RuleSpec& rule);

}  // namespace zef::client
