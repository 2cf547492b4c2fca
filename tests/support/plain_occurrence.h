#pragma once

#include "calendar/next_occurrence.h"

namespace zef::test {

/// What `NextOccurrence` must give, by the walks said once more in nothing but dates, a step after the other.
Date PlainNextOccurrence(const Rule& rule, Date reference);

}  // namespace zef::test
