#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace zef::client {

/// Gives a file its final name in one step, durably. Raises a `Failure` if anything has that name, a dangling link too,
/// even if it came into being a moment ago; the file keeps its old name then.
void PlaceFile(const std::filesystem::path& from, const std::filesystem::path& to);

/// Raises a `Failure` if a new file cannot be made here: without a file name, in a folder that cannot be written to, or
/// in the place of anything.
void RequireNewPlace(const std::filesystem::path& place);

/// Makes a new file, whole or not at all: `write` gets the name of a temporary one beside the place, which then takes
/// it. Raises what `RequireNewPlace` and `PlaceFile` do.
void MakeNewFile(const std::filesystem::path& place, const std::function<void(const std::string& temporary)>& write);

/// True if something has this name; a link counts, whatever it points to.
bool NameIsTaken(const std::filesystem::path& path);

/// A name beside a path that no other program uses.
std::filesystem::path TemporaryNameBeside(std::filesystem::path path);

}  // namespace zef::client
