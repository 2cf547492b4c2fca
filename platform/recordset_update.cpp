#include <algorithm>

#include "platform/recordset.h"

namespace zef {
namespace {

/// Runs a statement of the record set's own; what does not fit its column is told with the number of `Update`.
std::int64_t Write(Connection& connection, const std::string& text, const std::vector<Value>& parameters,
                   bool by_row_id = false) {
  try {
    return connection.Run({.text = text, .parameters = parameters, .options = {.by_row_id = by_row_id}}).rows;
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
  const sql::CompiledStatement& statement = shape.statement();
  std::string text;
  text.reserve(128);
  text.append("UPDATE [").append(statement.table).append("] SET ");
  std::vector<Value> values;
  values.reserve(pending_.size() + 2);
  for (const auto& [position, value] : pending_) {
    text.append(values.empty() ? "[" : ",[").append(shape.columns()[static_cast<std::size_t>(position)].name);
    text.append("]=?");
    values.push_back(value);
  }
  if (statement.hidden_row_id) values.push_back(StoredValue(static_cast<int>(shape.columns().size())));
  for (std::size_t i = 0; i < statement.key_columns.size(); ++i) {
    const std::size_t key = statement.key_columns[i];
    text.append(i == 0 ? " WHERE [" : " AND [").append(shape.columns()[key].name).append("]=?");
    values.push_back(StoredValue(static_cast<int>(key)));
  }
  if (Write(*connection_, text, values, statement.hidden_row_id) == 0) throw RunTimeError(FailureNumber::RowVanished);
}

}  // namespace zef
