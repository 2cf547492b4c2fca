#include "platform/sql_cursor.h"

#include <algorithm>
#include <utility>

namespace zef {

SqlCursor::SqlCursor(SqlEngine& engine, Ref<Plan> plan, std::unique_ptr<PreparedStatement> statement, bool has_row)
    : engine_(&engine), plan_(std::move(plan)), statement_(std::move(statement)), statement_on_row_(has_row) {
  engine_->cursors_.push_back(this);
  if (!has_row) Finish();
}

SqlCursor::~SqlCursor() {
  if (statement_) Finish();
}

int SqlCursor::Width() const {
  return static_cast<int>(plan_->shape.columns().size()) + (plan_->shape.statement().hidden_row_id ? 1 : 0);
}

sql::Type SqlCursor::TypeOf(int column) const {
  const auto& columns = plan_->shape.columns();
  const auto index = static_cast<std::size_t>(column);
  return index < columns.size() ? columns[index].type : sql::Type::Unknown;
}

bool SqlCursor::Step() {
  statement_on_row_ = false;  // a step that fails ends the walk
  // Between two rows nothing can change the tables' columns: the statement holds its read lock.
  const bool row = statement_->Next() == PreparedStatement::Step::Row;
  if (!row) Finish();
  return row;
}

bool SqlCursor::Next() {
  if (abandoned_) throw RunTimeError(FailureNumber::ObjectClosed);
  if (std::exchange(on_row_, false)) {
    if (statement_) {
      statement_on_row_ = statement_on_row_ && Step();
    } else if (head_ < memory_.size()) {
      Row().swap(memory_[head_++]);
    }
  }
  on_row_ = statement_ ? statement_on_row_ : head_ < memory_.size();
  if (!on_row_ && failure_) std::rethrow_exception(failure_);
  passed_ += on_row_ ? 1 : 0;
  return on_row_;
}

Value SqlCursor::Get(int column) const {
  if (abandoned_) throw RunTimeError(FailureNumber::ObjectClosed);
  if (!on_row_) throw RunTimeError(FailureNumber::NoCurrentRecord);
  if (!statement_) return memory_[head_][static_cast<std::size_t>(column)];
  return statement_->Get(column, TypeOf(column));
}

SqlCursor::Row SqlCursor::CurrentRow() const {
  Row row;
  const int width = Width();
  row.reserve(static_cast<std::size_t>(width));
  for (int i = 0; i < width; ++i) row.push_back(statement_->Get(i, TypeOf(i)));
  return row;
}

void SqlCursor::Detach() {
  try {
    while (statement_ && statement_on_row_) {
      memory_.push_back(CurrentRow());
      statement_on_row_ = Step();
    }
  } catch (...) {  // who detaches, to write or to roll back, has nothing to do with what is wrong in this walk
    failure_ = std::current_exception();
  }
  if (statement_) Finish();
}

void SqlCursor::GiveUp() {
  if (statement_) Finish();
  memory_.clear();
  head_ = 0;
  failure_ = nullptr;
  on_row_ = false;
}

std::int64_t SqlCursor::CountRows() {
  Detach();
  if (failure_) std::rethrow_exception(failure_);
  const auto ahead = static_cast<std::int64_t>(memory_.size() - head_) - (on_row_ ? 1 : 0);
  return passed_ + ahead;
}

void SqlCursor::Finish() {
  auto& cursors = engine_->cursors_;
  cursors.erase(std::find(cursors.begin(), cursors.end(), this));
  engine_->GiveBack(*plan_, std::move(statement_));
}

void SqlCursor::Abandon() {
  abandoned_ = true;
  statement_.reset();
  plan_->idle.clear();
}

}  // namespace zef
