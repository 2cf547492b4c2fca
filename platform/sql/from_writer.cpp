#include "platform/sql/from_writer.h"

#include <string_view>
#include <utility>

#include "platform/sql/select_writer.h"
#include "platform/sql/statement_error.h"
#include "platform/text.h"

namespace zef::sql {
namespace {

using Kind = Source::Kind;

void AddTable(Writing& writing, const Source& source, Scope& scope) {
  ScopeSource added;
  added.table = &writing.Table(source.table, source.place);
  added.name = source.alias.empty() ? added.table->name : source.alias;
  added.text = Quoted(added.table->name);
  if (!source.alias.empty()) added.text += " AS " + Quoted(source.alias);
  scope.Add(std::move(added), source.place);
}

/// Columns are found by name, so no two may share one.
void RequireNames(const TableInfo& derived, std::size_t place) {
  for (const ColumnInfo& column : derived.columns) {
    if (derived.Find(column.name) == &column) continue;
    RaiseAt(FailureNumber::StatementError,
            "The column name '" + column.name + "' stands twice in a select that serves as a table", place);
  }
}

void AddSelect(Writing& writing, const Source& source, const Scope* outer, Scope& scope) {
  WrittenSelect select = WriteSelect(writing, *source.select, outer, Naming::Declared);
  ScopeSource added;
  added.name = source.alias.empty() ? OwnName("s" + std::to_string(scope.sources().size() + 1)) : source.alias;
  added.derived.columns = std::move(select.columns);
  RequireNames(added.derived, source.place);
  added.text = "(" + select.text + ") AS " + Quoted(added.name);
  scope.Add(std::move(added), source.place);
}

/// Walks the sources in the order in which they were added.
class FromWriter {
 public:
  FromWriter(Scope& scope, ExpressionWriter& expressions) : scope_(scope), expressions_(expressions) {}

  /// A comma binds more loosely than JOIN to some engines, so below a join it is written as one.
  std::string Write(const Source& source, bool below_join) {
    const std::size_t first = next_;
    if (!source.left) return scope_.sources()[next_++].text;
    const bool comma = source.kind == Kind::Cross && !below_join;
    const std::string left = Write(*source.left, !comma);
    std::string right = Write(*source.right, true);
    if (source.right->left) right = "(" + right + ")";
    if (comma) return left + ", " + right;
    return left + std::string(Word(source.kind)) + right + " ON " + On(source, first);
  }

 private:
  static std::string_view Word(Kind kind) {
    if (kind == Kind::Left) return " LEFT JOIN ";
    return kind == Kind::Right ? " RIGHT JOIN " : " INNER JOIN ";
  }

  /// The condition of the join whose sources are those from `first` up to here.
  std::string On(const Source& source, std::size_t first) {
    if (!source.on) return "1 = 1";
    const Scope::Window window(scope_, first, next_);
    return expressions_.Condition(*source.on).text;
  }

  Scope& scope_;
  std::size_t next_ = 0;
  ExpressionWriter& expressions_;
};

}  // namespace

void AddSources(Writing& writing, const Source& source, const Scope* outer, Scope& scope) {
  if (source.kind == Kind::Table) return AddTable(writing, source, scope);
  if (source.kind == Kind::Select) return AddSelect(writing, source, outer, scope);
  AddSources(writing, *source.left, outer, scope);
  AddSources(writing, *source.right, outer, scope);
}

std::string WriteFrom(const Source& source, Scope& scope, ExpressionWriter& expressions) {
  return FromWriter(scope, expressions).Write(source, false);
}

}  // namespace zef::sql
