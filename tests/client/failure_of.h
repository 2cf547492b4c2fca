#pragma once

#include <string>

#include "client/failure.h"

namespace zef::test {

/// The exit status and the sentence of the failure that an action raises, as in "2: no date"; empty if it raises none.
template <class Action>
std::string FailureOf(Action&& action) {
  try {
    action();
  } catch (const client::Failure& failure) {
    return std::to_string(failure.status()) + ": " + failure.what();
  }
  return {};
}

}  // namespace zef::test
