#include "client/entries.h"

#include <ZEFComponents.hpp>
#include <filesystem>

#include "client/failure.h"

namespace zef::client {

namespace fs = std::filesystem;

std::string EntriesPlace() {
  std::string folder = ComponentsFolder();
  if (folder.empty()) throw Failure(kRefused, "HOME names no folder for the entries.");
  return folder;
}

bool IsEntered(const std::string& name) {
  std::error_code unknown;
  return fs::exists(fs::symlink_status(EntryPath(name), unknown));
}

}  // namespace zef::client
