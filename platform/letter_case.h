#pragma once

#include <cstdint>

/// Letter case of single code points beyond ASCII, one for one, by the system's tables. For the sources of text
/// operations only.
namespace zef::text {

std::int32_t LowerBeyondAscii(std::int32_t c);
std::int32_t UpperBeyondAscii(std::int32_t c);
/// Without its letter case.
std::int32_t FoldedBeyondAscii(std::int32_t c);

}  // namespace zef::text
