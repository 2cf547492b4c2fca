#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <set>
#include <string>

namespace zef::client {

/// The picture of a month: a title, the weekdays from Monday on, and a line for each week, each ended by a line break.
/// A day of `marked` (1 to 31) has a star behind it, the day `today` a sign before it; with colour they stand out as
/// well.
std::string MonthPicture(std::chrono::year_month month, const std::set<unsigned>& marked, std::optional<unsigned> today,
                         bool colour);

}  // namespace zef::client
