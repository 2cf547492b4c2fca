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
    dropped_.clear();
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

void SqlCursor::RequireRow() const {
  if (abandoned_) throw RunTimeError(FailureNumber::ObjectClosed);
  if (!on_row_) throw RunTimeError(FailureNumber::NoCurrentRecord);
}

std::size_t SqlCursor::Fill(Positions columns, std::span<const Slot> slots) const {
  RequireRow();
  return statement_ ? statement_->Fill(columns, plan_->shape.types(), slots) : 0;
}

void SqlCursor::Read(Positions columns, std::span<Value> values) const {
  RequireRow();
  if (statement_) return statement_->Read(columns, plan_->shape.types(), values);
  if (head_ == memory_.size()) std::rethrow_exception(failure_);  // the row itself could not be kept
  for (std::size_t i = 0; i < columns.size(); ++i) {
    values[i] = memory_[head_][static_cast<std::size_t>(columns[i])];
  }
}

SqlCursor::Row SqlCursor::CurrentRow() const {
  Row row(plan_->shape.types().size());
  for (const int column : plan_->shape.EveryColumn()) {
    const bool dropped = std::find(dropped_.begin(), dropped_.end(), column) != dropped_.end();
    if (!dropped) statement_->Read({&column, 1}, plan_->shape.types(), {&row[static_cast<std::size_t>(column)], 1});
  }
  return row;
}

void SqlCursor::Detach() {
  try {
    while (statement_ && statement_on_row_) {
      memory_.push_back(CurrentRow());
      dropped_.clear();
      statement_on_row_ = Step();
    }
  } catch (...) {  // who detaches, to write or to roll back, has nothing to do with what is wrong in this walk
    failure_ = std::current_exception();
  }
  if (statement_) Finish();
}

void SqlCursor::Drop(int column) {
  if (on_row_ && statement_) dropped_.push_back(column);
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
