#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "platform/date.h"

namespace zef {

/// The absence of a value in a database column.
struct Null {
  friend constexpr bool operator==(Null, Null) = default;
};

using Bytes = std::vector<std::byte>;

/// A database value. Texts are UTF-8.
using Value = std::variant<Null, std::int32_t, std::uint8_t, double, bool, Date, std::string, Bytes>;

inline bool IsNull(const Value& value) { return std::holds_alternative<Null>(value); }

/// Conversions between the kinds of value. Each raises 94 for Null, 13 where the kinds do not convert, and 6 where the
/// result does not fit. Numbers round half to even; a Boolean is -1 or 0; texts are read as numbers or dates.
std::int32_t ToLong(const Value& value);
std::uint8_t ToByte(const Value& value);
double ToDouble(const Value& value);
bool ToBoolean(const Value& value);
Date ToDate(const Value& value);
/// Numbers in their shortest decimal form, Booleans as "True" and "False", dates in the default text form.
std::string ToText(const Value& value);
std::string ToText(Value&& value);

/// The shortest decimal text that reads back as the same double, "1E+20" style beyond 15 digits.
std::string NumberText(double number);

}  // namespace zef
