#include "platform/sqlite/function_call.h"

#include <cmath>
#include <utility>
#include <variant>

#include "platform/run_time_error.h"

namespace zef {
namespace {

std::string_view TextOf(sqlite3_value* value) {
  const auto* data = reinterpret_cast<const char*>(sqlite3_value_text(value));
  return {data == nullptr ? "" : data, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

Value NumberOf(std::int64_t number) {
  if (std::in_range<std::int32_t>(number)) return static_cast<std::int32_t>(number);
  return static_cast<double>(number);
}

Bytes BytesOf(sqlite3_value* value) {
  const auto* data = static_cast<const std::byte*>(sqlite3_value_blob(value));
  return data == nullptr ? Bytes() : Bytes(data, data + sqlite3_value_bytes(value));
}

struct Returner {
  FunctionCall& call;
  sqlite3_context* context;

  void operator()(Null) const { sqlite3_result_null(context); }
  void operator()(std::int32_t number) const { call.ReturnWhole(number); }
  void operator()(std::uint8_t number) const { call.ReturnWhole(number); }
  void operator()(double number) const { call.ReturnNumber(number); }
  void operator()(bool truth) const { call.ReturnBoolean(truth); }
  void operator()(Date date) const { call.ReturnDate(date); }
  void operator()(const std::string& text) const { call.ReturnText(text); }
  void operator()(const Bytes& bytes) const {
    // A null pointer would make Null of bytes of length 0.
    const void* const data = bytes.empty() ? static_cast<const void*>("") : bytes.data();
    sqlite3_result_blob64(context, data, bytes.size(), SQLITE_TRANSIENT);
  }
};

}  // namespace

Value FunctionCall::Value(std::size_t i) const {
  switch (KindOf(i)) {
    case SQLITE_NULL: return Null{};
    case SQLITE_INTEGER: return NumberOf(sqlite3_value_int64(arguments_[i]));
    case SQLITE_FLOAT: return sqlite3_value_double(arguments_[i]);
    case SQLITE_TEXT: return std::string(TextOf(arguments_[i]));
    default: return BytesOf(arguments_[i]);
  }
}

std::string_view FunctionCall::Text(std::size_t i, std::string& kept) const {
  if (IsText(i)) return TextOf(arguments_[i]);
  kept = ToText(Value(i));
  return kept;
}

std::int64_t FunctionCall::Bytes(std::size_t i) const { return sqlite3_value_bytes(arguments_[i]); }

double FunctionCall::Number(std::size_t i) const {
  const bool number = IsWhole(i) || KindOf(i) == SQLITE_FLOAT;
  return number ? sqlite3_value_double(arguments_[i]) : ToDouble(Value(i));
}

std::int64_t FunctionCall::Whole(std::size_t i) const {
  if (IsWhole(i)) return sqlite3_value_int64(arguments_[i]);
  constexpr double kLimit = 9223372036854775808.0;
  const double rounded = std::nearbyint(Number(i));
  const bool fits = rounded >= -kLimit && rounded < kLimit;
  if (!fits) throw RunTimeError(FailureNumber::Overflow);
  return static_cast<std::int64_t>(rounded);
}

Date FunctionCall::Moment(std::size_t i) const { return ToDate(Value(i)).RoundedToSeconds(); }

void FunctionCall::ReturnNumber(double number) {
  if (!std::isfinite(number)) throw RunTimeError(FailureNumber::Overflow);
  sqlite3_result_double(context_, number);
}

void FunctionCall::ReturnText(std::string_view text) {
  const char* const data = text.data() == nullptr ? "" : text.data();
  sqlite3_result_text64(context_, data, text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

void FunctionCall::ReturnValue(const zef::Value& value) { std::visit(Returner{*this, context_}, value); }

}  // namespace zef
