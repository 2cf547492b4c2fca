#pragma once

#include <cstdint>

namespace zef {

/// Kinds of repetition rule. Values are stored.
enum RecurrenceType : std::int32_t { REC_EMPTY = 0, REC_DAILY = 1, REC_WEEKLY = 2, REC_MONTHLY = 3, REC_YEARLY = 4 };

}  // namespace zef
