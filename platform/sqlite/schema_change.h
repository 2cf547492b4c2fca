#pragma once

#include <sqlite3.h>

#include <optional>

#include "platform/run_time_error.h"
#include "platform/sql/ast.h"

namespace zef {

/// Carries out one CREATE, ALTER or DROP inside the running transaction. `failure` is where the engine's functions
/// leave what went wrong in them. Raises -2147217857 and -2147217858 for a table or column that exists already,
/// -2147217865 and -2147217904 for one that does not, -2147217833 and -2147217913 for stored values that a changed
/// column cannot take.
void ApplySchemaChange(sqlite3* db, const sql::SchemaChange& change, std::optional<RunTimeError>& failure);

}  // namespace zef
