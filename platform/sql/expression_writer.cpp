#include "platform/sql/expression_writer.h"

#include <utility>

#include "platform/sql/select_writer.h"
#include "platform/sql/statement_error.h"

namespace zef::sql {
namespace {

/// What a literal of type `own` (or a placeholder, `Unknown`) is converted to before it meets a value of type `wanted`.
/// Numbers and dates meet as they are; a text or placeholder meets any number as a double, so that nothing is rounded
/// away.
Type Meeting(Type own, Type wanted) {
  if (IsText(wanted)) return IsText(own) ? Type::Unknown : Type::Text;
  const bool adapts = IsText(own) || own == Type::Unknown;
  if (!adapts) return Type::Unknown;
  return IsNumber(wanted) && wanted != Type::Boolean ? Type::Double : wanted;
}

ParameterPlan::Source SourceOf(const Expr& expr) {
  return expr.kind == Expr::Kind::Parameter ? ParameterPlan::Source::Placeholder : ParameterPlan::Source::Literal;
}

/// The helper that makes a value fit a column of the type; empty if it may be stored as it is.
std::string_view Converter(Type type) {
  switch (type) {
    case Type::Boolean: return "to_boolean";
    case Type::Byte: return "to_byte";
    case Type::Short: return "to_short";
    case Type::Long: return "to_long";
    case Type::Double: return "to_double";
    case Type::Date: return "to_date";
    case Type::Text:
    case Type::Memo: return "to_text";
    default: return {};
  }
}

bool FitsAsItIs(const Operand& value, const ColumnInfo& column) {
  if (value.null || column.type == Type::Unknown) return true;
  if (value.column == nullptr) return false;
  if (column.type == Type::Memo) return IsText(value.type);
  const bool fits = column.length == 0 || (value.length > 0 && value.length <= column.length);
  return value.type == column.type && fits;
}

[[noreturn]] void RaiseNeedsValue(const ColumnInfo& column, std::size_t place) {
  RaiseAt(FailureNumber::ConstraintViolated, "The column '" + column.name + "' needs a value", place);
}

}  // namespace

Operand ExpressionWriter::Value(const Expr& expr, Type wanted) {
  const std::size_t noted = grouping_ == nullptr ? 0 : grouping_->noted();
  Operand operand = AsValue(Write(expr, wanted));
  if (grouping_ != nullptr) grouping_->Settle(noted, operand.text);
  return operand;
}

Operand ExpressionWriter::AsValue(Operand operand) const {
  if (!operand.condition) return operand;
  operand.text = writing_.Call("truth", operand.text);
  operand.binding = Binding::Whole;
  operand.condition = false;
  return operand;
}

Operand ExpressionWriter::Condition(const Expr& expr) {
  const std::size_t noted = grouping_ == nullptr ? 0 : grouping_->noted();
  Operand operand = Write(expr, Type::Boolean);
  // A condition that is a key of groups is a value there, and known again as that only.
  const bool key = grouping_ != nullptr && grouping_->Settle(noted, AsValue(operand).text);
  if (key) operand = AsValue(operand);
  if (operand.condition) return operand;
  if (!Comparable(operand.type, Type::Boolean)) {
    RaiseAt(FailureNumber::TypesDoNotConvert, "A condition is expected, neither a text nor bytes", expr.place);
  }
  const std::string number = Cast(operand, Type::Boolean, Binding::Sum);
  return {number + " <> 0", Type::Boolean, 0, Binding::Comparison, nullptr, true};
}

std::string ExpressionWriter::Stored(const Expr& expr, const ColumnInfo& column) {
  if (!IsParameter(expr)) return Stored(Value(expr), column, expr.place);
  return writing_.Parameter({expr.literal, SourceOf(expr), column.type, column.length, column.required, column.name});
}

std::string ExpressionWriter::Stored(const Operand& value, const ColumnInfo& column, std::size_t place) const {
  if (value.null && column.required) RaiseNeedsValue(column, place);
  const bool bytes = column.type == Type::Binary || value.type == Type::Binary;
  if (bytes && !Comparable(value.type, column.type)) {
    RaiseAt(FailureNumber::TypesDoNotConvert,
            "The value does not convert to the type of the column '" + column.name + "'", place);
  }
  std::string text = value.text;
  if (!FitsAsItIs(value, column) && !Converter(column.type).empty()) {
    const bool to_text = IsText(column.type);
    text = to_text ? AsText(value).text + ", " + std::to_string(column.length) : Cast(value, column.type);
    text = writing_.Call(Converter(column.type), text + ", " + QuotedText(column.name));
  }
  return column.required ? writing_.Call("required", text + ", " + QuotedText(column.name)) : text;
}

std::string ExpressionWriter::Cast(const Operand& operand, Type to, Binding needed) const {
  const std::string text = Bracketed(operand, needed);
  return operand.null ? text : writing_.dialect().Cast(text, operand.type, to);
}

std::string ExpressionWriter::Collated(const Operand& operand) const {
  return IsText(operand.type) ? writing_.dialect().Collated(operand.text) : operand.text;
}

Operand ExpressionWriter::Write(const Expr& expr, Type wanted) {
  switch (expr.kind) {
    case Expr::Kind::Literal:
    case Expr::Kind::Parameter: return Parameter(expr, wanted);
    case Expr::Kind::Null:
    case Expr::Kind::Boolean: return Constant(expr);
    case Expr::Kind::Column: return Column(expr);
    case Expr::Kind::Unary: return Unary(expr);
    case Expr::Kind::Binary: return Binary(expr);
    case Expr::Kind::Like: return Like(expr);
    case Expr::Kind::Between: return Between(expr);
    case Expr::Kind::InList: return InList(expr);
    case Expr::Kind::InSelect: return InSelect(expr);
    case Expr::Kind::IsNull: return IsNull(expr);
    case Expr::Kind::Exists: return Exists(expr);
    case Expr::Kind::Subquery: return Subquery(expr);
    case Expr::Kind::Call: return Call(expr);
    case Expr::Kind::Star: break;
  }
  RaiseAt(FailureNumber::StatementError, "A '*' cannot stand here", expr.place);
}

Type ExpressionWriter::OwnType(const Expr& literal) const {
  return literal.kind == Expr::Kind::Parameter ? Type::Unknown : TypeOf(writing_.KindOf(literal));
}

Operand ExpressionWriter::Parameter(const Expr& expr, Type wanted) {
  const Type own = OwnType(expr);
  ParameterPlan plan;
  plan.index = expr.literal;
  plan.source = SourceOf(expr);
  plan.type = Meeting(own, wanted);
  Operand operand;
  operand.text = writing_.Parameter(plan);
  operand.type = plan.type == Type::Unknown ? own : plan.type;
  operand.plain_ascii = expr.kind == Expr::Kind::Literal && writing_.KindOf(expr) != LiteralKind::Text;
  return operand;
}

Operand ExpressionWriter::Column(const Expr& expr) const { return Reference(scope_.Find(expr)); }

Operand ExpressionWriter::Reference(const FoundColumn& found) const {
  Operand operand;
  operand.text = Quoted(found.column->name);
  if (found.qualified) operand.text = Quoted(found.source->name) + "." + operand.text;
  operand.type = found.column->type;
  operand.length = found.column->length;
  operand.column = found.column;
  operand.text = writing_.dialect().Column(operand.text, *found.column);
  return operand;
}

Operand ExpressionWriter::Constant(const Expr& expr) const {
  Operand operand;
  operand.null = expr.kind == Expr::Kind::Null;
  operand.type = operand.null ? Type::Unknown : Type::Boolean;
  operand.text = operand.null ? "NULL" : writing_.dialect().Truth(expr.truth);
  return operand;
}

Operand ExpressionWriter::Unary(const Expr& expr) {
  if (expr.name == "NOT") {
    const Operand inner = Condition(*expr.args[0]);
    return {"NOT (" + inner.text + ")", Type::Boolean, 0, Binding::Not, nullptr, true};
  }
  Operand inner = Value(*expr.args[0], Type::Double);
  if (!Comparable(inner.type, Type::Double)) {
    RaiseAt(FailureNumber::TypesDoNotConvert, "A sign needs a number", expr.place);
  }
  if (expr.name == "+") return inner;
  const bool whole = IsNumber(inner.type) && inner.type != Type::Double;
  const Type type = whole ? Type::Long : Type::Double;
  return {"(-" + Cast(inner, type, Binding::Whole) + ")", type};
}

Operand ExpressionWriter::IsNull(const Expr& expr) {
  const Operand inner = Value(*expr.args[0]);
  const std::string text = Bracketed(inner, Binding::Sum) + (expr.negated ? " IS NOT NULL" : " IS NULL");
  return {text, Type::Boolean, 0, Binding::Comparison, nullptr, true};
}

Operand ExpressionWriter::Exists(const Expr& expr) {
  const WrittenSelect inner = WriteSelect(writing_, *expr.select, &scope_, Naming::None);
  const std::string text = (expr.negated ? "NOT EXISTS (" : "EXISTS (") + inner.text + ")";
  return {text, Type::Boolean, 0, expr.negated ? Binding::Not : Binding::Comparison, nullptr, true};
}

Operand ExpressionWriter::Subquery(const Expr& expr) {
  const WrittenSelect inner = WriteSelect(writing_, *expr.select, &scope_, Naming::None);
  const ColumnInfo& column = SingleColumn(inner, expr.place);
  return {"(" + inner.text + ")", column.type, column.length};
}

}  // namespace zef::sql
