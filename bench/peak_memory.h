#pragma once

#include <functional>

namespace zef::bench {

/// Memory of the process in bytes, as the system counts it.
struct Memory {
  double peak = 0;  ///< what some work takes at its most, in the midst of a statement too
  double kept = 0;  ///< what it still takes at its end
};

Memory MemoryOf(const std::function<void()>& work);

}  // namespace zef::bench
