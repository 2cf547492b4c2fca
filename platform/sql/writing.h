#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/sql/compile.h"

namespace zef::sql {

/// The type of a literal's value.
Type TypeOf(LiteralKind kind);
/// A name as it stands in an engine's statement: between quotes.
std::string Quoted(std::string_view name);
/// A text of this library's own as it stands in an engine's statement.
std::string QuotedText(std::string_view text);
/// A name of this library's own, to be quoted. No name of the dialect is the same: it holds what ends a name between
/// brackets and what ends one between backticks.
std::string OwnName(std::string_view name);
/// Appends `item` to a list that is separated by commas.
void AppendItem(std::string& list, std::string_view item);

/// What all writers of one statement share: where they learn of tables, the engine's language, and the parameters.
class Writing {
 public:
  Writing(const Shape& shape, Catalog& catalog, const Dialect& dialect, CompileOptions options);

  const Dialect& dialect() const { return dialect_; }
  const CompileOptions& options() const { return options_; }
  CompiledStatement& result() { return result_; }

  /// While it lives, literals are the same parameters as equal literals among those from `first` to before `last`.
  /// Where that happens the statement is good for these values only.
  class Sharing {
   public:
    Sharing(Writing& writing, std::size_t first, std::size_t last)
        : writing_(writing), before_(std::exchange(writing.shared_, {first, last})) {}
    ~Sharing() { writing_.shared_ = before_; }
    Sharing(const Sharing&) = delete;
    Sharing& operator=(const Sharing&) = delete;

   private:
    Writing& writing_;
    const std::pair<std::size_t, std::size_t> before_;
  };

  /// Raises -2147217865, naming the place, if there is no such table.
  const TableInfo& Table(const std::string& name, std::size_t place);
  LiteralKind KindOf(const Expr& literal) const { return kinds_[literal.literal]; }
  /// The value of an integer literal that stands in the text itself; the statement is then good for this value only.
  std::int32_t ValueInText(const Expr& literal);
  /// One more parameter; gives its text.
  std::string Parameter(const ParameterPlan& plan);
  std::size_t parameters() const { return result_.parameters.size(); }
  /// The parameter that a reading of the clock fills, the same one for all mentions.
  std::string ClockParameter(ParameterPlan::Source source);
  /// The row identifier of a table. Raises -2147217900, naming the place, if rows of the table cannot be told apart.
  const std::string& RowId(const TableInfo& table, std::size_t place) const;
  /// A call of one of the engine's functions.
  std::string Call(std::string_view function, std::string_view arguments) const;

 private:
  /// The text of parameter `number`, from 1.
  std::string TextOf(std::size_t number) const;
  /// The number of the parameter that one of this plan can share, or 0.
  std::size_t Shared(const ParameterPlan& plan) const;

  const Shape& shape_;
  Catalog& catalog_;
  const Dialect& dialect_;
  const CompileOptions options_;
  std::vector<LiteralKind> kinds_;
  CompiledStatement result_;
  std::pair<std::size_t, std::size_t> shared_;  ///< parameters that equal literals may share: first, behind the last
};

}  // namespace zef::sql
