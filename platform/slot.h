#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "platform/value.h"

namespace zef {

/// What Null reads as in a variable; dates read as value 0 and flags as false.
struct NullRule {
  std::int32_t number = 0;
  std::string_view text = {};
  bool refused = false;  ///< Null is a failure
};

/// A variable that a column is read into.
struct Slot {
  using Target = std::variant<std::monostate, std::int32_t*, std::string*, Date*, bool*>;
  Target target;  ///< none: the column is not read this way
  const NullRule* null = nullptr;
};

/// Puts a value into a slot's variable. A flag is true for the byte 1 alone. Raises what the conversions of the value
/// do, and 94 for a Null that is refused; then the variable stays as it was.
void Store(Value&& value, const Slot& slot);
/// The same for Null; false, and the variable stays as it was, if Null is refused or there is no variable.
bool StoreNull(const Slot& slot);

}  // namespace zef
