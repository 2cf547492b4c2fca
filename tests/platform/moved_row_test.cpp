#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/recordset.h"
#include "tests/support/database.h"

namespace zef::test {
namespace {

constexpr int kHiddenRowId = 1;  ///< its position, behind the one column

/// One row with the value 5 in its column, at the place "first".
class OneRow final : public Cursor {
 public:
  const RowShape& shape() const override { return shape_; }
  bool Next() override { return !std::exchange(passed_, true); }
  void Read(Positions columns, std::span<Value> values) const override {
    for (std::size_t i = 0; i < columns.size(); ++i) {
      values[i] = columns[i] == kHiddenRowId ? Value(std::string("first")) : Value(5);
    }
  }
  std::size_t Fill(Positions, std::span<const Slot>) const override { return 0; }
  void Detach() override {}
  void Drop(int) override {}
  void GiveUp() override {}
  std::int64_t CountRows() override { return 1; }

 private:
  static sql::CompiledStatement Statement() {
    sql::CompiledStatement statement;
    statement.columns = {{"A", sql::Type::Long}};
    statement.table = "T";
    statement.hidden_row_id = true;
    return statement;
  }

  RowShape shape_{Statement()};
  bool passed_ = false;
};

/// An engine in which each `UPDATE` moves the row, to "second" and then to "third".
class MovingRows final : public Engine {
 public:
  explicit MovingRows(std::vector<Value>& asked_for) : asked_for_(asked_for) {}

  Result Execute(const Command& command) override {
    Result result;
    if (!command.options.by_row_id) {
      result.cursor = std::make_unique<OneRow>();
      return result;
    }
    asked_for_.push_back(command.parameters.back());
    result.rows = 1;
    if (moves) result.row_id = Value(std::string(asked_for_.size() == 1 ? "second" : "third"));
    return result;
  }
  void BeginTrans() override {}
  void CommitTrans() override {}
  void RollbackTrans() override {}
  int TransactionDepth() const override { return 0; }
  std::optional<std::vector<std::string>> Relationships(std::string_view) override { return std::nullopt; }

  bool moves = true;

 private:
  std::vector<Value>& asked_for_;
};

class MovedRow : public testing::Test {
 protected:
  void Open(bool moves) {
    connection_->WrapEngine([&](auto) {
      auto engine = std::make_unique<MovingRows>(asked_for);
      engine->moves = moves;
      return engine;
    });
    row_->Open("SELECT A FROM T", connection_, adOpenStatic, adLockOptimistic);
  }
  void Update(std::int32_t value) {
    row_->Fields().Item("A").SetValue(value);
    row_->Update();
  }
  Value Read() { return row_->Fields().Item("A").Value(); }

  std::vector<Value> asked_for;  ///< the places at which `UPDATE` looked for the row

 private:
  Database database_;
  Ref<Connection> connection_ = database_.Connect();
  Ref<Recordset> row_ = MakeRef<Recordset>();
};

TEST_F(MovedRow, IsFoundAtItsNewPlaceByEveryFurtherUpdate) {
  Open(true);
  Update(6);
  Update(7);
  Update(8);
  EXPECT_EQ(asked_for, (std::vector<Value>{std::string("first"), std::string("second"), std::string("third")}));
}

TEST_F(MovedRow, ThatStaysIsFoundWhereItWas) {
  Open(false);
  Update(6);
  Update(7);
  EXPECT_EQ(asked_for, (std::vector<Value>{std::string("first"), std::string("first")}));
}

TEST_F(MovedRow, ReadsAsItWasWritten) {
  Open(true);
  Update(6);
  EXPECT_EQ(Read(), Value(6));
}

}  // namespace
}  // namespace zef::test
