#pragma once

#include <cstdint>
#include <utility>

#include "platform/run_time_error.h"

/// Arithmetic of the 32-bit integers that rows and clients hold: what does not fit raises 6.
namespace zef {

inline std::int32_t To32Bits(std::int64_t value) {
  if (!std::in_range<std::int32_t>(value)) throw RunTimeError(FailureNumber::Overflow);
  return static_cast<std::int32_t>(value);
}

inline std::int32_t Sum(std::int32_t a, std::int32_t b) { return To32Bits(std::int64_t{a} + b); }
inline std::int32_t Difference(std::int32_t a, std::int32_t b) { return To32Bits(std::int64_t{a} - b); }
inline std::int32_t Product(std::int32_t a, std::int32_t b) { return To32Bits(std::int64_t{a} * b); }

}  // namespace zef
