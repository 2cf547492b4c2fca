#pragma once

#include <filesystem>
#include <iterator>

namespace zef::test {

/// How many files and the like this process has open.
inline std::ptrdiff_t OpenFileCount() {
  return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

/// True if this process has the file open.
inline bool IsOpen(const std::filesystem::path& path) {
  for (const auto& open : std::filesystem::directory_iterator("/proc/self/fd")) {
    std::error_code closed_meanwhile;
    if (std::filesystem::read_symlink(open, closed_meanwhile) == path) return true;
  }
  return false;
}

}  // namespace zef::test
