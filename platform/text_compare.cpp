#include <unicode/ucol.h>

#include <algorithm>
#include <array>
#include <limits>
#include <memory>
#include <numeric>

#include "platform/made_once.h"
#include "platform/run_time_error.h"
#include "platform/text.h"

namespace zef::text {
namespace {

void Require(UErrorCode status) {
  if (U_FAILURE(status)) throw RunTimeError(FailureNumber::InvalidCall, "The order of texts is not available.");
}

/// The root order with two levels: letters, then accents. Comparing does not change it, so all threads share one.
class Collator {
 public:
  Collator() {
    ucol_setStrength(collator_.get(), UCOL_SECONDARY);
    UErrorCode status = U_ZERO_ERROR;
    ucol_setAttribute(collator_.get(), UCOL_NORMALIZATION_MODE, UCOL_ON, &status);
    Require(status);
  }
  const UCollator* get() const { return collator_.get(); }

 private:
  struct Close {
    void operator()(UCollator* collator) const { ucol_close(collator); }
  };

  static UCollator* Open() {
    UErrorCode status = U_ZERO_ERROR;
    UCollator* const collator = ucol_open("", &status);
    Require(status);
    return collator;
  }

  const std::unique_ptr<UCollator, Close> collator_{Open()};
};

constinit MadeOnce<const Collator> shared_collator;

std::int32_t Size(std::string_view text) {
  if (text.size() > std::numeric_limits<std::int32_t>::max()) throw RunTimeError(FailureNumber::OutOfMemory);
  return static_cast<std::int32_t>(text.size());
}

int CompareByCollator(std::string_view a, std::string_view b) {
  UErrorCode status = U_ZERO_ERROR;
  const UCollationResult order =
      ucol_strcollUTF8(shared_collator.Get().get(), a.data(), Size(a), b.data(), Size(b), &status);
  Require(status);
  return order;
}

/// Places of the printable ASCII characters in the collator's order, from 1; characters that it does not tell apart
/// share one. 0 stands for every other byte.
using Ranks = std::array<unsigned char, 256>;

Ranks RanksOfCollator() {
  std::array<char, 95> characters;
  std::iota(characters.begin(), characters.end(), ' ');
  const auto compare = [](const char& a, const char& b) { return CompareByCollator({&a, 1}, {&b, 1}); };
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
/// characters join into one. So a text of plain ASCII needs no collator.
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
  if (!IsPlainAscii(a) || !IsPlainAscii(b)) return CompareByCollator(a, b);
  static const Ranks ranks = RanksOfCollator();
  return CompareByRanks(a, b, ranks);
}

void ReleaseOrder() { shared_collator.Release(); }

}  // namespace zef::text
