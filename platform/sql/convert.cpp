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

[[noreturn]] void RaiseDoesNotConvert() {
  throw RunTimeError(FailureNumber::TypesDoNotConvert, "A value does not convert to the type that is needed here.");
}

[[noreturn]] void RaiseDoesNotFit(const char* what) {
  throw RunTimeError(FailureNumber::ValueDoesNotFit, std::string(what) + " does not fit its column.");
}

template <class Convert>
Value InTermsOfProvider(Convert convert) {
  try {
    return convert();
  } catch (const RunTimeError& failure) {
    if (failure.code() == FailureNumber::Overflow) RaiseDoesNotFit("A number");
    RaiseDoesNotConvert();
  }
}

std::int32_t ToShort(const Value& in) {
  const std::int32_t number = ToLong(in);
  const bool fits = std::in_range<std::int16_t>(number);
  if (!fits) throw RunTimeError(FailureNumber::Overflow);
  return number;
}

Value NumberAs(const Value& in, Type type) {
  switch (type) {
    case Type::Boolean: return ToBoolean(in);
    case Type::Byte: return ToByte(in);
    case Type::Short: return ToShort(in);
    case Type::Long: return ToLong(in);
    case Type::Double: return ToDouble(in);
    case Type::Date: return ToDate(in);
    default: RaiseDoesNotConvert();
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

const Value& AsText(const Value& in, int length, Value& scratch) {
  const auto* text = std::get_if<std::string>(&in);
  const Value& result = text != nullptr ? in : scratch = InTermsOfProvider([&] { return ToText(in); });
  if (!FitsLength(std::get<std::string>(result), length)) RaiseDoesNotFit("A text is too long and");
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
    throw RunTimeError(FailureNumber::ConstraintViolated, "A column that needs a value was given Null.");
  }
  if (IsAlready(in, plan.type)) return in;
  if (IsText(plan.type)) return AsText(in, plan.length, scratch);
  scratch = InTermsOfProvider([&] { return NumberAs(in, plan.type); });
  return scratch;
}

}  // namespace zef::sql
