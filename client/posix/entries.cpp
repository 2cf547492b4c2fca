#include "client/entries.h"

#include <fmt/format.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <ZEFComponents.hpp>
#include <cerrno>
#include <cstring>
#include <filesystem>

#include "client/failure.h"

namespace zef::client {
namespace {

namespace fs = std::filesystem;

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

}  // namespace

std::string EntriesPlace() {
  std::string folder = ComponentsFolder();
  if (folder.empty()) throw Failure(kRefused, "HOME names no folder for the entries.");
  return folder;
}

bool IsEntered(const std::string& name) {
  std::error_code unknown;
  return fs::exists(fs::symlink_status(EntryPath(name), unknown));
}

/// Entries are made of lines.
void RequireNameable(const std::string& library) {
  if (library.find_first_of("\r\n") == std::string::npos) return;
  throw Failure(kRefused,
                fmt::format("No entry can hold the path of the library, since it has a line break: '{}'.", library));
}

void TellObstacle(const char* what) {
  for (const char* name : kCreatableClasses) {
    const std::string entry = EntryPath(name);
    if (const int error = Obstacle(entry); error != 0) {
      throw Failure(kRefused, fmt::format("The entry '{}' cannot be {}: {}.", entry, what, std::strerror(error)));
    }
  }
  throw Failure(kRefused, fmt::format("Not every entry in '{}' could be {}.", ComponentsFolder(), what));
}

}  // namespace zef::client
