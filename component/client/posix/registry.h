#pragma once

#include <cstdlib>
#include <string>

/// Where libraries of components are registered, for clients and for the libraries themselves.
namespace zef {
inline namespace automation {

/// The user's folder of components, $XDG_DATA_HOME/components or ~/.local/share/components; empty if neither is named
/// by a whole path, since a folder that depends on where a program runs is nobody's registry.
inline std::string ComponentsFolder() {
  const auto whole = [](const char* path) { return path != nullptr && path[0] == '/'; };
  if (const char* const data = std::getenv("XDG_DATA_HOME"); whole(data)) return std::string(data) + "/components";
  if (const char* const home = std::getenv("HOME"); whole(home)) return std::string(home) + "/.local/share/components";
  return {};
}

}  // namespace automation
}  // namespace zef
