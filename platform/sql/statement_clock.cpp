#include "platform/sql/statement_clock.h"

#include "platform/date_parts.h"

namespace zef::sql {

Date StatementClock::Read(ParameterPlan::Source source) {
  if (!now_) now_ = Now();
  if (source == ParameterPlan::Source::Date) return now_->WithoutTime();
  return source == ParameterPlan::Source::Time ? date_parts::Join({0, now_->SecondsOfDay()}) : *now_;
}

}  // namespace zef::sql
