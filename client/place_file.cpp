#include "client/place_file.h"

#include <fmt/format.h>

#include <cerrno>
#include <cstring>
#include <random>

#include "client/failure.h"
#include "client/place_calls.h"

namespace zef::client {
namespace {

void RequireWritableFolder(const std::filesystem::path& folder) {
  const int error = ObstacleInFolder(folder);
  if (error == 0) return;
  throw Failure(kRefused,
                fmt::format("Nothing can be made in the folder '{}': {}.", folder.string(), std::strerror(error)));
}

}  // namespace

void PlaceFile(const std::filesystem::path& from, const std::filesystem::path& to) {
  const int error = RenameWithoutReplacing(from, to);
  if (error == EEXIST) throw Failure(kRefused, fmt::format("'{}' exists already.", to.string()));
  if (error != 0) throw Failure(kRefused, fmt::format("'{}' cannot be made: {}.", to.string(), std::strerror(error)));
  SyncFolder(to.parent_path());
}

void RequireNewPlace(const std::filesystem::path& place) {
  if (!place.has_filename()) throw Failure(kRefused, fmt::format("'{}' names no file.", place.string()));
  RequireWritableFolder(place.has_parent_path() ? place.parent_path() : std::filesystem::path("."));
  if (NameIsTaken(place)) throw Failure(kRefused, fmt::format("'{}' exists already.", place.string()));
}

void MakeNewFile(const std::filesystem::path& place, const std::function<void(const std::string& temporary)>& write) {
  RequireNewPlace(place);
  const std::filesystem::path temporary = TemporaryNameBeside(place);
  try {
    write(temporary.string());
    PlaceFile(temporary, place);
  } catch (...) {
    std::error_code ignored;
    std::filesystem::remove(temporary, ignored);
    throw;
  }
}

bool NameIsTaken(const std::filesystem::path& path) {
  std::error_code ignored;
  return std::filesystem::exists(std::filesystem::symlink_status(path, ignored));
}

std::filesystem::path TemporaryNameBeside(std::filesystem::path path) {
  std::random_device random;
  return path.replace_filename(fmt::format(".zef-{:08x}{:08x}", random(), random()));
}

}  // namespace zef::client
