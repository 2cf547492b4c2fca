#pragma once

#include <string>

#include "platform/backup.h"
#include "platform/sqlite/sqlite_file.h"

namespace zef {

/// Copies what was last committed to the database file `from` into a new file with the same password; see
/// `BackUpDatabase`.
void BackUpDatabaseFile(const std::string& from, const std::string& password, const std::string& to,
                        const BackupProgress& progress);

}  // namespace zef
