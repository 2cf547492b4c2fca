#pragma once

namespace zef {

/// Runs `action` and drops its failure, where there is nobody to tell and nothing more to undo.
template <class Action>
void IgnoringFailures(Action&& action) noexcept {
  try {
    action();
  } catch (...) {  // nothing to undo and nobody to tell
  }
}

}  // namespace zef
