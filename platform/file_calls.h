#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

/// The calls of the system that files need, under the same names for every system. Paths are UTF-8. A failure leaves
/// its reason in `errno`, in the numbers of POSIX; open files are small numbers, negative for none.
namespace zef::file_calls {

enum class Kind : std::uint8_t { Regular, Folder, Link, Other };

struct Status {
  Kind kind = Kind::Other;
  std::uint64_t size = 0;
};

/// What stands under a path, a link itself too; nothing if it cannot be told.
std::optional<Status> StatusOf(const std::string& path);
/// The same of what a link leads to.
std::optional<Status> StatusBehindLinks(const std::string& path);
std::optional<Status> StatusOf(int file);

/// Without waiting, whatever it is.
int OpenToRead(const std::string& path);
/// Opens a file, or makes it private to the user. Cuts nothing off it and follows no link.
int OpenToWrite(const std::string& path);
/// Makes a file, private to the user; fails if anything has the name.
int MakeNew(const std::string& path);
/// Makes a file under a name that nobody uses in a folder, private to the user; the empty folder is the current one.
int MakeIn(const std::string& folder, std::string& path);

/// Bytes read or written, at least one unless the file is at its end; negative for a failure.
std::ptrdiff_t Read(int file, std::span<std::byte> buffer);
std::ptrdiff_t Write(int file, std::span<const std::byte> content);

// False for a failure.

/// Takes all content out of a file.
bool Cut(int file);
/// The disk has it when this returns.
bool Force(int file);
bool Close(int file);
/// Gives a file a name, in place of what has it.
bool Rename(const std::string& from, const std::string& to);
bool Remove(const std::string& path);
bool MayRead(const std::string& path);
bool MayWrite(const std::string& path);

/// What a number of `errno` means, in English whatever the process's locale.
const char* Reason(int error);
/// True if it means that the disk, or the user's share of it, is full.
bool IsFull(int error);

}  // namespace zef::file_calls
