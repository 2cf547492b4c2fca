#pragma once

#include <string>

namespace zef::component {

/// Where this library was loaded from.
std::string LibraryPath();

}  // namespace zef::component
