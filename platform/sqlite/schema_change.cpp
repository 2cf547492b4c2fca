#include "platform/sqlite/schema_change.h"

#include "platform/sql/schema_changer.h"
#include "platform/sql/writing.h"
#include "platform/sqlite/declaration_text.h"
#include "platform/sqlite/sqlite_error.h"
#include "platform/sqlite/sqlite_statement.h"
#include "platform/sqlite/table_description.h"
#include "platform/sqlite/table_text.h"

namespace zef {
namespace {

using sql::Quoted;
using IndexColumns = std::vector<sql::SchemaChange::IndexColumn>;

/// What an index with a text leaves to its companion: rows whose first text has other characters than printable ASCII.
constexpr std::string_view kNotPlain = " GLOB '*[^ -~]*'";
constexpr std::string_view kCompanion = " (other characters)";

class FileChanger final : public sql::SchemaChanger {
 public:
  FileChanger(sqlite3* db, const sql::SchemaChange& change, std::optional<RunTimeError>& failure)
      : SchemaChanger(change), db_(db), failure_(failure) {}

 private:
  void Run(const std::string& text) override;
  sql::TableInfo Describe(std::string_view table) override { return DescribeTable(db_, table); }
  std::string IndexNamed(const std::string& name) override;
  std::string UseOf(const sql::TableInfo& table, const sql::ColumnInfo& column) override;
  std::string Declared(const sql::ColumnDefinition& column) override { return DeclaredColumn(column); }
  void MakeTable() override;
  void MakeIndex(const sql::TableInfo& table) override;
  void RemoveIndex(const std::string& index) override;
  void ChangeColumn(const sql::TableInfo& table, const sql::ColumnInfo& old,
                    const sql::ColumnDefinition& column) override;
  void MakeConstraint(const sql::TableInfo& table, const sql::Constraint& constraint) override;
  bool RemoveConstraint(const sql::TableInfo& table) override;

  void IndexTable(const sql::TableInfo& table, const std::string& name, bool unique, const IndexColumns& columns);
  void ConvertValues(const std::string& table, const sql::ColumnInfo& old, const sql::ColumnDefinition& column);
  TableText StoredText(const std::string& table);
  void ReplaceText(const std::string& table, const TableText& text);

  sqlite3* db_;
  std::optional<RunTimeError>& failure_;
};

void FileChanger::Run(const std::string& text) {
  failure_.reset();
  const int code = sqlite3_exec(db_, text.c_str(), nullptr, nullptr, nullptr);
  if (code != SQLITE_OK && failure_) throw *failure_;
  CheckSqlite(db_, code);
}

std::string FileChanger::IndexNamed(const std::string& name) {
  const StatementHandle statement = PrepareOwn(
      db_, "SELECT name FROM sqlite_schema WHERE type='index' AND sql IS NOT NULL AND name=?1 COLLATE NOCASE");
  sqlite3_bind_text(statement.get(), 1, name.data(), static_cast<int>(name.size()), SQLITE_STATIC);
  if (sqlite3_step(statement.get()) != SQLITE_ROW) return {};
  return reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), 0));
}

void FileChanger::MakeTable() {
  std::string items;
  for (const sql::ColumnDefinition& column : change().columns) sql::AppendItem(items, DeclaredColumn(column));
  for (const sql::Constraint& constraint : change().constraints) sql::AppendItem(items, ConstraintText(constraint));
  Run("CREATE TABLE " + Quoted(change().table) + " (" + items + ")");
}

void FileChanger::MakeIndex(const sql::TableInfo& table) {
  IndexTable(table, change().name, change().unique, change().index_columns);
}

void FileChanger::IndexTable(const sql::TableInfo& table, const std::string& name, bool unique,
                             const IndexColumns& columns) {
  std::string items, text, up_to_text;
  for (const auto& column : columns) {
    const sql::ColumnInfo& info = Column(table, column.name);
    const std::string quoted = Quoted(info.name);
    sql::AppendItem(items, quoted + Collation(info.type) + (column.descending ? " DESC" : ""));
    if (!text.empty() || !sql::IsText(info.type)) continue;
    text = quoted;
    up_to_text = items;
  }
  const std::string on = " ON " + Quoted(table.name);
  Run((unique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ") + Quoted(name) + on + " (" + items + ")");
  if (text.empty()) return;
  Run("CREATE INDEX " + Quoted(name + std::string(kCompanion)) + on + " (" + up_to_text + ") WHERE " + text +
      std::string(kNotPlain));
}

void FileChanger::RemoveIndex(const std::string& index) {
  Run("DROP INDEX " + Quoted(index));
  Run("DROP INDEX IF EXISTS " + Quoted(index + std::string(kCompanion)));
}

/// An index is older than its companion.
std::string FileChanger::UseOf(const sql::TableInfo& table, const sql::ColumnInfo& column) {
  constexpr std::string_view kUses =
      "SELECT CASE l.origin WHEN 'c' THEN 'the index ''' || l.name || '''' ELSE 'a key of the table' END, l.seq AS age"
      " FROM pragma_index_list(?1) AS l, pragma_index_info(l.name) AS i WHERE i.name=?2"
      " UNION ALL SELECT 'a relationship of the table', -1 FROM pragma_foreign_key_list(?1) AS f"
      " WHERE f.\"from\"=?2 COLLATE NOCASE ORDER BY age DESC";
  const StatementHandle statement = PrepareOwn(db_, kUses);
  sqlite3_bind_text(statement.get(), 1, table.name.data(), static_cast<int>(table.name.size()), SQLITE_STATIC);
  sqlite3_bind_text(statement.get(), 2, column.name.data(), static_cast<int>(column.name.size()), SQLITE_STATIC);
  if (sqlite3_step(statement.get()) != SQLITE_ROW) return {};
  return reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), 0));
}

