#include "platform/sqlite/functions.h"

#include <gtest/gtest.h>

#include "tests/platform/function_cases.h"
#include "tests/platform/sqlite/memory_database.h"

namespace zef::sql {
namespace {

class FunctionResultTest : public testing::TestWithParam<test::FunctionResult> {};

TEST_P(FunctionResultTest, IsRight) {
  MemoryDatabase database;
  EXPECT_EQ(database.Calculate(GetParam().expression), GetParam().value) << GetParam().expression;
}

INSTANTIATE_TEST_SUITE_P(Texts, FunctionResultTest, testing::ValuesIn(test::kTextResults));
INSTANTIATE_TEST_SUITE_P(Joining, FunctionResultTest, testing::ValuesIn(test::kJoinedResults));
INSTANTIATE_TEST_SUITE_P(Dates, FunctionResultTest, testing::ValuesIn(test::kDateResults));
INSTANTIATE_TEST_SUITE_P(Numbers, FunctionResultTest, testing::ValuesIn(test::kNumberResults));
INSTANTIATE_TEST_SUITE_P(EarlyDates, FunctionResultTest, testing::ValuesIn(test::kEarlyDateResults));
INSTANTIATE_TEST_SUITE_P(Conversions, FunctionResultTest, testing::ValuesIn(test::kConvertedResults));
INSTANTIATE_TEST_SUITE_P(Choices, FunctionResultTest, testing::ValuesIn(test::kChosenResults));

class FailingFunctionTest : public testing::TestWithParam<test::FunctionFailure> {};

TEST_P(FailingFunctionTest, HasItsTrueNumber) {
  MemoryDatabase database;
  EXPECT_EQ(database.FailureNumberOf(std::string("SELECT ") + GetParam().expression), GetParam().number)
      << GetParam().expression;
}

INSTANTIATE_TEST_SUITE_P(Functions, FailingFunctionTest, testing::ValuesIn(test::kFunctionFailures));

TEST(ClockFunctionTest, NowIsTheLibrarysClock) {
  const ClockOverride clock{Date(45413.375)};
  EXPECT_EQ(MemoryDatabase().Calculate("Now()"), "5/1/2024 9:00:00 AM");
}

TEST(ClockFunctionTest, DateIsWithoutTime) {
  const ClockOverride clock{Date(45413.375)};
  EXPECT_EQ(MemoryDatabase().Calculate("Date()"), "5/1/2024");
}

TEST(ClockFunctionTest, TimeIsWithoutDate) {
  const ClockOverride clock{Date(45413.375)};
  EXPECT_EQ(MemoryDatabase().Calculate("Time()"), "9:00:00 AM");
}

TEST(ClockFunctionTest, NowIsConstantWithinOneStatement) {
  MemoryDatabase database;
  for (const char* id : {"1", "2", "3"}) database.Run(std::string("INSERT INTO Seen (SEE_User) VALUES (") + id + ")");
  double ticks = 45413.0;
  const ClockOverride clock{[&ticks] { return Date(ticks += 1.0); }};
  database.Run("UPDATE Seen SET SEE_Date=Now()");
  EXPECT_EQ(database.Rows("SELECT DISTINCT SEE_Date FROM Seen"), "5/2/2024");
}

TEST(StorageFunctionTest, NullInARequiredColumnIsRefusedByName) {
  MemoryDatabase database;
  const Failure failure =
      FailureOf([&] { database.Run("INSERT INTO Folders (FLD_ID) SELECT Max(SEE_User) FROM Seen"); });
  EXPECT_EQ(failure.sentence, "The column 'FLD_ID' needs a value.");
}

TEST(StorageFunctionTest, LongTextOfAnExpressionDoesNotFit) {
  MemoryDatabase database;
  database.Run("INSERT INTO Events (EVE_ID, EVE_Text) VALUES (1, '1234567890')");
  EXPECT_EQ(database.FailureNumberOf("UPDATE Events SET EVE_Text=EVE_Text & 'x'"), -2147217833);
}

TEST(StorageFunctionTest, DateOfAnExpressionBecomesItsText) {
  MemoryDatabase database;
  database.Run("INSERT INTO Events (EVE_ID, EVE_Text) VALUES (1, DateSerial(2024,5,1))");
  EXPECT_EQ(database.Rows("SELECT EVE_Text FROM Events"), "5/1/2024");
}

TEST(StorageFunctionTest, TextOfAnExpressionBecomesADate) {
  MemoryDatabase database;
  database.Run("INSERT INTO Seen (SEE_User, SEE_Date) VALUES (1, '5/1/' & 2024)");
  EXPECT_EQ(database.Rows("SELECT SEE_Date FROM Seen"), "5/1/2024");
}

TEST(StorageFunctionTest, ConditionIsStoredAsMinusOne) {
  MemoryDatabase database;
  database.Run("INSERT INTO Folders (FLD_ID, FLD_Open) VALUES (1, 1=1)");
  EXPECT_EQ(database.Rows("SELECT FLD_Open, FLD_Open+0 FROM Folders"), "True, -1");
}

TEST(StorageFunctionTest, NumberThatIsTooLargeDoesNotFit) {
  MemoryDatabase database;
  EXPECT_EQ(database.FailureNumberOf("INSERT INTO Folders (FLD_ID) VALUES (2000000000*2)"), -2147217833);
}

}  // namespace
}  // namespace zef::sql
