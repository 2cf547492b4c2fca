#include <algorithm>
#include <array>
#include <numeric>

#include "platform/text.h"
#include "platform/text_order.h"

namespace zef::text {
namespace {

/// Places of the printable ASCII characters in the order of the collation, from 1; characters that it does not tell
/// apart share one. 0 stands for every other byte.
using Ranks = std::array<unsigned char, 256>;

Ranks RanksOfCollation() {
  std::array<char, 95> characters;
  std::iota(characters.begin(), characters.end(), ' ');
  const auto compare = [](const char& a, const char& b) { return CompareByCollation({&a, 1}, {&b, 1}); };
  std::sort(characters.begin(), characters.end(), [&](char a, char b) { return compare(a, b) < 0; });
  Ranks ranks{};
  unsigned char rank = 0;
  const char* previous = nullptr;
  for (const char& c : characters) {
    if (previous == nullptr || compare(*previous, c) != 0) ++rank;
    ranks[static_cast<unsigned char>(c)] = rank;
    previous = &c;
  }
  return ranks;
}

/// Within ASCII the root order decides by each character alone: the first different pair settles it, and no
/// characters join into one. So a text of plain ASCII needs no collation.
int CompareByRanks(std::string_view a, std::string_view b, const Ranks& ranks) {
  const std::size_t common = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < common; ++i) {
    const int difference = ranks[static_cast<unsigned char>(a[i])] - ranks[static_cast<unsigned char>(b[i])];
    if (difference != 0) return difference;
  }
  return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
}

}  // namespace

int Compare(std::string_view a, std::string_view b) {
  if (!IsPlainAscii(a) || !IsPlainAscii(b)) return CompareByCollation(a, b);
  static const Ranks ranks = RanksOfCollation();
  return CompareByRanks(a, b, ranks);
}

}  // namespace zef::text
