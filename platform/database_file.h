#pragma once

#include <string>

namespace zef {

/// Makes a new, empty database file, private to the user (0600), with write-ahead logging, encrypted if a password is
/// given. Raises 75 if something of that name exists or the file cannot be made; a link in its place is not followed.
void CreateDatabaseFile(const std::string& path, const std::string& password);

}  // namespace zef
