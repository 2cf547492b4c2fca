#include "platform/sqlite/schema_change.h"

#include "platform/sql/writing.h"
#include "platform/sqlite/declaration_text.h"
#include "platform/sqlite/sqlite_error.h"
#include "platform/sqlite/sqlite_statement.h"
#include "platform/sqlite/table_description.h"
#include "platform/sqlite/table_text.h"

namespace zef {
namespace {

/// What an index with a text leaves to its companion: rows whose first text has other characters than printable ASCII.
constexpr std::string_view kNotPlain = " GLOB '*[^ -~]*'";
constexpr std::string_view kCompanion = " (other characters)";

class Change {
 public:
  Change(sqlite3* db, const sql::SchemaChange& change, std::optional<RunTimeError>& failure)
      : db_(db), change_(change), failure_(failure) {}

  void CreateTable();
  void CreateIndex();
  void DropTable();
  void DropIndex();
  void AddColumn();
  void AlterColumn();
  void DropColumn();
  void AddConstraints();
  void DropConstraint();

 private:
  void Run(const std::string& text);
  void AddOne(const sql::Constraint& constraint);
  bool FindsIndex(std::string_view name);
  sql::TableInfo Table();
  const sql::ColumnInfo& Column(const sql::TableInfo& table, std::string_view name);
  void MakeIndex(const std::string& name, bool unique, const std::vector<sql::SchemaChange::IndexColumn>& columns);
  std::string UseOf(const std::string& table, const sql::ColumnInfo& column);
  void ConvertValues(const std::string& table, const sql::ColumnInfo& old, const sql::ColumnDefinition& column);
  TableText StoredText(const std::string& table);
  void ReplaceText(const std::string& table, const TableText& text);

