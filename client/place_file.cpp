#include "client/place_file.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <random>

#include "client/failure.h"

namespace zef::client {
namespace {

/// 0, or the system's error number.
int RenameWithoutReplacing(const char* from, const char* to) {
  return renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE) == 0 ? 0 : errno;
}

/// The same in two steps, for file systems that cannot rename this way: a second name is never given over an existing
/// one.
int LinkAndUnlink(const char* from, const char* to) {
  if (link(from, to) != 0) return errno;
  unlink(from);
  return 0;
}

/// Makes the new name last through a loss of power. Not every file system can; the file is there all the same.
void SyncFolder(const std::filesystem::path& folder) {
  const int opened = open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (opened < 0) return;
  fsync(opened);
  close(opened);
}

void RequireWritableFolder(const std::filesystem::path& folder) {
  const std::filesystem::path inside = folder / ".";  // so that a file in the folder's place is told
  if (access(inside.c_str(), W_OK | X_OK) == 0) return;
  throw Failure(kRefused,
                fmt::format("Nothing can be made in the folder '{}': {}.", folder.native(), std::strerror(errno)));
}

}  // namespace

void PlaceFile(const std::filesystem::path& from, const std::filesystem::path& to) {
  int error = RenameWithoutReplacing(from.c_str(), to.c_str());
  if (error == EINVAL || error == ENOSYS || error == ENOTSUP) error = LinkAndUnlink(from.c_str(), to.c_str());
  if (error == EEXIST) throw Failure(kRefused, fmt::format("'{}' exists already.", to.native()));
  if (error != 0) throw Failure(kRefused, fmt::format("'{}' cannot be made: {}.", to.native(), std::strerror(error)));
  SyncFolder(to.parent_path());
}

void RequireNewPlace(const std::filesystem::path& place) {
  if (!place.has_filename()) throw Failure(kRefused, fmt::format("'{}' names no file.", place.native()));
  RequireWritableFolder(place.has_parent_path() ? place.parent_path() : std::filesystem::path("."));
  if (NameIsTaken(place)) throw Failure(kRefused, fmt::format("'{}' exists already.", place.native()));
}

void MakeNewFile(const std::filesystem::path& place, const std::function<void(const std::string& temporary)>& write) {
  RequireNewPlace(place);
  const std::filesystem::path temporary = TemporaryNameBeside(place);
  try {
    write(temporary.native());
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
