#include "session/bas_global.h"

#include <span>
#include <string_view>

namespace zef {
namespace {

constexpr std::string_view kDays[] = {"Monday", "Tuesday", "Wendsday", "Thursday", "Friday", "Saturday", "Sunday"};
constexpr std::string_view kMonths[] = {"January", "February",  "March",   "April",    "May", "June",    "July",
                                        "August",  "September", "October", "November", "",    "December"};

std::string NameAt(std::span<const std::string_view> names, std::int32_t index) {
  if (index < 0 || index >= static_cast<std::int32_t>(names.size())) return {};
  return std::string(names[static_cast<std::size_t>(index)]);
}

}  // namespace

Value Nz(const Value& value, const Value& default_value) { return IsNull(value) ? default_value : value; }

std::string GetDayName(std::int32_t index) { return NameAt(kDays, index); }

std::string GetMonthName(std::int32_t index) { return NameAt(kMonths, index); }

}  // namespace zef
