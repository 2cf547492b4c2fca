#pragma once

#include <sqlite3.h>

#include <string>
#include <string_view>

#include "platform/sql/schema.h"

namespace zef {

/// The columns of a table or view as the file declares them; without columns if there is no such table or it is one of
/// the engine's own.
sql::TableInfo DescribeTable(sqlite3* db, std::string_view table);

/// The declaration of a column type in the engine's words: "INTEGER", "TEXT(255)", "DATETIME REAL".
std::string DeclaredType(sql::Type type, int length);

/// An identifier as it stands in a statement.
std::string QuotedName(std::string_view name);

}  // namespace zef
