#include "platform/sql/select_core.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "platform/sql/from_writer.h"
#include "platform/sql/limits.h"
#include "platform/sql/statement_error.h"
#include "platform/text.h"

namespace zef::sql {
namespace {

void RequireRoom(std::size_t count, std::string_view list, std::size_t place) {
  if (count < kMostColumns) return;
  RaiseAt(FailureNumber::StatementError,
          std::string(list) + " has at most " + std::to_string(kMostColumns) + " columns, and this is one more", place);
}

}  // namespace

SelectCore::SelectCore(Writing& writing, const Select& select, const Scope* outer, Naming naming)
    : writing_(writing),
      select_(select),
      naming_(naming),
      scope_(outer, naming != Naming::None),
      expressions_(writing, scope_) {
  if (select_.from) AddSources(writing_, *select_.from, outer, scope_);
  scope_.ReportTo(grouping_);
  expressions_.WriteBeside(grouping_);
  AddKeys();
  const Writing::Sharing sharing(writing_, first_parameter_, behind_keys_);
  grouping_.Watch(true);
  expressions_.AllowAggregates(true);
  for (const SelectItem& item : select_.items) AddItem(item);
  expressions_.AllowAggregates(false);
  grouping_.Watch(false);
  behind_items_ = writing_.parameters();
}

/// The literals of a key are the same parameters wherever the select repeats it, so that it is known again.
void SelectCore::AddKeys() {
  first_parameter_ = writing_.parameters();
  for (const ExprPtr& expr : select_.group_by) {
    RequireRoom(keys_.size(), "A GROUP BY", expr->place);
    const Expr& key = KeyOf(*expr);
    keys_.push_back(expressions_.Value(key));
    if (key.kind == Expr::Kind::Column) grouping_.AddKey(scope_.Find(key));
    if (key.kind != Expr::Kind::Column) grouping_.AddKey(keys_.back().text);
  }
  behind_keys_ = writing_.parameters();
}

/// The expression that a key means: a whole number is the position of a result column.
const Expr& SelectCore::KeyOf(const Expr& expr) const {
  const bool position = expr.kind == Expr::Kind::Literal && writing_.KindOf(expr) == LiteralKind::Integer;
  if (!position) return expr;
  return *select_.items[PositionOf(expr, select_.items.size())].expr;
}

/// From 0.
std::size_t SelectCore::PositionOf(const Expr& literal, std::size_t columns) const {
  const std::int32_t position = writing_.ValueInText(literal);
  const bool fits = position >= 1 && static_cast<std::size_t>(position) <= columns;
  if (!fits) RaiseAt(FailureNumber::StatementError, "No result column has that position", literal.place);
  return static_cast<std::size_t>(position - 1);
}

void SelectCore::AddItem(const SelectItem& item) {
  if (item.expr->kind == Expr::Kind::Star) return AddStar(*item.expr);
  RequireRoom(items_.size(), "A result", item.expr->place);
  Operand value = expressions_.Value(*item.expr);
  std::string name = NameOf(item, value);
  items_.push_back({std::move(value), std::move(name), !item.alias.empty()});
}

std::string SelectCore::NameOf(const SelectItem& item, const Operand& value) {
  if (!item.alias.empty()) return item.alias;
  if (value.column != nullptr) return value.column->name;
  return "Expr" + std::to_string(unnamed_++);
}

void SelectCore::AddStar(const Expr& star) {
  const std::size_t before = items_.size();
  for (const ScopeSource& source : scope_.sources()) {
    const bool meant = star.qualifier.empty() || text::EqualNames(star.qualifier, source.name);
    if (!meant) continue;
    items_.reserve(items_.size() + source.info().columns.size());
    for (const ColumnInfo& column : source.info().columns) {
      RequireRoom(items_.size(), "A result", star.place);
      const FoundColumn found{&source, &column, scope_.qualifies()};
      grouping_.Note(found, star.place);
      items_.push_back({expressions_.Reference(found), column.name, false});
    }
    if (writing_.dialect().KeepsStars()) KeepStar(source, items_.size() - source.info().columns.size());
  }
  if (items_.size() != before) return;
  if (star.qualifier.empty()) RaiseAt(FailureNumber::StatementError, "A '*' needs a table", star.place);
  RaiseAt(FailureNumber::NoSuchTable, "The table '" + star.qualifier + "' is not known", star.place);
}

/// The star of a source stands for its columns if they are written as they are.
void SelectCore::KeepStar(const ScopeSource& source, std::size_t first) {
  const std::string name = Quoted(source.name) + ".";
  const bool plain = std::all_of(
      items_.begin() + static_cast<std::ptrdiff_t>(first), items_.end(),
      [&](const auto& item) { return item.value.text == (scope_.qualifies() ? name : "") + Quoted(item.name); });
  if (!plain) return;
  items_[first].star = name + "*";
  for (std::size_t i = first + 1; i < items_.size(); ++i) items_[i].behind_star = true;
}

void SelectCore::Replace(std::size_t item, const std::string& text) {
  items_[item].in_place = text;
  const bool had_star = items_[item].behind_star || !items_[item].star.empty();
  const TableInfo* const table = SingleTable();
  if (had_star && table != nullptr) star_in_place_ = ", " + writing_.dialect().InPlaceOfStar(*table);
}

const SelectedItem* SelectCore::ItemOf(const Expr& expr) const {
  if (expr.kind == Expr::Kind::Literal && writing_.KindOf(expr) == LiteralKind::Integer) {
    return &items_[PositionOf(expr, items_.size())];
  }
  const bool name = expr.kind == Expr::Kind::Column && expr.qualifier.empty();
  const auto found = std::find_if(items_.begin(), items_.end(), [&](const SelectedItem& item) {
    return name && item.alias && text::EqualNames(item.name, expr.name);
  });
  return found == items_.end() ? nullptr : &*found;
}

std::string SelectCore::Text() {
  std::string text = Body(select_.distinct);
  text += OrderBy();
  RequireGroups();
  return text + Limit();
}

std::string SelectCore::PartOfUnion() {
  const std::string body = Body(true);
  RequireGroups();
  return select_.top ? "SELECT * FROM (" + body + Limit() + ") AS " + Quoted(OwnName("top")) : body;
}

void SelectCore::RequireGroups() const {
  const bool grouped = !select_.group_by.empty() || select_.having || expressions_.saw_aggregate();
  if (grouped) grouping_.RequireKeysOnly();
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
  text += ItemList(collated) + hidden_ + star_in_place_;
  if (select_.from) text += " FROM " + WriteFrom(*select_.from, scope_, expressions_);
  text += OptionalCondition(" WHERE ", select_.where);
  return text + GroupBy() + Having();
}

std::string SelectCore::ItemList(bool collated) const {
  constexpr std::size_t kUsual = 24;
  std::string list;
  list.reserve(items_.size() * kUsual);
  const bool replaced =
      std::any_of(items_.begin(), items_.end(), [](const SelectedItem& item) { return !item.in_place.empty(); });
  const bool stars = !collated && !replaced && naming_ != Naming::Numbered;
  for (std::size_t i = 0; i < items_.size(); ++i) {
    const SelectedItem& item = items_[i];
    if (stars && item.behind_star) continue;
    const bool star = stars && !item.star.empty();
    const std::string& plain = item.in_place.empty() ? item.value.text : item.in_place;
    AppendItem(list, star ? item.star : collated ? expressions_.Collated(item.value) : plain);
    if (!star) list += Alias(i);
  }
  return list;
}

std::string SelectCore::Alias(std::size_t item) const {
  if (naming_ == Naming::Declared) return " AS " + Quoted(items_[item].name);
  return naming_ == Naming::Numbered ? " AS " + Quoted(NumberedName(item + 1)) : std::string();
}

std::string SelectCore::OptionalCondition(std::string_view word, const ExprPtr& condition) {
  return condition ? std::string(word) + expressions_.Condition(*condition).text : std::string();
}

std::string SelectCore::GroupBy() {
  std::string list;
  for (const Operand& key : keys_) AppendItem(list, expressions_.Collated(key));
  return list.empty() ? list : " GROUP BY " + list;
}

std::string SelectCore::Having() {
  grouping_.Watch(true);
  expressions_.AllowAggregates(true);
  const Writing::Sharing sharing(writing_, first_parameter_, behind_keys_);
  return OptionalCondition(" HAVING ", select_.having);
}

std::string SelectCore::OrderBy() {
  const Writing::Sharing sharing(writing_, first_parameter_, select_.distinct ? behind_items_ : behind_keys_);
  std::string list;
  std::size_t count = 0;
  for (const OrderItem& order : select_.order_by) {
    RequireRoom(count++, "An ORDER BY", order.expr->place);
    const SelectedItem* const item = ItemOf(*order.expr);
    AppendItem(list, expressions_.Collated(item != nullptr ? item->value : Sorted(*order.expr)));
    list += writing_.dialect().Direction(order.descending);
  }
  if (select_.order_by.empty() && !select_.distinct && !writing_.dialect().SortsGroups()) list = SortedKeys();
  return list.empty() ? list : " ORDER BY " + list;
}

std::string SelectCore::SortedKeys() const {
  std::string list;
  for (const Operand& key : keys_) AppendItem(list, expressions_.Collated(key) + writing_.dialect().Direction(false));
  return list;
}

/// What is no result column does not tell equal rows of a DISTINCT apart.
Operand SelectCore::Sorted(const Expr& expr) {
  Operand value = expressions_.Value(expr);
  const bool selected = std::any_of(items_.begin(), items_.end(),
                                    [&](const SelectedItem& item) { return item.value.text == value.text; });
  if (!select_.distinct || selected) return value;
  RaiseAt(FailureNumber::StatementError, "A SELECT DISTINCT is sorted by its result columns only", expr.place);
}

std::string SelectCore::Limit() {
  return select_.top
             ? " LIMIT " +
                   writing_.Parameter({select_.top->literal, ParameterPlan::Source::Literal, Type::Long, 0, true})
             : std::string();
}

}  // namespace zef::sql
