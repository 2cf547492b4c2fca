#include "platform/file_calls.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

namespace zef::file_calls {
namespace {

/// One call of the system moves at most so much; a larger file takes several.
constexpr std::size_t kLongestTransfer = std::size_t{1} << 30;
constexpr mode_t kPrivate = S_IRUSR | S_IWUSR;

Kind KindOf(mode_t mode) {
  if (S_ISREG(mode)) return Kind::Regular;
  if (S_ISDIR(mode)) return Kind::Folder;
  return S_ISLNK(mode) ? Kind::Link : Kind::Other;
}

template <class Ask>
std::optional<Status> Asked(Ask&& ask) {
  struct stat status {};
  if (ask(&status) != 0) return std::nullopt;
  return Status{KindOf(status.st_mode), static_cast<std::uint64_t>(status.st_size)};
}

/// Again, as long as a signal comes in between.
template <class Transfer>
std::ptrdiff_t Uninterrupted(Transfer&& transfer) {
  std::ptrdiff_t done = transfer();
  while (done < 0 && errno == EINTR) done = transfer();
  return done;
}

}  // namespace

std::optional<Status> StatusOf(const std::string& path) {
  return Asked([&](struct stat* status) { return lstat(path.c_str(), status); });
}

std::optional<Status> StatusBehindLinks(const std::string& path) {
  return Asked([&](struct stat* status) { return stat(path.c_str(), status); });
}

std::optional<Status> StatusOf(int file) {
  return Asked([&](struct stat* status) { return fstat(file, status); });
}

int OpenToRead(const std::string& path) {
  // Without waiting: a pipe that nobody writes to must not hold us up before it is refused.
  return open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
}

int OpenToWrite(const std::string& path) {
  return open(path.c_str(), O_WRONLY | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, kPrivate);
}

int MakeNew(const std::string& path) {
  return open(path.c_str(), O_CREAT | O_EXCL | O_RDWR | O_NOFOLLOW | O_CLOEXEC, kPrivate);
}

int MakeIn(const std::string& folder, std::string& path) {
  path = (std::filesystem::path(folder) / ".zef-XXXXXX").string();
  return mkostemp(path.data(), O_CLOEXEC);  // makes it private to the user
}

std::ptrdiff_t Read(int file, std::span<std::byte> buffer) {
  return Uninterrupted([&] { return read(file, buffer.data(), std::min(buffer.size(), kLongestTransfer)); });
}

std::ptrdiff_t Write(int file, std::span<const std::byte> content) {
  return Uninterrupted([&] { return write(file, content.data(), std::min(content.size(), kLongestTransfer)); });
}

bool Cut(int file) { return ftruncate(file, 0) == 0; }
bool Force(int file) { return fsync(file) == 0; }
bool Close(int file) { return close(file) == 0; }
bool Rename(const std::string& from, const std::string& to) { return std::rename(from.c_str(), to.c_str()) == 0; }
bool Remove(const std::string& path) { return unlink(path.c_str()) == 0; }
bool MayRead(const std::string& path) { return access(path.c_str(), R_OK) == 0; }
bool MayWrite(const std::string& path) { return access(path.c_str(), W_OK) == 0; }

const char* Reason(int error) { return strerrordesc_np(error); }
bool IsFull(int error) { return error == ENOSPC || error == EDQUOT; }

}  // namespace zef::file_calls
