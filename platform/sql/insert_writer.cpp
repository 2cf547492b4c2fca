#include <algorithm>

#include "platform/sql/change_writer.h"
#include "platform/sql/expression_writer.h"
#include "platform/sql/select_writer.h"
#include "platform/sql/statement_error.h"

namespace zef::sql {
namespace {

class InsertWriter {
 public:
  InsertWriter(Writing& writing, const Insert& insert)
      : writing_(writing), insert_(insert), table_(writing.Table(insert.table, insert.place)) {}

  void Write() {
    for (const std::string& name : insert_.columns) AddColumn(name);
    if (insert_.columns.empty()) AddAllColumns();
    RequireNeededColumns();
    CompiledStatement& result = writing_.result();
    result.kind = CompiledStatement::Kind::Insert;
    result.text =
        "INSERT INTO " + Quoted(table_.name) + " (" + ColumnList() + ") " + (insert_.select ? FromSelect() : Values());
  }

 private:
  void AddColumn(const std::string& name) {
    const ColumnInfo* column = table_.Find(name);
    if (column == nullptr) {
      RaiseAt(FailureNumber::NoSuchColumn, "The column '" + name + "' is not known", insert_.place);
    }
    if (Has(*column)) {
      RaiseAt(FailureNumber::StatementError, "The column '" + column->name + "' stands twice", insert_.place);
    }
    columns_.push_back(column);
  }

  void AddAllColumns() {
    for (const ColumnInfo& column : table_.columns) columns_.push_back(&column);
  }

  bool Has(const ColumnInfo& column) const {
    return std::find(columns_.begin(), columns_.end(), &column) != columns_.end();
  }

  /// No column has a default value.
  void RequireNeededColumns() const {
    for (const ColumnInfo& column : table_.columns) {
      const bool missing = (column.required || column.key) && !Has(column);
      if (!missing) continue;
      RaiseAt(FailureNumber::ConstraintViolated, "The column '" + column.name + "' needs a value", insert_.place);
    }
  }

  void RequireCount(std::size_t values) const {
    if (values == columns_.size()) return;
    RaiseAt(FailureNumber::StatementError, "There must be one value for each column", insert_.place);
  }

  std::string ColumnList() const {
    std::string list;
    for (const ColumnInfo* column : columns_) AppendItem(list, Quoted(column->name));
    return list;
  }

  std::string Values() {
    RequireCount(insert_.values.size());
    const Scope scope(nullptr);
    ExpressionWriter expressions(writing_, scope);
    std::string list;
    for (std::size_t i = 0; i < columns_.size(); ++i)
      AppendItem(list, expressions.Stored(*insert_.values[i], *columns_[i]));
    return "VALUES (" + list + ")";
  }

  std::string FromSelect() {
    const WrittenSelect select = WriteSelect(writing_, *insert_.select, nullptr, Naming::Numbered);
    RequireCount(select.columns.size());
    const Scope scope(nullptr);
    const ExpressionWriter expressions(writing_, scope);
    std::string list;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      Operand value;
      value.text = Quoted(NumberedName(i + 1));
      value.type = select.columns[i].type;
      value.length = select.columns[i].length;
      AppendItem(list, expressions.Stored(value, *columns_[i], insert_.place));
    }
    return "SELECT " + list + " FROM (" + select.text + ") AS " + Quoted(OwnName("rows"));
  }

  Writing& writing_;
  const Insert& insert_;
  const TableInfo& table_;
  std::vector<const ColumnInfo*> columns_;
};

}  // namespace

void WriteInsert(Writing& writing, const Insert& insert) { InsertWriter(writing, insert).Write(); }

}  // namespace zef::sql
