#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace zef {

/// Appends bytes of the encoding Windows-1252 as UTF-8. The five bytes that it leaves undefined become the control
/// characters of the same number, as the system's own tables have it.
void AppendFromWindows1252(std::string& text, std::span<const std::byte> bytes);

/// UTF-8 text in that encoding. A character that it lacks becomes one "?", and so does each run of malformed bytes.
std::string ToWindows1252(std::string_view text);

}  // namespace zef
