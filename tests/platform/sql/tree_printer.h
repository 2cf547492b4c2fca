#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/run_time_error.h"
#include "platform/sql/parser.h"

/// Trees as one line of text: every operator in brackets, `<name>` for a column, what is absent left out.
namespace zef::sql {

class TreePrinter {
 public:
  explicit TreePrinter(const std::vector<Value>& literals) : literals_(literals) {}

  std::string Print(const Statement& statement) const {
    if (statement.select) return Print(*statement.select);
    if (statement.insert) return Print(*statement.insert);
    if (statement.update) return Print(*statement.update);
    if (statement.remove) return Print(*statement.remove);
    return Print(*statement.schema_change);
  }

 private:
  template <class Items, class Printer>
  static std::string Join(const Items& items, std::string_view separator, Printer print) {
    std::string text;
    for (const auto& item : items) text.append(text.empty() ? "" : separator).append(print(item));
    return text;
  }
  static std::string Names(const std::vector<std::string>& names) {
    return "(" + Join(names, ", ", [](const std::string& name) { return name; }) + ")";
  }
  static std::string Alias(const std::string& alias) { return alias.empty() ? "" : " AS " + alias; }

  std::string Literal(std::size_t index) const {
    const Value& value = literals_.at(index);
    if (const auto* text = std::get_if<std::string>(&value)) return "'" + *text + "'";
    if (const auto* whole = std::get_if<std::int32_t>(&value)) return std::to_string(*whole);
    if (const auto* decimal = std::get_if<double>(&value)) return std::to_string(*decimal);
    return "#" + std::to_string(std::get<Date>(value).value()) + "#";
  }

  std::string Print(const ExprPtr& expr) const { return Print(*expr); }
  std::string Args(const Expr& expr, std::size_t first) const {
    const std::vector<const Expr*> args = Pointers(expr, first);
    return Join(args, ", ", [this](const Expr* arg) { return Print(*arg); });
  }
  static std::vector<const Expr*> Pointers(const Expr& expr, std::size_t first) {
    std::vector<const Expr*> args;
    for (std::size_t i = first; i < expr.args.size(); ++i) args.push_back(expr.args[i].get());
    return args;
  }

  std::string Print(const Expr& expr) const {
    const std::string no = expr.negated ? "NOT " : "";
    const auto arg = [&](std::size_t index) { return Print(*expr.args.at(index)); };
    const std::string qualifier = expr.qualifier.empty() ? "" : "<" + expr.qualifier + ">.";
    switch (expr.kind) {
      case Expr::Kind::Literal: return Literal(expr.literal);
      case Expr::Kind::Parameter: return "?" + std::to_string(expr.literal);
      case Expr::Kind::Null: return "NULL";
      case Expr::Kind::Boolean: return expr.truth ? "TRUE" : "FALSE";
      case Expr::Kind::Column: return qualifier + "<" + expr.name + ">";
      case Expr::Kind::Star: return qualifier + "*";
      case Expr::Kind::Unary: return "(" + expr.name + " " + arg(0) + ")";
      case Expr::Kind::Binary: return "(" + arg(0) + " " + expr.name + " " + arg(1) + ")";
      case Expr::Kind::Like: return "(" + arg(0) + " " + no + "LIKE " + arg(1) + ")";
      case Expr::Kind::Between: return "(" + arg(0) + " " + no + "BETWEEN " + arg(1) + " AND " + arg(2) + ")";
      case Expr::Kind::InList: return "(" + arg(0) + " " + no + "IN (" + Args(expr, 1) + "))";
      case Expr::Kind::InSelect: return "(" + arg(0) + " " + no + "IN (" + Print(*expr.select) + "))";
      case Expr::Kind::IsNull: return "(" + arg(0) + " IS " + no + "NULL)";
      case Expr::Kind::Exists: return no + "EXISTS (" + Print(*expr.select) + ")";
      case Expr::Kind::Subquery: return "(" + Print(*expr.select) + ")";
      case Expr::Kind::Call: return expr.name + "(" + (expr.distinct ? "DISTINCT " : "") + Args(expr, 0) + ")";
    }
    return "?";
  }

  std::string Print(const Source& source) const {
    constexpr std::string_view kJoins[] = {"", "", " CROSS ", " INNER ", " LEFT ", " RIGHT "};
    if (source.kind == Source::Kind::Table) return source.table + Alias(source.alias);
    if (source.kind == Source::Kind::Select) return "(" + Print(*source.select) + ")" + Alias(source.alias);
    std::string text = "[" + Print(*source.left);
    text.append(kJoins[static_cast<std::size_t>(source.kind)]).append(Print(*source.right));
    return text + (source.on ? " ON " + Print(source.on) : "") + "]";
  }

