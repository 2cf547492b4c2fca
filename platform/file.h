#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

/// Files of the system. Failures carry the numbers that clients know: 53 no such file, 76 no such folder, 70 permission
/// denied, 61 disk full, 75 for anything else that keeps a path from being used.
namespace zef {

/// A regular file open for reading; a folder, a pipe or a device is refused at once. Closed with the object.
class InputFile {
 public:
  explicit InputFile(const std::string& path);
  ~InputFile();
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;

  /// Bytes in the file when it was opened.
  std::uint64_t size() const { return size_; }
  /// Fills the buffer as far as the file reaches, or can be read, and tells how far; 0 at its end.
  std::size_t Read(std::span<std::byte> buffer);

 private:
  std::string path_;
  int file_ = -1;
  std::uint64_t size_ = 0;
};

/// True if the path names anything, be it a folder or a link that leads nowhere.
bool PathExists(const std::string& path);

/// Writes a whole file, private to the user. It takes its place at once and complete; if anything fails, what stood
/// there before still does. A link in its place is replaced, not followed.
void WriteWholeFile(const std::string& path, std::span<const std::byte> content);

/// $TMPDIR, else /tmp.
std::string TemporaryFolder();
/// Path of a file in a folder. Raises 75 if the name would lead out of it.
std::string PathInFolder(const std::string& folder, const std::string& name);

}  // namespace zef
