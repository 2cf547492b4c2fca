#include "client/place_calls.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace zef::client {
namespace {

/// In two steps, for file systems that cannot rename this way: a second name is never given over an existing one.
int LinkAndUnlink(const char* from, const char* to) {
  if (link(from, to) != 0) return errno;
  unlink(from);
  return 0;
}

}  // namespace

int RenameWithoutReplacing(const std::filesystem::path& from, const std::filesystem::path& to) {
  if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return 0;
  if (errno != EINVAL && errno != ENOSYS && errno != ENOTSUP) return errno;
  return LinkAndUnlink(from.c_str(), to.c_str());
}

void SyncFolder(const std::filesystem::path& folder) {
  const int opened = open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (opened < 0) return;
  fsync(opened);
  close(opened);
}

int ObstacleInFolder(const std::filesystem::path& folder) {
  const std::filesystem::path inside = folder / ".";  // so that a file in the folder's place is told
  return access(inside.c_str(), W_OK | X_OK) == 0 ? 0 : errno;
}

}  // namespace zef::client
