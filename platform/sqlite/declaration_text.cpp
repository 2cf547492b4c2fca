#include "platform/sqlite/declaration_text.h"

#include <vector>

#include "platform/sqlite/table_description.h"

namespace zef {
namespace {

std::string Names(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "" : ", ") + QuotedName(name);
  return text;
}

}  // namespace

std::string Collation(sql::Type type) { return sql::IsText(type) ? " COLLATE NOCASE" : ""; }

std::string ColumnText(const sql::ColumnDefinition& column) {
  std::string text = QuotedName(column.name) + " " + DeclaredType(column.type, column.length) + Collation(column.type);
  if (column.required || column.primary_key) text += " NOT NULL";
  if (column.primary_key) text += " PRIMARY KEY";
  if (column.unique) text += " UNIQUE";
  return text;
}

std::string ConstraintText(const sql::Constraint& constraint) {
  std::string text = constraint.name.empty() ? "" : "CONSTRAINT " + QuotedName(constraint.name) + " ";
  switch (constraint.kind) {
    case sql::Constraint::Kind::PrimaryKey: return text + "PRIMARY KEY (" + Names(constraint.columns) + ")";
    case sql::Constraint::Kind::Unique: return text + "UNIQUE (" + Names(constraint.columns) + ")";
    case sql::Constraint::Kind::ForeignKey: break;
  }
  text += "FOREIGN KEY (" + Names(constraint.columns) + ") REFERENCES " + QuotedName(constraint.foreign_table);
  return constraint.foreign_columns.empty() ? text : text + " (" + Names(constraint.foreign_columns) + ")";
}

}  // namespace zef
