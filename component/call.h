#pragma once

#include <array>
#include <cstddef>
#include <exception>

#include "component/description.h"

namespace zef::component {

/// One call of a member, its arguments in the member's order. Texts of results belong to whoever receives them.
struct Call {
  Object object;
  /// Null for one that was left out.
  std::array<const VARIANT*, Member::kMostArguments> arguments{};
  VARIANT* result = nullptr;  ///< null if nobody wants it
};

/// An argument that cannot be what its member asks for.
struct ArgumentFailure : std::exception {
  ArgumentFailure(HRESULT why, std::size_t where) : result(why), place(where) {}
  HRESULT result;
  std::size_t place;  ///< in the member's order
};

}  // namespace zef::component
