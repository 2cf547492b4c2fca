#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zef::client {

/// A text that is safe on a terminal: tabs and line ends become blanks; other control characters, characters that
/// change the direction of writing and malformed bytes become U+FFFD.
std::string Printable(std::string_view text);

/// Number of code points.
std::size_t Width(std::string_view text);

}  // namespace zef::client
