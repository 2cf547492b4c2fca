#pragma once

#include <string>
#include <vector>

/// The library as a file, and the user's registry of components.
namespace zef::client {

/// What a change of the registry did.
struct RegistryChange {
  std::string library;               ///< its path, absolute
  std::string folder;                ///< of the entries
  std::vector<std::string> classes;  ///< whose entries were written or removed, in the order of their names
};

/// The library's path: the one given, or where a program finds it, beside itself or in the folder of libraries next to
/// its own. Raises a `Failure` if there is none.
std::string LibraryFile(const std::string& given);

/// Let the library enter its classes, or remove its entries. Raise a `Failure` if the file is no library of
/// components, or if the folder cannot be written.
RegistryChange EnterClasses(const std::string& library);
RegistryChange RemoveClasses(const std::string& library);

}  // namespace zef::client
