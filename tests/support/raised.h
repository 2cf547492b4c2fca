#pragma once

#include <cstdint>
#include <optional>

#include "platform/run_time_error.h"

namespace zef::test {

/// The failure that an action raises, or nothing.
template <class Action>
std::optional<RunTimeError> Raised(Action&& action) {
  try {
    action();
  } catch (const RunTimeError& failure) {
    return failure;
  }
  return std::nullopt;
}

/// Its number; 0 if nothing is raised.
template <class Action>
std::int32_t NumberRaised(Action&& action) {
  const std::optional<RunTimeError> failure = Raised(action);
  return failure ? failure->number() : 0;
}

}  // namespace zef::test
