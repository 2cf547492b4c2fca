#include "platform/sql/select_writer.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "platform/sql/select_core.h"
#include "platform/sql/statement_error.h"
#include "platform/text.h"

namespace zef::sql {
namespace {

std::vector<ColumnInfo> ColumnsOf(const SelectCore& core) {
  std::vector<ColumnInfo> columns;
  columns.reserve(core.items().size());
  for (const SelectedItem& item : core.items()) {
    ColumnInfo& column = columns.emplace_back();
    column.name = item.name;
    column.type = item.value.type;
    column.length = item.value.length;
  }
  return columns;
}

struct United {
  Type type;
  int length;
  bool null;  ///< only the word NULL so far
};

/// Values of a union are not converted: where the kinds differ, each row has its own. Null has none.
void Unite(United& column, const Operand& value) {
  if (value.null) return;
  if (std::exchange(column.null, false)) {
    column = {value.type, value.length, false};
    return;
  }
  const bool alike = IsText(column.type) == IsText(value.type);
  column.type = alike ? CommonType(column.type, value.type) : Type::Unknown;
  column.length = column.length == 0 || value.length == 0 ? 0 : std::max(column.length, value.length);
}

class UnionWriter {
 public:
  UnionWriter(Writing& writing, const Select& select, const Scope* outer, Naming naming)
      : writing_(writing), select_(select), outer_(outer), first_(writing, select, outer, naming) {
    for (const SelectedItem& item : first_.items()) {
      united_.push_back({item.value.type, item.value.length, item.value.null});
    }
  }

  WrittenSelect Write() {
    parts_.push_back(PartOf(first_, ""));
    for (const Select::UnionPart& part : select_.unions) Add(part);
    WrittenSelect written{{}, ColumnsOf(first_)};
    for (const Part& part : parts_) written.text += part.word + Alike(part);
    for (std::size_t i = 0; i < united_.size(); ++i) {
      written.columns[i].type = united_[i].type;
      written.columns[i].length = united_[i].length;
    }
    written.text += OrderBy(written.columns);
    return written;
  }

 private:
  struct Part {
    std::string word;  ///< that joins it to the one before
    std::string text;
    std::vector<Type> types;
  };

  static Part PartOf(SelectCore& core, std::string word) {
    Part part{std::move(word), core.PartOfUnion(), {}};
    for (const SelectedItem& item : core.items()) part.types.push_back(item.value.type);
    return part;
  }

  /// The text of a part, its values as the types of the whole ask for.
  std::string Alike(const Part& part) const {
    std::string values, names;
    bool converted = false;
    for (std::size_t i = 0; i < united_.size(); ++i) {
      const std::string name = Quoted(NumberedName(i + 1));
      const std::string value = Alike(name, part.types[i], united_[i].type);
      converted = converted || value != name;
      AppendItem(names, name);
      AppendItem(values, value + first_.Alias(i));
    }
    if (!converted) return part.text;
    return "SELECT " + values + " FROM (" + part.text + ") AS " + Quoted(OwnName("part")) + " (" + names + ")";
  }

  std::string Alike(const std::string& value, Type from, Type to) const {
    const bool alike = from == to || (IsNumber(from) && IsNumber(to)) || (IsText(from) && IsText(to));
    if (alike) return value;
    return to == Type::Unknown ? writing_.dialect().Varying(value) : writing_.dialect().Cast(value, from, to);
  }

  void Add(const Select::UnionPart& part) {
    SelectCore core(writing_, *part.select, outer_, Naming::None);
    if (core.items().size() != united_.size()) {
      throw RunTimeError(FailureNumber::StatementError, "The selects of a UNION have different numbers of columns.");
    }
    for (std::size_t i = 0; i < united_.size(); ++i) Unite(united_[i], core.items()[i].value);
    parts_.push_back(PartOf(core, part.all ? " UNION ALL " : " UNION "));
  }

  /// The rows of a union are sorted by result columns only, named or by position.
  std::string OrderBy(const std::vector<ColumnInfo>& columns) const {
    std::string list;
    for (const OrderItem& order : select_.order_by) {
      AppendItem(list, std::to_string(PositionOf(*order.expr, columns)));
      list += writing_.dialect().Direction(order.descending);
    }
    return list.empty() ? list : " ORDER BY " + list;
  }

  std::size_t PositionOf(const Expr& expr, const std::vector<ColumnInfo>& columns) const {
    if (const SelectedItem* item = first_.ItemOf(expr)) {
      return static_cast<std::size_t>(item - first_.items().data()) + 1;
    }
    const bool name = expr.kind == Expr::Kind::Column && expr.qualifier.empty();
    if (!name) RaiseAt(FailureNumber::StatementError, "A UNION is sorted by its result columns only", expr.place);
    const auto found = std::find_if(columns.begin(), columns.end(),
                                    [&](const ColumnInfo& column) { return text::EqualNames(column.name, expr.name); });
    if (found != columns.end()) return static_cast<std::size_t>(found - columns.begin()) + 1;
    RaiseAt(FailureNumber::NoSuchColumn, "The column '" + expr.name + "' is not known", expr.place);
  }

