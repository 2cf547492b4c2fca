#pragma once

#include <string_view>

namespace zef::schema {

/// The statements that make a new database of a version ("9.2.4", "9.1") and its first rows, in the library's dialect;
/// empty for an unknown version. A statement ends with ';' at the end of a line, a line that begins with "--" is a
/// comment.
std::string_view Text(std::string_view version);

}  // namespace zef::schema
