#pragma once

#include <string>

#include "platform/sql/schema.h"

namespace zef::sql {

/// How tightly a written expression holds together, from the loosest.
enum class Binding { Or, And, Not, Comparison, Sum, Product, Whole };

/// An expression in the engine's language, and what is known of its value.
struct Operand {
  std::string text;
  Type type = Type::Unknown;
  int length = 0;  ///< most characters of a text, 0 for no limit
  Binding binding = Binding::Whole;
  const ColumnInfo* column = nullptr;  ///< what it is a plain reference of
  bool condition = false;              ///< the engine's own true and false, not yet a Boolean value
  bool plain_ascii = false;            ///< a parameter that is a text of printable ASCII characters
  bool null = false;                   ///< the word NULL
};

/// The text, in brackets if it holds together less tightly than `needed`.
inline std::string Bracketed(const Operand& operand, Binding needed) {
  return operand.binding >= needed ? operand.text : "(" + operand.text + ")";
}

/// The type of a value that is sometimes one and sometimes the other; `Unknown` if each row has its own.
Type CommonType(Type a, Type b);

/// True if values of the two types can be compared.
constexpr bool Comparable(Type a, Type b) {
  if (a == Type::Unknown || b == Type::Unknown || a == b) return true;
  const auto counts = [](Type type) { return IsNumber(type) || type == Type::Date; };
  return (IsText(a) && IsText(b)) || (counts(a) && counts(b));
}

}  // namespace zef::sql