  Writing& writing_;
  const Select& select_;
  const Scope* outer_;
  SelectCore first_;
  std::vector<United> united_;
  std::vector<Part> parts_;
};

/// Positions of the columns that form the table's key; none unless all of them are in the result.
std::vector<std::size_t> KeyColumns(const TableInfo& table, const std::vector<SelectedItem>& items) {
  std::vector<std::size_t> positions;
  for (const ColumnInfo& column : table.columns) {
    if (!column.key) continue;
    const auto found = std::find_if(items.begin(), items.end(),
                                    [&](const SelectedItem& item) { return item.value.column == &column; });
    if (found == items.end()) return {};
    positions.push_back(static_cast<std::size_t>(found - items.begin()));
  }
  return positions;
}

void MakeUpdatable(Writing& writing, SelectCore& core) {
  const TableInfo* table = core.IsPlain() ? core.SingleTable() : nullptr;
  if (table == nullptr) return;
  CompiledStatement& result = writing.result();
  result.key_columns = KeyColumns(*table, core.items());
  result.hidden_row_id = result.key_columns.empty() && !table->row_id.empty();
  if (result.hidden_row_id) core.AppendHidden(table->row_id);
  const bool found_again = result.hidden_row_id || !result.key_columns.empty();
  if (found_again) result.table = table->name;
}

/// Leaves binary columns of a table's rows to be fetched.
void FetchLater(Writing& writing, SelectCore& core) {
  const TableInfo* table = writing.dialect().FetchesLater() && core.IsPlain() ? core.SingleTable() : nullptr;
  if (table == nullptr || table->row_id.empty()) return;
  for (std::size_t i = 0; i < core.items().size(); ++i) {
    const ColumnInfo* column = core.items()[i].value.column;
    if (column == nullptr || column->type != Type::Binary) continue;
    core.Replace(i, writing.dialect().Later(core.items()[i].value.text, table->row_id));
    writing.result().later.push_back({static_cast<int>(i), "SELECT " + Quoted(column->name) + " FROM " +
                                                               Quoted(table->name) + " WHERE " + table->row_id + " = " +
                                                               writing.dialect().Parameter(1, Type::Unknown)});
  }
}

/// True if the condition is a value for the table's key, so that there is one row at most.
bool NamesKey(const Select& select, const SelectCore& core) {
  const TableInfo* const table = core.SingleTable();
  const Expr* const where = select.where.get();
  if (table == nullptr || table->row_id.empty() || where == nullptr) return false;
  if (where->kind != Expr::Kind::Binary || where->name != "=") return false;
  const Expr& column = *where->args[0];
  if (column.kind != Expr::Kind::Column || where->args[1]->kind != Expr::Kind::Literal) return false;
  const ColumnInfo* const named = table->Find(column.name);
  return named->key && std::count_if(table->columns.begin(), table->columns.end(), std::mem_fn(&ColumnInfo::key)) == 1;
}

bool LocksRows(const Writing& writing, const Select& select, const SelectCore& core) {
  if (!core.IsPlain()) return false;
  return writing.options().lock_rows || (writing.options().lock_found && NamesKey(select, core));
}

WrittenSelect WritePlainStatement(Writing& writing, const Select& select) {
  SelectCore core(writing, select, nullptr, Naming::None);
  FetchLater(writing, core);
  if (writing.options().updatable) MakeUpdatable(writing, core);
  WrittenSelect written{core.Text(), ColumnsOf(core)};
  if (LocksRows(writing, select, core)) written.text += writing.dialect().ForUpdate();
  return written;
}

}  // namespace

std::string NumberedName(std::size_t number) { return OwnName("c" + std::to_string(number)); }

WrittenSelect WriteSelect(Writing& writing, const Select& select, const Scope* outer, Naming naming) {
  if (!select.unions.empty()) return UnionWriter(writing, select, outer, naming).Write();
  SelectCore core(writing, select, outer, naming);
  std::string text = core.Text();
  return {std::move(text), ColumnsOf(core)};
}

void WriteSelectStatement(Writing& writing, const Select& select) {
  WrittenSelect written = select.unions.empty() ? WritePlainStatement(writing, select)
                                                : WriteSelect(writing, select, nullptr, Naming::None);
  CompiledStatement& result = writing.result();
  result.kind = CompiledStatement::Kind::Select;
  result.text = std::move(written.text);
  result.columns.reserve(written.columns.size());
  for (ColumnInfo& column : written.columns) result.columns.push_back({std::move(column.name), column.type});
}

const ColumnInfo& SingleColumn(const WrittenSelect& select, std::size_t place) {
  if (select.columns.size() == 1) return select.columns.front();
  RaiseAt(FailureNumber::StatementError, "A select that serves as a value or a list has one column", place);
}

}  // namespace zef::sql
