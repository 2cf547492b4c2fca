#pragma once

#include "platform/postgresql/server_connection.h"
#include "platform/sql/ast.h"

namespace zef {

/// Carries out one CREATE, ALTER or DROP inside the running transaction, see `sql::SchemaChanger`.
void ApplySchemaChange(ServerConnection& connection, const sql::SchemaChange& change);

}  // namespace zef
