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

/// The values of fields, lent to a statement and given back at its end, so that a large one is not copied.
class Lent {
 public:
  explicit Lent(std::vector<std::pair<int, Value>>& fields) : fields_(fields) {
    values.reserve(fields.size() + 2);
    for (auto& field : fields) values.push_back(std::move(field.second));
  }
  ~Lent() {
    for (std::size_t i = 0; i < fields_.size(); ++i) fields_[i].second = std::move(values[i]);
  }
  Lent(const Lent&) = delete;
  Lent& operator=(const Lent&) = delete;

  std::vector<Value> values;  ///< those of the fields; more may follow

 private:
  std::vector<std::pair<int, Value>>& fields_;
};

}  // namespace

void Recordset::InsertRow() {
  if (pending_.empty()) throw RunTimeError(FailureNumber::ConstraintViolated, "A new row needs a value in some field.");
  const RowShape& shape = OpenShape();
  std::string names, marks;
  for (const auto& [position, value] : pending_) {
    names += (names.empty() ? "[" : ",[") + shape.columns()[static_cast<std::size_t>(position)].name + "]";
    marks += marks.empty() ? "?" : ",?";
  }
  const Lent set(pending_);
  Write(*connection_, "INSERT INTO [" + shape.statement().table + "] (" + names + ") VALUES (" + marks + ")",
        set.values);
}

void Recordset::UpdateRow() {
  const RowShape& shape = OpenShape();
  const sql::CompiledStatement& statement = shape.statement();
  std::string text;
  text.reserve(128);
  text.append("UPDATE [").append(statement.table).append("] SET ");
  for (const char* separator = "["; const auto& [position, value] : pending_) {
    text.append(separator).append(shape.columns()[static_cast<std::size_t>(position)].name).append("]=?");
    separator = ",[";
  }
  Lent set(pending_);
  std::vector<Value>& values = set.values;
  if (statement.hidden_row_id) values.push_back(StoredValue(static_cast<int>(shape.columns().size())));
  for (std::size_t i = 0; i < statement.key_columns.size(); ++i) {
    const std::size_t key = statement.key_columns[i];
    text.append(i == 0 ? " WHERE [" : " AND [").append(shape.columns()[key].name).append("]=?");
    values.push_back(StoredValue(static_cast<int>(key)));
  }
  for (const auto& [position, value] : pending_) {
    const auto& keys = statement.key_columns;
    const bool key = std::find(keys.begin(), keys.end(), static_cast<std::size_t>(position)) != keys.end();
    if (!key) cursor_->Drop(position);  // what was set hides it from now on
  }
  if (Write(*connection_, text, values, statement.hidden_row_id) == 0) throw RunTimeError(FailureNumber::RowVanished);
}

}  // namespace zef
