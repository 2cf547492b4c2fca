#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "platform/sqlite/sqlite_statement.h"
#include "tests/support/raised.h"

namespace zef::test {
namespace {

constexpr NullRule kRule{.number = -1, .text = "E"};
constexpr NullRule kRefused{.refused = true};
constexpr const char* kStored[] = {
    "Null",       "0",           "1",          "-1",         "255",      "256",
    "2147483647", "-2147483648", "2147483648", "0.0",        "2.5",      "45413.375",
    "1e300",      "''",          "'1'",        "'5/1/2024'", "'a text'", "'a text that takes memory of its own'",
    "x'313233'"};
constexpr sql::Type kTypes[] = {sql::Type::Unknown, sql::Type::Boolean, sql::Type::Byte, sql::Type::Short,
                                sql::Type::Long,    sql::Type::Double,  sql::Type::Date, sql::Type::Text,
                                sql::Type::Memo,    sql::Type::Binary};

/// One row of values as any program may have stored them, read as columns of any type.
class StoredRow {
 public:
  explicit StoredRow(const std::string& values) {
    sqlite3_open(":memory:", &db_);
    compiled_.text = "SELECT " + values;
    statement_.emplace(db_, compiled_, failure_);
    statement_->Next();
  }
  ~StoredRow() {
    statement_.reset();
    sqlite3_close(db_);
  }
  StoredRow(const StoredRow&) = delete;
  StoredRow& operator=(const StoredRow&) = delete;

  const SqliteStatement& operator*() const { return *statement_; }

 private:
  sqlite3* db_ = nullptr;
  sql::CompiledStatement compiled_;
  std::optional<RunTimeError> failure_;
  std::optional<SqliteStatement> statement_;
};

/// A value of one stored form, read as a column of every type.
class StoredValue : public testing::TestWithParam<const char*> {
 protected:
  /// Where a variable is filled, it holds what the value converts to.
  template <class T>
  void ExpectToBeConvertedOrLeft(T before) {
    for (const sql::Type type : kTypes) {
      const std::optional<T> filled = Filled(type, before);
      EXPECT_TRUE(!filled || filled == Converted(type, before)) << "in a column of type " << static_cast<int>(type);
    }
  }

 private:
  static constexpr int kColumn = 0;

  /// What stands in the variable after it was filled; nothing if the value was left over.
  template <class T>
  std::optional<T> Filled(sql::Type type, T variable) {
    const Slot slot{&variable, &kRule};
    if ((*row_).Fill({&kColumn, 1}, {&type, 1}, {&slot, 1}) == 0) return std::nullopt;
    return variable;
  }
  /// What stands in it after the value was read and converted; nothing if that raises.
  template <class T>
  std::optional<T> Converted(sql::Type type, T variable) {
    Value value;
    (*row_).Read({&kColumn, 1}, {&type, 1}, {&value, 1});
    if (Raised([&] { Store(std::move(value), {&variable, &kRule}); })) return std::nullopt;
    return variable;
  }

  StoredRow row_{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(EveryForm, StoredValue, testing::ValuesIn(kStored));

TEST_P(StoredValue, FillsANumberAsItConverts) { ExpectToBeConvertedOrLeft(std::int32_t{7}); }
TEST_P(StoredValue, FillsATextAsItConverts) { ExpectToBeConvertedOrLeft(std::string("before")); }
TEST_P(StoredValue, FillsADateAsItConverts) { ExpectToBeConvertedOrLeft(Date(7)); }
TEST_P(StoredValue, FillsAFlagThatWasSetAsItConverts) { ExpectToBeConvertedOrLeft(true); }
TEST_P(StoredValue, FillsAFlagThatWasClearAsItConverts) { ExpectToBeConvertedOrLeft(false); }

/// How many of the columns are filled, with variables of their types.
class Filling : public testing::Test {
 protected:
  std::size_t Fill(const std::string& values, std::vector<int> columns = {0, 1, 2, 3}) {
    const StoredRow row(values);
    const sql::Type types[] = {sql::Type::Long, sql::Type::Text, sql::Type::Date, sql::Type::Byte};
    const Slot slots[] = {{&number, &kRule}, {&text, &kRule}, {&date, &kRule}, {&flag, &kRule}};
    return (*row).Fill(columns, types, slots);
  }

  std::int32_t number = 7;
  std::string text = "before";
  Date date{7};
  bool flag = false;
};

TEST_F(Filling, OfTheOrdinaryFormsLeavesNothingOver) {
  EXPECT_EQ(Fill("12, 'twelve', 45413.375, 1"), 4u);
  EXPECT_EQ(number, 12);
  EXPECT_EQ(text, "twelve");
  EXPECT_EQ(date, Date(45413.375));
  EXPECT_TRUE(flag);
}

TEST_F(Filling, OfNullsLeavesNothingOver) {
  EXPECT_EQ(Fill("Null, Null, Null, Null"), 4u);
  EXPECT_EQ(number, -1);
  EXPECT_EQ(text, "E");
  EXPECT_EQ(date, Date());
}

TEST_F(Filling, StopsAtANumberInATextColumn) { EXPECT_EQ(Fill("12, 13, 1.5, 1"), 1u); }
TEST_F(Filling, StopsAtATextInANumberColumn) { EXPECT_EQ(Fill("'12', 'x', 1.5, 1"), 0u); }
TEST_F(Filling, StopsAtARealInANumberColumn) { EXPECT_EQ(Fill("12.0, 'x', 1.5, 1"), 0u); }
TEST_F(Filling, StopsAtATextInADateColumn) { EXPECT_EQ(Fill("12, 'x', '5/1/2024', 1"), 2u); }
TEST_F(Filling, StopsAtANumberBeyondAByte) { EXPECT_EQ(Fill("12, 'x', 1.5, 256"), 3u); }
TEST_F(Filling, StopsAtANullThatIsRefused) {
  const StoredRow row("Null");
  const Slot slot{&number, &kRefused};
  const int column = 0;
  const sql::Type type = sql::Type::Long;
  EXPECT_EQ((*row).Fill({&column, 1}, {&type, 1}, {&slot, 1}), 0u);
  EXPECT_EQ(number, 7);
}
TEST_F(Filling, StopsAtAMissingColumn) { EXPECT_EQ(Fill("12, 'x', 1.5, 1", {0, -1, 2, 3}), 1u); }

TEST_F(Filling, LeavesTheVariableWhereItStops) {
  Fill("2147483648, 'x', 1.5, 1");
  EXPECT_EQ(number, 7);
}

TEST_F(Filling, KeepsAZeroCharacterInAText) {
  Fill("1, cast(x'610062' AS TEXT), 1.5, 1");
  EXPECT_EQ(text, std::string("a\0b", 3));
}

}  // namespace
}  // namespace zef::test