  sqlite3* db_;
  const sql::SchemaChange& change_;
  std::optional<RunTimeError>& failure_;
};

void Change::Run(const std::string& text) {
  failure_.reset();
  const int code = sqlite3_exec(db_, text.c_str(), nullptr, nullptr, nullptr);
  if (code != SQLITE_OK && failure_) throw *failure_;
  CheckSqlite(db_, code);
}

/// Among those with a statement of their own; a key of a table is no index to its users.
bool Change::FindsIndex(std::string_view name) {
  const StatementHandle statement =
      PrepareOwn(db_, "SELECT 1 FROM sqlite_schema WHERE type='index' AND sql IS NOT NULL AND name=?1 COLLATE NOCASE");
  sqlite3_bind_text(statement.get(), 1, name.data(), static_cast<int>(name.size()), SQLITE_STATIC);
  return sqlite3_step(statement.get()) == SQLITE_ROW;
}

sql::TableInfo Change::Table() {
  sql::TableInfo table = DescribeTable(db_, change_.table);
  if (table.columns.empty()) {
    throw RunTimeError(FailureNumber::NoSuchTable, "The table '" + change_.table + "' does not exist.");
  }
  return table;
}

const sql::ColumnInfo& Change::Column(const sql::TableInfo& table, std::string_view name) {
  if (const sql::ColumnInfo* column = table.Find(name)) return *column;
  throw RunTimeError(FailureNumber::NoSuchColumn,
                     "The table '" + table.name + "' has no column '" + std::string(name) + "'.");
}

void Change::CreateTable() {
  if (!DescribeTable(db_, change_.table).columns.empty()) {
    throw RunTimeError(FailureNumber::TableExists, "The table '" + change_.table + "' exists already.");
  }
  std::string items;
  for (const sql::ColumnDefinition& column : change_.columns) items += (items.empty() ? "" : ", ") + ColumnText(column);
  for (const sql::Constraint& constraint : change_.constraints) items += ", " + ConstraintText(constraint);
  Run("CREATE TABLE " + QuotedName(change_.table) + " (" + items + ")");
}

void Change::CreateIndex() { MakeIndex(change_.name, change_.unique, change_.index_columns); }

void Change::MakeIndex(const std::string& name, bool unique,
                       const std::vector<sql::SchemaChange::IndexColumn>& columns) {
  const sql::TableInfo table = Table();
  if (FindsIndex(name)) {
    throw RunTimeError(FailureNumber::IndexExists, "The index '" + name + "' exists already.");
  }
  std::string items, text, up_to_text;
  for (const auto& column : columns) {
    const sql::ColumnInfo& info = Column(table, column.name);
    const std::string quoted = QuotedName(info.name);
    items += (items.empty() ? "" : ", ") + quoted + Collation(info.type) + (column.descending ? " DESC" : "");
    if (!text.empty() || !sql::IsText(info.type)) continue;
    text = quoted;
    up_to_text = items;
  }
  const std::string on = " ON " + QuotedName(table.name);
  Run((unique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ") + QuotedName(name) + on + " (" + items + ")");
  if (text.empty()) return;
  Run("CREATE INDEX " + QuotedName(name + std::string(kCompanion)) + on + " (" + up_to_text + ") WHERE " + text +
      std::string(kNotPlain));
}

void Change::DropTable() { Run("DROP TABLE " + QuotedName(Table().name)); }

void Change::DropIndex() {
  Run("DROP INDEX " + QuotedName(change_.name));
  Run("DROP INDEX IF EXISTS " + QuotedName(change_.name + std::string(kCompanion)));
}

void Change::AddColumn() {
  const sql::TableInfo table = Table();
  const sql::ColumnDefinition& column = change_.columns.front();
  if (table.Find(column.name) != nullptr) {
    throw RunTimeError(FailureNumber::ColumnExists,
                       "The table '" + table.name + "' has a column '" + column.name + "' already.");
  }
  Run("ALTER TABLE " + QuotedName(table.name) + " ADD COLUMN " + ColumnText(column));
  AddConstraints();
}

void Change::DropColumn() {
  const sql::TableInfo table = Table();
  const sql::ColumnInfo& column = Column(table, change_.name);
  const std::string use = UseOf(table.name, column);
  const std::string refusal = "The column '" + column.name + "' cannot be dropped: it belongs to " + use + ".";
  if (!use.empty()) throw RunTimeError(FailureNumber::StatementError, refusal);
  Run("ALTER TABLE " + QuotedName(table.name) + " DROP COLUMN " + QuotedName(column.name));
}

/// What would break without the column, in words; empty if nothing would. An index is older than its companion.
std::string Change::UseOf(const std::string& table, const sql::ColumnInfo& column) {
  constexpr std::string_view kUses =
      "SELECT CASE l.origin WHEN 'c' THEN 'the index ''' || l.name || '''' ELSE 'a key of the table' END, l.seq AS age"
      " FROM pragma_index_list(?1) AS l, pragma_index_info(l.name) AS i WHERE i.name=?2"
      " UNION ALL SELECT 'a relationship of the table', -1 FROM pragma_foreign_key_list(?1) AS f"
      " WHERE f.\"from\"=?2 COLLATE NOCASE ORDER BY age DESC";
  if (column.key) return "a key of the table";
  const StatementHandle statement = PrepareOwn(db_, kUses);
  sqlite3_bind_text(statement.get(), 1, table.data(), static_cast<int>(table.size()), SQLITE_STATIC);
  sqlite3_bind_text(statement.get(), 2, column.name.data(), static_cast<int>(column.name.size()), SQLITE_STATIC);
  if (sqlite3_step(statement.get()) != SQLITE_ROW) return {};
  return reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), 0));
}

/// A column that only changes its declared type keeps its values where they are; those of another kind are converted in
/// place.
void Change::AlterColumn() {
  const sql::TableInfo table = Table();
  const sql::ColumnDefinition& column = change_.columns.front();
  const sql::ColumnInfo& old = Column(table, column.name);
  TableText text = StoredText(table.name);
  const bool becomes_text = !sql::IsText(old.type) && !old.ignores_case;
  text.ChangeType(old.name, DeclaredType(column.type, column.length) + (becomes_text ? Collation(column.type) : ""));
  ReplaceText(table.name, text);
  ConvertValues(table.name, old, column);
}

void Change::ConvertValues(const std::string& table, const sql::ColumnInfo& old, const sql::ColumnDefinition& column) {
  struct Converter {
    sql::Type type;
    std::string_view function;
  };
  constexpr Converter kConverters[] = {
      {sql::Type::Boolean, "zef_to_boolean"}, {sql::Type::Byte, "zef_to_byte"},     {sql::Type::Short, "zef_to_short"},
      {sql::Type::Long, "zef_to_long"},       {sql::Type::Double, "zef_to_double"}, {sql::Type::Date, "zef_to_date"},
  };
  const std::string name = QuotedName(old.name);
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
  Run("UPDATE " + QuotedName(table) + " SET " + name + " = " + converted + " WHERE typeof(" + name + ") <> typeof(" +
      converted + ") OR " + name + " IS NOT " + converted);
}

TableText Change::StoredText(const std::string& table) {
  const StatementHandle statement = PrepareOwn(db_, "SELECT sql FROM sqlite_schema WHERE type='table' AND name=?1");
  sqlite3_bind_text(statement.get(), 1, table.data(), static_cast<int>(table.size()), SQLITE_STATIC);
  if (sqlite3_step(statement.get()) != SQLITE_ROW) {
    throw RunTimeError(FailureNumber::StatementError, "'" + table + "' is not a table.");
  }
  return TableText(reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), 0)));
}

