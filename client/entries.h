#pragma once

#include <string>

/// The entries of classes in the registry of components, as the system keeps them.
namespace zef::client {

/// Where they stand, for people. Raises a `Failure` if there is no such place.
std::string EntriesPlace();
/// True if there is an entry for the class, whatever it says.
bool IsEntered(const std::string& name);

}  // namespace zef::client
