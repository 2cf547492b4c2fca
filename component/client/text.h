#pragma once

#include <cstddef>
#include <new>
#include <string>
#include <string_view>

#include "ZEFComponents/automation.h"

/// Texts between UTF-8, which clients of the typed classes hold, and the UTF-16 of the library. What is malformed
/// becomes U+FFFD.
namespace zef {
inline namespace automation {

/// Texts of the library: UTF-16 in the character type of the system.
using Units = std::basic_string<OLECHAR>;
using UnitsView = std::basic_string_view<OLECHAR>;

inline void AppendUtf8(std::string& text, char32_t point) {
  const auto add = [&](char32_t bits) { text += static_cast<char>(bits); };
  if (point < 0x80) {
    add(point);
  } else if (point < 0x800) {
    add(0xC0 | point >> 6);
    add(0x80 | (point & 0x3F));
  } else if (point < 0x10000) {
    add(0xE0 | point >> 12);
    add(0x80 | (point >> 6 & 0x3F));
    add(0x80 | (point & 0x3F));
  } else {
    add(0xF0 | point >> 18);
    add(0x80 | (point >> 12 & 0x3F));
    add(0x80 | (point >> 6 & 0x3F));
    add(0x80 | (point & 0x3F));
  }
}

inline std::string ToUtf8(UnitsView units) {
  std::string text(units.size(), '\0');
  std::size_t ascii = 0;
  for (; ascii < units.size() && units[ascii] < 0x80; ++ascii) text[ascii] = static_cast<char>(units[ascii]);
  if (ascii == units.size()) return text;
  text.resize(ascii);
  for (std::size_t i = ascii; i < units.size(); ++i) {
    const OLECHAR unit = units[i];
    const bool pair =
        unit >= 0xD800 && unit < 0xDC00 && i + 1 < units.size() && units[i + 1] >= 0xDC00 && units[i + 1] < 0xE000;
    if (pair) {
      AppendUtf8(text, 0x10000 + ((unit & 0x3FFu) << 10 | (units[++i] & 0x3FFu)));
    } else {
      AppendUtf8(text, unit >= 0xD800 && unit < 0xE000 ? U'\uFFFD' : char32_t{unit});
    }
  }
  return text;
}

/// The code point at a place, which moves on behind it.
inline char32_t NextPoint(std::string_view text, std::size_t& at) {
  const auto byte = [&](std::size_t i) { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0u; };
  const unsigned first = byte(at++);
  if (first < 0x80) return first;
  const int more = first >= 0xF0 && first < 0xF5   ? 3
                   : first >= 0xE0 && first < 0xF0 ? 2
                   : first >= 0xC2 && first < 0xE0 ? 1
                                                   : 0;
  if (more == 0) return U'\uFFFD';
  char32_t point = first & (0x3Fu >> more);
  for (int i = 0; i < more; ++i) {
    const unsigned next = byte(at + static_cast<std::size_t>(i));
    if ((next & 0xC0) != 0x80) return U'\uFFFD';
    point = point << 6 | (next & 0x3F);
  }
  constexpr char32_t kLeast[] = {0, 0x80, 0x800, 0x10000};
  if (point < kLeast[more] || point > 0x10FFFF || (point >= 0xD800 && point < 0xE000)) return U'\uFFFD';
  at += static_cast<std::size_t>(more);
  return point;
}

/// Appends to `units`, which has room for as many units as the text has bytes; the number written.
inline std::size_t WriteUtf16(std::string_view text, OLECHAR* units) {
  std::size_t written = 0;
  for (std::size_t at = 0; at < text.size();) {
    const char32_t point = NextPoint(text, at);
    if (point < 0x10000) {
      units[written++] = static_cast<OLECHAR>(point);
    } else {
      units[written++] = static_cast<OLECHAR>(0xD800 + ((point - 0x10000) >> 10));
      units[written++] = static_cast<OLECHAR>(0xDC00 + ((point - 0x10000) & 0x3FF));
    }
  }
  return written;
}

inline Units ToUtf16(std::string_view text) {
  Units units(text.size(), OLECHAR{});
  units.resize(WriteUtf16(text, units.data()));
  return units;
}

inline std::string TextOf(BSTR text) { return text == nullptr ? std::string() : ToUtf8({text, SysStringLen(text)}); }

/// A new text of the library; whoever receives it frees it.
inline BSTR NewText(std::string_view text) {
  constexpr std::size_t kLongest = 0x7FFFFFF0;
  BSTR const made = text.size() > kLongest ? nullptr : SysAllocStringLen(nullptr, static_cast<UINT>(text.size()));
  if (made == nullptr) throw std::bad_alloc();
  const std::size_t units = WriteUtf16(text, made);
  if (units == text.size()) return made;
  BSTR const whole = SysAllocStringLen(made, static_cast<UINT>(units));  // its length stands in front: not to be cut
  SysFreeString(made);
  if (whole == nullptr) throw std::bad_alloc();
  return whole;
}

}  // namespace automation
}  // namespace zef
