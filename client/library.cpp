#include "client/library.h"

#include <fmt/format.h>

#include <filesystem>
#include <utility>

#include "ZEFComponents.hpp"
#include "client/failure.h"

namespace zef::client {
namespace {

namespace fs = std::filesystem;

constexpr char kFileName[] = "libZEFComponents.so";

std::string& NamedFile() {
  static std::string file;
  return file;
}

}  // namespace

void UseLibrary(std::string file) { NamedFile() = std::move(file); }

std::string LibraryFile() {
  if (!NamedFile().empty()) return NamedFile();
  std::error_code unknown;
  const fs::path folder = fs::read_symlink("/proc/self/exe", unknown).parent_path();
  const fs::path library_folder = (folder / ZEF_LIBRARY_FOLDER).lexically_normal();
  for (const fs::path& place : {folder, library_folder}) {
    if (fs::exists(place / kFileName, unknown)) return place / kFileName;
  }
  try {
    return RegisteredLibrary(CSession::kProgrammaticName);
  } catch (const automation::Failure&) {
    throw Failure(kRefused, fmt::format("The library {} is neither in '{}' nor in '{}', and none is registered.",
                                        kFileName, folder.native(), library_folder.native()));
  }
}

}  // namespace zef::client
