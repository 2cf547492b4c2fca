#include <algorithm>

#include "platform/recordset.h"

namespace zef {
namespace {

/// Runs a statement of the record set's own; what does not fit its column is told with the number of `Update`.
Result Write(Connection& connection, const std::string& text, const std::vector<Value>& parameters,
             bool by_row_id = false) {
  try {
    return connection.Run({.text = text, .parameters = parameters, .options = {.by_row_id = by_row_id}});
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
  const zef::Positions identity = shape.Identity();
  std::vector<int> columns;
  columns.reserve(pending_.size());
  for (const auto& field : pending_) {
    columns.push_back(field.first);
    const bool identifies = std::find(identity.begin(), identity.end(), field.first) != identity.end();
    if (!identifies) cursor_->Drop(field.first);  // what was set hides it from now on
  }
  Result result;
  {
    Lent set(pending_);
    for (const int position : identity) set.values.push_back(StoredValue(position));
    result = Write(*connection_, shape.UpdateText(columns), set.values, shape.statement().hidden_row_id);
  }
  if (result.rows == 0) throw RunTimeError(FailureNumber::RowVanished);
  // In an engine where writing moves a row, the next `Update` must find it at its new place.
  if (result.row_id) pending_.emplace_back(identity.front(), std::move(*result.row_id));
}

}  // namespace zef
