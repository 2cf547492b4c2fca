#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "platform/sql/schema.h"

namespace zef::sql {

/// A function of the dialect that is written as a call of one of the engine's.
struct FunctionRow {
  /// Unknown stands for the type of the first argument, as a number.
  static constexpr Type kAsNumber = Type::Unknown;

  std::string_view name;
  std::size_t least;
  std::size_t most;
  Type result;
  std::array<Type, 3> arguments;  ///< what literals are read as; Unknown leaves them as they are
  std::string_view helper;
};

struct AggregateRow {
  std::string_view name;
  Type result;  ///< Unknown: that of the argument
  bool needs_number;
};

/// The function of that name, letter case ignored, that takes `count` arguments. Null if there is none of the name.
/// Raises -2147217900 for another number of arguments.
const FunctionRow* FindFunction(std::string_view name, std::size_t count, std::size_t place);
/// The aggregate of that name, letter case ignored, or null.
const AggregateRow* FindAggregate(std::string_view name);
[[noreturn]] void RaiseArgumentCount(std::string_view name, std::size_t count, std::size_t place);

}  // namespace zef::sql
