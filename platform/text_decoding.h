#pragma once

#include <unicode/utf8.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/letter_case.h"

/// Code points of UTF-8 texts. For the sources of text operations only.
namespace zef::text {

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"  // U8_NEXT computes bytes as int
/// The code point at byte `at`, which moves behind it; negative for malformed bytes, of which at least one is passed.
inline UChar32 NextCodePointOrError(std::string_view text, std::size_t& at) {
  const auto first = static_cast<unsigned char>(text[at]);
  if (first < 0x80) {
    ++at;
    return first;
  }
  const char* const bytes = text.data();
  UChar32 c = 0;
  U8_NEXT(bytes, at, text.size(), c);
  return c;
}
#pragma GCC diagnostic pop

/// The same with U+FFFD for malformed bytes.
inline UChar32 NextCodePoint(std::string_view text, std::size_t& at) {
  const UChar32 c = NextCodePointOrError(text, at);
  return c < 0 ? 0xFFFD : c;
}

/// The code point without its letter case.
inline UChar32 Folded(UChar32 c) {
  if (c < 0x80) return c >= 'A' && c <= 'Z' ? c + 32 : c;
  return FoldedBeyondAscii(c);
}

inline UChar32 NextFolded(std::string_view text, std::size_t& at) { return Folded(NextCodePoint(text, at)); }

inline void AppendCodePoint(std::string& text, UChar32 c) {
  if (c < 0x80) {
    text += static_cast<char>(c);
    return;
  }
  char bytes[U8_MAX_LENGTH];
  std::size_t length = 0;
  U8_APPEND_UNSAFE(bytes, length, c);
  text.append(bytes, length);
}

}  // namespace zef::text
