#include "platform/sql/grouping.h"

#include <algorithm>

#include "platform/sql/scope.h"
#include "platform/sql/statement_error.h"

namespace zef::sql {

void Grouping::AddKey(const FoundColumn& column) { columns_.emplace_back(column.source, column.column); }

void Grouping::Note(const FoundColumn& column, std::size_t place) {
  // Without keys any column is wrong as soon as there is an aggregate, so the first one is enough.
  const bool enough = !has_keys() && !noted_.empty();
  if (!watching_ || enough) return;
  const std::pair key(column.source, column.column);
  if (std::find(columns_.begin(), columns_.end(), key) == columns_.end()) noted_.push_back({column.column, place});
}

bool Grouping::Settle(std::size_t since, std::string_view text) {
  const bool key = std::find(keys_.begin(), keys_.end(), text) != keys_.end();
  if (key) noted_.resize(since);
  return key;
}

void Grouping::RequireKeysOnly() const {
  if (noted_.empty()) return;
  const Noted& first = noted_.front();
  RaiseAt(
      FailureNumber::StatementError,
      "The column '" + first.column->name + "' stands beside groups or aggregates and is neither grouped nor in one",
      first.place);
}

}  // namespace zef::sql
