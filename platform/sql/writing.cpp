#include "platform/sql/writing.h"

#include <cstdint>
#include <variant>

#include "platform/sql/characters.h"
#include "platform/sql/statement_error.h"

namespace zef::sql {
namespace {

std::string Enclosed(std::string_view content, char quote) {
  std::string text(1, quote);
  for (const char c : content) text.append(c == quote ? 2 : 1, c);
  return text + quote;
}

std::vector<LiteralKind> ReadKinds(std::string_view key) {
  std::vector<LiteralKind> kinds;
  for (std::size_t at = key.find(kLiteralMark); at < key.size(); at = key.find(kLiteralMark, at + 2)) {
    kinds.push_back(static_cast<LiteralKind>(key.at(at + 1)));
  }
  return kinds;
}

}  // namespace

std::string Quoted(std::string_view name) { return Enclosed(name, '"'); }

std::string QuotedText(std::string_view text) { return Enclosed(text, '\''); }

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

std::string Writing::Parameter(const ParameterPlan& plan) {
  result_.parameters.push_back(plan);
  return dialect_.Parameter(result_.parameters.size());
}

std::string Writing::Call(std::string_view function, std::string_view arguments) const {
  return dialect_.Function(std::string(function)).append("(").append(arguments).append(")");
}

}  // namespace zef::sql
