#include "platform/sqlite/table_description.h"

#include <charconv>
#include <set>

#include "platform/sqlite/sqlite_error.h"
#include "platform/sqlite/sqlite_statement.h"
#include "platform/sqlite/table_text.h"
#include "platform/text.h"

namespace zef {
namespace {

struct TypeWord {
  std::string_view declared;
  sql::Type type;
};

/// The words that this library writes; each has the storage class that its values need.
constexpr TypeWord kWritten[] = {
    {"BOOLEAN", sql::Type::Boolean}, {"TINYINT", sql::Type::Byte},  {"SMALLINT", sql::Type::Short},
    {"INTEGER", sql::Type::Long},    {"DOUBLE", sql::Type::Double}, {"DATETIME REAL", sql::Type::Date},
    {"TEXT", sql::Type::Memo},       {"BLOB", sql::Type::Binary},
};

/// Tables made by other programs: a declaration that contains the word has the type.
constexpr TypeWord kForeign[] = {
    {"DATETIME", sql::Type::Date}, {"INT", sql::Type::Long},    {"CHAR", sql::Type::Text},
    {"TEXT", sql::Type::Text},     {"CLOB", sql::Type::Text},   {"BLOB", sql::Type::Binary},
    {"REAL", sql::Type::Double},   {"FLOA", sql::Type::Double}, {"DOUB", sql::Type::Double},
};

sql::Type TypeOfWord(const std::string& declared) {
  for (const TypeWord& word : kWritten) {
    if (word.declared == declared) return word.type;
  }
  for (const TypeWord& word : kForeign) {
    if (declared.find(word.declared) != std::string::npos) return word.type;
  }
  return sql::Type::Unknown;
}

void ReadType(std::string declared, sql::ColumnInfo& column) {
  declared = text::UpperCase(declared);
  const std::size_t bracket = declared.find('(');
  if (bracket != std::string::npos) {
    std::from_chars(declared.data() + bracket + 1, declared.data() + declared.size(), column.length);
    declared.resize(bracket);
  }
  column.type = TypeOfWord(declared);
  if (sql::IsText(column.type)) column.type = column.length > 0 ? sql::Type::Text : sql::Type::Memo;
}

std::string TextAt(sqlite3_stmt* statement, int column) {
  const auto* data = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
  return data == nullptr ? std::string() : std::string(data);
}

/// Runs a query about a table and calls `row` for each row.
template <class Row>
void Query(sqlite3* db, std::string_view text, std::string_view table, Row row) {
  const StatementHandle statement = PrepareOwn(db, text);
  sqlite3_bind_text(statement.get(), 1, table.data(), static_cast<int>(table.size()), SQLITE_STATIC);
  while (sqlite3_step(statement.get()) == SQLITE_ROW) row(statement.get());
  CheckSqlite(db, sqlite3_reset(statement.get()));
}

bool IgnoresCase(sqlite3* db, const std::string& table, const std::string& column) {
  const char* collation = nullptr;
  const int code = sqlite3_table_column_metadata(db, nullptr, table.c_str(), column.c_str(), nullptr, &collation,
                                                 nullptr, nullptr, nullptr);
  return code == SQLITE_OK && collation != nullptr && text::EqualNames(collation, "NOCASE");
}

/// The engine gives way where a column bears one of its names. Views and tables that are trees of their key have none.
std::string RowIdOf(sqlite3* db, const sql::TableInfo& table) {
  for (const char* name : {"rowid", "_rowid_", "oid"}) {
    const bool known = sqlite3_table_column_metadata(db, nullptr, table.name.c_str(), name, nullptr, nullptr, nullptr,
                                                     nullptr, nullptr) == SQLITE_OK;
    if (known && table.Find(name) == nullptr) return name;
  }
  return {};
}

}  // namespace

sql::TableInfo DescribeTable(sqlite3* db, std::string_view table) {
  sql::TableInfo info;
  Query(db, "SELECT name FROM sqlite_schema WHERE type IN ('table','view') AND name=?1 COLLATE NOCASE", table,
        [&](sqlite3_stmt* row) { info.name = TextAt(row, 0); });
  if (info.name.empty() || info.name.starts_with("sqlite_")) return {};
  std::set<std::string> leading;
  Query(db,
        "SELECT i.name FROM pragma_index_list(?1) AS l, pragma_index_info(l.name) AS i WHERE i.seqno=0 AND l.partial=0",
        info.name, [&](sqlite3_stmt* row) { leading.insert(TextAt(row, 0)); });
  Query(db, "SELECT name, type, \"notnull\", pk FROM pragma_table_xinfo(?1) WHERE hidden<>1", info.name,
        [&](sqlite3_stmt* row) {
          sql::ColumnInfo column;
          column.name = TextAt(row, 0);
          ReadType(TextAt(row, 1), column);
          column.key = sqlite3_column_int(row, 3) > 0;
          column.required = column.key || sqlite3_column_int(row, 2) != 0;
          column.ignores_case = sql::IsText(column.type) && IgnoresCase(db, info.name, column.name);
          column.leads_index = leading.count(column.name) > 0;
          info.columns.push_back(std::move(column));
        });
  info.row_id = RowIdOf(db, info);
  return info;
}

/// The engine lists the columns of relationships, but only the stored text of the table has their names.
std::optional<std::vector<std::string>> RelationshipsOf(sqlite3* db, std::string_view table) {
  std::optional<std::vector<std::string>> names;
  Query(db,
        "SELECT type='table', sql FROM sqlite_schema WHERE type IN ('table','view') AND name NOT GLOB 'sqlite_*' AND "
        "name=?1 COLLATE NOCASE",
        table, [&](sqlite3_stmt* row) {
          names.emplace();
          if (sqlite3_column_int(row, 0) != 0) names = TableText(TextAt(row, 1)).Relationships();
        });
  return names;
}

std::string DeclaredType(sql::Type type, int length) {
  if (type == sql::Type::Text) return "TEXT(" + std::to_string(length) + ")";
  for (const TypeWord& word : kWritten) {
    if (word.type == type) return std::string(word.declared);
  }
  throw RunTimeError(FailureNumber::StatementError, "The type of a column is not known.");
}

}  // namespace zef
