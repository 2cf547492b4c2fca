#include "platform/postgresql/schema_change.h"

#include "platform/postgresql/postgresql_dialect.h"
#include "platform/postgresql/table_description.h"
#include "platform/run_time_error.h"
#include "platform/sql/limits.h"
#include "platform/sql/writing.h"
#include "platform/text.h"

namespace zef {
namespace {

using sql::Quoted;

[[noreturn]] void Refuse(const std::string& sentence) { throw RunTimeError(FailureNumber::StatementError, sentence); }

/// The server would cut a longer name short, and it would not be found again.
std::string NameOf(const std::string& name) {
  constexpr std::size_t kMostBytes = 63;
  if (name.size() > kMostBytes) Refuse("The name '" + name + "' is too long: the server takes 63 bytes.");
  return Quoted(name);
}

std::string Names(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) sql::AppendItem(text, NameOf(name));
  return text;
}

std::string ColumnText(const sql::ColumnDefinition& column) {
  std::string text = NameOf(column.name) + " " + ServerType(column.type, column.length);
  if (column.required || column.primary_key) text += " NOT NULL";
  if (column.primary_key) text += " PRIMARY KEY";
  if (column.unique) text += " UNIQUE";
  return text;
}

class Change {
 public:
  Change(ServerConnection& connection, const sql::SchemaChange& change) : connection_(connection), change_(change) {}

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
  void Run(const std::string& text) { connection_.Query(text); }
  std::string Found(const char* query, const std::vector<std::string>& parameters);
  std::string IndexNamed(const std::string& name);
  void RequireNoIndex(const std::string& name);
  sql::TableInfo Table();
  const sql::ColumnInfo& Column(const sql::TableInfo& table, std::string_view name);
  std::string UseOf(const std::string& table, const sql::ColumnInfo& column);
  std::string Converted(const sql::ColumnInfo& old, const sql::ColumnDefinition& column);
  void AddOne(const sql::TableInfo& table, const sql::Constraint& constraint);
  void AddRelationship(const sql::TableInfo& table, const sql::Constraint& constraint);
  void Alter(const sql::TableInfo& table, const std::string& what) {
    Run("ALTER TABLE " + Quoted(table.name) + " " + what);
  }

