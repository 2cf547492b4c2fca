#include "platform/windows_1252.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "platform/text_decoding.h"

namespace zef {
namespace {

/// What the bytes from 0x80 to 0x9F stand for; every other byte is the character of its own number.
constexpr std::array<char16_t, 32> kMiddle = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

/// One character in UTF-8; none needs more than three bytes.
struct Utf8 {
  std::array<char, 3> bytes{};
  std::size_t size = 0;
};

constexpr Utf8 Encoded(unsigned character) {
  const auto tail = [](unsigned bits) { return static_cast<char>(0x80 | (bits & 0x3F)); };
  if (character < 0x80) return {{static_cast<char>(character)}, 1};
  if (character < 0x800) return {{static_cast<char>(0xC0 | (character >> 6)), tail(character)}, 2};
  return {{static_cast<char>(0xE0 | (character >> 12)), tail(character >> 6), tail(character)}, 3};
}

constexpr std::array<Utf8, 256> MakeTable() {
  std::array<Utf8, 256> table{};
  for (unsigned byte = 0; byte < table.size(); ++byte) {
    table[byte] = Encoded(byte >= 0x80 && byte < 0xA0 ? kMiddle[byte - 0x80] : byte);
  }
  return table;
}

constexpr std::array<Utf8, 256> kTable = MakeTable();

char ByteOf(UChar32 character) {
  const bool own_number = character < 0x80 || (character >= 0xA0 && character <= 0xFF);
  if (own_number) return static_cast<char>(character);
  const auto found = std::find(kMiddle.begin(), kMiddle.end(), character);
  return found == kMiddle.end() ? '?' : static_cast<char>(0x80 + std::distance(kMiddle.begin(), found));
}

}  // namespace

void AppendFromWindows1252(std::string& text, std::span<const std::byte> bytes) {
  std::size_t end = text.size();
  text.resize(end + bytes.size() * 3);
  for (const std::byte byte : bytes) {
    const Utf8& character = kTable[static_cast<std::size_t>(byte)];
    for (std::size_t i = 0; i < 3; ++i) text[end + i] = character.bytes[i];
    end += character.size;
  }
  text.resize(end);
}

std::string ToWindows1252(std::string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) bytes += ByteOf(text::NextCodePoint(text, at));
  return bytes;
}

}  // namespace zef
