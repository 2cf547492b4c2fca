#pragma once

#include <filesystem>

namespace zef::client {

/// Gives a file its final name in one step, durably. Raises a `Failure` if anything has that name, a dangling link too,
/// even if it came into being a moment ago; the file keeps its old name then.
void PlaceFile(const std::filesystem::path& from, const std::filesystem::path& to);

/// Raises a `Failure` if new files cannot be made in a folder.
void RequireWritableFolder(const std::filesystem::path& folder);

/// True if something has this name; a link counts, whatever it points to.
bool NameIsTaken(const std::filesystem::path& path);

/// A name beside a path that no other program uses.
std::filesystem::path TemporaryNameBeside(std::filesystem::path path);

}  // namespace zef::client
