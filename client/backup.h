#pragma once

#include <string>

#include "platform/backup.h"

namespace zef::client {

/// Copies the database file of a connection string to a new file beside it, whole or not at all, and gives that one's
/// name: the first of "people.db.backup", "people.db.backup.2" and so on that is free. Raises a `Failure` if it cannot
/// be made.
std::string BackUpBeside(const std::string& file, const std::string& connection_string, const BackupProgress& progress);

}  // namespace zef::client
