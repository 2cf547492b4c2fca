#pragma once

#include <sqlite3.h>

#include "platform/run_time_error.h"

namespace zef {

/// The failure that the connection reports, as clients know it. The engine's own sentence is kept where it names tables
/// and columns only.
RunTimeError SqliteFailure(sqlite3* db, int code);
/// Raises it unless `code` is a success.
void CheckSqlite(sqlite3* db, int code);

}  // namespace zef
