#include "platform/postgresql/schema_change.h"

#include "platform/postgresql/postgresql_dialect.h"
#include "platform/postgresql/table_description.h"
#include "platform/sql/schema_changer.h"
#include "platform/sql/writing.h"
#include "platform/text.h"

namespace zef {
namespace {

using sql::Quoted;

/// The server would cut a longer name short, and it would not be found again.
void RequireShort(const std::string& name) {
  constexpr std::size_t kMostBytes = 63;
  if (name.size() > kMostBytes) sql::Refuse("The name '" + name + "' is too long: the server takes 63 bytes.");
}

std::string NewName(const std::string& name) {
  RequireShort(name);
  return Quoted(name);
}

class ServerChanger final : public sql::SchemaChanger {
 public:
  ServerChanger(ServerConnection& connection, const sql::SchemaChange& change)
      : SchemaChanger(change), connection_(connection) {}

 private:
  void Run(const std::string& text) override { connection_.Query(text); }
  sql::TableInfo Describe(std::string_view table) override { return DescribeTable(connection_, table); }
  std::string IndexNamed(const std::string& name) override;
  std::string UseOf(const sql::TableInfo& table, const sql::ColumnInfo& column) override;
  std::string Declared(const sql::ColumnDefinition& column) override;
  void MakeTable() override;
  void MakeIndex(const sql::TableInfo& table) override;
  void RemoveIndex(const std::string& index) override { Run("DROP INDEX " + Quoted(index)); }
  void ChangeColumn(const sql::TableInfo& table, const sql::ColumnInfo& old,
                    const sql::ColumnDefinition& column) override;
  void MakeConstraint(const sql::TableInfo& table, const sql::Constraint& constraint) override;
  bool RemoveConstraint(const sql::TableInfo& table) override;

  std::string Found(const char* query, const std::vector<std::string>& parameters);
  std::string Names(const sql::TableInfo& table, const sql::Constraint& constraint);
  std::string Converted(const sql::ColumnInfo& old, const sql::ColumnDefinition& column);
  void AddRelationship(const sql::TableInfo& table, const sql::Constraint& constraint);
  void Alter(const sql::TableInfo& table, const std::string& what) {
    Run("ALTER TABLE " + Quoted(table.name) + " " + what);
  }

