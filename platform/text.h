#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Texts are UTF-8; positions and lengths count code points. Nothing here depends on the locale of the process.
namespace zef::text {

/// True if the bytes are well-formed UTF-8.
bool IsValidUtf8(std::string_view text);
/// True if every byte is a printable ASCII character, from blank to tilde.
bool IsPlainAscii(std::string_view text);

/// Order of two texts by the root locale: letter case does not count, accents do. Negative, zero or positive. This is
/// the one comparison of the dialect; the empty text comes first. Safe to call on any thread.
int Compare(std::string_view a, std::string_view b);
/// Gives back what `Compare` keeps for the whole process. No thread may be comparing; the next one begins anew.
void ReleaseOrder();
/// Equality of ASCII identifiers without regard to letter case.
bool EqualNames(std::string_view a, std::string_view b);

std::string LowerCase(std::string_view text);
std::string UpperCase(std::string_view text);
/// ASCII letters lowered, everything else untouched.
std::string LowerAscii(std::string_view text);

/// Number of code points; a zero character counts like any other.
std::int64_t Length(std::string_view text);
/// At most `count` code points from position `start` (from 1); empty behind the end. These raise 5 for a negative count
/// and a start below 1.
std::string_view Mid(std::string_view text, std::int64_t start, std::int64_t count);
std::string_view Left(std::string_view text, std::int64_t count);
std::string_view Right(std::string_view text, std::int64_t count);
/// Without the blanks (U+0020) at both ends.
std::string_view Trim(std::string_view text);
/// Position of `part` in `whole` from position `start` on (from 1), letter case ignored; 0 if it is not there. An empty
/// part is found at `start`, if a character stands there. Raises 5 for a start below 1.
std::int64_t Find(std::string_view whole, std::string_view part, std::int64_t start = 1);

/// The LIKE of the dialect, letter case ignored: `%` any run of characters, `_` one, `[a-z]` one of a set, `[!a-z]` one
/// outside it, `[%]` the character itself; an unclosed `[` is plain. Time grows with the product of the lengths at
/// worst.
bool Like(std::string_view text, std::string_view pattern);

/// UTF-8 to UTF-16 and back; malformed input becomes U+FFFD.
std::u16string ToUtf16(std::string_view text);
std::string ToUtf8(std::u16string_view text);

}  // namespace zef::text
