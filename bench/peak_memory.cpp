#include "bench/peak_memory.h"

#include <malloc.h>

#include <fstream>
#include <stdexcept>
#include <string>

namespace zef::bench {
namespace {

double StatusBytes(const std::string& name) {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with(name + ":")) return 1024 * std::stod(line.substr(name.size() + 1));
  }
  throw std::runtime_error("the system does not tell " + name);
}

}  // namespace

Memory MemoryOf(const std::function<void()>& work) {
  malloc_trim(0);
  std::ofstream("/proc/self/clear_refs") << "5";  // sets the peak to what is in use now
  const double before = StatusBytes("VmRSS");
  work();
  const double peak = StatusBytes("VmHWM");
  malloc_trim(0);
  return {peak - before, StatusBytes("VmRSS") - before};
}

}  // namespace zef::bench