  std::string Print(const Select& select) const {
    std::string text = "SELECT ";
    if (select.distinct) text += "DISTINCT ";
    if (select.top) text += "TOP " + Print(select.top) + " ";
    text += Join(select.items, ", ", [this](const SelectItem& item) { return Print(item.expr) + Alias(item.alias); });
    if (select.from) text += " FROM " + Print(*select.from);
    if (select.where) text += " WHERE " + Print(select.where);
    const auto print = [this](const ExprPtr& expr) { return Print(expr); };
    if (!select.group_by.empty()) text += " GROUP BY " + Join(select.group_by, ", ", print);
    if (select.having) text += " HAVING " + Print(select.having);
    for (const Select::UnionPart& part : select.unions) {
      text += (part.all ? " UNION ALL " : " UNION ") + Print(*part.select);
    }
    const auto order = [this](const OrderItem& item) { return Print(item.expr) + (item.descending ? " DESC" : ""); };
    if (!select.order_by.empty()) text += " ORDER BY " + Join(select.order_by, ", ", order);
    return text;
  }

  std::string Print(const Insert& insert) const {
    std::string text = "INSERT " + insert.table + (insert.columns.empty() ? "" : " " + Names(insert.columns));
    if (insert.select) return text + " " + Print(*insert.select);
    return text + " VALUES (" + Join(insert.values, ", ", [this](const ExprPtr& expr) { return Print(expr); }) + ")";
  }

  std::string Print(const Update& update) const {
    const auto assignment = [this](const Assignment& item) { return Print(item.column) + " := " + Print(item.value); };
    return "UPDATE " + Print(*update.target) + " SET " + Join(update.assignments, ", ", assignment) +
           (update.where ? " WHERE " + Print(update.where) : "");
  }

  std::string Print(const Delete& remove) const {
    return "DELETE " + (remove.of.empty() ? "" : "OF " + remove.of + " ") + "FROM " + Print(*remove.from) +
           (remove.where ? " WHERE " + Print(remove.where) : "");
  }

  static std::string Print(const ColumnDefinition& column) {
    constexpr std::string_view kTypes[] = {"Unknown", "Boolean", "Byte", "Short", "Long",
                                           "Double",  "Date",    "Text", "Memo",  "Binary"};
    std::string text = column.name + " ";
    text.append(kTypes[static_cast<std::size_t>(column.type)]);
    if (column.length != 0) text += "(" + std::to_string(column.length) + ")";
    if (column.required) text += " REQUIRED";
    if (column.primary_key) text += " KEY";
    return text + (column.unique ? " UNIQUE" : "");
  }

  static std::string Print(const Constraint& constraint) {
    constexpr std::string_view kKinds[] = {"KEY ", "UNIQUE ", "FOREIGN "};
    std::string text = constraint.name.empty() ? "" : constraint.name + ": ";
    text.append(kKinds[static_cast<std::size_t>(constraint.kind)]).append(Names(constraint.columns));
    if (constraint.kind != Constraint::Kind::ForeignKey) return text;
    return text + " -> " + constraint.foreign_table +
           (constraint.foreign_columns.empty() ? "" : " " + Names(constraint.foreign_columns));
  }

  static std::string Print(const SchemaChange& change) {
    constexpr std::string_view kKinds[] = {"CreateTable", "CreateIndex", "DropTable",     "DropIndex",     "AddColumn",
                                           "AlterColumn", "DropColumn",  "AddConstraint", "DropConstraint"};
    std::string text(kKinds[static_cast<std::size_t>(change.kind)]);
    text += " " + change.table + (change.name.empty() ? "" : " " + change.name) + (change.unique ? " UNIQUE" : "");
    for (const ColumnDefinition& column : change.columns) text += " | " + Print(column);
    for (const Constraint& constraint : change.constraints) text += " | " + Print(constraint);
    for (const auto& column : change.index_columns) text += " | " + column.name + (column.descending ? " DESC" : "");
    return text;
  }

  const std::vector<Value>& literals_;
};

/// The tree of a statement as text.
inline std::string Print(std::string_view statement) {
  Shape shape;
  ReadShape(statement, shape);
  return TreePrinter(shape.literals).Print(Parse(shape));
}

/// The tree of an expression as text.
inline std::string PrintExpression(std::string_view expression) {
  constexpr std::string_view kBefore = "SELECT * FROM t WHERE ";
  const std::string printed = Print(std::string(kBefore).append(expression));
  return printed.substr(kBefore.size());
}

/// The sentence with which a statement is refused, or "accepted".
inline std::string Refusal(std::string_view statement) {
  try {
    Print(statement);
  } catch (const RunTimeError& error) {
    return error.code() == FailureNumber::StatementError ? error.description() : "another number";
  }
  return "accepted";
}

}  // namespace zef::sql
