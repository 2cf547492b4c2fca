#pragma once

#include <ctime>

namespace zef {

/// A moment in the time zone of the system. Safe on any thread.
std::tm LocalTime(std::time_t moment);

}  // namespace zef
