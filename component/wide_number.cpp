#include "component/wide_number.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace zef::component {
namespace {

WideNumber Signed(LONGLONG number, int scale) {
  const auto bits = static_cast<ULONGLONG>(number);
  return {number < 0 ? ULONGLONG{0} - bits : bits, scale, number < 0};
}

/// The published layout: scale and sign behind the kind, then 96 bits of which the highest 32 stand first.
WideNumber Decimal(const void* at) {
  constexpr unsigned char kMostDecimals = 28;
  const auto* const bytes = static_cast<const unsigned char*>(at);
  if (bytes[2] > kMostDecimals) throw ConversionFailure(DISP_E_TYPEMISMATCH);
  const Digits high = Located{VT_UI4, bytes + 4}.Read<std::uint32_t>();
  return {high << 64 | Located{VT_UI8, bytes + 8}.Read<std::uint64_t>(), bytes[2], (bytes[3] & 0x80) != 0};
}

}  // namespace

WideNumber WideNumberAt(Located located) {
  constexpr int kDecimalsOfCurrency = 4;
  switch (located.kind) {
    case VT_I8: return Signed(located.Read<LONGLONG>(), 0);
    case VT_UI8: return {located.Read<ULONGLONG>(), 0, false};
    case VT_CY: return Signed(located.Read<LONGLONG>(), kDecimalsOfCurrency);
    case VT_DECIMAL: return Decimal(located.at);
    default: throw ConversionFailure(DISP_E_TYPEMISMATCH);
  }
}

double ToDouble(const WideNumber& number) {
  const double size = static_cast<double>(number.digits) / std::pow(10.0, number.scale);
  return number.negative ? -size : size;
}

std::string ToText(const WideNumber& number) {
  std::string reversed;
  const auto decimals = static_cast<std::size_t>(number.scale);
  for (Digits left = number.digits; left > 0 || reversed.size() <= decimals; left /= 10) {
    reversed += static_cast<char>('0' + static_cast<int>(left % 10));
  }
  const std::size_t needless = std::min(reversed.find_first_not_of('0'), decimals);
  reversed.erase(0, needless);
  if (needless < decimals) reversed.insert(decimals - needless, ".");
  if (number.negative && number.digits != 0) reversed += '-';
  return {reversed.rbegin(), reversed.rend()};
}

}  // namespace zef::component
