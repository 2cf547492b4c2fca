#pragma once

#include <exception>
#include <vector>

#include "platform/sql_engine.h"

namespace zef {

/// A running select. It steps its statement as it is read, until it is detached: then it goes on from memory.
class SqlCursor final : public Cursor {
 public:
  /// `statement` stands on its first row, or has none.
  SqlCursor(SqlEngine& engine, Ref<Plan> plan, std::unique_ptr<PreparedStatement> statement, bool has_row);
  ~SqlCursor() override;

  const RowShape& shape() const override { return plan_->shape; }
  bool Next() override;
  void Read(Positions columns, std::span<Value> values) const override;
  std::size_t Fill(Positions columns, std::span<const Slot> slots) const override;
  /// Never fails: a row that cannot be read is told when the walk comes to it.
  void Detach() override;
  void Drop(int column) override;
  void GiveUp() override;
  std::int64_t CountRows() override;
  /// The engine goes away: the statement is dropped and every further call raises 3704.
  void Abandon();

 private:
  using Row = std::vector<Value>;

  void RequireRow() const;
  Row CurrentRow() const;
  bool Step();
  void Finish();

  SqlEngine* engine_;
  Ref<Plan> plan_;
  std::unique_ptr<PreparedStatement> statement_;  ///< null once it has ended or was detached
  std::vector<Row> memory_;                       ///< detached: the current row, if there is one, and those to come
  std::size_t head_ = 0;                          ///< where they begin
  std::vector<int> dropped_;                      ///< columns of the current row that were dropped
  std::exception_ptr failure_;                    ///< what ended the rows in memory
  std::int64_t passed_ = 0;                       ///< rows that `Next` has reached
  bool statement_on_row_;                         ///< the statement stands on a row
  bool on_row_ = false;                           ///< the cursor stands on a row
  bool abandoned_ = false;
};

}  // namespace zef
