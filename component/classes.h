#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "component/description.h"

namespace zef::component {

/// The classes that clients can create, in their public order.
std::span<const Class* const> PublicClasses();
/// Those that clients only reach.
std::span<const Class* const> ReachedClasses();

struct EnumerationMember {
  std::string_view name;
  std::int32_t value;
};
struct Enumeration {
  std::string_view name;
  std::span<const EnumerationMember> members;
};
std::span<const Enumeration> PublicEnumerations();

}  // namespace zef::component
