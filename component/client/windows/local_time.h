#pragma once

#include <ctime>

namespace zef {
inline namespace automation {

/// A moment in the time zone of the system.
inline std::tm LocalTime(std::time_t moment) {
  std::tm local{};
  localtime_s(&local, &moment);
  return local;
}

}  // namespace automation
}  // namespace zef