/// The engine itself has no statement for these changes. Editing the stored text is safe because none of them moves
/// what is stored in the rows; the new text is parsed again before the transaction can be committed.
void Change::ReplaceText(const std::string& table, const TableText& text) {
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

void Change::AddConstraints() {
  for (const sql::Constraint& constraint : change_.constraints) AddOne(constraint);
}

void Change::AddOne(const sql::Constraint& constraint) {
  const sql::TableInfo table = Table();
  for (const std::string& column : constraint.columns) Column(table, column);
  if (constraint.kind == sql::Constraint::Kind::PrimaryKey) {
    throw RunTimeError(FailureNumber::StatementError, "A table's primary key is declared when it is made.");
  }
  if (constraint.kind == sql::Constraint::Kind::Unique) {
    std::vector<sql::SchemaChange::IndexColumn> columns;
    for (const std::string& column : constraint.columns) columns.push_back({column, false});
    return MakeIndex(constraint.name, true, columns);
  }
  TableText text = StoredText(table.name);
  text.AddConstraint(" " + ConstraintText(constraint));
  ReplaceText(table.name, text);
}

void Change::DropConstraint() {
  const sql::TableInfo table = Table();
  if (FindsIndex(change_.name)) return DropIndex();
  TableText text = StoredText(table.name);
  if (!text.RemoveConstraint(change_.name)) {
    throw RunTimeError(FailureNumber::StatementError,
                       "The table '" + table.name + "' has no constraint '" + change_.name + "'.");
  }
  ReplaceText(table.name, text);
}

}  // namespace

void ApplySchemaChange(sqlite3* db, const sql::SchemaChange& change, std::optional<RunTimeError>& failure) {
  using Kind = sql::SchemaChange::Kind;
  struct Step {
    Kind kind;
    void (Change::*run)();
  };
  const Step steps[] = {
      {Kind::CreateTable, &Change::CreateTable},       {Kind::CreateIndex, &Change::CreateIndex},
      {Kind::DropTable, &Change::DropTable},           {Kind::DropIndex, &Change::DropIndex},
      {Kind::AddColumn, &Change::AddColumn},           {Kind::AlterColumn, &Change::AlterColumn},
      {Kind::DropColumn, &Change::DropColumn},         {Kind::AddConstraint, &Change::AddConstraints},
      {Kind::DropConstraint, &Change::DropConstraint},
  };
  Change applied(db, change, failure);
  for (const Step& step : steps) {
    if (step.kind == change.kind) (applied.*step.run)();
  }
}

}  // namespace zef
