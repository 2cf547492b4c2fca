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
  void* const handle = OpenLibrary(library);
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

/// What keeps files in a folder, or in one that is to be made, from being made and removed; 0 if nothing is seen.
int ObstacleIn(fs::path folder) {
  while (access((folder / ".").c_str(), W_OK | X_OK) != 0) {  // with the point, a file in its place is told
    if (errno != ENOENT) return errno;
    folder = folder.parent_path();  // it is to be made there
  }
  struct statvfs disk {};
  return statvfs(folder.c_str(), &disk) == 0 && disk.f_bavail == 0 ? ENOSPC : 0;
}

/// What is seen to stand in the way of an entry; empty if nothing does.
std::string Obstacle(const fs::path& entry) {
  std::error_code unknown;
  const fs::file_status status = fs::symlink_status(entry, unknown);
  if (fs::is_directory(status)) return std::strerror(EISDIR);
  if (const int error = ObstacleIn(entry.parent_path()); error != 0) return std::strerror(error);
  if (!fs::exists(status)) return {};
  if (!fs::is_regular_file(fs::status(entry, unknown))) return "It is no regular file";
  return access(entry.c_str(), R_OK) == 0 ? std::string() : std::strerror(errno);
}

/// The library says no more than that it has failed. `undone` are the classes whose entries are not as they should be.
[[noreturn]] void TellUndone(const char* what, const std::vector<std::string>& undone) {
  for (const std::string& name : undone) {
    const std::string entry = EntryPath(name);
    if (const std::string obstacle = Obstacle(entry); !obstacle.empty()) {
      throw Failure(kRefused, fmt::format("The entry '{}' cannot be {}: {}.", entry, what, obstacle));
    }
  }
  throw Failure(kRefused, fmt::format("Not every entry in '{}' could be {}.", ComponentsFolder(), what));
}

}  // namespace

RegistryChange EnterClasses() {
  const std::string library = LibraryPath();
  RequireNameable(library);
  RegistryChange change{library, RegistryFolder().string(), {}};
  if (FAILED(CallLibrary(library, "DllRegisterServer"))) {
    TellUndone("written", EntriesThat([&](const std::string& name) { return !Names(name, library); }));
  }
  change.classes = EntriesThat([&](const std::string& name) { return Names(name, library); });
  return change;
}

RegistryChange RemoveClasses() {
  const std::string library = LibraryPath();
  RegistryChange change{library, RegistryFolder().string(), {}};
  const std::vector<std::string> before = EntriesThat(IsThere);
  if (FAILED(CallLibrary(library, "DllUnregisterServer"))) TellUndone("removed", EntriesThat(IsThere));
  const std::vector<std::string> after = EntriesThat(IsThere);
  std::set_difference(before.begin(), before.end(), after.begin(), after.end(), std::back_inserter(change.classes));
  return change;
}

}  // namespace zef::client
