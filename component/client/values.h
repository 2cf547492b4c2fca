#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

/// The types of properties, arguments and results beside integers, Booleans, texts in UTF-8, enumerations and classes.
namespace zef {
inline namespace automation {

/// A date as the number of days since 30 December 1899, the time of day as its fraction; 0 is no date. The time of a
/// day before that one counts forward from its midnight: -1.25 is 29 December 1899, 06:00.
struct Date {
  double value = 0;
  friend bool operator==(Date, Date) = default;
  friend auto operator<=>(Date, Date) = default;
};

struct Null {
  friend bool operator==(Null, Null) = default;
};
using Bytes = std::vector<std::byte>;
/// A value of a database column.
using Value = std::variant<Null, std::int32_t, std::uint8_t, double, bool, Date, std::string, Bytes>;
/// A table of texts, row by row.
using Rows = std::vector<std::vector<std::string>>;

}  // namespace automation
}  // namespace zef
