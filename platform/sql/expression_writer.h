#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/sql/function_table.h"
#include "platform/sql/operand.h"
#include "platform/sql/scope.h"
#include "platform/sql/writing.h"

namespace zef::sql {

/// Writes the expressions of one select or change. Literals and placeholders take the type that the expression around
/// them needs, so they are written after their neighbours.
class ExpressionWriter {
 public:
  ExpressionWriter(Writing& writing, const Scope& scope) : writing_(writing), scope_(scope) {}

  /// An expression as a value; a condition becomes -1 or 0. Literals are read as `wanted`.
  Operand Value(const Expr& expr, Type wanted = Type::Unknown);
  /// An expression as it stands in WHERE, ON and HAVING.
  Operand Condition(const Expr& expr);
  /// An expression as it is stored in a column. Raises -2147217873 for the word NULL if the column needs a value.
  std::string Stored(const Expr& expr, const ColumnInfo& column);
  /// A written value as it is stored in a column; `place` is for the sentence of a failure.
  std::string Stored(const Operand& value, const ColumnInfo& column, std::size_t place) const;
  /// A text as it stands where texts are sorted or compared as a whole; other values as they are.
  std::string Collated(const Operand& operand) const;

  /// Aggregates may stand in what is written from here on, or not.
  void AllowAggregates(bool allow) { aggregates_allowed_ = allow; }
  bool saw_aggregate() const { return saw_aggregate_; }
  /// What is written belongs to a select whose groups these are.
  void WriteBeside(Grouping& grouping) { grouping_ = &grouping; }
  /// A column that was found before.
  Operand Reference(const FoundColumn& found) const;

 private:
  using Operands = std::vector<Operand>;

  Operand Write(const Expr& expr, Type wanted);
  Operand AsValue(Operand operand) const;
  /// The text of a value as one of another type, in brackets if it holds together less tightly than `needed`.
  std::string Cast(const Operand& operand, Type to, Binding needed = Binding::Or) const;
  Type OwnType(const Expr& literal) const;
  Operand Parameter(const Expr& expr, Type wanted);
  Operand Column(const Expr& expr) const;
  Operand Constant(const Expr& expr) const;
  Operand Unary(const Expr& expr);
  Operand IsNull(const Expr& expr);
  Operand Exists(const Expr& expr);
  Operand Subquery(const Expr& expr);

  // Operators.
  struct Arithmetic;
  Operands Alike(const std::vector<ExprPtr>& exprs);
  Operand Binary(const Expr& expr);
  Operand Logical(const Expr& expr);
  Operand ExclusiveOr(const Expr& expr);
  Operand Comparison(const Expr& expr);
  Operand Concatenation(const Expr& expr);
  Operand Calculation(const Expr& expr);
  Operand Calculated(const Expr& expr, const Arithmetic& op, const Operands& sides) const;
  Operand DateSum(const Expr& expr, const Operands& sides, Type type) const;
  Operand Like(const Expr& expr);
  Operand Between(const Expr& expr);
  Operand InList(const Expr& expr);
  Operand InSelect(const Expr& expr);
  Operand Compared(const Expr& expr, const Operand& left, const std::string& op, const Operand& right) const;
  Operand Comparing(const Operand& left, const std::string& op, const std::string& right, bool indexed) const;
  std::string Beside(const Operand& other, const Operand& operand) const;
  std::string ListItem(const Operand& subject, const Operand& item) const;
  void RequireComparable(const Expr& expr, const Operand& left, const Operand& right) const;

  // Functions.
  struct Special;
  Operand Call(const Expr& expr);
  Operand FunctionCall(const Expr& expr, const FunctionRow& row);
  Operand Aggregate(const Expr& expr, const AggregateRow& row);
  Operand CallOfIsNull(const Expr& expr);
  Operand CallOfIIf(const Expr& expr);
  Operand CallOfNz(const Expr& expr);
  template <ParameterPlan::Source source>
  Operand CallOfClock(const Expr& expr);
  Operand AsText(const Expr& expr);
  Operand AsText(Operand value) const;
  std::string AsOneOf(const Operand& value, Type type) const;
  Operands WithCommonType(const Expr& first, const Expr& second);

  Writing& writing_;
  const Scope& scope_;
  bool aggregates_allowed_ = false;
  bool saw_aggregate_ = false;
  Grouping* grouping_ = nullptr;
};

/// True for literals and placeholders.
inline bool IsParameter(const Expr& expr) {
  return expr.kind == Expr::Kind::Literal || expr.kind == Expr::Kind::Parameter;
}

}  // namespace zef::sql
