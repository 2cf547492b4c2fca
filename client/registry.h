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

/// Let the program's library, see `LibraryFile`, enter its classes or remove its entries. Raise a `Failure` if the file
/// is no library of components, if the path to be entered has a line break, or if an entry cannot be written or
/// removed, which is told with the reason.
RegistryChange EnterClasses();
RegistryChange RemoveClasses();

}  // namespace zef::client
