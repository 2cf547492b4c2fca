#pragma once

#include <stdexcept>
#include <string_view>
#include <type_traits>

/// The rows of a description name the members that they lead to.
namespace zef::component {

/// The name of a member in C++, out of how the compiler spells this function.
template <auto Member>
constexpr std::string_view SpelledName() {
  constexpr std::string_view kValue = "Member = ";
  std::string_view spelled = __PRETTY_FUNCTION__;
  spelled.remove_prefix(spelled.find(kValue) + kValue.size());
  spelled = spelled.substr(0, spelled.find_first_of(";]"));
  return spelled.substr(spelled.rfind(':') + 1);
}

/// Does not compile for a row that names another member than it leads to. A free function may have any name.
template <auto Member>
constexpr void RequireOwnName(std::string_view name, std::string_view before = {}) {
  if constexpr (std::is_member_pointer_v<decltype(Member)>) {
    const std::string_view spelled = SpelledName<Member>();
    const bool own = spelled.starts_with(before) && spelled.substr(before.size()) == name;
    if (!own) throw std::logic_error("the row names another member");
  }
}

}  // namespace zef::component
