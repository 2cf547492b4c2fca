#pragma once

#include <sqlite3.h>

#include <optional>

#include "platform/run_time_error.h"
#include "platform/sql/ast.h"

namespace zef {

/// Carries out one CREATE, ALTER or DROP inside the running transaction, see `sql::SchemaChanger`. `failure` is where
/// the engine's functions leave what went wrong in them.
void ApplySchemaChange(sqlite3* db, const sql::SchemaChange& change, std::optional<RunTimeError>& failure);

}  // namespace zef
