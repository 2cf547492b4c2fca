#pragma once

#include <string>
#include <string_view>

namespace zef {

/// UTF-8 as the system's calls take it, and back. Malformed text gets U+FFFD.
std::wstring ToWide(std::string_view text);
std::string FromWide(std::wstring_view text);

}  // namespace zef
