#include "platform/value.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <string_view>
#include <utility>

#include "platform/date_parts.h"
#include "platform/run_time_error.h"
#include "platform/text.h"

namespace zef {
namespace {

[[noreturn]] void RaiseOverflow() { throw RunTimeError(FailureNumber::Overflow); }
[[noreturn]] void RaiseTypeMismatch() { throw RunTimeError(FailureNumber::TypeMismatch); }

constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// True for what opens a decimal number; keeps the words that stand for infinity out.
bool OpensNumber(std::string_view text) {
  if (text.starts_with('-')) text.remove_prefix(1);
  if (text.starts_with('.')) text.remove_prefix(1);
  return !text.empty() && IsDigit(text.front());
}

/// Of the numbers that no double can hold, those next to zero have a negative exponent or no whole part.
bool IsNextToZero(std::string_view text) {
  if (text.starts_with('-')) text.remove_prefix(1);
  const auto exponent = text.find_first_of("eE");
  if (exponent != std::string_view::npos) return text.substr(exponent + 1).starts_with('-');
  return text.starts_with('.') || text.starts_with("0.");
}

/// A decimal number with an optional sign, decimals and exponent between blanks; nothing if the text is none. Raises 6
/// for one beyond the range of a double.
std::optional<double> ParseNumber(std::string_view text) {
  text = text::Trim(text);
  if (text.starts_with('+')) {
    text.remove_prefix(1);
    if (text.starts_with('-')) return std::nullopt;
  }
  if (!OpensNumber(text)) return std::nullopt;
  double number = 0.0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (end != text.data() + text.size()) return std::nullopt;
  if (error == std::errc()) return number;
  if (IsNextToZero(text)) return 0.0;
  RaiseOverflow();
}

Date DateOfNumber(double number) {
  if (!date_parts::InRange(number)) RaiseOverflow();
  return Date(number);
}

/// Every kind of value as a number.
struct AsNumber {
  double operator()(Null) const { throw RunTimeError(FailureNumber::InvalidUseOfNull); }
  double operator()(std::int32_t number) const { return number; }
  double operator()(std::uint8_t number) const { return number; }
  double operator()(double number) const { return number; }
  double operator()(bool truth) const { return truth ? -1.0 : 0.0; }
  double operator()(Date date) const { return date.value(); }
  double operator()(const std::string& text) const {
    if (const auto number = ParseNumber(text)) return *number;
    RaiseTypeMismatch();
  }
  double operator()(const Bytes&) const { RaiseTypeMismatch(); }
};

/// Every kind of value but text as a text.
struct AsText {
  std::string operator()(Null) const { throw RunTimeError(FailureNumber::InvalidUseOfNull); }
  std::string operator()(std::int32_t number) const { return std::to_string(number); }
  std::string operator()(std::uint8_t number) const { return std::to_string(unsigned{number}); }
  std::string operator()(double number) const { return NumberText(number); }
  std::string operator()(bool truth) const { return truth ? "True" : "False"; }
  std::string operator()(Date date) const { return ToText(date); }
  std::string operator()(const std::string& text) const { return text; }
  std::string operator()(const Bytes&) const { RaiseTypeMismatch(); }
};

/// Half to even, as the default rounding of the processor does.
template <class Integer>
Integer Rounded(double number) {
  const double rounded = std::nearbyint(number);
  if (!(rounded >= std::numeric_limits<Integer>::min() && rounded <= std::numeric_limits<Integer>::max()))
    RaiseOverflow();
  return static_cast<Integer>(rounded);
}

/// Decimal exponent of a number in scientific form.
int ExponentOf(std::string_view scientific) {
  const auto at = scientific.rfind('e');
  std::string_view digits = scientific.substr(at + 1);
  if (digits.starts_with('+')) digits.remove_prefix(1);
  int exponent = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
  return exponent;
}

}  // namespace

std::int32_t ToLong(const Value& value) {
  if (const auto* number = std::get_if<std::int32_t>(&value)) return *number;
  return Rounded<std::int32_t>(ToDouble(value));
}

std::uint8_t ToByte(const Value& value) {
  if (const auto* number = std::get_if<std::uint8_t>(&value)) return *number;
  return Rounded<std::uint8_t>(ToDouble(value));
}

double ToDouble(const Value& value) { return std::visit(AsNumber{}, value); }

bool ToBoolean(const Value& value) {
  if (const auto* truth = std::get_if<bool>(&value)) return *truth;
  if (const auto* text = std::get_if<std::string>(&value)) {
    if (text::EqualNames(*text, "True")) return true;
    if (text::EqualNames(*text, "False")) return false;
  }
  return ToDouble(value) != 0.0;
}

Date ToDate(const Value& value) {
  if (const auto* date = std::get_if<Date>(&value)) return *date;
  if (const auto* text = std::get_if<std::string>(&value)) {
    if (const auto date = ParseDate(*text)) return *date;
  }
  return DateOfNumber(ToDouble(value));
}

std::string ToText(const Value& value) { return std::visit(AsText{}, value); }

std::string ToText(Value&& value) {
  if (auto* text = std::get_if<std::string>(&value)) return std::move(*text);
  return std::visit(AsText{}, value);
}

std::string NumberText(double number) {
  if (number == 0.0) return "0";  // the negative zero reads the same
  std::array<char, 40> buffer;
  char* const last = buffer.data() + buffer.size();
  char* end = std::to_chars(buffer.data(), last, number, std::chars_format::scientific).ptr;
  std::string text(buffer.data(), end);
  if (!std::isfinite(number)) return text;
  const int exponent = ExponentOf(text);
  if (exponent < -4 || exponent >= 15) {
    text[text.rfind('e')] = 'E';
    return text;
  }
  end = std::to_chars(buffer.data(), last, number, std::chars_format::fixed).ptr;
  return {buffer.data(), end};
}

}  // namespace zef
