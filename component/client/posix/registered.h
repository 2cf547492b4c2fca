#pragma once

#include <cinttypes>
#include <cstdio>
#include <fstream>
#include <string>
#include <string_view>

#include "ZEFComponents/automation.h"
#include "ZEFComponents/failure.h"
#include "ZEFComponents/library.h"
#include "ZEFComponents/registry.h"

/// Finding the library through the registry of components.
namespace zef {
inline namespace automation {

/// Where a class is registered; empty without a folder of components.
inline std::string EntryPath(std::string_view name) {
  const std::string folder = ComponentsFolder();
  return folder.empty() ? folder : folder + "/" + std::string(name);
}

/// What stands behind a key in the entry of a class; empty if nothing does.
inline std::string EntryValue(std::string_view name, std::string_view key) {
  std::ifstream entry(EntryPath(name));
  for (std::string line; std::getline(entry, line);) {
    if (line.starts_with(key)) return line.substr(key.size());
  }
  return {};
}

[[noreturn]] inline void RaiseNotRegistered(std::string_view name) {
  throw Failure(kCannotCreateObject,
                std::string(name) + " is not registered; register its library first, as in \"zef register\".");
}

/// The path of the library that a class is registered for. Raises 429 if it is not registered.
inline std::string RegisteredLibrary(std::string_view name) {
  std::string path = EntryValue(name, "InprocServer32=");
  if (!path.starts_with('/')) RaiseNotRegistered(name);
  return path;
}

/// The identifier of a registered class. Raises 429 if it is not registered.
inline GUID RegisteredIdentifier(std::string_view name) {
  const std::string text = EntryValue(name, "CLSID=");
  GUID identifier{};
  auto& tail = identifier.Data4;
  const int read = std::sscanf(text.c_str(),
                               "{%8" SCNx32 "-%4" SCNx16 "-%4" SCNx16 "-%2" SCNx8 "%2" SCNx8 "-%2" SCNx8 "%2" SCNx8
                               "%2" SCNx8 "%2" SCNx8 "%2" SCNx8 "%2" SCNx8 "}",
                               &identifier.Data1, &identifier.Data2, &identifier.Data3, &tail[0], &tail[1], &tail[2],
                               &tail[3], &tail[4], &tail[5], &tail[6], &tail[7]);
  if (read != 11) RaiseNotRegistered(name);
  return identifier;
}

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
