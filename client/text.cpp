#include "client/text.h"

#include <algorithm>

#include "ZEFComponents/client.h"

namespace zef::client {
namespace {

char Lowered(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

}  // namespace

bool IsValidUtf8(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t first = at;
    const bool replaced = NextPoint(text, at) == U'\uFFFD';
    if (replaced && !text.substr(first).starts_with("\uFFFD")) return false;
  }
  return true;
}

std::string LowerAscii(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(), &Lowered);
  return lower;
}

bool EqualNames(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return Lowered(x) == Lowered(y); });
}

std::string_view Trim(std::string_view text) {
  while (text.starts_with(' ')) text.remove_prefix(1);
  while (text.ends_with(' ')) text.remove_suffix(1);
  return text;
}

std::size_t Length(std::string_view text) {
  std::size_t length = 0;
  for (std::size_t at = 0; at < text.size(); ++length) NextPoint(text, at);
  return length;
}

std::string_view Left(std::string_view text, std::size_t count) {
  std::size_t end = 0;
  for (; count > 0 && end < text.size(); --count) NextPoint(text, end);
  return text.substr(0, end);
}

std::string Quoted(std::string_view text, char mark) {
  std::string quoted(1, mark);
  for (const char c : text) quoted.append(c == mark ? 2 : 1, c);
  return quoted + mark;
}

}  // namespace zef::client
