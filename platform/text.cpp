#include "platform/text.h"

#include <unicode/utf16.h>

#include <algorithm>
#include <cstring>
#include <limits>

#include "platform/letter_case.h"
#include "platform/run_time_error.h"
#include "platform/text_decoding.h"

namespace zef::text {
namespace {

/// Raises 5 for a position or count that cannot be one.
void RequireAtLeast(std::int64_t least, std::int64_t number) {
  if (number < least) throw RunTimeError(FailureNumber::InvalidCall);
}

bool AreEightAscii(const char* bytes) {
  std::uint64_t word = 0;
  std::memcpy(&word, bytes, sizeof word);
  return (word & 0x8080808080808080U) == 0;
}

struct Prefix {
  std::size_t bytes = 0;
  std::int64_t characters = 0;
};

/// The first `most` code points, or all; ASCII is passed eight at a time.
Prefix FirstOf(std::string_view text, std::int64_t most) {
  Prefix prefix;
  while (prefix.characters < most && prefix.bytes < text.size()) {
    const bool eight_left = most - prefix.characters >= 8 && text.size() - prefix.bytes >= 8;
    if (eight_left && AreEightAscii(text.data() + prefix.bytes)) {
      prefix.bytes += 8;
      prefix.characters += 8;
    } else {
      NextCodePoint(text, prefix.bytes);
      ++prefix.characters;
    }
  }
  return prefix;
}

std::size_t BytesOf(std::string_view text, std::int64_t count) { return FirstOf(text, count).bytes; }

template <class Mapping>
std::string Mapped(std::string_view text, Mapping map) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) AppendCodePoint(result, map(NextCodePoint(text, at)));
  return result;
}

constexpr UChar32 LowerOf(UChar32 c) { return c >= 'A' && c <= 'Z' ? c + 32 : c; }
constexpr UChar32 UpperOf(UChar32 c) { return c >= 'a' && c <= 'z' ? c - 32 : c; }

/// Eight bytes at once: none has its high bit set, would get it by adding 1, or lies below a blank.
bool AreEightPlain(std::uint64_t bytes) {
  constexpr std::uint64_t kOnes = 0x0101010101010101U;
  const std::uint64_t below_blank = (bytes - kOnes * ' ') & ~bytes;
  return ((bytes | (bytes + kOnes) | below_blank) & (kOnes * 0x80)) == 0;
}

/// True if `part` stands in `whole` at byte `at`.
bool StandsAt(std::string_view whole, std::size_t at, std::string_view part) {
  for (std::size_t in_part = 0; in_part < part.size();) {
    if (at == whole.size() || NextFolded(whole, at) != NextFolded(part, in_part)) return false;
  }
  return true;
}

}  // namespace

bool IsValidUtf8(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    if (NextCodePointOrError(text, at) < 0) return false;
  }
  return true;
}

bool IsPlainAscii(std::string_view text) {
  for (; text.size() >= sizeof(std::uint64_t); text.remove_prefix(sizeof(std::uint64_t))) {
    std::uint64_t bytes = 0;
    std::memcpy(&bytes, text.data(), sizeof bytes);
    if (!AreEightPlain(bytes)) return false;
  }
  return std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c <= '~'; });
}

bool EqualNames(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (LowerOf(a[i]) != LowerOf(b[i])) return false;
  }
  return true;
}

std::string LowerCase(std::string_view text) {
  return Mapped(text, [](UChar32 c) { return c < 0x80 ? LowerOf(c) : LowerBeyondAscii(c); });
}

std::string UpperCase(std::string_view text) {
  return Mapped(text, [](UChar32 c) { return c < 0x80 ? UpperOf(c) : UpperBeyondAscii(c); });
}

std::string LowerAscii(std::string_view text) {
  std::string result(text);
  for (char& c : result) c = static_cast<char>(LowerOf(c));
  return result;
}

std::int64_t Length(std::string_view text) {
  return FirstOf(text, std::numeric_limits<std::int64_t>::max()).characters;
}

std::string_view Mid(std::string_view text, std::int64_t start, std::int64_t count) {
  RequireAtLeast(1, start);
  return Left(text.substr(BytesOf(text, start - 1)), count);
}

std::string_view Left(std::string_view text, std::int64_t count) {
  RequireAtLeast(0, count);
  return text.substr(0, BytesOf(text, count));
}

std::string_view Right(std::string_view text, std::int64_t count) {
  RequireAtLeast(0, count);
  return text.substr(BytesOf(text, Length(text) - count));
}

std::string_view Trim(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::int64_t Find(std::string_view whole, std::string_view part, std::int64_t start) {
  RequireAtLeast(1, start);
  std::size_t at = 0;
  for (std::int64_t position = 1;; ++position) {
    if (at == whole.size()) return 0;
    if (position >= start && StandsAt(whole, at, part)) return position;
    NextCodePoint(whole, at);
  }
}

std::u16string ToUtf16(std::string_view text) {
  std::u16string result;
  result.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const UChar32 c = NextCodePoint(text, at);
    if (c < 0x10000) {
      result += static_cast<char16_t>(c);
    } else {
      result += static_cast<char16_t>(U16_LEAD(c));
      result += static_cast<char16_t>(U16_TRAIL(c));
    }
  }
  return result;
}

std::string ToUtf8(std::u16string_view text) {
  const char16_t* const units = text.data();
  std::string result;
  result.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    UChar32 c = 0;
    U16_NEXT_OR_FFFD(units, at, text.size(), c);
    AppendCodePoint(result, c);
  }
  return result;
}

}  // namespace zef::text
