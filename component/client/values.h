#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "ZEFComponents/date.h"

/// The types of properties, arguments and results beside integers, Booleans, texts in UTF-8, dates, enumerations and
/// classes.
namespace zef {
inline namespace automation {

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
