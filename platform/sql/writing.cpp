#include "platform/sql/writing.h"

#include <algorithm>
#include <cstdint>
#include <variant>

#include "platform/sql/characters.h"
#include "platform/sql/statement_error.h"

namespace zef::sql {
namespace {

std::string Enclosed(std::string_view content, char quote) {
  std::string text;
  text.reserve(content.size() + 2);
  text += quote;
  for (std::size_t found = content.find(quote); found != std::string_view::npos; found = content.find(quote)) {
    text.append(content.substr(0, found + 1)) += quote;
    content.remove_prefix(found + 1);
  }
  return text.append(content) += quote;
}

std::vector<LiteralKind> ReadKinds(std::string_view key) {
  std::vector<LiteralKind> kinds;
  for (std::size_t at = key.find(kLiteralMark); at < key.size(); at = key.find(kLiteralMark, at + 2)) {
    kinds.push_back(static_cast<LiteralKind>(key.at(at + 1)));
  }
  return kinds;
}

}  // namespace

Type TypeOf(LiteralKind kind) {
  switch (kind) {
    case LiteralKind::Integer: return Type::Long;
    case LiteralKind::Decimal: return Type::Double;
    case LiteralKind::Date: return Type::Date;
    default: return Type::Text;
  }
}

std::string Quoted(std::string_view name) { return Enclosed(name, '"'); }

std::string QuotedText(std::string_view text) { return Enclosed(text, '\''); }

std::string OwnName(std::string_view name) { return std::string("]`").append(name); }

void AppendItem(std::string& list, std::string_view item) {
  if (!list.empty()) list += ", ";
  list += item;
}

Writing::Writing(const Shape& shape, Catalog& catalog, const Dialect& dialect, CompileOptions options)
    : shape_(shape), catalog_(catalog), dialect_(dialect), options_(options), kinds_(ReadKinds(shape.key)) {}

const TableInfo& Writing::Table(const std::string& name, std::size_t place) {
  if (const TableInfo* table = catalog_.FindTable(name)) return *table;
  RaiseAt(FailureNumber::NoSuchTable, "The table '" + name + "' is not known", place);
}

std::int32_t Writing::ValueInText(const Expr& literal) {
  result_.cacheable = false;
  return ToLong(shape_.literals[literal.literal]);
}

std::size_t Writing::Shared(const ParameterPlan& plan) const {
  const auto value = [this](const ParameterPlan& one) -> const Value& { return shape_.literals[one.index]; };
  for (std::size_t i = shared_.first; i < shared_.second; ++i) {
    const ParameterPlan& earlier = result_.parameters[i];
    const bool literals = earlier.source == ParameterPlan::Source::Literal && plan.source == earlier.source;
    if (literals && earlier.type == plan.type && value(earlier) == value(plan)) return i + 1;
  }
  return 0;
}

std::string Writing::Parameter(const ParameterPlan& plan) {
  if (const std::size_t shared = Shared(plan); shared != 0) {
    result_.cacheable = false;
    return TextOf(shared);
  }
  result_.parameters.push_back(plan);
  return TextOf(result_.parameters.size());
}

/// A value that is bound as it is has the type of its literal.
std::string Writing::TextOf(std::size_t number) const {
  const ParameterPlan& plan = result_.parameters[number - 1];
  if (plan.type != Type::Unknown) return dialect_.Parameter(number, plan.type);
  switch (plan.source) {
    case ParameterPlan::Source::Literal: return dialect_.Parameter(number, TypeOf(kinds_[plan.index]));
    case ParameterPlan::Source::Placeholder: return dialect_.Parameter(number, Type::Unknown);
    default: return dialect_.Parameter(number, Type::Date);
  }
}

std::string Writing::ClockParameter(ParameterPlan::Source source) {
  const std::vector<ParameterPlan>& plans = result_.parameters;
  const auto same = std::find_if(plans.begin(), plans.end(),
                                 [source](const ParameterPlan& earlier) { return earlier.source == source; });
  if (same == plans.end()) return Parameter({.source = source});
  return TextOf(static_cast<std::size_t>(same - plans.begin()) + 1);
}

const std::string& Writing::RowId(const TableInfo& table, std::size_t place) const {
  if (!table.row_id.empty()) return table.row_id;
  RaiseAt(FailureNumber::StatementError, "The rows of the table '" + table.name + "' have no identity to be found by",
          place);
}

std::string Writing::Call(std::string_view function, std::string_view arguments) const {
  return dialect_.Function(std::string(function)).append("(").append(arguments).append(")");
}

}  // namespace zef::sql
