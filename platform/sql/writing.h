#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/sql/compile.h"

namespace zef::sql {

/// A name as it stands in an engine's statement: between quotes.
std::string Quoted(std::string_view name);
/// A text of this library's own as it stands in an engine's statement.
std::string QuotedText(std::string_view text);
/// Appends `item` to a list that is separated by commas.
void AppendItem(std::string& list, std::string_view item);

/// What all writers of one statement share: where they learn of tables, the engine's language, and the parameters.
class Writing {
 public:
  Writing(const Shape& shape, Catalog& catalog, const Dialect& dialect, CompileOptions options);

  const Dialect& dialect() const { return dialect_; }
  const CompileOptions& options() const { return options_; }
  CompiledStatement& result() { return result_; }

  /// Raises -2147217865, naming the place, if there is no such table.
  const TableInfo& Table(const std::string& name, std::size_t place);
  LiteralKind KindOf(const Expr& literal) const { return kinds_[literal.literal]; }
  /// The value of an integer literal that stands in the text itself; the statement is then good for this value only.
  std::int32_t ValueInText(const Expr& literal);
  /// One more parameter; gives its text.
  std::string Parameter(const ParameterPlan& plan);
  /// A call of one of the engine's functions.
  std::string Call(std::string_view function, std::string_view arguments) const;

 private:
  const Shape& shape_;
  Catalog& catalog_;
  const Dialect& dialect_;
  const CompileOptions options_;
  std::vector<LiteralKind> kinds_;
  CompiledStatement result_;
};

}  // namespace zef::sql
