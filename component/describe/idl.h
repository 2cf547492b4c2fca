#pragma once

#include <string>

namespace zef::component {

/// The type library as interface description text: enumerations, default interfaces and classes, made from the tables
/// that late binding uses.
std::string TypeLibraryText();

}  // namespace zef::component
