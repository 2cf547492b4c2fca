#include "client/library.h"

#include <fmt/format.h>

#include <filesystem>
#include <utility>

#include "ZEFComponents.hpp"
#include "client/failure.h"
#include "client/program.h"

namespace zef::client {
namespace {

namespace fs = std::filesystem;

std::string& NamedFile() {
  static std::string file;
  return file;
}

/// A path of the working folder even for a bare name, which the system would look for elsewhere.
std::string Existing(const std::string& named) {
  std::error_code missing;
  const fs::path path = fs::canonical(named, missing);
  if (!missing) return path.string();
  throw Failure(kRefused, fmt::format("There is no library '{}'.", fs::absolute(named).lexically_normal().string()));
}

/// The registered library; empty if there is no entry.
std::string Registered() {
  const std::string entry = EntryPath(CSession::kProgrammaticName);
  std::error_code missing;
  if (!fs::exists(entry, missing) && !missing) return {};
  const std::string library = RegisteredLibrary(CSession::kProgrammaticName);
  std::error_code unknown;
  if (fs::exists(library, unknown)) return library;
  throw Failure(kRefused, fmt::format("The entry '{}' names the library '{}', which is not there. Register it from "
                                      "where it is now, with 'zef register --library FILE'.",
                                      entry, library));
}

}  // namespace

void UseLibrary(std::string file) { NamedFile() = std::move(file); }

std::string LibraryFile() {
  if (!NamedFile().empty()) return Existing(NamedFile());
  std::error_code unknown;
  const fs::path folder = ProgramFile().parent_path();
  const fs::path library_folder = (folder / ZEF_LIBRARY_FOLDER).lexically_normal();
  for (const fs::path& place : {folder, library_folder}) {
    if (fs::exists(place / kLibraryFileName, unknown)) return (place / kLibraryFileName).string();
  }
  std::string library = Registered();
  if (!library.empty()) return library;
  throw Failure(kRefused, fmt::format("The library {} is neither in '{}' nor in '{}', and none is registered.",
                                      kLibraryFileName, folder.string(), library_folder.string()));
}

}  // namespace zef::client
