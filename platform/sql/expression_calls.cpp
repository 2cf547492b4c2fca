#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "platform/sql/expression_writer.h"
#include "platform/sql/statement_error.h"
#include "platform/text.h"

namespace zef::sql {
namespace {

[[noreturn]] void RaiseUnknown(const Expr& call) {
  constexpr std::array<std::string_view, 6> kUnsupported = {"First", "Last", "StDev", "StDevP", "Var", "VarP"};
  const bool unsupported = std::any_of(kUnsupported.begin(), kUnsupported.end(),
                                       [&](std::string_view name) { return text::EqualNames(name, call.name); });
  RaiseAt(FailureNumber::StatementError,
          "The function '" + call.name + (unsupported ? "' is not supported" : "' is not known"), call.place);
}

/// The type of a number that was calculated from a value of the type.
Type AsNumber(Type type) {
  if (type == Type::Date || type == Type::Long) return type;
  return IsNumber(type) && type != Type::Double ? Type::Long : Type::Double;
}

/// A number among dates counts days, as in IIf(done, finished, 0).
bool IsDateBesideNumber(Type a, Type b) { return a == Type::Date && IsNumber(b) && b != Type::Boolean; }

int Rank(Type type) { return static_cast<int>(type); }

}  // namespace

Type CommonType(Type a, Type b) {
  if (a == b) return a;
  if (a == Type::Unknown || b == Type::Unknown) return Type::Unknown;
  if (IsText(a) || IsText(b))
    return Comparable(a, Type::Binary) || Comparable(b, Type::Binary) ? Type::Unknown : Type::Text;
  if (IsDateBesideNumber(a, b) || IsDateBesideNumber(b, a)) return Type::Date;
  const bool numbers = IsNumber(a) && IsNumber(b);
  if (!numbers) return Type::Unknown;
  const Type wider = Rank(a) > Rank(b) ? a : b;
  const bool truth = a == Type::Boolean || b == Type::Boolean;
  return truth && wider == Type::Byte ? Type::Short : wider;
}

/// A function whose arguments are not simply written one after the other.
struct ExpressionWriter::Special {
  std::string_view name;
  std::size_t least;
  std::size_t most;
  Operand (ExpressionWriter::*write)(const Expr&);
};

/// All mentions share one reading of the clock.
template <ParameterPlan::Source source>
Operand ExpressionWriter::CallOfClock(const Expr&) {
  return {writing_.ClockParameter(source), Type::Date};
}

Operand ExpressionWriter::Call(const Expr& expr) {
  static constexpr Special kSpecials[] = {
      {"ISNULL", 1, 1, &ExpressionWriter::CallOfIsNull},
      {"IIF", 3, 3, &ExpressionWriter::CallOfIIf},
      {"NZ", 1, 2, &ExpressionWriter::CallOfNz},
      {"NOW", 0, 0, &ExpressionWriter::CallOfClock<ParameterPlan::Source::Now>},
      {"DATE", 0, 0, &ExpressionWriter::CallOfClock<ParameterPlan::Source::Date>},
      {"TIME", 0, 0, &ExpressionWriter::CallOfClock<ParameterPlan::Source::Time>},
  };
  if (const AggregateRow* row = FindAggregate(expr.name)) return Aggregate(expr, *row);
  if (expr.distinct) RaiseAt(FailureNumber::StatementError, "DISTINCT stands in an aggregate only", expr.place);
  for (const Special& special : kSpecials) {
    if (!text::EqualNames(special.name, expr.name)) continue;
    const bool fits = special.least <= expr.args.size() && expr.args.size() <= special.most;
    if (!fits) RaiseArgumentCount(expr.name, expr.args.size(), expr.place);
    return (this->*special.write)(expr);
  }
  if (const FunctionRow* row = FindFunction(expr.name, expr.args.size(), expr.place)) return FunctionCall(expr, *row);
  RaiseUnknown(expr);
}

Operand ExpressionWriter::FunctionCall(const Expr& expr, const FunctionRow& row) {
  const bool as_number = row.result == FunctionRow::kAsNumber;
  std::string arguments;
  Type type = row.result;
  for (std::size_t i = 0; i < expr.args.size(); ++i) {
    Type wanted = row.arguments[i];
    const Operand argument = IsText(wanted) ? AsText(*expr.args[i]) : Value(*expr.args[i], wanted);
    if (i == 0 && as_number) type = AsNumber(argument.type);
    if (i == 0 && type == Type::Long && as_number) wanted = Type::Long;
    AppendItem(arguments, IsText(wanted) ? argument.text : Cast(argument, wanted));
  }
  const std::string call = writing_.Call(row.helper, arguments);
  const bool counts = as_number && type == Type::Date;
  return {counts ? writing_.dialect().Cast(call, Type::Double, Type::Date) : call, type};
}

Operand ExpressionWriter::Aggregate(const Expr& expr, const AggregateRow& row) {
  if (!aggregates_allowed_) {
    RaiseAt(FailureNumber::StatementError, "The aggregate '" + expr.name + "' cannot stand here", expr.place);
  }
  if (expr.args.size() != 1) RaiseArgumentCount(expr.name, expr.args.size(), expr.place);
  saw_aggregate_ = true;
  const bool star = expr.args[0]->kind == Expr::Kind::Star;
  if (star && row.name == "COUNT" && !expr.distinct) return {"COUNT(*)", Type::Long};
  const bool watching = grouping_->Watch(false);
  aggregates_allowed_ = false;
  const Operand argument = Value(*expr.args[0], row.needs_number ? Type::Double : Type::Unknown);
  aggregates_allowed_ = true;
  grouping_->Watch(watching);
  if (row.needs_number && !Comparable(argument.type, Type::Double)) {
    RaiseAt(FailureNumber::TypesDoNotConvert, "The aggregate '" + expr.name + "' needs numbers", expr.place);
  }
  const std::string taken = row.needs_number ? Cast(argument, Type::Double) : Collated(argument);
  const std::string text = std::string(row.name) + (expr.distinct ? "(DISTINCT " : "(") + taken + ")";
  return {text, row.result == Type::Unknown ? argument.type : row.result, argument.length};
}

Operand ExpressionWriter::CallOfIsNull(const Expr& expr) { return IsNull(expr); }

Operand ExpressionWriter::CallOfIIf(const Expr& expr) {
  const Operand condition = Condition(*expr.args[0]);
  const Operands values = WithCommonType(*expr.args[1], *expr.args[2]);
  const std::string text =
      "CASE WHEN " + condition.text + " THEN " + values[0].text + " ELSE " + values[1].text + " END";
  return {text, values[0].type};
}

/// Without a second argument Null becomes the empty value of the type.
Operand ExpressionWriter::CallOfNz(const Expr& expr) {
  if (expr.args.size() == 2) {
    const Operands values = WithCommonType(*expr.args[0], *expr.args[1]);
    return {"COALESCE(" + values[0].text + ", " + values[1].text + ")", values[0].type};
  }
  const Operand value = Value(*expr.args[0]);
  const bool number = IsNumber(value.type) || value.type == Type::Date;
  const std::string empty = number ? writing_.dialect().Cast("0", Type::Long, value.type) : "''";
  return {"COALESCE(" + value.text + ", " + empty + ")", value.type};
}

/// Two values of which one is the result; beside a text the other becomes a text as well.
ExpressionWriter::Operands ExpressionWriter::WithCommonType(const Expr& first, const Expr& second) {
  Operands values = {Value(first), Value(second)};
  Type type = CommonType(values[0].type, values[1].type);
  if (values[0].null) type = values[1].type;
  if (values[1].null) type = values[0].type;
  for (Operand& value : values) {
    if (IsText(type) && !value.null) value = AsText(std::move(value));
    if (IsText(type) && IsNumber(value.type)) value.text = writing_.Call("cstr", value.text);
    if (!IsText(type)) value.text = AsOneOf(value, type);
    value.type = type;
  }
  return values;
}

/// A value among others that are of the type, or of several if it is `Unknown`.
std::string ExpressionWriter::AsOneOf(const Operand& value, Type type) const {
  if (type != Type::Unknown) return Cast(value, type);
  return value.null || value.type == Type::Unknown ? value.text : writing_.dialect().Varying(value.text);
}

Operand ExpressionWriter::AsText(const Expr& expr) { return AsText(Value(expr, Type::Text)); }

/// Dates and Booleans are numbers to an engine, so it must be told to write them as what they are.
Operand ExpressionWriter::AsText(Operand value) const {
  struct TextForm {
    Type type;
    std::string_view helper;
  };
  constexpr TextForm kForms[] = {{Type::Date, "date_text"}, {Type::Boolean, "boolean_text"}};
  for (const TextForm& form : kForms) {
    if (form.type == value.type) return {writing_.Call(form.helper, value.text), Type::Text};
  }
  if (IsNumber(value.type)) value.text = Cast(value, Type::Text);
  return value;
}

}  // namespace zef::sql