  ServerConnection& connection_;
  const sql::SchemaChange& change_;
};

/// The first value of a query's first row, or the empty text.
std::string Change::Found(const char* query, const std::vector<std::string>& parameters) {
  const ResultHandle rows = connection_.Query(query, parameters);
  return PQntuples(rows.get()) == 0 ? std::string() : std::string(PQgetvalue(rows.get(), 0, 0));
}

/// Among those with a statement of their own; a key of a table is no index to its users.
std::string Change::IndexNamed(const std::string& name) {
  return Found(
      "SELECT c.relname FROM pg_class c WHERE c.relnamespace = to_regnamespace(quote_ident(current_schema()))"
      " AND c.relkind = 'i' AND lower(c.relname::text COLLATE zef.root) = $1"
      " AND NOT EXISTS (SELECT 1 FROM pg_constraint k WHERE k.conindid = c.oid AND k.contype = 'p')",
      {text::LowerCase(name)});
}

void Change::RequireNoIndex(const std::string& name) {
  if (IndexNamed(name).empty()) return;
  throw RunTimeError(FailureNumber::IndexExists, "The index '" + name + "' exists already.");
}

sql::TableInfo Change::Table() {
  sql::TableInfo table = DescribeTable(connection_, change_.table);
  if (!table.columns.empty()) return table;
  throw RunTimeError(FailureNumber::NoSuchTable, "The table '" + change_.table + "' does not exist.");
}

const sql::ColumnInfo& Change::Column(const sql::TableInfo& table, std::string_view name) {
  if (const sql::ColumnInfo* column = table.Find(name)) return *column;
  throw RunTimeError(FailureNumber::NoSuchColumn,
                     "The table '" + table.name + "' has no column '" + std::string(name) + "'.");
}

void Change::CreateTable() {
  if (!DescribeTable(connection_, change_.table).columns.empty()) {
    throw RunTimeError(FailureNumber::TableExists, "The table '" + change_.table + "' exists already.");
  }
  std::string items;
  for (const sql::ColumnDefinition& column : change_.columns) sql::AppendItem(items, ColumnText(column));
  Run("CREATE TABLE " + NameOf(change_.table) + " (" + items + ")");
  if (!change_.constraints.empty()) AddConstraints();
}

/// Null comes first in the dialect's order, so it does in an index that serves it.
void Change::CreateIndex() {
  const sql::TableInfo table = Table();
  RequireNoIndex(change_.name);
  std::string items;
  for (const auto& column : change_.index_columns) {
    const std::string order = PostgresqlDialect().Direction(column.descending);
    sql::AppendItem(items, Quoted(Column(table, column.name).name) + order);
  }
  Run((change_.unique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ") + NameOf(change_.name) + " ON " + Quoted(table.name) +
      " (" + items + ")");
}

void Change::DropTable() { Run("DROP TABLE " + Quoted(Table().name)); }

void Change::DropIndex() {
  const std::string index = IndexNamed(change_.name);
  if (index.empty()) Refuse("The index '" + change_.name + "' does not exist.");
  Run("DROP INDEX " + Quoted(index));
}

void Change::AddColumn() {
  const sql::TableInfo table = Table();
  const sql::ColumnDefinition& column = change_.columns.front();
  if (table.Find(column.name) != nullptr) {
    throw RunTimeError(FailureNumber::ColumnExists,
                       "The table '" + table.name + "' has a column '" + column.name + "' already.");
  }
  Alter(table, "ADD COLUMN " + ColumnText(column));
  if (!change_.constraints.empty()) AddConstraints();
}

void Change::DropColumn() {
  const sql::TableInfo table = Table();
  const sql::ColumnInfo& column = Column(table, change_.name);
  const std::string use = UseOf(table.name, column);
  if (!use.empty()) Refuse("The column '" + column.name + "' cannot be dropped: it belongs to " + use + ".");
  Alter(table, "DROP COLUMN " + Quoted(column.name));
}

/// What would break without the column, in words; empty if nothing would. The oldest index is named.
std::string Change::UseOf(const std::string& table, const sql::ColumnInfo& column) {
  if (column.key) return "a key of the table";
  const std::string index = Found(
      "SELECT CASE WHEN k.oid IS NULL THEN 'the index ''' || n.relname || '''' ELSE 'a key of the table' END"
      " FROM pg_index i JOIN pg_class c ON c.oid = i.indrelid JOIN pg_class n ON n.oid = i.indexrelid"
      " JOIN pg_attribute a ON a.attrelid = c.oid AND a.attnum = ANY (i.indkey)"
      " LEFT JOIN pg_constraint k ON k.conindid = i.indexrelid"
      " WHERE c.oid = to_regclass($1) AND a.attname = $2 ORDER BY n.oid LIMIT 1",
      {Quoted(table), column.name});
  if (!index.empty()) return index;
  return Found(
      "SELECT 'a relationship of the table' FROM pg_constraint k JOIN pg_attribute a ON a.attrelid = k.conrelid"
      " AND a.attnum = ANY (k.conkey) WHERE k.conrelid = to_regclass($1) AND a.attname = $2 LIMIT 1",
      {Quoted(table), column.name});
}

void Change::AlterColumn() {
  const sql::TableInfo table = Table();
  const sql::ColumnDefinition& column = change_.columns.front();
  const sql::ColumnInfo& old = Column(table, column.name);
  Alter(table, "ALTER COLUMN " + Quoted(old.name) + " TYPE " + ServerType(column.type, column.length) + " USING " +
                   Converted(old, column));
}

std::string Change::Converted(const sql::ColumnInfo& old, const sql::ColumnDefinition& column) {
  struct Converter {
    sql::Type type;
    std::string_view function;
  };
  constexpr Converter kConverters[] = {
      {sql::Type::Boolean, "to_boolean"}, {sql::Type::Byte, "to_byte"},     {sql::Type::Short, "to_short"},
      {sql::Type::Long, "to_long"},       {sql::Type::Double, "to_double"}, {sql::Type::Date, "to_date"},
      {sql::Type::Text, "to_text"},       {sql::Type::Memo, "to_text"},
  };
  const PostgresqlDialect dialect;
  std::string value = Quoted(old.name);
  if (old.type == column.type && !sql::IsText(old.type)) return value;
  value = old.type == sql::Type::Boolean && sql::IsText(column.type) ? "zef.boolean_text(" + value + ")"
                                                                     : dialect.Cast(value, old.type, column.type);
  if (sql::IsText(column.type)) value += ", " + std::to_string(column.length);
  for (const Converter& known : kConverters) {
    if (known.type != column.type) continue;
    return "zef." + std::string(known.function) + "(" + value + ", " + sql::QuotedText(old.name) + ")";
  }
  return value;
}

void Change::AddConstraints() {
  const sql::TableInfo table = Table();
  for (const sql::Constraint& constraint : change_.constraints) AddOne(table, constraint);
}

void Change::AddOne(const sql::TableInfo& table, const sql::Constraint& constraint) {
  std::vector<std::string> columns;
  for (const std::string& column : constraint.columns) columns.push_back(Column(table, column).name);
  const std::string named = constraint.name.empty() ? "ADD " : "ADD CONSTRAINT " + NameOf(constraint.name) + " ";
  switch (constraint.kind) {
    case sql::Constraint::Kind::PrimaryKey:
      if (change_.kind != sql::SchemaChange::Kind::CreateTable) {
        Refuse("A table's primary key is declared when it is made.");
      }
      return Alter(table, named + "PRIMARY KEY (" + Names(columns) + ")");
    case sql::Constraint::Kind::Unique:
      if (!constraint.name.empty()) RequireNoIndex(constraint.name);
      return Alter(table, named + "UNIQUE (" + Names(columns) + ")");
    case sql::Constraint::Kind::ForeignKey: return AddRelationship(table, constraint);
  }
}

/// A relationship is a name for columns and is not enforced, so it is a constraint that always holds.
void Change::AddRelationship(const sql::TableInfo& table, const sql::Constraint& constraint) {
  std::string name = constraint.name;
  if (name.empty()) return;
  std::string columns;
  for (const std::string& column : constraint.columns) {
    sql::AppendItem(columns, Quoted(Column(table, column).name));
  }
  Alter(table, "ADD CONSTRAINT " + NameOf(name) + " CHECK (true OR (" + columns + ") IS NULL) NOT VALID");
  Run("COMMENT ON CONSTRAINT " + Quoted(name) + " ON " + Quoted(table.name) + " IS " +
      sql::QuotedText(std::string(kRelationship) + " to " + constraint.foreign_table));
}

void Change::DropConstraint() {
  const sql::TableInfo table = Table();
  const std::string name = Found(
      "SELECT conname FROM pg_constraint WHERE conrelid = to_regclass($1) AND lower(conname::text COLLATE zef.root) = "
      "$2"
      " AND contype <> 'p'",
      {Quoted(table.name), text::LowerCase(change_.name)});
  if (!name.empty()) return Alter(table, "DROP CONSTRAINT " + Quoted(name));
  if (!IndexNamed(change_.name).empty()) return DropIndex();
  Refuse("The table '" + table.name + "' has no constraint '" + change_.name + "'.");
}

}  // namespace

void ApplySchemaChange(ServerConnection& connection, const sql::SchemaChange& change) {
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
  Change applied(connection, change);
  for (const Step& step : steps) {
    if (step.kind == change.kind) (applied.*step.run)();
  }
}

}  // namespace zef
