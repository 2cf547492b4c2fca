#include "platform/sqlite/declaration_text.h"

#include <vector>

#include "platform/sql/schema_changer.h"
#include "platform/sql/writing.h"
#include "platform/sqlite/table_description.h"

namespace zef {
namespace {

std::string Names(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) sql::AppendItem(text, sql::Quoted(name));
  return text;
}

}  // namespace

std::string Collation(sql::Type type) { return sql::IsText(type) ? " COLLATE NOCASE" : ""; }

std::string DeclaredColumn(const sql::ColumnDefinition& column) {
  return sql::ColumnText(column, DeclaredType(column.type, column.length) + Collation(column.type));
}

std::string ConstraintText(const sql::Constraint& constraint) {
  std::string text = constraint.name.empty() ? "" : "CONSTRAINT " + sql::Quoted(constraint.name) + " ";
  switch (constraint.kind) {
    case sql::Constraint::Kind::PrimaryKey: return text + "PRIMARY KEY (" + Names(constraint.columns) + ")";
    case sql::Constraint::Kind::Unique: return text + "UNIQUE (" + Names(constraint.columns) + ")";
    case sql::Constraint::Kind::ForeignKey: break;
  }
  text += "FOREIGN KEY (" + Names(constraint.columns) + ") REFERENCES " + sql::Quoted(constraint.foreign_table);
  return constraint.foreign_columns.empty() ? text : text + " (" + Names(constraint.foreign_columns) + ")";
}

}  // namespace zef
