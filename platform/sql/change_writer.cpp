#include "platform/sql/change_writer.h"

#include <algorithm>
#include <utility>

#include "platform/sql/from_writer.h"
#include "platform/sql/select_writer.h"
#include "platform/sql/statement_error.h"
#include "platform/text.h"

namespace zef::sql {
namespace {

std::string FoundRows() { return Quoted(OwnName("rows")); }
std::string FoundRow() { return Quoted(OwnName("row")); }

std::string OptionalWhere(ExpressionWriter& expressions, const ExprPtr& condition) {
  return condition ? " WHERE " + expressions.Condition(*condition).text : std::string();
}

/// True if a join stands on the right side of another one.
bool HasBrackets(const Source& from) { return from.left && (from.right->left || HasBrackets(*from.left)); }

/// The row identifier of one of the joined sources. Engines do not see it through brackets, so there the table must
/// hand it out as a column.
std::string FoundRowId(const Writing& writing, const Source& from, Scope& scope, const ScopeSource& target) {
  const std::string& row_id = writing.RowId(*target.table, from.place);
  if (!HasBrackets(from)) return Quoted(target.name) + "." + row_id;
  scope.Rewrite(target, "(SELECT " + row_id + " AS " + FoundRow() + ", * FROM " + Quoted(target.table->name) + ") AS " +
                            Quoted(target.name));
  return Quoted(target.name) + "." + FoundRow();
}

const TableInfo& Changeable(const ScopeSource& source, std::size_t place) {
  if (source.table != nullptr) return *source.table;
  RaiseAt(FailureNumber::StatementError, "A select in brackets cannot be changed", place);
}

struct Assigned {
  const ColumnInfo* column;
  const Expr* value;
};

class UpdateWriter {
 public:
  UpdateWriter(Writing& writing, const Update& update)
      : writing_(writing), update_(update), scope_(nullptr), expressions_(writing, scope_) {
    AddSources(writing, *update.target, nullptr, scope_);
    for (const Assignment& assignment : update.assignments) Add(assignment);
  }

  void Write() {
    writing_.result().kind = CompiledStatement::Kind::Update;
    writing_.result().text = scope_.sources().size() == 1 ? OfOneTable() : OfJoinedSources();
  }

 private:
  void Add(const Assignment& assignment) {
    const Expr& reference = *assignment.column;
    const FoundColumn found = scope_.Find(reference);
    if (target_ != nullptr && target_ != found.source) {
      RaiseAt(FailureNumber::StatementError, "An UPDATE changes the columns of one table only", reference.place);
    }
    const bool twice = std::any_of(assigned_.begin(), assigned_.end(),
                                   [&](const Assigned& earlier) { return earlier.column == found.column; });
    if (twice) {
      RaiseAt(FailureNumber::StatementError, "The column '" + found.column->name + "' is set twice", reference.place);
    }
    target_ = found.source;
    table_ = &Changeable(*target_, reference.place);
    assigned_.push_back({found.column, assignment.value.get()});
  }

  std::string OfOneTable() {
    std::string list;
    for (const Assigned& assigned : assigned_) {
      AppendItem(list, Quoted(assigned.column->name) + " = " + expressions_.Stored(*assigned.value, *assigned.column));
    }
    const std::string text = "UPDATE " + target_->text + " SET " + list + Where();
    return writing_.options().by_row_id ? text + writing_.dialect().Returning(table_->row_id) : text;
  }

  std::string Where() {
    if (!writing_.options().by_row_id) return OptionalWhere(expressions_, update_.where);
    const std::string& row_id = writing_.RowId(*table_, update_.target->place);
    return " WHERE " + row_id + " = " + writing_.Parameter({assigned_.size(), ParameterPlan::Source::Placeholder});
  }

  std::string OfJoinedSources() {
    std::string list;
    std::string values = FoundRowId(writing_, *update_.target, scope_, *target_) + " AS " + FoundRow();
    for (std::size_t i = 0; i < assigned_.size(); ++i) {
      const std::string name = Quoted(NumberedName(i + 1));
      AppendItem(values, expressions_.Stored(*assigned_[i].value, *assigned_[i].column) + " AS " + name);
      AppendItem(list, Quoted(assigned_[i].column->name) + " = " + FoundRows() + "." + name);
    }
    const std::string rows = "SELECT " + values + " FROM " + WriteFrom(*update_.target, scope_, expressions_) +
                             OptionalWhere(expressions_, update_.where);
    return "UPDATE " + Quoted(table_->name) + " SET " + list + " FROM (" + rows + ") AS " + FoundRows() + " WHERE " +
           Quoted(table_->name) + "." + table_->row_id + " = " + FoundRows() + "." + FoundRow();
  }

  Writing& writing_;
  const Update& update_;
  Scope scope_;
  ExpressionWriter expressions_;
  std::vector<Assigned> assigned_;
  const ScopeSource* target_ = nullptr;
  const TableInfo* table_ = nullptr;
};

class DeleteWriter {
 public:
  DeleteWriter(Writing& writing, const Delete& remove)
      : writing_(writing), remove_(remove), scope_(nullptr), expressions_(writing, scope_) {
    AddSources(writing, *remove.from, nullptr, scope_);
  }

  void Write() {
    const ScopeSource& target = Target();
    const TableInfo& table = Changeable(target, remove_.from->place);
    writing_.result().kind = CompiledStatement::Kind::Delete;
    writing_.result().text = scope_.sources().size() == 1
                                 ? "DELETE FROM " + target.text + OptionalWhere(expressions_, remove_.where)
                                 : OfJoinedSources(target, table);
  }

 private:
  const ScopeSource& Target() const {
    if (!remove_.of.empty()) {
      if (const ScopeSource* named = scope_.FindSource(remove_.of)) return *named;
      RaiseAt(FailureNumber::NoSuchTable, "The table '" + remove_.of + "' is not known", remove_.from->place);
    }
    if (scope_.sources().size() == 1) return scope_.sources().front();
    RaiseAt(FailureNumber::StatementError, "A DELETE from joined tables names one of them, as in DELETE name.* FROM",
            remove_.from->place);
  }

  std::string OfJoinedSources(const ScopeSource& target, const TableInfo& table) {
    // One after the other: finding the row may add its identifier to a bracketed source.
    std::string rows = "SELECT " + FoundRowId(writing_, *remove_.from, scope_, target);
    rows += " FROM " + WriteFrom(*remove_.from, scope_, expressions_);
    rows += OptionalWhere(expressions_, remove_.where);
    return "DELETE FROM " + Quoted(table.name) + " WHERE " + table.row_id + " IN (" + rows + ")";
  }

  Writing& writing_;
  const Delete& remove_;
  Scope scope_;
  ExpressionWriter expressions_;
};

}  // namespace

void WriteUpdate(Writing& writing, const Update& update) { UpdateWriter(writing, update).Write(); }

void WriteDelete(Writing& writing, const Delete& remove) { DeleteWriter(writing, remove).Write(); }

}  // namespace zef::sql
