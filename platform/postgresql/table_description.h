#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/postgresql/server_connection.h"
#include "platform/sql/schema.h"

namespace zef {

/// What the comment of a relationship begins with.
inline constexpr std::string_view kRelationship = "relationship";

/// The statement that fails unless the tables still have the version that `zef.tables_version` gave.
std::string RequireTablesVersion(std::int64_t version);

/// The columns of a table or view of the current schema, found without regard to letter case; without columns if there
/// is no such table.
sql::TableInfo DescribeTable(ServerConnection& connection, std::string_view table);

/// The names of the relationships by which a table refers to others; nothing if there is no such table.
std::optional<std::vector<std::string>> RelationshipsOf(ServerConnection& connection, std::string_view table);

/// The server's declaration of a column type: "integer", "varchar(255) COLLATE zef.ci".
std::string ServerType(sql::Type type, int length);

}  // namespace zef
