#include "platform/letter_case.h"

#include <windows.h>

#include <numeric>
#include <vector>

namespace zef::text {
namespace {

constexpr std::int32_t kUnits = 0x10000;

/// All characters of one UTF-16 unit in one letter case. The system maps texts, so each table is one call of it.
class Mapping {
 public:
  explicit Mapping(DWORD letter_case) : mapped_(kUnits) {
    std::vector<wchar_t> units(kUnits);
    std::iota(units.begin(), units.end(), wchar_t{0});
    mapped_ = units;
    LCMapStringEx(LOCALE_NAME_INVARIANT, letter_case, units.data(), kUnits, mapped_.data(), kUnits, nullptr, nullptr,
                  0);
  }
  /// Characters of two units stay as they are.
  std::int32_t Of(std::int32_t c) const { return c < kUnits ? mapped_[static_cast<std::size_t>(c)] : c; }

 private:
  std::vector<wchar_t> mapped_;
};

struct Tables {
  Mapping lower{LCMAP_LOWERCASE | LCMAP_LINGUISTIC_CASING};
  Mapping upper{LCMAP_UPPERCASE | LCMAP_LINGUISTIC_CASING};
};

const Tables& Shared() {
  static const Tables tables;
  return tables;
}

}  // namespace

std::int32_t LowerBeyondAscii(std::int32_t c) { return Shared().lower.Of(c); }
std::int32_t UpperBeyondAscii(std::int32_t c) { return Shared().upper.Of(c); }

/// By way of the capital letter, for some have two small ones. The capital I with a dot and the small one without share
/// their other case with the usual letter, and are letters of their own.
std::int32_t FoldedBeyondAscii(std::int32_t c) {
  constexpr std::int32_t kDottedI = 0x130;
  constexpr std::int32_t kDotlessI = 0x131;
  return c == kDottedI || c == kDotlessI ? c : LowerBeyondAscii(UpperBeyondAscii(c));
}

}  // namespace zef::text