/// A column that only changes its declared type keeps its values where they are; those of another kind are converted in
/// place.
void FileChanger::ChangeColumn(const sql::TableInfo& table, const sql::ColumnInfo& old,
                               const sql::ColumnDefinition& column) {
  TableText text = StoredText(table.name);
  const bool becomes_text = !sql::IsText(old.type) && !old.ignores_case;
  text.ChangeType(old.name, DeclaredType(column.type, column.length) + (becomes_text ? Collation(column.type) : ""));
  ReplaceText(table.name, text);
  ConvertValues(table.name, old, column);
}

void FileChanger::ConvertValues(const std::string& table, const sql::ColumnInfo& old,
                                const sql::ColumnDefinition& column) {
  struct Converter {
    sql::Type type;
    std::string_view function;
  };
  constexpr Converter kConverters[] = {
      {sql::Type::Boolean, "zef_to_boolean"}, {sql::Type::Byte, "zef_to_byte"},     {sql::Type::Short, "zef_to_short"},
      {sql::Type::Long, "zef_to_long"},       {sql::Type::Double, "zef_to_double"}, {sql::Type::Date, "zef_to_date"},
  };
  const std::string name = Quoted(old.name);
  const bool dates_to_text = old.type == sql::Type::Date && sql::IsText(column.type);
  const std::string source = dates_to_text ? "zef_date_text(" + name + ")" : name;
  const std::string told_as = ", " + sql::QuotedText(old.name) + ")";
  std::string converted;
  if (sql::IsText(column.type)) {
    const bool fits = sql::IsText(old.type) && (column.length == 0 || (old.length > 0 && old.length <= column.length));
    if (fits) return;
    converted = "zef_to_text(" + source + ", " + std::to_string(column.length) + told_as;
  }
  for (const Converter& known : kConverters) {
    if (known.type == column.type && known.type != old.type)
      converted = std::string(known.function) + "(" + name + told_as;
  }
  if (converted.empty()) return;
  // A comparison alone would convert one side to the column's new kind first.
  Run("UPDATE " + Quoted(table) + " SET " + name + " = " + converted + " WHERE typeof(" + name + ") <> typeof(" +
      converted + ") OR " + name + " IS NOT " + converted);
}

TableText FileChanger::StoredText(const std::string& table) {
  const StatementHandle statement = PrepareOwn(db_, "SELECT sql FROM sqlite_schema WHERE type='table' AND name=?1");
  sqlite3_bind_text(statement.get(), 1, table.data(), static_cast<int>(table.size()), SQLITE_STATIC);
  if (sqlite3_step(statement.get()) != SQLITE_ROW) {
    throw RunTimeError(FailureNumber::StatementError, "'" + table + "' is not a table.");
  }
  return TableText(reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), 0)));
}

/// The engine itself has no statement for these changes. Editing the stored text is safe because none of them moves
/// what is stored in the rows; the new text is parsed again before the transaction can be committed.
void FileChanger::ReplaceText(const std::string& table, const TableText& text) {
  Run("PRAGMA writable_schema=ON");
  const StatementHandle statement = PrepareOwn(db_, "UPDATE sqlite_schema SET sql=?2 WHERE type='table' AND name=?1");
  const std::string changed = text.Text();
  sqlite3_bind_text(statement.get(), 1, table.data(), static_cast<int>(table.size()), SQLITE_STATIC);
  sqlite3_bind_text(statement.get(), 2, changed.data(), static_cast<int>(changed.size()), SQLITE_STATIC);
  sqlite3_step(statement.get());
  CheckSqlite(db_, sqlite3_reset(statement.get()));
  const StatementHandle version = PrepareOwn(db_, "PRAGMA schema_version");
  sqlite3_step(version.get());
  const std::string next = std::to_string(sqlite3_column_int64(version.get(), 0) + 1);
  sqlite3_reset(version.get());
  Run("PRAGMA schema_version=" + next + "; PRAGMA writable_schema=RESET");
  if (DescribeTable(db_, table).columns.empty()) {
    throw RunTimeError(FailureNumber::StatementError, "The table '" + table + "' cannot be changed.");
  }
}

void FileChanger::MakeConstraint(const sql::TableInfo& table, const sql::Constraint& constraint) {
  if (constraint.kind == sql::Constraint::Kind::Unique) {
    RequireNoIndex(constraint.name);
    IndexColumns columns;
    for (const std::string& column : constraint.columns) columns.push_back({column, false});
    return IndexTable(table, constraint.name, true, columns);
  }
  TableText text = StoredText(table.name);
  text.AddConstraint(" " + ConstraintText(constraint));
  ReplaceText(table.name, text);
}

bool FileChanger::RemoveConstraint(const sql::TableInfo& table) {
  TableText text = StoredText(table.name);
  if (!text.RemoveConstraint(change().name)) return false;
  ReplaceText(table.name, text);
  return true;
}

}  // namespace

void ApplySchemaChange(sqlite3* db, const sql::SchemaChange& change, std::optional<RunTimeError>& failure) {
  FileChanger(db, change, failure).Apply();
}

}  // namespace zef
