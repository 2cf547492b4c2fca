#pragma once

#include <string>

/// The entries of classes in the registry of components, as the system keeps them.
namespace zef::client {

/// Where they stand, for people. Raises a `Failure` if there is no such place.
std::string EntriesPlace();
/// True if there is an entry for the class, whatever it says.
bool IsEntered(const std::string& name);
/// Raises a `Failure` if no entry can hold the path of the library.
void RequireNameable(const std::string& library);
/// Tells why entries cannot be "written" or "removed"; the library says no more than that it has failed.
[[noreturn]] void TellObstacle(const char* what);

}  // namespace zef::client
