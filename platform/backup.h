#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace zef {

/// Told after each portion of a backup how much of it is done; what it raises ends the backup.
using BackupProgress = std::function<void(std::int64_t done, std::int64_t all)>;

/// Copies the database that a connection string names, as it was last committed, to a new file, which has the same
/// password, is private to the user (0600) and on the disk when this returns. Other clients may work on the database
/// meanwhile; while one of them holds the right to write, the copy is exactly what it has found. Raises 75 if
/// something of that name exists or the file cannot be made; a link in its place is not followed. Raises what
/// `OpenEngine` does for the database itself. A failure leaves no file.
void BackUpDatabase(const std::string& connection_string, const std::string& path, const BackupProgress& progress);

}  // namespace zef
