#pragma once

#include <cstddef>
#include <string>
#include <utility>

#include "platform/run_time_error.h"

namespace zef::sql {

/// Raises a failure whose sentence ends with a place of the statement (a character, from 1). `what` may hold names,
/// never values.
[[noreturn]] inline void RaiseAt(FailureNumber number, std::string what, std::size_t place) {
  what += " (character " + std::to_string(place) + ").";
  throw RunTimeError(number, std::move(what));
}

}  // namespace zef::sql
