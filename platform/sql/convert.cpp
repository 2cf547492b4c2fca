#include "platform/sql/convert.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "platform/run_time_error.h"
#include "platform/text.h"

namespace zef::sql {
namespace {

std::string ColumnOf(const ParameterPlan& plan) { return "the column '" + plan.column + "'"; }

[[noreturn]] void RaiseDoesNotConvert(const ParameterPlan& plan) {
  const std::string where = plan.column.empty() ? "that is needed here" : "of " + ColumnOf(plan);
  throw RunTimeError(FailureNumber::TypesDoNotConvert, "A value does not convert to the type " + where + ".");
}

[[noreturn]] void RaiseTooLong(const ParameterPlan& plan) {
  const std::string where = plan.column.empty() ? "its column" : ColumnOf(plan);
  const std::string limit = std::to_string(plan.length) + (plan.length == 1 ? " character." : " characters.");
  throw RunTimeError(FailureNumber::ValueDoesNotFit, "A text is too long for " + where + ", which takes " + limit);
}

[[noreturn]] void RaiseOutOfRange(const ParameterPlan& plan) {
  const std::string what = plan.type == Type::Date ? "A date lies outside of what " : "A number lies outside of what ";
  const std::string where = plan.column.empty() ? "its column" : ColumnOf(plan);
  throw RunTimeError(FailureNumber::ValueDoesNotFit, what + where + " can hold.");
}

[[noreturn]] void RaiseNeedsValue(const ParameterPlan& plan) {
  const std::string what = plan.column.empty() ? "A column" : "The column '" + plan.column + "'";
  throw RunTimeError(FailureNumber::ConstraintViolated, what + " needs a value.");
}

/// Literals have been looked at with their statement.
void RequireUtf8(const Value& in, const ParameterPlan& plan) {
  const bool stored = plan.source == ParameterPlan::Source::Placeholder && !plan.column.empty();
  const auto* text = stored ? std::get_if<std::string>(&in) : nullptr;
  if (text == nullptr || text::IsValidUtf8(*text)) return;
  throw RunTimeError(FailureNumber::StatementError, "The text for " + ColumnOf(plan) + " is not UTF-8 text.");
}

template <class Convert>
Value InTermsOfProvider(const ParameterPlan& plan, Convert convert) {
  try {
    return convert();
  } catch (const RunTimeError& failure) {
    if (failure.code() == FailureNumber::Overflow) RaiseOutOfRange(plan);
    RaiseDoesNotConvert(plan);
  }
}

std::int32_t ToShort(const Value& in) {
  const std::int32_t number = ToLong(in);
  const bool fits = std::in_range<std::int16_t>(number);
  if (!fits) throw RunTimeError(FailureNumber::Overflow);
  return number;
}

Value NumberAs(const Value& in, const ParameterPlan& plan) {
  switch (plan.type) {
    case Type::Boolean: return ToBoolean(in);
    case Type::Byte: return ToByte(in);
    case Type::Short: return ToShort(in);
    case Type::Long: return ToLong(in);
    case Type::Double: return ToDouble(in);
    case Type::Date: return ToDate(in);
    default: RaiseDoesNotConvert(plan);
  }
}

bool IsAlready(const Value& in, Type type) {
  switch (type) {
    case Type::Unknown: return true;
    case Type::Boolean: return std::holds_alternative<bool>(in);
    case Type::Byte: return std::holds_alternative<std::uint8_t>(in);
    case Type::Long: return std::holds_alternative<std::int32_t>(in);
    case Type::Double: return std::holds_alternative<double>(in);
    case Type::Date: return std::holds_alternative<Date>(in);
    case Type::Binary: return std::holds_alternative<Bytes>(in);
    default: return false;
  }
}

const Value& AsText(const Value& in, const ParameterPlan& plan, Value& scratch) {
  const auto* text = std::get_if<std::string>(&in);
  const Value& result = text != nullptr ? in : scratch = InTermsOfProvider(plan, [&] { return ToText(in); });
  if (!FitsLength(std::get<std::string>(result), plan.length)) RaiseTooLong(plan);
  return result;
}

}  // namespace

bool FitsLength(std::string_view text, int length) {
  if (length <= 0 || text.size() <= static_cast<std::size_t>(length)) return true;
  return text::Length(text) <= length;
}

const Value& Converted(const Value& in, const ParameterPlan& plan, Value& scratch) {
  if (IsNull(in)) {
    if (!plan.required) return in;
    RaiseNeedsValue(plan);
  }
  RequireUtf8(in, plan);
  if (IsAlready(in, plan.type)) return in;
  if (IsText(plan.type)) return AsText(in, plan, scratch);
  scratch = InTermsOfProvider(plan, [&] { return NumberAs(in, plan); });
  return scratch;
}

}  // namespace zef::sql
