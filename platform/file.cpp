#include "platform/file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

#include "platform/run_time_error.h"

namespace zef {
namespace {

/// One call of the system moves at most so much; a larger file takes several.
constexpr std::size_t kLongestTransfer = std::size_t{1} << 30;

[[noreturn]] void Refuse(FailureNumber number, const std::string& path, std::string_view reason) {
  throw RunTimeError(number, "The file '" + path + "' cannot be used: " + std::string(reason) + ".");
}

bool FolderExists(const std::string& path) {
  std::error_code ignored;
  const std::filesystem::path folder = std::filesystem::path(path).parent_path();
  return folder.empty() || std::filesystem::is_directory(folder, ignored);
}

FailureNumber NumberOf(int error, const std::string& path) {
  switch (error) {
    case ENOENT: return FolderExists(path) ? FailureNumber::FileNotFound : FailureNumber::PathNotFound;
    case ENOTDIR: return FailureNumber::PathNotFound;
    case EACCES:
    case EPERM:
    case EROFS: return FailureNumber::PermissionDenied;
    case ENOSPC:
    case EDQUOT: return FailureNumber::DiskFull;
    default: return FailureNumber::PathFileAccess;
  }
}

[[noreturn]] void RefuseFor(int error, const std::string& path) {
  const FailureNumber number = NumberOf(error, path);
  const char* const reason = strerrordesc_np(error);  // in English, whatever the process's locale
  Refuse(number, path, number == FailureNumber::PathNotFound ? "its folder does not exist" : reason);
}

/// The system would read a path only up to a zero character in it, and use another file.
const char* CheckedPath(const std::string& path) {
  if (path.empty()) throw RunTimeError(FailureNumber::PathFileAccess, "No file is named.");
  if (path.find('\0') != std::string::npos) {
    throw RunTimeError(FailureNumber::PathFileAccess, "The name of the file holds a zero character.");
  }
  return path.c_str();
}

[[noreturn]] void RefuseKind(const struct stat& status, const std::string& path) {
  Refuse(FailureNumber::PathFileAccess, path, S_ISDIR(status.st_mode) ? "it is a folder" : "it is no regular file");
}

void WriteAll(int file, std::span<const std::byte> content, const std::string& path) {
  while (!content.empty()) {
    const ssize_t written = write(file, content.data(), std::min(content.size(), kLongestTransfer));
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) RefuseFor(errno, path);
    content = content.subspan(static_cast<std::size_t>(written));
  }
}

/// Opens or makes a file and cuts nothing off it: what it is has to be known first.
int OpenedToWrite(const std::string& path) {
  struct stat status {};
  if (lstat(CheckedPath(path), &status) == 0 && !S_ISREG(status.st_mode)) RefuseKind(status, path);
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, S_IRUSR | S_IWUSR);
  if (file < 0) RefuseFor(errno, path);
  return file;
}

/// A file beside the one that is to be written. It goes away unless it takes that one's place.
class Draft {
 public:
  explicit Draft(const std::string& path) : path_(path) {
    std::string pattern = (std::filesystem::path(path).parent_path() / ".zef-XXXXXX").string();
    file_ = mkostemp(pattern.data(), O_CLOEXEC);  // makes it private to the user
    if (file_ < 0) RefuseFor(errno, path_);
    draft_ = pattern;
  }
  ~Draft() {
    if (file_ >= 0) close(file_);
    if (!draft_.empty()) unlink(draft_.c_str());
  }
  Draft(const Draft&) = delete;
  Draft& operator=(const Draft&) = delete;

  void Write(std::span<const std::byte> content) { WriteAll(file_, content, path_); }
  void TakePlace() {
    if (fsync(file_) != 0) RefuseFor(errno, path_);
    if (close(std::exchange(file_, -1)) != 0) RefuseFor(errno, path_);
    if (rename(draft_.c_str(), path_.c_str()) != 0) RefuseFor(errno, path_);
    draft_.clear();
  }

 private:
  const std::string& path_;
  std::string draft_;
  int file_ = -1;
};

}  // namespace

InputFile::InputFile(const std::string& path) : path_(path) {
  struct stat status {};
  // Without waiting: a pipe that nobody writes to must not hold us up before it is refused.
  file_ = open(CheckedPath(path), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (file_ < 0) RefuseFor(errno, path);
  if (fstat(file_, &status) == 0 && S_ISREG(status.st_mode)) {
    size_ = static_cast<std::uint64_t>(status.st_size);
    return;
  }
  close(file_);
  RefuseKind(status, path);
}

InputFile::~InputFile() {
  if (file_ >= 0) close(file_);
}

InputFile::InputFile(InputFile&& other) noexcept
    : path_(std::move(other.path_)), file_(std::exchange(other.file_, -1)), size_(other.size_) {}

std::size_t InputFile::Read(std::span<std::byte> buffer) {
  std::size_t done = 0;
  while (done < buffer.size()) {
    const ssize_t part = read(file_, buffer.data() + done, std::min(buffer.size() - done, kLongestTransfer));
    if (part < 0 && errno == EINTR) continue;
    if (part < 0 && done == 0) RefuseFor(errno, path_);
    if (part <= 0) break;  // a failure is told by the next call, once the caller has what came before it
    done += static_cast<std::size_t>(part);
  }
  return done;
}

OutputFile::OutputFile(const std::string& path) : OutputFile(path, OpenedToWrite(path)) {
  struct stat status {};
  if (fstat(file_, &status) != 0) RefuseFor(errno, path);
  if (!S_ISREG(status.st_mode)) RefuseKind(status, path);
  if (ftruncate(file_, 0) != 0) RefuseFor(errno, path);
}

OutputFile::~OutputFile() {
  if (file_ >= 0) close(file_);
}

OutputFile::OutputFile(OutputFile&& other) noexcept
    : path_(std::move(other.path_)), file_(std::exchange(other.file_, -1)) {}

void OutputFile::Write(std::span<const std::byte> content) { WriteAll(file_, content, path_); }

void OutputFile::Close() {
  if (close(std::exchange(file_, -1)) != 0) RefuseFor(errno, path_);
}

bool PathExists(const std::string& path) {
  struct stat status {};
  if (lstat(CheckedPath(path), &status) == 0) return true;
  if (errno != ENOENT && errno != ENOTDIR) RefuseFor(errno, path);
  return false;
}

void MakeFolder(const std::string& path) {
  std::error_code failed;
  std::filesystem::create_directories(CheckedPath(path), failed);
  if (failed) RefuseFor(failed.value(), path);
}

void RemoveFile(const std::string& path) {
  if (unlink(CheckedPath(path)) != 0 && errno != ENOENT) RefuseFor(errno, path);
}

void WriteWholeFile(const std::string& path, std::span<const std::byte> content) {
  struct stat status {};
  const bool taken = lstat(CheckedPath(path), &status) == 0;
  if (taken && !S_ISREG(status.st_mode) && !S_ISLNK(status.st_mode)) {
    RefuseKind(status, path);
  }
  Draft draft(path);
  draft.Write(content);
  draft.TakePlace();
}

std::string TemporaryFolder() {
  const char* const named = std::getenv("TMPDIR");
  return named == nullptr || *named == '\0' ? "/tmp" : named;
}

std::string PathInFolder(const std::string& folder, const std::string& name) {
  const std::filesystem::path file(name);
  if (file.filename() != file) {
    throw RunTimeError(FailureNumber::PathFileAccess, "The file name '" + name + "' would lead out of its folder.");
  }
  return (std::filesystem::path(folder) / file).string();
}

}  // namespace zef
