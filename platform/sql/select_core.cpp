#include "platform/sql/select_core.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "platform/sql/from_writer.h"
#include "platform/sql/statement_error.h"
#include "platform/text.h"

namespace zef::sql {

SelectCore::SelectCore(Writing& writing, const Select& select, const Scope* outer, Naming naming)
    : writing_(writing), select_(select), naming_(naming), scope_(outer), expressions_(writing, scope_) {
  if (select_.from) AddSources(writing_, *select_.from, outer, scope_);
  expressions_.AllowAggregates(true);
  for (const SelectItem& item : select_.items) AddItem(item);
  expressions_.AllowAggregates(false);
}

void SelectCore::AddItem(const SelectItem& item) {
  if (item.expr->kind == Expr::Kind::Star) return AddStar(*item.expr);
  Operand value = expressions_.Value(*item.expr);
  std::string name = NameOf(item, value);
  items_.push_back({std::move(value), std::move(name), !item.alias.empty()});
}

std::string SelectCore::NameOf(const SelectItem& item, const Operand& value) {
  if (!item.alias.empty()) return item.alias;
  if (value.column != nullptr) return value.column->name;
  return value.row_id ? writing_.dialect().RowId() : "Expr" + std::to_string(unnamed_++);
}

void SelectCore::AddStar(const Expr& star) {
  const std::size_t before = items_.size();
  for (const ScopeSource& source : scope_.sources()) {
    const bool meant = star.qualifier.empty() || text::EqualNames(star.qualifier, source.name);
    if (!meant) continue;
    for (const ColumnInfo& column : source.info().columns) {
      items_.push_back({expressions_.Reference({&source, &column, scope_.qualifies()}), column.name, false});
    }
  }
  if (items_.size() != before) return;
  if (star.qualifier.empty()) RaiseAt(FailureNumber::StatementError, "A '*' needs a table", star.place);
  RaiseAt(FailureNumber::NoSuchTable, "The table '" + star.qualifier + "' is not known", star.place);
}

const SelectedItem* SelectCore::ItemOf(const Expr& expr) const {
  if (expr.kind == Expr::Kind::Literal && writing_.KindOf(expr) == LiteralKind::Integer) {
    const std::int32_t position = writing_.ValueInText(expr);
    const bool fits = position >= 1 && static_cast<std::size_t>(position) <= items_.size();
    if (!fits) RaiseAt(FailureNumber::StatementError, "No result column has that position", expr.place);
    return &items_[static_cast<std::size_t>(position - 1)];
  }
  const bool name = expr.kind == Expr::Kind::Column && expr.qualifier.empty();
  const auto found = std::find_if(items_.begin(), items_.end(), [&](const SelectedItem& item) {
    return name && item.alias && text::EqualNames(item.name, expr.name);
  });
  return found == items_.end() ? nullptr : &*found;
}

std::string SelectCore::Text() {
  std::string text = Body(select_.distinct);  // first: it decides whether aggregates may stand behind it
  text += OrderBy();
  text += Limit();
  return text;
}

std::string SelectCore::PartOfUnion() {
  const std::string body = Body(true);
  return select_.top ? "SELECT * FROM (" + body + Limit() + ") AS " + Quoted("top") : body;
}

bool SelectCore::IsPlain() const {
  const bool whole = !select_.top && select_.unions.empty();
  return whole && !select_.distinct && select_.group_by.empty() && !select_.having && !expressions_.saw_aggregate();
}

const TableInfo* SelectCore::SingleTable() const {
  return scope_.sources().size() == 1 ? scope_.sources().front().table : nullptr;
}

std::string SelectCore::Body(bool collated) {
  std::string text = select_.distinct ? "SELECT DISTINCT " : "SELECT ";
  text += ItemList(collated) + hidden_;
  if (select_.from) text += " FROM " + WriteFrom(*select_.from, scope_, expressions_);
  text += OptionalCondition(" WHERE ", select_.where);
  text += GroupBy();
  expressions_.AllowAggregates(true);
  return text + OptionalCondition(" HAVING ", select_.having);
}

std::string SelectCore::ItemList(bool collated) const {
  std::string list;
  std::size_t number = 0;
  for (const SelectedItem& item : items_) {
    ++number;
    AppendItem(list, collated ? expressions_.Collated(item.value) : item.value.text);
    if (naming_ == Naming::Declared) list += " AS " + Quoted(item.name);
    if (naming_ == Naming::Numbered) list += " AS " + Quoted("c" + std::to_string(number));
  }
  return list;
}

std::string SelectCore::OptionalCondition(std::string_view word, const ExprPtr& condition) {
  return condition ? std::string(word) + expressions_.Condition(*condition).text : std::string();
}

std::string SelectCore::Sortable(const Expr& expr, const SelectedItem* item) {
  return expressions_.Collated(item != nullptr ? item->value : expressions_.Value(expr));
}

std::string SelectCore::GroupBy() {
  std::string list;
  for (const ExprPtr& expr : select_.group_by) {
    const bool position = expr->kind == Expr::Kind::Literal;
    AppendItem(list, Sortable(*expr, position ? ItemOf(*expr) : nullptr));
  }
  return list.empty() ? list : " GROUP BY " + list;
}

std::string SelectCore::OrderBy() {
  std::string list;
  for (const OrderItem& order : select_.order_by) {
    AppendItem(list, Sortable(*order.expr, ItemOf(*order.expr)));
    if (order.descending) list += " DESC";
  }
  return list.empty() ? list : " ORDER BY " + list;
}

std::string SelectCore::Limit() {
  return select_.top ? " LIMIT " + writing_.Parameter({select_.top->literal, false, Type::Long, 0, true})
                     : std::string();
}

}  // namespace zef::sql
