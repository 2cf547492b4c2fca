#pragma once

#include <sqlite3.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/sql/schema.h"

namespace zef {

/// The columns of a table or view as the file declares them; without columns if there is no such table or it is one of
/// the engine's own.
sql::TableInfo DescribeTable(sqlite3* db, std::string_view table);

/// The names of the relationships by which a table refers to others; nothing if there is no such table.
std::optional<std::vector<std::string>> RelationshipsOf(sqlite3* db, std::string_view table);

/// The declaration of a column type in the engine's words: "INTEGER", "TEXT(255)", "DATETIME REAL".
std::string DeclaredType(sql::Type type, int length);

}  // namespace zef
