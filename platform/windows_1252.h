#pragma once

#include <cstddef>
#include <span>
#include <string>

namespace zef {

/// Appends bytes of the encoding Windows-1252 as UTF-8. The five bytes that it leaves undefined become the control
/// characters of the same number, as the system's own tables have it.
void AppendFromWindows1252(std::string& text, std::span<const std::byte> bytes);

}  // namespace zef
