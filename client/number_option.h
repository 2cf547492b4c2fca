#pragma once

#include <cstdint>
#include <limits>
#include <string_view>

namespace zef::client {

/// The whole number given with an option or argument; another text, or a number outside of the limits, is wrong use.
std::int32_t ReadNumber(std::string_view option, std::string_view text,
                        std::int32_t least = std::numeric_limits<std::int32_t>::min(),
                        std::int32_t most = std::numeric_limits<std::int32_t>::max());

}  // namespace zef::client
