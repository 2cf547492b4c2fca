#include <algorithm>

#include "platform/recordset.h"

namespace zef {
namespace {

/// Runs a statement of the record set's own; what does not fit its column is told with the number of `Update`.
Result Write(Connection& connection, const std::string& text, const std::vector<Value>& parameters) {
  try {
    return connection.Run({.text = text, .parameters = parameters});
  } catch (const RunTimeError& failure) {
    if (failure.code() != FailureNumber::ValueDoesNotFit) throw;
    throw RunTimeError(FailureNumber::UpdateDoesNotFit, failure.description());
  }
}

}  // namespace

void Recordset::InsertRow() {
  if (pending_.empty()) throw RunTimeError(FailureNumber::ConstraintViolated, "A new row needs a value in some field.");
  const RowShape& shape = OpenShape();
  std::string names, marks;
  std::vector<Value> values;
  for (const auto& [position, value] : pending_) {
    names += (names.empty() ? "[" : ",[") + shape.columns()[static_cast<std::size_t>(position)].name + "]";
    marks += marks.empty() ? "?" : ",?";
    values.push_back(value);
  }
  Write(*connection_, "INSERT INTO [" + shape.statement().table + "] (" + names + ") VALUES (" + marks + ")", values);
}

void Recordset::UpdateRow() {
  const RowShape& shape = OpenShape();
  std::vector<int> columns;
  std::vector<Value> values;
  columns.reserve(pending_.size());
  values.reserve(pending_.size() + shape.Identity().size());
  for (const auto& [position, value] : pending_) {
    columns.push_back(position);
    values.push_back(value);
  }
  for (const int position : shape.Identity()) values.push_back(StoredValue(position));
  Result result = Write(*connection_, shape.UpdateText(columns), values);
  if (result.rows == 0) throw RunTimeError(FailureNumber::RowVanished);
  // In an engine where writing moves a row, the next `Update` must find it at its new place.
  if (result.row_id) pending_.emplace_back(shape.Identity().front(), std::move(*result.row_id));
}

}  // namespace zef
