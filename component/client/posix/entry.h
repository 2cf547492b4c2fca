#pragma once

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cinttypes>
#include <cstddef>
#include <cstdio>
#include <string>
#include <string_view>
#include <system_error>

#include "ZEFComponents/automation.h"
#include "ZEFComponents/failure.h"
#include "ZEFComponents/registry.h"

/// Entries of classes in the registry of components, as they are read.
namespace zef {
inline namespace automation {

/// Where a class is registered; empty without a folder of components.
inline std::string EntryPath(std::string_view name) {
  const std::string folder = ComponentsFolder();
  return folder.empty() ? folder : folder + "/" + std::string(name);
}

[[noreturn]] inline void RaiseNotRegistered(std::string_view name) {
  throw Failure(kCannotCreateObject,
                std::string(name) + " is not registered; register its library first, as in \"zef register\".");
}
[[noreturn]] inline void RaiseUnreadable(const std::string& entry, const std::string& reason) {
  throw Failure(kCannotCreateObject, "The entry " + entry + " cannot be read: " + reason + ".");
}

/// True for a name as in "ZEFComponents.CSession"; what is none must not lead out of the folder.
inline bool NamesClass(std::string_view name) {
  const auto is_word = [](std::string_view part) {
    return !part.empty() && std::all_of(part.begin(), part.end(), [](char c) {
      return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
    });
  };
  const std::size_t point = name.find('.');
  return point != std::string_view::npos && is_word(name.substr(0, point)) && is_word(name.substr(point + 1));
}

/// An open file, closed with the object.
struct OpenFile {
  explicit OpenFile(int number) : file(number) {}
  ~OpenFile() {
    if (file >= 0) close(file);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  int file;
};

/// The text of an entry; empty if there is none. Raises 429 for what cannot be one: it is read without waiting, and no
/// further than any entry reaches, for a pipe or a device in its place might never end.
inline std::string EntryText(const std::string& path) {
  constexpr std::size_t kLongest = 0x10000;
  const auto reason = [] { return std::generic_category().message(errno); };
  const OpenFile entry(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  if (entry.file < 0 && (errno == ENOENT || errno == ENOTDIR)) return {};
  if (entry.file < 0) RaiseUnreadable(path, reason());
  struct stat status {};
  if (fstat(entry.file, &status) != 0) RaiseUnreadable(path, reason());
  if (!S_ISREG(status.st_mode)) RaiseUnreadable(path, "It is no regular file");
  std::string text(kLongest + 1, '\0');
  std::size_t length = 0;
  while (length < text.size()) {
    const ssize_t part = read(entry.file, text.data() + length, text.size() - length);
    if (part < 0 && errno == EINTR) continue;
    if (part < 0) RaiseUnreadable(path, reason());
    if (part == 0) break;
    length += static_cast<std::size_t>(part);
  }
  if (length > kLongest) RaiseUnreadable(path, "It is too long for an entry");
  text.resize(length);
  return text;
}

/// What stands behind a key in the entry of a class; empty if nothing does. Raises 429 for what names no class, and for
/// an entry that cannot be read.
inline std::string EntryValue(std::string_view name, std::string_view key) {
  if (!NamesClass(name)) {
    throw Failure(kCannotCreateObject,
                  "'" + std::string(name) + "' is not the name of a class, as in ZEFComponents.CSession.");
  }
  const std::string path = EntryPath(name);
  const std::string text = path.empty() ? path : EntryText(path);
  for (std::string_view rest = text; !rest.empty();) {
    const std::string_view line = rest.substr(0, rest.find('\n'));
    if (line.starts_with(key)) return std::string(line.substr(key.size()));
    rest.remove_prefix(std::min(line.size() + 1, rest.size()));
  }
  return {};
}

/// The path of the library that a class is registered for. Raises 429 if it is not registered.
inline std::string RegisteredLibrary(std::string_view name) {
  std::string path = EntryValue(name, "InprocServer32=");
  if (!path.starts_with('/')) RaiseNotRegistered(name);
  return path;
}

/// The identifier of a registered class. Raises 429 if it is not registered.
inline GUID RegisteredIdentifier(std::string_view name) {
  const std::string text = EntryValue(name, "CLSID=");
  GUID identifier{};
  auto& tail = identifier.Data4;
  const int read = std::sscanf(text.c_str(),
                               "{%8" SCNx32 "-%4" SCNx16 "-%4" SCNx16 "-%2" SCNx8 "%2" SCNx8 "-%2" SCNx8 "%2" SCNx8
                               "%2" SCNx8 "%2" SCNx8 "%2" SCNx8 "%2" SCNx8 "}",
                               &identifier.Data1, &identifier.Data2, &identifier.Data3, &tail[0], &tail[1], &tail[2],
                               &tail[3], &tail[4], &tail[5], &tail[6], &tail[7]);
  if (read != 11) RaiseNotRegistered(name);
  return identifier;
}

}  // namespace automation
}  // namespace zef
