#pragma once

#include <string>
#include <string_view>

#include "ZEFComponents/automation.h"
#include "ZEFComponents/entry.h"
#include "ZEFComponents/failure.h"
#include "ZEFComponents/library.h"

/// Finding the library through the registry of components.
namespace zef {
inline namespace automation {

/// Loads the library that a class is registered for. Raises 429 if it is not registered; 53, with the paths of the
/// entry and of the library, if that is gone or cannot be loaded.
inline Library LoadRegistered(std::string_view name) {
  const std::string path = RegisteredLibrary(name);
  try {
    return Library(path);
  } catch (const Failure& failure) {
    throw Failure(failure.number(), "The entry " + EntryPath(name) + " names the library " + path +
                                        ", which cannot be used; register it from where it is now. " + failure.what());
  }
}

/// A new object of a registered class, as in `CreateObject<CSession>()`. The registry is read at the first object of
/// each class. Raises 429 if the class is not registered, 53 if its library is gone or cannot be loaded.
template <class C>
C CreateObject() {
  static const Library library = LoadRegistered(C::kProgrammaticName);
  return library.Create<C>();
}

/// A new object of a registered class by its name, read from the registry at each call. Raises what the other does.
inline IDispatch* CreateNamed(std::string_view name) {
  const GUID identifier = RegisteredIdentifier(name);
  return LoadRegistered(name).Create(identifier);
}

}  // namespace automation
}  // namespace zef
