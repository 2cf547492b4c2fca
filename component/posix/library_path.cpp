#include "component/posix/library_path.h"

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>

namespace zef::component {
namespace {

/// The path in a line of /proc/self/maps if the line tells of the memory at an address; empty if not.
std::string PathOfMapping(const std::string& line, std::uintptr_t address) {
  unsigned long long begin = 0;
  unsigned long long end = 0;
  int path_at = 0;  // behind begin, end, access, offset, device and number of the file
  if (std::sscanf(line.c_str(), "%llx-%llx %*s %*s %*s %*s %n", &begin, &end, &path_at) != 2) return {};
  if (address < begin || address >= end || path_at == 0) return {};
  return line.substr(static_cast<std::size_t>(path_at));
}

/// Empty if there is no such file.
std::string Canonical(const std::string& path) {
  std::error_code gone;
  return std::filesystem::canonical(path, gone).string();
}

/// A path whose line breaks the system has written as "\012", as it writes a path that has this itself.
std::string WithLineBreaks(std::string path) {
  constexpr std::string_view kWritten = "\\012";
  for (std::size_t at = 0; (at = path.find(kWritten, at)) != std::string::npos; ++at) {
    path.replace(at, kWritten.size(), "\n");
  }
  return path;
}

}  // namespace

std::string LibraryPath() {
  // The loader only knows the path that it was given, which may have been relative to a folder of before.
  static const char anchor = 0;
  std::ifstream maps("/proc/self/maps");
  std::string path;
  for (std::string line; path.empty() && std::getline(maps, line);) {
    path = PathOfMapping(line, reinterpret_cast<std::uintptr_t>(&anchor));
  }
  const std::string found = Canonical(path);
  return found.empty() ? Canonical(WithLineBreaks(path)) : found;
}

}  // namespace zef::component
