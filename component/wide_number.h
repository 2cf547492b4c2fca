#pragma once

#include <string>

#include "component/variant.h"

namespace zef::component {

__extension__ using Digits = unsigned __int128;

/// A whole number of at most 96 bits over a power of ten: what 64-bit integers, currencies and decimals are alike.
struct WideNumber {
  Digits digits = 0;
  int scale = 0;  ///< decimals, 0 to 28
  bool negative = false;
};

/// The number of one of those kinds. Raises `ConversionFailure` for a decimal that cannot be.
WideNumber WideNumberAt(Located located);
double ToDouble(const WideNumber& number);
/// With all its digits, but no zeros behind the last decimal.
std::string ToText(const WideNumber& number);

}  // namespace zef::component
