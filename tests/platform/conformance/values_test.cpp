#include <limits>

#include "tests/platform/conformance/backend.h"

namespace zef::test {
namespace {

using Values = Conformance;
INSTANTIATE_TEST_SUITE_P(Engines, Values, testing::ValuesIn(Backends()), BackendName);

Value Field(const Ref<Recordset>& rs, const char* name) { return rs->Fields().Item(name).Value(); }

TEST_P(Values, ComeBackInTheKindOfTheirColumn) {
  MakeTable();
  const Ref<Recordset> rs = Execute("SELECT * FROM Things");
  EXPECT_EQ(Field(rs, "T_ID"), Value(1));
  EXPECT_EQ(Field(rs, "T_Byte"), Value(std::uint8_t{200}));
  EXPECT_EQ(Field(rs, "T_Double"), Value(1.5));
  EXPECT_EQ(Field(rs, "T_Flag"), Value(true));
  EXPECT_EQ(Field(rs, "T_Date"), Value(Date(45413.375)));
  EXPECT_EQ(Field(rs, "T_Text"), Value(std::string("ten chars.")));
  EXPECT_EQ(Field(rs, "T_Bytes"), Value(Null{}));
}

TEST_P(Values, OfTheLimitsOf32BitsAreStoredWhole) {
  MakeTable();
  Execute("INSERT INTO Things (T_ID) VALUES (-2147483648)");
  Execute("INSERT INTO Things (T_ID) VALUES (2147483647)");
  EXPECT_EQ(Text("SELECT Min(T_ID) FROM Things"), "-2147483648");
  EXPECT_EQ(Text("SELECT Max(T_ID) FROM Things"), "2147483647");
}

TEST_P(Values, BeyondTheTypeOfTheirColumnAreRefused) {
  MakeTable();
  EXPECT_EQ(FailureOf("INSERT INTO Things (T_ID) VALUES (2147483648)"), -2147217833);
  EXPECT_EQ(FailureOf("UPDATE Things SET T_Byte=256"), -2147217833);
  EXPECT_EQ(Text("SELECT T_Byte FROM Things"), "200");
}

TEST_P(Values, TextsLongerThanTheirColumnAreRefusedAndNotCut) {
  MakeTable();
  EXPECT_EQ(FailureOf("UPDATE Things SET T_Text='eleven char'"), -2147217833);
  EXPECT_EQ(Text("SELECT T_Text FROM Things"), "ten chars.");
}

TEST_P(Values, LengthsOfTextsCountCharactersNotBytes) {
  MakeTable();
  EXPECT_EQ(FailureOf("UPDATE Things SET T_Text='ÄÖÜäöüß€😀x'"), 0);
  EXPECT_EQ(Text("SELECT Len(T_Text) FROM Things"), "10");
}

TEST_P(Values, TextsOfAnExpressionAreMeasuredToo) {
  MakeTable();
  EXPECT_EQ(FailureOf("UPDATE Things SET T_Text=T_Text & 'x'"), -2147217833);
}

TEST_P(Values, TextsKeepZeroCharactersEmojiAndQuotes) {
  MakeTable();
  const std::string text("a\0b'c\"d\\😀", 12);
  std::string doubled(text);
  doubled.insert(doubled.find('\''), 1, '\'');
  if (!GetParam().keeps_zero_characters) {
    EXPECT_EQ(FailureOf("UPDATE Things SET T_Memo='" + doubled + "'"), -2147217900);
    return;
  }
  Execute("UPDATE Things SET T_Memo='" + doubled + "'");
  EXPECT_EQ(Field(Execute("SELECT T_Memo FROM Things"), "T_Memo"), Value(text));
}

TEST_P(Values, TheEmptyTextIsNotNull) {
  MakeTable();
  Execute("UPDATE Things SET T_Text=''");
  EXPECT_EQ(Text("SELECT Count(*) FROM Things WHERE T_Text IS NULL"), "0");
  EXPECT_EQ(Text("SELECT Count(*) FROM Things WHERE T_Text=''"), "1");
}

TEST_P(Values, MalformedUtf8IsRefused) {
  MakeTable();
  EXPECT_EQ(FailureOf("UPDATE Things SET T_Memo='\xC3('"), -2147217900);
  EXPECT_EQ(Text("SELECT T_Memo FROM Things"), "a long text");
}

TEST_P(Values, ATextMeantForADateColumnBecomesADate) {
  MakeTable();
  Execute("UPDATE Things SET T_Date='2/29/2024 6:30:15 PM'");
  EXPECT_EQ(Field(Execute("SELECT T_Date FROM Things"), "T_Date"),
            Value(Date(45351.0 + (18 * 3600 + 30 * 60 + 15) / 86400.0)));
}

TEST_P(Values, ATextThatIsNoDateIsRefusedForADateColumn) {
  MakeTable();
  EXPECT_EQ(FailureOf("UPDATE Things SET T_Date='2/30/2024'"), -2147217913);
}

TEST_P(Values, ATextComparedWithADateColumnIsReadAsADate) {
  MakeTable();
  EXPECT_EQ(Text("SELECT Count(*) FROM Things WHERE T_Date='5/1/2024 9:00:00 AM'"), "1");
  EXPECT_EQ(Text("SELECT Count(*) FROM Things WHERE T_Date<'2024-05-01 08:59:59'"), "0");
}

TEST_P(Values, ATextThatIsNoNumberIsRefusedForANumberColumn) {
  MakeTable();
  EXPECT_EQ(FailureOf("UPDATE Things SET T_Double='twelve'"), -2147217913);
}

TEST_P(Values, TheEndsOfTheDateRangeAreStoredWhole) {
  MakeTable();
  Execute("UPDATE Things SET T_Date=#1/1/100#");
  EXPECT_EQ(Field(Execute("SELECT T_Date FROM Things"), "T_Date"), Value(Date(-657434)));
  Execute("UPDATE Things SET T_Date=#12/31/9999 11:59:59 PM#");
  EXPECT_EQ(Field(Execute("SELECT T_Date FROM Things"), "T_Date"), Value(Date(2958465 + 86399 / 86400.0)));
}

TEST_P(Values, TextsCompareWithoutRegardToLetterCaseInAllOfUnicode) {
  MakeTable();
  Execute("UPDATE Things SET T_Text='ÉCOLE Ω'");
  EXPECT_EQ(Text("SELECT Count(*) FROM Things WHERE T_Text='école ω'"), "1");
  EXPECT_EQ(Text("SELECT Count(*) FROM Things WHERE T_Text='ecole ω'"), "0");
}

TEST_P(Values, AnAsciiSearchFindsTheSameRowsWithAndWithoutAnIndex) {
  MakeTable();
  Execute("INSERT INTO Things (T_ID,T_Text) VALUES (2,'KELVIN')");
  Execute("INSERT INTO Things (T_ID,T_Text) VALUES (3,'\u212Aelvin')");
  const std::string search = "SELECT Count(*) FROM Things WHERE T_Text='kelvin'";
  const std::string scanned = Text(search);
  Execute("CREATE INDEX IX_Text ON Things (T_Text)");
  EXPECT_EQ(Text(search), scanned);
  EXPECT_EQ(scanned, "2");
}

TEST_P(Values, BytesTravelThroughARecordSet) {
  MakeTable();
  auto rs = MakeRef<Recordset>();
  rs->Open("SELECT * FROM Things", connection_, adOpenStatic, adLockOptimistic, adCmdText);
  Bytes bytes(300000);
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<std::byte>(i * 7);
  rs->Fields().Item("T_Bytes").SetValue(bytes);
  rs->Update();
  EXPECT_EQ(Field(Execute("SELECT T_Bytes FROM Things"), "T_Bytes"), Value(bytes));
}

TEST_P(Values, BytesOfLengthZeroAreNotNull) {
  MakeTable();
  auto rs = MakeRef<Recordset>();
  rs->Open("SELECT * FROM Things", connection_, adOpenStatic, adLockOptimistic, adCmdText);
  rs->Fields().Item("T_Bytes").SetValue(Bytes());
  rs->Update();
  EXPECT_EQ(Field(Execute("SELECT T_Bytes FROM Things"), "T_Bytes"), Value(Bytes()));
}

}  // namespace
}  // namespace zef::test
