#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "platform/run_time_error.h"

namespace zef::sql {

/// Raises -2147217900 with a sentence that names a place of the statement (a character, from 1). `what` is a clause of
/// this library's own words: it never repeats text of the statement, which may be a value whose quotes went wrong.
[[noreturn]] inline void RaiseSyntaxError(std::size_t place, std::string_view what) {
  std::string sentence = "Syntax error at character " + std::to_string(place) + ": ";
  sentence.append(what).append(".");
  throw RunTimeError(FailureNumber::StatementError, std::move(sentence));
}

}  // namespace zef::sql
