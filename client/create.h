#pragma once

#include <string>

#include "client/database_place.h"

namespace zef::client {

/// Makes a new database with the tables and first rows of a schema version, as `MakeNewDatabase` does.
void CreateDatabase(const DatabasePlace& place, const std::string& schema);

/// The same with statements as `schema::Statements` reads them.
void CreateDatabaseFrom(const std::string& statements, const DatabasePlace& place);

}  // namespace zef::client
