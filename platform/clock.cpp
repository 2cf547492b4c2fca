#include <chrono>
#include <ctime>
#include <utility>

#include "platform/date.h"
#include "platform/local_time.h"

namespace zef {
namespace {

// A plain pointer: a variable with a destructor would keep the library mapped until the thread ends.
thread_local constinit const ClockOverride* current_override = nullptr;

/// A leap second counts as the second before it, so that the day stays the same.
Date ToDate(const std::tm& local) {
  const std::chrono::year year(local.tm_year + 1900);
  const std::chrono::month month(static_cast<unsigned>(local.tm_mon + 1));
  const std::chrono::day day(static_cast<unsigned>(local.tm_mday));
  const int second = local.tm_sec < 60 ? local.tm_sec : 59;
  return {year / month / day, (local.tm_hour * 60 + local.tm_min) * 60 + second};
}

}  // namespace

Date Now() {
  if (current_override != nullptr) return current_override->now_();
  // Working out the local time costs more than a record; records ask many times in one second.
  thread_local std::time_t last_second = -1;
  thread_local Date last;
  const std::time_t second = std::time(nullptr);
  if (second == last_second) return last;
  last = ToDate(LocalTime(second));
  last_second = second;
  return last;
}

ClockOverride::ClockOverride(std::function<Date()> now)
    : now_(std::move(now)), previous_(std::exchange(current_override, this)) {}

ClockOverride::ClockOverride(Date fixed) : ClockOverride([fixed] { return fixed; }) {}

ClockOverride::~ClockOverride() { current_override = previous_; }

}  // namespace zef
