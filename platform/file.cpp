#include "platform/file.h"

#include <cerrno>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

#include "platform/file_calls.h"
#include "platform/run_time_error.h"

namespace zef {
namespace {

using file_calls::Kind;
using file_calls::StatusOf;

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
    default: return file_calls::IsFull(error) ? FailureNumber::DiskFull : FailureNumber::PathFileAccess;
  }
}

[[noreturn]] void RefuseFor(int error, const std::string& path) {
  const FailureNumber number = NumberOf(error, path);
  Refuse(number, path, number == FailureNumber::PathNotFound ? "its folder does not exist" : file_calls::Reason(error));
}

/// The system would read a path only up to a zero character in it, and use another file.
const std::string& CheckedPath(const std::string& path) {
  if (path.empty()) throw RunTimeError(FailureNumber::PathFileAccess, "No file is named.");
  if (path.find('\0') != std::string::npos) {
    throw RunTimeError(FailureNumber::PathFileAccess, "The name of the file holds a zero character.");
  }
  return path;
}

[[noreturn]] void RefuseKind(Kind kind, const std::string& path) {
  Refuse(FailureNumber::PathFileAccess, path, kind == Kind::Folder ? "it is a folder" : "it is no regular file");
}

void WriteAll(int file, std::span<const std::byte> content, const std::string& path) {
  while (!content.empty()) {
    const std::ptrdiff_t written = file_calls::Write(file, content);
    if (written < 0) RefuseFor(errno, path);
    content = content.subspan(static_cast<std::size_t>(written));
  }
}

/// Opens or makes a file and cuts nothing off it: what it is has to be known first.
int OpenedToWrite(const std::string& path) {
  const auto status = StatusOf(CheckedPath(path));
  if (status && status->kind != Kind::Regular) RefuseKind(status->kind, path);
  const int file = file_calls::OpenToWrite(path);
  if (file < 0) RefuseFor(errno, path);
  return file;
}

/// A file beside the one that is to be written. It goes away unless it takes that one's place.
class Draft {
 public:
  explicit Draft(const std::string& path) : path_(path) {
    std::string made;
    file_ = file_calls::MakeIn(std::filesystem::path(path).parent_path().string(), made);
    if (file_ < 0) RefuseFor(errno, path_);
    draft_ = made;
  }
  ~Draft() {
    if (file_ >= 0) file_calls::Close(file_);
    if (!draft_.empty()) file_calls::Remove(draft_);
  }
  Draft(const Draft&) = delete;
  Draft& operator=(const Draft&) = delete;

  void Write(std::span<const std::byte> content) { WriteAll(file_, content, path_); }
  void TakePlace() {
    if (!file_calls::Force(file_)) RefuseFor(errno, path_);
    if (!file_calls::Close(std::exchange(file_, -1))) RefuseFor(errno, path_);
    if (!file_calls::Rename(draft_, path_)) RefuseFor(errno, path_);
    draft_.clear();
  }

 private:
  const std::string& path_;
  std::string draft_;
  int file_ = -1;
};

}  // namespace

InputFile::InputFile(const std::string& path) : path_(path) {
  file_ = file_calls::OpenToRead(CheckedPath(path));
  if (file_ < 0) RefuseFor(errno, path);
  const auto status = StatusOf(file_).value_or(file_calls::Status{});
  size_ = status.size;
  if (status.kind == Kind::Regular) return;
  file_calls::Close(file_);
  RefuseKind(status.kind, path);
}

InputFile::~InputFile() {
  if (file_ >= 0) file_calls::Close(file_);
}

InputFile::InputFile(InputFile&& other) noexcept
    : path_(std::move(other.path_)), file_(std::exchange(other.file_, -1)), size_(other.size_) {}

std::size_t InputFile::Read(std::span<std::byte> buffer) {
  std::size_t done = 0;
  while (done < buffer.size()) {
    const std::ptrdiff_t part = file_calls::Read(file_, buffer.subspan(done));
    if (part < 0 && done == 0) RefuseFor(errno, path_);
    if (part <= 0) break;  // a failure is told by the next call, once the caller has what came before it
    done += static_cast<std::size_t>(part);
  }
  return done;
}

OutputFile::OutputFile(const std::string& path) : OutputFile(path, OpenedToWrite(path)) {
  const auto status = StatusOf(file_);
  if (!status) RefuseFor(errno, path);
  if (status->kind != Kind::Regular) RefuseKind(status->kind, path);
  if (!file_calls::Cut(file_)) RefuseFor(errno, path);
}

OutputFile::~OutputFile() {
  if (file_ >= 0) file_calls::Close(file_);
}

OutputFile::OutputFile(OutputFile&& other) noexcept
    : path_(std::move(other.path_)), file_(std::exchange(other.file_, -1)) {}

void OutputFile::Write(std::span<const std::byte> content) { WriteAll(file_, content, path_); }

void OutputFile::Close() {
  if (!file_calls::Close(std::exchange(file_, -1))) RefuseFor(errno, path_);
}

bool PathExists(const std::string& path) {
  if (StatusOf(CheckedPath(path))) return true;
  if (errno != ENOENT && errno != ENOTDIR) RefuseFor(errno, path);
  return false;
}

void MakeFolder(const std::string& path) {
  std::error_code failed;
  std::filesystem::create_directories(CheckedPath(path), failed);
  if (failed) RefuseFor(failed.default_error_condition().value(), path);
}

void RemoveFile(const std::string& path) {
  if (!file_calls::Remove(CheckedPath(path)) && errno != ENOENT) RefuseFor(errno, path);
}

void WriteWholeFile(const std::string& path, std::span<const std::byte> content) {
  const auto status = StatusOf(CheckedPath(path));
  if (status && status->kind != Kind::Regular && status->kind != Kind::Link) RefuseKind(status->kind, path);
  Draft draft(path);
  draft.Write(content);
  draft.TakePlace();
}

std::string PathInFolder(const std::string& folder, const std::string& name) {
  const std::filesystem::path file(name);
  if (file.filename() != file) {
    throw RunTimeError(FailureNumber::PathFileAccess, "The file name '" + name + "' would lead out of its folder.");
  }
  return (std::filesystem::path(folder) / file).string();
}

}  // namespace zef
