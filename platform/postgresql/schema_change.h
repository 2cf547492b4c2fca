#pragma once

#include "platform/postgresql/server_connection.h"
#include "platform/sql/ast.h"

namespace zef {

/// Carries out one CREATE, ALTER or DROP inside the running transaction. Raises -2147217857 and -2147217858 for a table
/// or column that exists already, -2147217865 and -2147217904 for one that does not, -2147217833 and -2147217913 for
/// stored values that a changed column cannot take.
void ApplySchemaChange(ServerConnection& connection, const sql::SchemaChange& change);

}  // namespace zef
