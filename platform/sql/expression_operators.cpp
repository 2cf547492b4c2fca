#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <utility>

#include "platform/sql/expression_writer.h"
#include "platform/sql/select_writer.h"
#include "platform/sql/statement_error.h"

namespace zef::sql {
namespace {

Operand ConditionOf(std::string text, Binding binding) {
  return {std::move(text), Type::Boolean, 0, binding, nullptr, true};
}

bool IsOneOf(std::string_view name, std::initializer_list<std::string_view> names) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

Type NumberType(const std::vector<Operand>& sides) {
  const bool whole = std::all_of(sides.begin(), sides.end(),
                                 [](const Operand& side) { return IsNumber(side.type) && side.type != Type::Double; });
  return whole ? Type::Long : Type::Double;
}

/// A date moved by a number is a date; the distance of two dates is a number.
Type SumType(const std::string& op, const std::vector<Operand>& sides) {
  const auto dates =
      std::count_if(sides.begin(), sides.end(), [](const Operand& side) { return side.type == Type::Date; });
  if (dates == 0) return NumberType(sides);
  const bool distance = op == "-" && sides[1].type == Type::Date;
  return distance ? Type::Double : Type::Date;
}

bool HasDate(const std::vector<Operand>& sides) {
  return std::any_of(sides.begin(), sides.end(), [](const Operand& side) { return side.type == Type::Date; });
}

constexpr std::size_t kMostIndexedTexts = 100;

/// True if an index of the column serves searches for plain ASCII texts.
bool ServesTexts(const Operand& operand) {
  return operand.column != nullptr && operand.column->leads_index && operand.column->ignores_case;
}

/// True if a number of any kind is sought in a column of whole numbers.
bool SeeksWhole(const Operand& column, const Operand& number) {
  const bool whole = column.column != nullptr && IsNumber(column.type) && column.type != Type::Boolean;
  return whole && column.type != Type::Double && number.type == Type::Double && number.column == nullptr;
}

bool HasText(const std::vector<Operand>& sides) {
  return std::any_of(sides.begin(), sides.end(), [](const Operand& side) { return IsText(side.type); });
}

}  // namespace

/// How a calculation is written: by the engine's operator or by a helper.
struct ExpressionWriter::Arithmetic {
  std::string_view name;
  std::string_view helper;
  Binding binding;
  Type result;  ///< Unknown: by the rules of sums
};

Operand ExpressionWriter::Binary(const Expr& expr) {
  if (IsOneOf(expr.name, {"AND", "OR"})) return Logical(expr);
  if (expr.name == "XOR") return ExclusiveOr(expr);
  if (expr.name == "&") return Concatenation(expr);
  if (IsOneOf(expr.name, {"=", "<>", "<", "<=", ">", ">="})) return Comparison(expr);
  return Calculation(expr);
}

/// Chains come as low trees; the brackets keep them so.
Operand ExpressionWriter::Logical(const Expr& expr) {
  const Binding own = expr.name == "AND" ? Binding::And : Binding::Or;
  const Operand left = Condition(*expr.args[0]);
  const Operand right = Condition(*expr.args[1]);
  const std::string first = left.binding == own ? left.text : Bracketed(left, Binding::Comparison);
  return ConditionOf(first + " " + expr.name + " " + Bracketed(right, Binding::Comparison), own);
}

Operand ExpressionWriter::ExclusiveOr(const Expr& expr) {
  const Operand left = Condition(*expr.args[0]);
  const Operand right = Condition(*expr.args[1]);
  return ConditionOf("(NOT (" + left.text + ")) <> (NOT (" + right.text + "))", Binding::Comparison);
}

/// Writes expressions that meet each other: the literals among them are read as the type of the others.
ExpressionWriter::Operands ExpressionWriter::Alike(const std::vector<ExprPtr>& exprs) {
  Operands operands(exprs.size());
  Type wanted = Type::Unknown;
  for (std::size_t i = 0; i < exprs.size(); ++i) {
    if (IsParameter(*exprs[i])) continue;
    operands[i] = Value(*exprs[i]);
    if (wanted == Type::Unknown) wanted = operands[i].type;
  }
  for (std::size_t i = 0; i < exprs.size() && wanted == Type::Unknown; ++i) {
    const bool decides = exprs[i]->kind == Expr::Kind::Literal && !IsText(OwnType(*exprs[i]));
    if (decides) wanted = OwnType(*exprs[i]);
  }
  for (std::size_t i = 0; i < exprs.size(); ++i) {
    if (IsParameter(*exprs[i])) operands[i] = Parameter(*exprs[i], wanted);
  }
  return operands;
}

void ExpressionWriter::RequireComparable(const Expr& expr, const Operand& left, const Operand& right) const {
  if (Comparable(left.type, right.type)) return;
  RaiseAt(FailureNumber::TypesDoNotConvert, "The types of the values that are compared do not convert", expr.place);
}

/// The text of a value that is compared with another one: beside a date, a number is the date that it counts. Anything
/// else stays as it is, since an index knows only the bare column.
std::string ExpressionWriter::Beside(const Operand& other, const Operand& operand) const {
  const bool counts = other.type == Type::Date && IsNumber(operand.type);
  return counts ? Cast(operand, Type::Date, Binding::Sum) : Bracketed(operand, Binding::Sum);
}

/// `right` is an operand or a list in brackets.
Operand ExpressionWriter::Comparing(const Operand& left, const std::string& op, const std::string& right,
                                    bool indexed) const {
  const std::string subject = Bracketed(left, Binding::Sum);
  const bool texts = IsText(left.type);
  const std::string text =
      texts ? writing_.dialect().CompareTexts(subject, op, right, indexed) : subject + " " + op + " " + right;
  return ConditionOf(text, Binding::Comparison);
}

Operand ExpressionWriter::Compared(const Expr& expr, const Operand& left, const std::string& op,
                                   const Operand& right) const {
  RequireComparable(expr, left, right);
  Operand subject = left;
  const bool special = left.null || right.null;
  const bool may_be_text = right.type == Type::Unknown || IsText(right.type);
  if (left.type == Type::Unknown && may_be_text && !special) subject.type = Type::Text;
  const bool indexed = ServesTexts(left) && right.plain_ascii;
  subject.text = Beside(right, left);
  subject.binding = Binding::Whole;
  const bool sought = op == "=" && SeeksWhole(left, right);
  return Comparing(subject, op, sought ? writing_.dialect().SoughtWhole(right.text) : Beside(left, right), indexed);
}

Operand ExpressionWriter::Comparison(const Expr& expr) {
  const Operands sides = Alike(expr.args);
  const bool served = (sides[0].plain_ascii && sides[1].column != nullptr) || SeeksWhole(sides[1], sides[0]);
  const bool turned = expr.name == "=" && served;
  return turned ? Compared(expr, sides[1], expr.name, sides[0]) : Compared(expr, sides[0], expr.name, sides[1]);
}

/// A chain becomes few calls with many arguments rather than many calls inside each other.
Operand ExpressionWriter::Concatenation(const Expr& expr) {
  constexpr std::size_t kMostArguments = 100;
  std::vector<const Expr*> parts;
  const Expr* rest = &expr;
  for (; rest->kind == Expr::Kind::Binary && rest->name == "&"; rest = rest->args[0].get()) {
    parts.push_back(rest->args[1].get());
  }
  std::string arguments = AsText(*rest).text;
  std::size_t count = 1;
  for (auto part = parts.rbegin(); part != parts.rend(); ++part, ++count) {
    if (count == kMostArguments) {
      arguments = writing_.Call("concat", arguments);
      count = 1;
    }
    AppendItem(arguments, AsText(**part).text);
  }
  return {writing_.Call("concat", arguments), Type::Text};
}

Operand ExpressionWriter::Calculation(const Expr& expr) {
  static constexpr Arithmetic kOperators[] = {
      {"+", {}, Binding::Sum, Type::Unknown},           {"-", {}, Binding::Sum, Type::Unknown},
      {"*", {}, Binding::Product, Type::Long},          {"/", "divide", Binding::Whole, Type::Double},
      {"\\", "int_divide", Binding::Whole, Type::Long}, {"MOD", "modulo", Binding::Whole, Type::Long},
      {"^", "power", Binding::Whole, Type::Double},
  };
  const auto* const op = std::find_if(std::begin(kOperators), std::end(kOperators),
                                      [&](const Arithmetic& candidate) { return candidate.name == expr.name; });
  const Operands sides = Alike(expr.args);
  const bool joined = expr.name == "+" && HasText(sides);
  const Type needed = joined ? Type::Text : Type::Double;
  for (const Operand& side : sides) {
    if (Comparable(side.type, needed)) continue;
    RaiseAt(FailureNumber::TypesDoNotConvert, "The types of the operands do not convert", expr.place);
  }
  if (joined) return {"(" + sides[0].text + " || " + sides[1].text + ")", Type::Text};
  return Calculated(expr, *op, sides);
}

Operand ExpressionWriter::Calculated(const Expr& expr, const Arithmetic& op, const Operands& sides) const {
  if (!op.helper.empty()) {
    return {writing_.Call(op.helper, Cast(sides[0], Type::Double) + ", " + Cast(sides[1], Type::Double)), op.result};
  }
  const Type type = op.result == Type::Unknown ? SumType(expr.name, sides) : NumberType(sides);
  if (HasDate(sides) && op.result == Type::Unknown) return DateSum(expr, sides, type);
  // Behind the operator stands what binds more tightly: a - (b - c).
  const auto tighter = static_cast<Binding>(static_cast<int>(op.binding) + 1);
  const std::string text = Cast(sides[0], type, op.binding) + " " + expr.name + " " + Cast(sides[1], type, tighter);
  return {text, type, 0, op.binding};
}

/// The numbers of dates before day zero do not run with the time of day, so dates are not added like numbers.
Operand ExpressionWriter::DateSum(const Expr& expr, const Operands& sides, Type type) const {
  if (type == Type::Double) return {writing_.Call("date_distance", sides[1].text + ", " + sides[0].text), type};
  const bool turned = sides[0].type != Type::Date;
  const std::string days = Cast(sides[turned ? 0 : 1], Type::Double, Binding::Whole);
  return {writing_.Call("date_sum", sides[turned ? 1 : 0].text + (expr.name == "-" ? ", -" : ", ") + days), type};
}

Operand ExpressionWriter::Like(const Expr& expr) {
  const Operand text = AsText(*expr.args[0]);
  const Operand pattern = AsText(*expr.args[1]);
  const std::string call = writing_.Call("like", text.text + ", " + pattern.text);
  return ConditionOf((expr.negated ? "NOT " : "") + call, expr.negated ? Binding::Not : Binding::Comparison);
}

Operand ExpressionWriter::Between(const Expr& expr) {
  const Operands sides = Alike(expr.args);
  RequireComparable(expr, sides[0], sides[1]);
  RequireComparable(expr, sides[0], sides[2]);
  const std::string value = IsText(sides[0].type) ? Collated(sides[0]) : Beside(sides[1], sides[0]);
  const std::string text = value + (expr.negated ? " NOT BETWEEN " : " BETWEEN ") + Beside(sides[0], sides[1]) +
                           " AND " + Beside(sides[0], sides[2]);
  return ConditionOf("(" + text + ")", Binding::Comparison);
}

/// One side of an IN that has many: it becomes what the other one is, also where that is no date.
std::string ExpressionWriter::ListItem(const Operand& subject, const Operand& item) const {
  if (SeeksWhole(subject, item)) return writing_.dialect().SoughtWhole(item.text);
  const bool mixed = (subject.type == Type::Date) != (item.type == Type::Date);
  return mixed && Comparable(subject.type, item.type) ? Cast(item, subject.type) : item.text;
}

Operand ExpressionWriter::InList(const Expr& expr) {
  const Operands sides = Alike(expr.args);
  std::string list;
  bool plain = sides.size() <= kMostIndexedTexts + 1;
  for (std::size_t i = 1; i < sides.size(); ++i) {
    RequireComparable(expr, sides[0], sides[i]);
    AppendItem(list, ListItem(sides[0], sides[i]));
    plain = plain && sides[i].plain_ascii;
  }
  const Operand found = Comparing(sides[0], "IN", "(" + list + ")", plain && ServesTexts(sides[0]));
  return expr.negated ? ConditionOf("NOT (" + found.text + ")", Binding::Not) : found;
}

Operand ExpressionWriter::InSelect(const Expr& expr) {
  const WrittenSelect select = WriteSelect(writing_, *expr.select, &scope_, Naming::None);
  Operand list;
  list.type = SingleColumn(select, expr.place).type;
  Operand value = Value(*expr.args[0], list.type);
  RequireComparable(expr, value, list);
  value.text = ListItem(list, value);
  const Operand found = Comparing(value, "IN", "(" + select.text + ")", false);
  return expr.negated ? ConditionOf("NOT (" + found.text + ")", Binding::Not) : found;
}

}  // namespace zef::sql
