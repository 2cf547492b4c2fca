#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Texts are UTF-8; lengths count code points. Nothing here depends on the locale of the process.
namespace zef::client {

bool IsValidUtf8(std::string_view text);
/// ASCII letters lowered, everything else untouched.
std::string LowerAscii(std::string_view text);
/// Equality without regard to the case of ASCII letters.
bool EqualNames(std::string_view a, std::string_view b);
/// Without the blanks (U+0020) at both ends.
std::string_view Trim(std::string_view text);
/// Number of code points.
std::size_t Length(std::string_view text);
/// At most so many code points from the beginning.
std::string_view Left(std::string_view text, std::size_t count);
/// The text between quotation marks, those in it doubled: a literal of a statement with ', a value of a connection
/// string with ".
std::string Quoted(std::string_view text, char mark);
inline std::string SqlQuoted(std::string_view text) { return Quoted(text, '\''); }

}  // namespace zef::client
