#include "client/printable.h"

#include "ZEFComponents/client.h"
#include "client/text.h"

namespace zef::client {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

struct Range {
  char32_t first;
  char32_t last;
};

// Control characters, line and paragraph separator, and what embeds, overrides or isolates a direction of writing.
constexpr Range kUnsafe[] = {{0x00, 0x1F},     {0x7F, 0x9F},     {0x061C, 0x061C},
                             {0x200E, 0x200F}, {0x2028, 0x202E}, {0x2066, 0x2069}};

bool IsUnsafe(char32_t c) {
  for (const Range& range : kUnsafe) {
    if (c >= range.first && c <= range.last) return true;
  }
  return false;
}

char32_t Shown(char32_t c) {
  if (c == '\t' || c == '\n' || c == '\r') return ' ';
  return IsUnsafe(c) ? kReplacement : c;
}

}  // namespace

std::string Printable(std::string_view text) {
  std::string shown;
  shown.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) AppendUtf8(shown, Shown(NextPoint(text, at)));
  return shown;
}

std::size_t Width(std::string_view text) { return Length(text); }

}  // namespace zef::client
