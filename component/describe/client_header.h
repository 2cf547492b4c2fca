#pragma once

#include <string>

namespace zef::component {

/// The header for clients in C++: every class with its members under their own names.
std::string ClientHeaderText();

}  // namespace zef::component
