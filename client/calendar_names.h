#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace zef::client {

inline constexpr std::array<std::string_view, 7> kWeekdays{"Monday", "Tuesday",  "Wednesday", "Thursday",
                                                           "Friday", "Saturday", "Sunday"};
inline constexpr std::array<std::string_view, 12> kMonths{"January",   "February", "March",    "April",
                                                          "May",       "June",     "July",     "August",
                                                          "September", "October",  "November", "December"};
inline constexpr std::array<std::string_view, 5> kWeeks{"first", "second", "third", "fourth", "last"};

/// The name at an index; "?" where there is none.
inline std::string_view NameAt(std::span<const std::string_view> names, std::int32_t index) {
  if (index < 0 || static_cast<std::size_t>(index) >= names.size()) return "?";
  return names[static_cast<std::size_t>(index)];
}

}  // namespace zef::client
