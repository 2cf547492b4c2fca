#include "client/registry.h"

#include <dlfcn.h>
#include <fmt/format.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <ZEFComponents.hpp>
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <iterator>

#include "client/failure.h"
#include "client/library.h"

namespace zef::client {
namespace {

namespace fs = std::filesystem;

/// Calls one of the library's functions.
HRESULT CallLibrary(const std::string& library, const char* function) {
  void* const handle = dlopen(library.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (handle == nullptr) {
    throw Failure(kRefused, fmt::format("The library cannot be loaded: {}", dlerror()));
  }
  auto* const call = reinterpret_cast<LibraryFunction*>(dlsym(handle, function));
  const bool known = call != nullptr && dlsym(handle, "DllGetClassObject") != nullptr;
  const HRESULT result = known ? call() : S_OK;
  dlclose(handle);
  if (!known) throw Failure(kRefused, fmt::format("'{}' is no library of components.", library));
  return result;
}

fs::path RegistryFolder() {
  const fs::path folder = ComponentsFolder();
  if (folder.empty()) throw Failure(kRefused, "HOME names no folder for the entries.");
  return folder;
}

/// Without links.
std::string LibraryPath() { return fs::canonical(LibraryFile()); }

/// Entries are made of lines.
void RequireNameable(const std::string& library) {
  if (library.find_first_of("\r\n") == std::string::npos) return;
  throw Failure(kRefused,
                fmt::format("No entry can hold the path of the library, since it has a line break: '{}'.", library));
}

bool Names(const std::string& entry, const std::string& library) {
  try {
    return RegisteredLibrary(entry) == library;
  } catch (const zef::Failure&) {
    return false;
  }
}

/// The entries that are to be told, by name and in order.
template <class Keep>
std::vector<std::string> EntriesThat(Keep&& keep) {
  std::vector<std::string> names;
  std::copy_if(std::begin(kCreatableClasses), std::end(kCreatableClasses), std::back_inserter(names), keep);
  std::sort(names.begin(), names.end());
  return names;
}

bool IsThere(const std::string& entry) {
  std::error_code unknown;
  return fs::exists(fs::symlink_status(EntryPath(entry), unknown));
}

/// Why the system does not let an entry be changed; 0 if it seems to.
int Obstacle(const fs::path& entry) {
  std::error_code unknown;
  if (fs::is_directory(fs::symlink_status(entry, unknown))) return EISDIR;
  if (access(entry.c_str(), R_OK) != 0 && errno != ENOENT) return errno;
  fs::path folder = entry.parent_path();
  while (access(folder.c_str(), W_OK | X_OK) != 0) {
    if (errno != ENOENT) return errno;
    folder = folder.parent_path();  // it is to be made there
  }
  struct statvfs disk {};
  return statvfs(folder.c_str(), &disk) == 0 && disk.f_bavail == 0 ? ENOSPC : 0;
}

/// The library says no more than that it has failed.
[[noreturn]] void TellObstacle(const char* what) {
  for (const char* name : kCreatableClasses) {
    const std::string entry = EntryPath(name);
    if (const int error = Obstacle(entry); error != 0) {
      throw Failure(kRefused, fmt::format("The entry '{}' cannot be {}: {}.", entry, what, std::strerror(error)));
    }
  }
  throw Failure(kRefused, fmt::format("Not every entry in '{}' could be {}.", ComponentsFolder(), what));
}

}  // namespace

RegistryChange EnterClasses() {
  const std::string library = LibraryPath();
  RequireNameable(library);
  RegistryChange change{library, RegistryFolder().string(), {}};
  if (FAILED(CallLibrary(library, "DllRegisterServer"))) TellObstacle("written");
  change.classes = EntriesThat([&](const std::string& name) { return Names(name, library); });
  return change;
}

RegistryChange RemoveClasses() {
  const std::string library = LibraryPath();
  RegistryChange change{library, RegistryFolder().string(), {}};
  const std::vector<std::string> before = EntriesThat(IsThere);
  if (FAILED(CallLibrary(library, "DllUnregisterServer"))) TellObstacle("removed");
  const std::vector<std::string> after = EntriesThat(IsThere);
  std::set_difference(before.begin(), before.end(), after.begin(), after.end(), std::back_inserter(change.classes));
  return change;
}

}  // namespace zef::client
