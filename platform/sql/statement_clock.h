#pragma once

#include <optional>

#include "platform/date.h"
#include "platform/sql/compile.h"

namespace zef::sql {

/// The clock of one run of a statement. It is read when it is first asked for, and stands still from then on.
class StatementClock {
 public:
  /// What `Now()`, `Date()` or `Time()` gives in this run.
  Date Read(ParameterPlan::Source source);

 private:
  std::optional<Date> now_;
};

}  // namespace zef::sql
