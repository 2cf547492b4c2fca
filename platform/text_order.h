#pragma once

#include <string_view>

namespace zef::text {

/// Order of two texts by the system's collation: letters first, then accents, letter case not at all. Negative, zero or
/// positive; malformed bytes count as U+FFFD.
int CompareByCollation(std::string_view a, std::string_view b);

}  // namespace zef::text
