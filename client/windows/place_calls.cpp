#include "client/place_calls.h"

#include <windows.h>

#include <cerrno>

namespace zef::client {

int RenameWithoutReplacing(const std::filesystem::path& from, const std::filesystem::path& to) {
  if (MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_WRITE_THROUGH) != 0) return 0;
  switch (GetLastError()) {
    case ERROR_ALREADY_EXISTS:
    case ERROR_FILE_EXISTS: return EEXIST;
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND: return ENOENT;
    case ERROR_DISK_FULL: return ENOSPC;
    default: return EACCES;
  }
}

void SyncFolder(const std::filesystem::path&) {}  // renaming has written through

int ObstacleInFolder(const std::filesystem::path& folder) {
  const DWORD attributes = GetFileAttributesW(folder.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return ENOENT;
  return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? 0 : ENOTDIR;
}

}  // namespace zef::client
