#pragma once

#include <filesystem>

/// The calls of the system by which a new file takes its place. A number is one of `errno`, 0 for success.
namespace zef::client {

/// EEXIST if anything has the new name.
int RenameWithoutReplacing(const std::filesystem::path& from, const std::filesystem::path& to);
/// Makes a new name last through a loss of power. Not every file system can; the file is there all the same.
void SyncFolder(const std::filesystem::path& folder);
/// What keeps a file from being made in a folder, as far as the system tells.
int ObstacleInFolder(const std::filesystem::path& folder);

}  // namespace zef::client
