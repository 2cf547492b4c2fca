#include "platform/letter_case.h"

#include <unicode/uchar.h>

namespace zef::text {

std::int32_t LowerBeyondAscii(std::int32_t c) { return u_tolower(c); }
std::int32_t UpperBeyondAscii(std::int32_t c) { return u_toupper(c); }
std::int32_t FoldedBeyondAscii(std::int32_t c) { return u_foldCase(c, U_FOLD_CASE_DEFAULT); }

}  // namespace zef::text
