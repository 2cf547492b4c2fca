#pragma once

#include <string>

namespace zef::component {

/// The absolute path of the file that this library was loaded from, without links; empty if that cannot be found out or
/// if the file is gone.
std::string LibraryPath();

}  // namespace zef::component
