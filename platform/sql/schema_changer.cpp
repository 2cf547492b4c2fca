#include "platform/sql/schema_changer.h"

#include "platform/sql/writing.h"

namespace zef::sql {

void Refuse(const std::string& sentence) { throw RunTimeError(FailureNumber::StatementError, sentence); }

std::string ColumnText(const ColumnDefinition& column, const std::string& declared_type) {
  std::string text = Quoted(column.name) + " " + declared_type;
  if (column.required || column.primary_key) text += " NOT NULL";
  if (column.primary_key) text += " PRIMARY KEY";
  if (column.unique) text += " UNIQUE";
  return text;
}

void SchemaChanger::Apply() {
  using Kind = SchemaChange::Kind;
  switch (change_.kind) {
    case Kind::CreateTable: return CreateTable();
    case Kind::CreateIndex: return CreateIndex();
    case Kind::DropTable: return DropTable();
    case Kind::DropIndex: return DropIndex();
    case Kind::AddColumn: return AddColumn();
    case Kind::AlterColumn: return AlterColumn();
    case Kind::DropColumn: return DropColumn();
    case Kind::AddConstraint: return AddConstraints();
    case Kind::DropConstraint: return DropConstraint();
  }
}

TableInfo SchemaChanger::Table() {
  TableInfo table = Describe(change_.table);
  if (!table.columns.empty()) return table;
  throw RunTimeError(FailureNumber::NoSuchTable, "The table '" + change_.table + "' does not exist.");
}

const ColumnInfo& SchemaChanger::Column(const TableInfo& table, std::string_view name) {
  if (const ColumnInfo* column = table.Find(name)) return *column;
  throw RunTimeError(FailureNumber::NoSuchColumn,
                     "The table '" + table.name + "' has no column '" + std::string(name) + "'.");
}

void SchemaChanger::RequireNoIndex(const std::string& name) {
  if (IndexNamed(name).empty()) return;
  throw RunTimeError(FailureNumber::IndexExists, "The index '" + name + "' exists already.");
}

void SchemaChanger::CreateTable() {
  if (Describe(change_.table).columns.empty()) return MakeTable();
  throw RunTimeError(FailureNumber::TableExists, "The table '" + change_.table + "' exists already.");
}

void SchemaChanger::CreateIndex() {
  const TableInfo table = Table();
  RequireNoIndex(change_.name);
  MakeIndex(table);
}

void SchemaChanger::DropTable() { Run("DROP TABLE " + Quoted(Table().name)); }

void SchemaChanger::DropIndex() {
  const std::string index = IndexNamed(change_.name);
  if (index.empty()) Refuse("The index '" + change_.name + "' does not exist.");
  RemoveIndex(index);
}

void SchemaChanger::AddColumn() {
  const TableInfo table = Table();
  const ColumnDefinition& column = change_.columns.front();
  if (table.Find(column.name) != nullptr) {
    throw RunTimeError(FailureNumber::ColumnExists,
                       "The table '" + table.name + "' has a column '" + column.name + "' already.");
  }
  Run("ALTER TABLE " + Quoted(table.name) + " ADD COLUMN " + Declared(column));
  if (!change_.constraints.empty()) AddConstraints();
}

void SchemaChanger::AlterColumn() {
  const TableInfo table = Table();
  const ColumnDefinition& column = change_.columns.front();
  ChangeColumn(table, Column(table, column.name), column);
}

void SchemaChanger::DropColumn() {
  const TableInfo table = Table();
  const ColumnInfo& column = Column(table, change_.name);
  const std::string use = column.key ? "a key of the table" : UseOf(table, column);
  if (!use.empty()) Refuse("The column '" + column.name + "' cannot be dropped: it belongs to " + use + ".");
  Run("ALTER TABLE " + Quoted(table.name) + " DROP COLUMN " + Quoted(column.name));
}

void SchemaChanger::AddConstraints() {
  const TableInfo table = Table();
  for (const Constraint& constraint : change_.constraints) {
    for (const std::string& column : constraint.columns) Column(table, column);
    const bool key = constraint.kind == Constraint::Kind::PrimaryKey;
    if (key && change_.kind != SchemaChange::Kind::CreateTable) {
      Refuse("A table's primary key is declared when it is made.");
    }
    MakeConstraint(table, constraint);
  }
}

void SchemaChanger::DropConstraint() {
  const TableInfo table = Table();
  if (RemoveConstraint(table)) return;
  const std::string index = IndexNamed(change_.name);
  if (index.empty()) Refuse("The table '" + table.name + "' has no constraint '" + change_.name + "'.");
  RemoveIndex(index);
}

}  // namespace zef::sql
