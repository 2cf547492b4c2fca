#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

/// How the dialect classes bytes; shared by the readers of statements and of keys.
namespace zef::sql {

/// Stands before the kind of a literal in a key.
inline constexpr char kLiteralMark = '\1';

enum class ByteClass : unsigned char {
  Invalid,
  Blank,
  Letter,
  Digit,
  Dot,
  Minus,
  Symbol,
  Quote,
  Hash,
  OpenName,
  Semicolon,
  Mark,
};

constexpr std::array<ByteClass, 256> MakeByteClasses() {
  std::array<ByteClass, 256> classes{};
  for (std::size_t byte = 0x80; byte < classes.size(); ++byte) classes[byte] = ByteClass::Letter;
  const auto set = [&classes](std::string_view characters, ByteClass value) {
    for (const char c : characters) classes[static_cast<unsigned char>(c)] = value;
  };
  set("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ_", ByteClass::Letter);
  set("0123456789", ByteClass::Digit);
  set(" \t\r\n\v\f", ByteClass::Blank);
  set("=<>()+,*/\\^&?", ByteClass::Symbol);
  set("'\"", ByteClass::Quote);
  set("[`", ByteClass::OpenName);
  set(".", ByteClass::Dot);
  set("-", ByteClass::Minus);
  set("#", ByteClass::Hash);
  set(";", ByteClass::Semicolon);
  set(std::string_view(&kLiteralMark, 1), ByteClass::Mark);
  return classes;
}

inline constexpr std::array<ByteClass, 256> kByteClasses = MakeByteClasses();

constexpr ByteClass ClassOf(char c) { return kByteClasses[static_cast<unsigned char>(c)]; }
constexpr bool IsDigit(char c) { return ClassOf(c) == ByteClass::Digit; }
constexpr bool IsNameCharacter(char c) { return ClassOf(c) == ByteClass::Letter || IsDigit(c); }
constexpr bool StartsCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }
constexpr char ClosingOf(char opening) { return opening == '[' ? ']' : opening; }

inline std::size_t CountCharacters(const char* first, const char* last) {
  return static_cast<std::size_t>(std::count_if(first, last, StartsCharacter));
}

}  // namespace zef::sql
