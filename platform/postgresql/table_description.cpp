#include "platform/postgresql/table_description.h"

#include <charconv>

#include "platform/run_time_error.h"
#include "platform/text.h"

namespace zef {
namespace {

struct TypeWord {
  std::string_view declared;
  sql::Type type;
  std::string_view catalog;  ///< the server's own name of it
};

/// The types that this library writes. The server has no byte and knows only a Boolean that cannot be calculated with.
constexpr TypeWord kWritten[] = {
    {"zef.yesno", sql::Type::Boolean, "yesno"},
    {"zef.byte", sql::Type::Byte, "byte"},
    {"smallint", sql::Type::Short, "int2"},
    {"integer", sql::Type::Long, "int4"},
    {"double precision", sql::Type::Double, "float8"},
    {"timestamp", sql::Type::Date, "timestamp"},
    {"varchar", sql::Type::Text, "varchar"},
    {"text", sql::Type::Memo, "text"},
    {"bytea", sql::Type::Binary, "bytea"},
};

/// Of tables made by other programs.
constexpr TypeWord kForeign[] = {
    {"", sql::Type::Double, "int8"},
    {"", sql::Type::Double, "float4"},
    {"", sql::Type::Text, "bpchar"},
};

sql::Type TypeOfWord(std::string_view catalog) {
  for (const TypeWord& word : kWritten) {
    if (word.catalog == catalog) return word.type;
  }
  for (const TypeWord& word : kForeign) {
    if (word.catalog == catalog) return word.type;
  }
  return sql::Type::Unknown;
}

/// Before the length of a text the server counts a header of four bytes.
int LengthOf(std::string_view modifier) {
  constexpr int kHeader = 4;
  int number = 0;
  std::from_chars(modifier.data(), modifier.data() + modifier.size(), number);
  return number > kHeader ? number - kHeader : 0;
}

constexpr const char* kColumns = R"sql(
SELECT c.relname, c.relkind, a.attname, t.typname, a.atttypmod, a.attnotnull, coalesce(a.attnum = ANY (p.indkey), false),
  a.attcollation = to_regcollation('zef.ci')
FROM pg_class c JOIN pg_attribute a ON a.attrelid = c.oid JOIN pg_type t ON t.oid = a.atttypid
  LEFT JOIN pg_index p ON p.indrelid = c.oid AND p.indisprimary
WHERE c.oid = (SELECT oid FROM pg_class WHERE relnamespace = to_regnamespace(quote_ident(current_schema()))
    AND relkind IN ('r', 'p', 'v', 'm', 'f') AND lower(relname::text COLLATE zef.root) = $1 ORDER BY relname LIMIT 1)
  AND a.attnum > 0 AND NOT a.attisdropped
ORDER BY a.attnum)sql";

constexpr const char* kRelationships = R"sql(
SELECT r.conname FROM pg_class c LEFT JOIN pg_constraint r ON r.conrelid = c.oid
  AND (r.contype = 'f' OR starts_with(obj_description(r.oid, 'pg_constraint'), $2))
WHERE c.relnamespace = to_regnamespace(quote_ident(current_schema())) AND c.relkind IN ('r', 'p', 'v', 'm', 'f')
  AND lower(c.relname::text COLLATE zef.root) = $1
ORDER BY r.oid)sql";

}  // namespace

/// What comes from a row is not worked out when the statement is only planned.
std::string RequireTablesVersion(std::int64_t version) {
  return "SELECT zef.fail('ZF001', v::text) FROM zef.tables_version() AS v WHERE v <> " + std::to_string(version);
}

sql::TableInfo DescribeTable(ServerConnection& connection, std::string_view table) {
  const ResultHandle rows = connection.Query(kColumns, {text::LowerCase(table)});
  sql::TableInfo info;
  for (int row = 0; row < PQntuples(rows.get()); ++row) {
    const auto text = [&](int column) { return std::string_view(PQgetvalue(rows.get(), row, column)); };
    info.name = text(0);
    if (text(1) == "r") info.row_id = "ctid";
    sql::ColumnInfo& column = info.columns.emplace_back();
    column.name = text(2);
    column.type = TypeOfWord(text(3));
    if (sql::IsText(column.type)) column.length = LengthOf(text(4));
    if (column.type == sql::Type::Text && column.length == 0) column.type = sql::Type::Memo;
    column.key = text(6) == "t";
    column.required = column.key || text(5) == "t";
    column.ignores_case = text(7) == "t";
  }
  return info;
}

std::optional<std::vector<std::string>> RelationshipsOf(ServerConnection& connection, std::string_view table) {
  const ResultHandle rows = connection.Query(kRelationships, {text::LowerCase(table), std::string(kRelationship)});
  if (PQntuples(rows.get()) == 0) return std::nullopt;
  std::vector<std::string> names;
  for (int row = 0; row < PQntuples(rows.get()); ++row) {
    if (PQgetisnull(rows.get(), row, 0) == 0) names.emplace_back(PQgetvalue(rows.get(), row, 0));
  }
  return names;
}

std::string ServerType(sql::Type type, int length) {
  for (const TypeWord& word : kWritten) {
    if (word.type != type) continue;
    std::string text(word.declared);
    if (type == sql::Type::Text) text += "(" + std::to_string(length) + ")";
    return sql::IsText(type) ? text + " COLLATE zef.ci" : text;
  }
  throw RunTimeError(FailureNumber::StatementError, "The type of a column is not known.");
}

}  // namespace zef