  ServerConnection& connection_;
};

/// The first value of a query's first row, or the empty text.
std::string ServerChanger::Found(const char* query, const std::vector<std::string>& parameters) {
  const ResultHandle rows = connection_.Query(query, parameters);
  return PQntuples(rows.get()) == 0 ? std::string() : std::string(PQgetvalue(rows.get(), 0, 0));
}

std::string ServerChanger::IndexNamed(const std::string& name) {
  return Found(
      "SELECT c.relname FROM pg_class c WHERE c.relnamespace = to_regnamespace(quote_ident(current_schema()))"
      " AND c.relkind = 'i' AND lower(c.relname::text COLLATE zef.root) = $1"
      " AND NOT EXISTS (SELECT 1 FROM pg_constraint k WHERE k.conindid = c.oid AND k.contype = 'p')",
      {text::LowerCase(name)});
}

std::string ServerChanger::Declared(const sql::ColumnDefinition& column) {
  RequireShort(column.name);
  return sql::ColumnText(column, ServerType(column.type, column.length));
}

void ServerChanger::MakeTable() {
  std::string items;
  for (const sql::ColumnDefinition& column : change().columns) sql::AppendItem(items, Declared(column));
  Run("CREATE TABLE " + NewName(change().table) + " (" + items + ")");
  if (!change().constraints.empty()) AddConstraints();
}

/// Null comes first in the dialect's order, so it does in an index that serves it.
void ServerChanger::MakeIndex(const sql::TableInfo& table) {
  std::string items;
  for (const auto& column : change().index_columns) {
    const std::string order = PostgresqlDialect().Direction(column.descending);
    sql::AppendItem(items, Quoted(Column(table, column.name).name) + order);
  }
  Run((change().unique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ") + NewName(change().name) + " ON " +
      Quoted(table.name) + " (" + items + ")");
}

/// The oldest index is named.
std::string ServerChanger::UseOf(const sql::TableInfo& table, const sql::ColumnInfo& column) {
  const std::string index = Found(
      "SELECT CASE WHEN k.oid IS NULL THEN 'the index ''' || n.relname || '''' ELSE 'a key of the table' END"
      " FROM pg_index i JOIN pg_class c ON c.oid = i.indrelid JOIN pg_class n ON n.oid = i.indexrelid"
      " JOIN pg_attribute a ON a.attrelid = c.oid AND a.attnum = ANY (i.indkey)"
      " LEFT JOIN pg_constraint k ON k.conindid = i.indexrelid"
      " WHERE c.oid = to_regclass($1) AND a.attname = $2 ORDER BY n.oid LIMIT 1",
      {Quoted(table.name), column.name});
  if (!index.empty()) return index;
  return Found(
      "SELECT 'a relationship of the table' FROM pg_constraint k JOIN pg_attribute a ON a.attrelid = k.conrelid"
      " AND a.attnum = ANY (k.conkey) WHERE k.conrelid = to_regclass($1) AND a.attname = $2 LIMIT 1",
      {Quoted(table.name), column.name});
}

void ServerChanger::ChangeColumn(const sql::TableInfo& table, const sql::ColumnInfo& old,
                                 const sql::ColumnDefinition& column) {
  Alter(table, "ALTER COLUMN " + Quoted(old.name) + " TYPE " + ServerType(column.type, column.length) + " USING " +
                   Converted(old, column));
}

std::string ServerChanger::Converted(const sql::ColumnInfo& old, const sql::ColumnDefinition& column) {
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

/// The columns of a constraint as they were declared.
std::string ServerChanger::Names(const sql::TableInfo& table, const sql::Constraint& constraint) {
  std::string names;
  for (const std::string& column : constraint.columns) sql::AppendItem(names, Quoted(Column(table, column).name));
  return names;
}

void ServerChanger::MakeConstraint(const sql::TableInfo& table, const sql::Constraint& constraint) {
  if (constraint.kind == sql::Constraint::Kind::ForeignKey) return AddRelationship(table, constraint);
  const bool unique = constraint.kind == sql::Constraint::Kind::Unique;
  if (unique && !constraint.name.empty()) RequireNoIndex(constraint.name);
  const std::string named = constraint.name.empty() ? "" : "CONSTRAINT " + NewName(constraint.name) + " ";
  Alter(table, "ADD " + named + (unique ? "UNIQUE (" : "PRIMARY KEY (") + Names(table, constraint) + ")");
}

/// A relationship is a name for columns and is not enforced, so it is a constraint that always holds.
void ServerChanger::AddRelationship(const sql::TableInfo& table, const sql::Constraint& constraint) {
  if (constraint.name.empty()) return;
  const std::string name = NewName(constraint.name);
  Alter(table, "ADD CONSTRAINT " + name + " CHECK (true OR (" + Names(table, constraint) + ") IS NULL) NOT VALID");
  Run("COMMENT ON CONSTRAINT " + name + " ON " + Quoted(table.name) + " IS " +
      sql::QuotedText(std::string(kRelationship) + " to " + constraint.foreign_table));
}

bool ServerChanger::RemoveConstraint(const sql::TableInfo& table) {
  const std::string name = Found(
      "SELECT conname FROM pg_constraint WHERE conrelid = to_regclass($1)"
      " AND lower(conname::text COLLATE zef.root) = $2 AND contype <> 'p'",
      {Quoted(table.name), text::LowerCase(change().name)});
  if (name.empty()) return false;
  Alter(table, "DROP CONSTRAINT " + Quoted(name));
  return true;
}

}  // namespace

void ApplySchemaChange(ServerConnection& connection, const sql::SchemaChange& change) {
  ServerChanger(connection, change).Apply();
}

}  // namespace zef
