#include "platform/sqlite/functions.h"

#include <gtest/gtest.h>

#include "tests/platform/sqlite/memory_database.h"

namespace zef::sql {
namespace {

struct Result {
  const char* expression;
  const char* value;
};

class FunctionResultTest : public testing::TestWithParam<Result> {};

TEST_P(FunctionResultTest, IsRight) {
  MemoryDatabase database;
  EXPECT_EQ(database.Calculate(GetParam().expression), GetParam().value) << GetParam().expression;
}

INSTANTIATE_TEST_SUITE_P(
    Texts, FunctionResultTest,
    testing::Values(Result{"InStr('abcB','b')", "2"}, Result{"InStr(3,'abcB','b')", "4"},
                    Result{"InStr('abc','x')", "0"}, Result{"InStr('abc','')", "1"}, Result{"InStr('','')", "0"},
                    Result{"InStr('','a')", "0"}, Result{"InStr(2,'abc','')", "2"}, Result{"InStr(4,'abc','')", "0"},
                    Result{"InStr(Null,'a')", "Null"}, Result{"Left('äbc',2)", "äb"}, Result{"Left('abc',9)", "abc"},
                    Result{"Left(Null,1)", "Null"}, Result{"Left(1234,2)", "12"}, Result{"Right('abc',2)", "bc"},
                    Result{"Right('abc',0)", ""}, Result{"Mid('abcd',2)", "bcd"}, Result{"Mid('abcd',2,2)", "bc"},
                    Result{"Mid('abcd',9)", ""}, Result{"Mid('abcd',2,Null)", "Null"}, Result{"Len('äb')", "2"},
                    Result{"Len('')", "0"}, Result{"Len(1234)", "4"}, Result{"Len(Null)", "Null"},
                    Result{"Trim('  a b ')", "a b"}, Result{"LTrim('  a ')", "a "}, Result{"RTrim('  a ')", "  a"},
                    Result{"RTrim('   ')", ""}, Result{"LTrim('   ')", ""}, Result{"UCase('aä')", "AÄ"},
                    Result{"LCase('AÄ')", "aä"}, Result{"Trim(Null)", "Null"}, Result{"UCase(Null)", "Null"}));

INSTANTIATE_TEST_SUITE_P(Joining, FunctionResultTest,
                         testing::Values(Result{"'a' & 'b'", "ab"}, Result{"'a' & Null", "a"},
                                         Result{"Null & Null", ""}, Result{"'a' & 1 & 1.5", "a11.5"},
                                         Result{"'a' & (1=1)", "aTrue"},
                                         Result{"'on ' & #5/1/2024 9:00:00 AM#", "on 5/1/2024 9:00:00 AM"},
                                         Result{"'a'+'b'", "ab"}, Result{"'a'+Null", "Null"}));

INSTANTIATE_TEST_SUITE_P(
    Dates, FunctionResultTest,
    testing::Values(Result{"Year('5/1/2024')", "2024"}, Result{"Month(#5/1/2024#)", "5"}, Result{"Day(45413)", "1"},
                    Result{"Year(Null)", "Null"}, Result{"Hour(#5/1/2024 9:10:11 PM#)", "21"},
                    Result{"Minute(#5/1/2024 9:10:11 PM#)", "10"}, Result{"Second(#5/1/2024 9:10:11 PM#)", "11"},
                    Result{"Hour(-1.25)", "6"}, Result{"Weekday(#5/1/2024#)", "4"},
                    Result{"Weekday(#5/1/2024#,2)", "3"}, Result{"Weekday(#5/1/2024#,5)", "7"},
                    Result{"Weekday(Null)", "Null"}, Result{"DateAdd('m',1,#1/31/2024#)", "2/29/2024"},
                    Result{"DateAdd('d',1,'5/1/2024')", "5/2/2024"}, Result{"DateAdd('d',Null,'5/1/2024')", "Null"},
                    Result{"DateDiff('d',#5/1/2024#,#5/3/2024#)", "2"}, Result{"DatePart('q',#5/1/2024#)", "2"},
                    Result{"DateSerial(2023,2,30)", "3/2/2023"}, Result{"DateSerial(2023,Null,30)", "Null"},
                    Result{"TimeSerial(9,90,0)", "10:30:00 AM"}, Result{"TimeSerial(0,0,-1)", "12/29/1899 11:59:59 PM"},
                    Result{"TimeSerial(24,0,0)", "12/31/1899"}, Result{"DateValue('5/1/2024 9:00:00 AM')", "5/1/2024"},
                    Result{"TimeValue('5/1/2024 9:00:00 AM')", "9:00:00 AM"}, Result{"DateValue(Null)", "Null"},
                    Result{"CDate('2024-05-01')", "5/1/2024"}, Result{"CDate(2)", "1/1/1900"},
                    Result{"#5/1/2024#+1", "5/2/2024"}, Result{"#5/3/2024#-#5/1/2024#", "2"},
                    Result{"#5/3/2024#-1", "5/2/2024"}, Result{"#5/3/2024#-'5/1/2024'", "2"}));

INSTANTIATE_TEST_SUITE_P(
    Numbers, FunctionResultTest,
    testing::Values(Result{"Abs(-2)", "2"}, Result{"Abs(-2.5)", "2.5"}, Result{"Abs(Null)", "Null"},
                    Result{"Int(-2.5)", "-3"}, Result{"Fix(-2.5)", "-2"}, Result{"Int(7)", "7"},
                    Result{"Sgn(-2.5)", "-1"}, Result{"Sgn(0)", "0"}, Result{"Round(2.5)", "2"},
                    Result{"Round(3.5)", "4"}, Result{"Round(2.345,1)", "2.3"}, Result{"Round(7,1)", "7"},
                    Result{"Round(Null)", "Null"}, Result{"5/2", "2.5"}, Result{"5/Null", "Null"}, Result{"7\\2", "3"},
                    Result{"2.5\\1", "2"}, Result{"-7 MOD 4", "-3"}, Result{"3.5 MOD 3", "1"}, Result{"2^10", "1024"},
                    Result{"2147483647+1", "2147483648"}, Result{"'5'+3", "8"}, Result{"'10'/4", "2.5"},
                    Result{"-'3'", "-3"}, Result{"(1=1)+1", "0"}, Result{"1E-999", "0"}, Result{"1-1E-999", "1"},
                    Result{"0.5E-400+1", "1"}, Result{"True+1", "0"}));

/// -1.25 is 29 December 1899, 06:00, and -1.75 is 18:00 of that day.
INSTANTIATE_TEST_SUITE_P(
    EarlyDates, FunctionResultTest,
    testing::Values(Result{"CDate(-1.25)+0.5", "12/29/1899 6:00:00 PM"},
                    Result{"0.5+CDate(-1.25)", "12/29/1899 6:00:00 PM"},
                    Result{"CDate(-1.75)-0.5", "12/29/1899 6:00:00 AM"}, Result{"CDate(-1.25)+1.25", "12:00:00 PM"},
                    Result{"CDate(-1.25)+2", "12/31/1899 6:00:00 AM"}, Result{"CDate(1.25)-2", "12/29/1899 6:00:00 AM"},
                    Result{"CDate(-1.75)-CDate(-1.25)", "0.5"}, Result{"CDate(0.25)-CDate(-1.25)", "1"},
                    Result{"#5/1/2024 6:00:00 AM#+1", "5/2/2024 6:00:00 AM"}, Result{"#5/2/2024#-#5/1/2024#", "1"},
                    Result{"CDate(Null)+1", "Null"}, Result{"DateDiff('h',CDate(-1.25),CDate(-1.75))", "12"},
                    Result{"DateAdd('h',12,CDate(-1.25))", "12/29/1899 6:00:00 PM"},
                    Result{"DatePart('h',CDate(-1.75))", "18"}));

INSTANTIATE_TEST_SUITE_P(Conversions, FunctionResultTest,
                         testing::Values(Result{"CStr(1.5)", "1.5"}, Result{"CStr(1=1)", "True"},
                                         Result{"CStr(#5/1/2024#)", "5/1/2024"}, Result{"CStr(Null)", "Null"},
                                         Result{"CLng('2.5')", "2"}, Result{"CLng(1=1)", "-1"},
                                         Result{"CLng(Null)", "Null"}, Result{"CInt(3.5)", "4"},
                                         Result{"CByte('255')", "255"}, Result{"CDbl('1.5')", "1.5"},
                                         Result{"CBool('True')", "True"}, Result{"CBool(0)", "False"},
                                         Result{"CBool(Null)", "Null"}));

INSTANTIATE_TEST_SUITE_P(Choices, FunctionResultTest,
                         testing::Values(Result{"IIf(1=1,'a','b')", "a"}, Result{"IIf(Null,'a','b')", "b"},
                                         Result{"IIf(1=0,1/0,2)", "2"}, Result{"IIf(1=1,5,'x') & ''", "5"},
                                         Result{"Nz(Null,'x')", "x"}, Result{"Nz(5,'x')", "5"}, Result{"Nz(Null)", ""},
                                         Result{"Nz(CLng(Null))", "0"}, Result{"IsNull(Null)", "True"},
                                         Result{"IsNull('')", "False"}));

struct BadCall {
  const char* expression;
  std::int32_t number;
};

class FailingFunctionTest : public testing::TestWithParam<BadCall> {};

TEST_P(FailingFunctionTest, HasItsTrueNumber) {
  MemoryDatabase database;
  EXPECT_EQ(database.FailureNumberOf(std::string("SELECT ") + GetParam().expression), GetParam().number)
      << GetParam().expression;
}

INSTANTIATE_TEST_SUITE_P(
    Functions, FailingFunctionTest,
    testing::Values(BadCall{"1/0", 11}, BadCall{"1\\0", 11}, BadCall{"1\\0.4", 11}, BadCall{"1 MOD 0", 11},
                    BadCall{"0^-1", 5}, BadCall{"(-8)^0.5", 5}, BadCall{"1E300^2", 6}, BadCall{"1E300/1E-300", 6},
                    BadCall{"Left('a',-1)", 5}, BadCall{"Right('a',-1)", 5}, BadCall{"Mid('a',0)", 5},
                    BadCall{"Mid('a',1,-1)", 5}, BadCall{"InStr(0,'a','a')", 5}, BadCall{"Left('a','x')", -2147217913},
                    BadCall{"CLng('x')", -2147217913}, BadCall{"CLng(3E9)", 6}, BadCall{"CInt(32768)", 6},
                    BadCall{"CByte(256)", 6}, BadCall{"CDbl('x')", -2147217913}, BadCall{"CBool('x')", -2147217913},
                    BadCall{"CDate('x')", -2147217913}, BadCall{"Year('x')", -2147217913},
                    BadCall{"Year('x' & '')", -2147217913}, BadCall{"Year(1E8)", 6}, BadCall{"Weekday(1,8)", 5},
                    BadCall{"Weekday(1,-1)", 5}, BadCall{"DateAdd('x',1,1)", 5}, BadCall{"DateDiff('x',1,1)", 5},
                    BadCall{"DatePart('x',1)", 5}, BadCall{"DateSerial(2024,40000,1)", 6},
                    BadCall{"DateSerial(10000,1,1)", 5}, BadCall{"TimeSerial(40000,0,0)", 6},
                    BadCall{"Round(1.5,-1)", 5}, BadCall{"Abs('x' & '')", -2147217913}));

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
