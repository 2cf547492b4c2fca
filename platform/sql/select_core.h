#pragma once

#include <string>
#include <vector>

#include "platform/sql/expression_writer.h"
#include "platform/sql/select_writer.h"

namespace zef::sql {

/// One result column of a select.
struct SelectedItem {
  Operand value;
  std::string name;
  bool alias = false;      ///< the statement gives the name
  std::string in_place{};  ///< what stands in the select list for the value; empty for the value itself
  std::string
      star{};  ///< what stands there for this and the columns that follow from the same star, if engines keep it
  bool behind_star = false;  ///< stands in the select list with the star of a column before it
};

/// Writes one select, without those that UNION joins to it. The select list is written when it is made.
class SelectCore {
 public:
  SelectCore(Writing& writing, const Select& select, const Scope* outer, Naming naming);

  const std::vector<SelectedItem>& items() const { return items_; }
  /// The result column of that position, if the expression is an integer literal, or that bears the name as an alias.
  /// Null for other expressions. Raises -2147217900 for a position that is none.
  const SelectedItem* ItemOf(const Expr& expr) const;

  /// One more column behind the others, which is none of the result's.
  void AppendHidden(const std::string& text) { hidden_ = ", " + text; }
  /// Puts an identifier of the row in the place of a result column. A star that it came from cannot stand any more.
  void Replace(std::size_t item, const std::string& text);
  std::string Text();
  /// As a part of a UNION: without ORDER BY, its texts ready for comparison.
  std::string PartOfUnion();
  /// The name that a result column bears in the engine's statement, behind the word AS; may be empty.
  std::string Alias(std::size_t item) const;

  /// True if a row of the result is one row of each source.
  bool IsPlain() const;
  /// The one table that is read, or null if there are other sources.
  const TableInfo* SingleTable() const;

 private:
  void AddKeys();
  const Expr& KeyOf(const Expr& expr) const;
  std::size_t PositionOf(const Expr& literal, std::size_t columns) const;
  void AddItem(const SelectItem& item);
  void AddStar(const Expr& star);
  void KeepStar(const ScopeSource& source, std::size_t first);
  std::string NameOf(const SelectItem& item, const Operand& value);

  void RequireGroups() const;
  std::string Body(bool collated);
  std::string ItemList(bool collated) const;
  std::string OptionalCondition(std::string_view word, const ExprPtr& condition);
  std::string GroupBy();
  std::string Having();
  std::string OrderBy();
  std::string SortedKeys() const;
  Operand Sorted(const Expr& expr);
  std::string Limit();

  Writing& writing_;
  const Select& select_;
  const Naming naming_;
  Scope scope_;
  ExpressionWriter expressions_;
  Grouping grouping_;
  std::size_t first_parameter_ = 0;  ///< of the keys of the groups and the columns behind them
  std::size_t behind_keys_ = 0;
  std::size_t behind_items_ = 0;
  std::vector<Operand> keys_;  ///< of the groups
  std::vector<SelectedItem> items_;
  std::string hidden_;
  std::string star_in_place_;  ///< behind all columns
  int unnamed_ = 1000;         ///< number of the next column without a name
};

}  // namespace zef::sql
