#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <utility>

#include "platform/sql/ast.h"
#include "platform/sql/grouping.h"
#include "platform/sql/schema.h"

namespace zef::sql {

/// One table or select in brackets that stands in FROM.
struct ScopeSource {
  std::string name;                  ///< by which columns are qualified: the alias, else the table's name as declared
  const TableInfo* table = nullptr;  ///< null for a select in brackets
  TableInfo derived;                 ///< the columns of a select in brackets
  std::string text;                  ///< as it stands in FROM

  const TableInfo& info() const { return table != nullptr ? *table : derived; }
};

/// A column reference that was found.
struct FoundColumn {
  const ScopeSource* source = nullptr;
  const ColumnInfo* column = nullptr;
  bool qualified = false;  ///< must be written with the name of its source
};

/// What column names mean inside one select: its own sources, then those of the selects around it. Sources keep their
/// addresses.
class Scope {
 public:
  /// With `named_results` the select's result columns bear names in the engine's statement, which must not be taken
  /// for its columns.
  explicit Scope(const Scope* outer, bool named_results = false) : outer_(outer), named_results_(named_results) {}
  Scope(const Scope&) = delete;
  Scope& operator=(const Scope&) = delete;

  /// Raises -2147217900 if a source of that name is there already, and for one too many.
  ScopeSource& Add(ScopeSource source, std::size_t place);
  /// Lets a source of this scope stand in FROM as another text.
  void Rewrite(const ScopeSource& source, std::string text);
  const std::deque<ScopeSource>& sources() const { return sources_; }
  /// The source of that name, letter case ignored, or null; the scopes around this one are not asked.
  const ScopeSource* FindSource(std::string_view name) const;
  /// The column that a reference means. Raises -2147217904 for a name that is not known or means two columns.
  FoundColumn Find(const Expr& reference) const;
  /// While it lives, only the sources from `first` to before `last` have columns: those of the join whose condition is
  /// written.
  class Window {
   public:
    Window(Scope& scope, std::size_t first, std::size_t last)
        : scope_(scope), before_(std::exchange(scope.visible_, {first, last})) {}
    ~Window() { scope_.visible_ = before_; }
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

   private:
    Scope& scope_;
    const std::pair<std::size_t, std::size_t> before_;
  };

  /// Tells `grouping` of the columns of this scope that are found, also from selects inside.
  void ReportTo(Grouping& grouping) { grouping_ = &grouping; }
  /// True if columns of this scope are written with the name of their source.
  bool qualifies() const { return named_results_ || outer_ != nullptr || sources_.size() > 1; }

 private:
  bool FindHere(const Expr& reference, FoundColumn& found) const;

  const Scope* outer_;
  const bool named_results_;
  Grouping* grouping_ = nullptr;
  std::deque<ScopeSource> sources_;
  std::pair<std::size_t, std::size_t> visible_{0, static_cast<std::size_t>(-1)};  ///< sources: first, behind the last
};

}  // namespace zef::sql
