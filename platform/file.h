#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

/// Files of the system. Failures carry the numbers that clients know: 53 no such file, 76 no such folder, 70 permission
/// denied, 61 disk full, 75 for anything else that keeps a path from being used.
namespace zef {

/// A regular file open for reading; a folder, a pipe or a device is refused at once. Closed with the object, which may
/// be moved.
class InputFile {
 public:
  explicit InputFile(const std::string& path);
  ~InputFile();
  InputFile(InputFile&& other) noexcept;
  InputFile& operator=(InputFile&&) = delete;

  /// Bytes in the file when it was opened.
  std::uint64_t size() const { return size_; }
  /// Fills the buffer as far as the file reaches, or can be read, and tells how far; 0 at its end.
  std::size_t Read(std::span<std::byte> buffer);

 private:
  std::string path_;
  int file_ = -1;
  std::uint64_t size_ = 0;
};

/// A regular file open for writing, private to the user if it is new; what stood in it before is gone. A folder, a pipe
/// and a device are refused, and so is a link: it is not followed. Closed with the object, which may be moved.
class OutputFile {
 public:
  explicit OutputFile(const std::string& path);
  ~OutputFile();
  OutputFile(OutputFile&& other) noexcept;
  OutputFile& operator=(OutputFile&&) = delete;

  /// Writes at the end; the system has it when this returns.
  void Write(std::span<const std::byte> content);
  /// Tells what the destructor would keep silent about: a file that could not be completed.
  void Close();

 private:
  OutputFile(const std::string& path, int file) : path_(path), file_(file) {}

  std::string path_;
  int file_ = -1;
};

/// True if the path names anything, be it a folder or a link that leads nowhere.
bool PathExists(const std::string& path);

/// Makes a folder and those above it, unless they are there.
void MakeFolder(const std::string& path);
/// Removes a file, if it is there.
void RemoveFile(const std::string& path);

/// Writes a whole file, private to the user. It takes its place at once and complete; if anything fails, what stood
/// there before still does. A link in its place is replaced, not followed.
void WriteWholeFile(const std::string& path, std::span<const std::byte> content);

/// $TMPDIR, else /tmp.
std::string TemporaryFolder();
/// Path of a file in a folder. Raises 75 if the name would lead out of it.
std::string PathInFolder(const std::string& folder, const std::string& name);

}  // namespace zef
