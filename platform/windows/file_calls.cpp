#include "platform/file_calls.h"

#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#include <windows.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <random>

#include "platform/windows/wide_text.h"

namespace zef::file_calls {
namespace {

/// One call of the system moves at most so much; a larger file takes several.
constexpr std::size_t kLongestTransfer = std::size_t{1} << 30;
constexpr int kOwnAlone = _O_BINARY | _O_NOINHERIT;
constexpr int kPrivate = _S_IREAD | _S_IWRITE;

unsigned TransferSize(std::size_t size) { return static_cast<unsigned>(std::min(size, kLongestTransfer)); }

Kind KindOf(unsigned short mode) {
  const int format = mode & _S_IFMT;
  return format == _S_IFREG ? Kind::Regular : format == _S_IFDIR ? Kind::Folder : Kind::Other;
}

template <class Ask>
std::optional<Status> Asked(Ask&& ask) {
  struct _stat64 status {};
  if (ask(&status) != 0) return std::nullopt;
  return Status{KindOf(status.st_mode), static_cast<std::uint64_t>(status.st_size)};
}

bool IsLink(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}

/// Puts the last failure of the system's own calls into `errno`.
bool Told(BOOL done) {
  if (done != 0) return true;
  switch (GetLastError()) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME: errno = ENOENT; break;
    case ERROR_ALREADY_EXISTS:
    case ERROR_FILE_EXISTS: errno = EEXIST; break;
    case ERROR_DISK_FULL: errno = ENOSPC; break;
    default: errno = EACCES;
  }
  return false;
}

struct ReasonOf {
  int error;
  const char* reason;
};
constexpr std::array<ReasonOf, 10> kReasons{{{ENOENT, "No such file or directory"},
                                             {EACCES, "Permission denied"},
                                             {EPERM, "Operation not permitted"},
                                             {EEXIST, "File exists"},
                                             {ENOTDIR, "Not a directory"},
                                             {EISDIR, "Is a directory"},
                                             {ENOSPC, "No space left on device"},
                                             {EROFS, "Read-only file system"},
                                             {EMFILE, "Too many open files"},
                                             {EINVAL, "Invalid argument"}}};

}  // namespace

std::optional<Status> StatusOf(const std::string& path) {
  if (IsLink(ToWide(path))) return Status{Kind::Link, 0};
  return StatusBehindLinks(path);
}

std::optional<Status> StatusBehindLinks(const std::string& path) {
  return Asked([&](struct _stat64* status) { return _wstat64(ToWide(path).c_str(), status); });
}

std::optional<Status> StatusOf(int file) {
  return Asked([&](struct _stat64* status) { return _fstat64(file, status); });
}

int OpenToRead(const std::string& path) {
  const std::wstring wide = ToWide(path);
  const DWORD attributes = GetFileAttributesW(wide.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
    return _wopen(wide.c_str(), _O_RDONLY | kOwnAlone);
  }
  errno = EISDIR;
  return -1;
}

int OpenToWrite(const std::string& path) {
  const std::wstring wide = ToWide(path);
  if (!IsLink(wide)) return _wopen(wide.c_str(), _O_WRONLY | _O_CREAT | kOwnAlone, kPrivate);
  errno = EACCES;
  return -1;
}

int MakeNew(const std::string& path) {
  return _wopen(ToWide(path).c_str(), _O_CREAT | _O_EXCL | _O_RDWR | kOwnAlone, kPrivate);
}

int MakeIn(const std::string& folder, std::string& path) {
  constexpr int kMostTries = 100;
  std::random_device random;
  for (int i = 0; i < kMostTries; ++i) {
    path = (std::filesystem::path(folder) / (".zef-" + std::to_string(random()))).string();
    const int file = MakeNew(path);
    if (file >= 0 || errno != EEXIST) return file;
  }
  return -1;
}

std::ptrdiff_t Read(int file, std::span<std::byte> buffer) {
  return _read(file, buffer.data(), TransferSize(buffer.size()));
}

std::ptrdiff_t Write(int file, std::span<const std::byte> content) {
  return _write(file, content.data(), TransferSize(content.size()));
}

bool Cut(int file) { return _chsize_s(file, 0) == 0; }
bool Force(int file) { return _commit(file) == 0; }
bool Close(int file) { return _close(file) == 0; }

bool Rename(const std::string& from, const std::string& to) {
  constexpr DWORD kInPlace = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
  return Told(MoveFileExW(ToWide(from).c_str(), ToWide(to).c_str(), kInPlace));
}

bool Remove(const std::string& path) { return Told(DeleteFileW(ToWide(path).c_str())); }
bool MayRead(const std::string& path) { return _waccess(ToWide(path).c_str(), 4) == 0; }
bool MayWrite(const std::string& path) { return _waccess(ToWide(path).c_str(), 2) == 0; }

const char* Reason(int error) {
  const auto found = std::find_if(kReasons.begin(), kReasons.end(), [&](ReasonOf one) { return one.error == error; });
  return found == kReasons.end() ? "The system refuses it" : found->reason;
}

bool IsFull(int error) { return error == ENOSPC; }

}  // namespace zef::file_calls
