#include <gtest/gtest.h>

#include "tests/platform/sql/compile_support.h"

namespace zef::sql {
namespace {

TEST(CompileConditionTest, TextColumnWithoutIndexFollowsTheCollation) {
  EXPECT_EQ(Where("EVE_Text='a'", "Events"), R"("EVE_Text" COLLATE ZEF = ?1)");
}

TEST(CompileConditionTest, IndexedTextColumnEqualToPlainTextUsesTheIndex) {
  EXPECT_EQ(Where("FLD_Name='a'"),
            R"((likelihood("FLD_Name" = ?1, 0.00001) OR ("FLD_Name" > '' AND "FLD_Name" GLOB '*[^ -~]*' AND )"
            R"(zef_equals("FLD_Name", ?1))))");
}

TEST(CompileConditionTest, LiteralBeforeIndexedColumnIsTurned) {
  EXPECT_EQ(Where("'a'=FLD_Name"), Where("FLD_Name='a'"));
}

TEST(CompileConditionTest, IndexedTextColumnInPlainTextsUsesTheIndex) {
  EXPECT_EQ(Where("FLD_Name IN ('a','b')"),
            R"(("FLD_Name" IN (?1, ?2) OR ("FLD_Name" > '' AND "FLD_Name" GLOB '*[^ -~]*' AND )"
            R"(zef_equals("FLD_Name", ?1, ?2))))");
}

TEST(CompileConditionTest, LongListOfTextsFollowsTheCollation) {
  std::string list = "'a'";
  for (int i = 0; i < 100; ++i) list += ",'a'";
  EXPECT_EQ(Where("FLD_Name IN (" + list + ")").find(R"("FLD_Name" COLLATE ZEF IN (?1, )"), 0U);
}

TEST(CompileConditionTest, OtherTextThanPlainAsciiFollowsTheCollation) {
  EXPECT_EQ(Where("FLD_Name='\xC3\xA9'"), R"("FLD_Name" COLLATE ZEF = ?1)");
}

TEST(CompileConditionTest, OrderOfTextsFollowsTheCollation) {
  EXPECT_EQ(Where("FLD_Name<'a'"), R"("FLD_Name" COLLATE ZEF < ?1)");
}

TEST(CompileConditionTest, UnequalTextsFollowTheCollation) {
  EXPECT_EQ(Where("FLD_Name<>'a'"), R"("FLD_Name" COLLATE ZEF <> ?1)");
}

TEST(CompileConditionTest, TextColumnsFollowTheCollation) {
  EXPECT_EQ(Where("FLD_Name=FLD_Note"), R"("FLD_Name" COLLATE ZEF = "FLD_Note")");
}

TEST(CompileConditionTest, BetweenTextsFollowsTheCollation) {
  EXPECT_EQ(Where("FLD_Name NOT BETWEEN 'a' AND 'b'"), R"(("FLD_Name" COLLATE ZEF NOT BETWEEN ?1 AND ?2))");
}

TEST(CompileConditionTest, TextInSelectFollowsTheCollation) {
  EXPECT_EQ(Where("FLD_Name IN (SELECT EVE_Text FROM Events)"),
            R"("FLD_Name" COLLATE ZEF IN (SELECT "Events"."EVE_Text" FROM "Events"))");
}

TEST(CompileConditionTest, ComparisonWithTheWordNullIsPlain) { EXPECT_EQ(Where("FLD_ID=NULL"), R"("FLD_ID" = NULL)"); }

TEST(CompileConditionTest, BooleanColumnIsComparedWithZero) { EXPECT_EQ(Where("FLD_Open"), R"("FLD_Open" <> 0)"); }

TEST(CompileConditionTest, OrInsideAndKeepsItsBrackets) {
  EXPECT_EQ(Where("FLD_ID=1 AND (FLD_ID=2 OR NOT FLD_ID=3)"),
            R"("FLD_ID" = ?1 AND ("FLD_ID" = ?2 OR (NOT ("FLD_ID" = ?3))))");
}

TEST(CompileConditionTest, AndInsideOrIsInBrackets) {
  EXPECT_EQ(Where("FLD_ID=1 OR FLD_ID=2 AND FLD_ID=3"), R"("FLD_ID" = ?1 OR ("FLD_ID" = ?2 AND "FLD_ID" = ?3))");
}

TEST(CompileConditionTest, ExclusiveOrComparesTheNegations) {
  EXPECT_EQ(Where("FLD_ID=1 XOR FLD_ID=2"), R"((NOT ("FLD_ID" = ?1)) <> (NOT ("FLD_ID" = ?2)))");
}

TEST(CompileConditionTest, IsNullFunctionIsATest) { EXPECT_EQ(Where("IsNull(FLD_ID)"), R"("FLD_ID" IS NULL)"); }

TEST(CompileConditionTest, LikeIsAFunction) {
  EXPECT_EQ(Where("FLD_Name NOT LIKE 'a%'"), R"(NOT zef_like("FLD_Name", ?1))");
}

TEST(CompileConditionTest, ComparisonAsAValueIsMinusOneOrZero) {
  EXPECT_EQ(Where("(FLD_ID=1)=True"), R"(zef_truth("FLD_ID" = ?1) = ~0)");
}

TEST(CompileConditionTest, LongChainNeedsNoDeepBrackets) {
  std::string chain = "FLD_ID=0";
  for (int i = 1; i < 5000; ++i) chain += " OR FLD_ID=" + std::to_string(i);
  const std::string written = Where(chain);
  EXPECT_EQ(written.find("(((((((((((((("), std::string::npos);
}

TEST(CompileExpressionTest, SubtractionOnTheRightKeepsItsBrackets) {
  EXPECT_EQ(Expression("FLD_ID-(FLD_Type-1)"), R"("FLD_ID" - ("FLD_Type" - ?1))");
}

TEST(CompileExpressionTest, SumInAProductKeepsItsBrackets) {
  EXPECT_EQ(Expression("(FLD_ID+1)*2"), R"(("FLD_ID" + ?1) * ?2)");
}

TEST(CompileExpressionTest, ChainOfJoinedTextsIsOneCall) {
  EXPECT_EQ(Expression("FLD_Name & ' ' & FLD_ID & FLD_Note"), R"(zef_concat("FLD_Name", ?1, "FLD_ID", "FLD_Note"))");
}

TEST(CompileExpressionTest, JoinedDateIsWrittenAsText) {
  EXPECT_EQ(Expression("'on ' & EVE_Start", "Events"), R"(zef_concat(?1, zef_date_text("EVE_Start")))");
}

TEST(CompileExpressionTest, JoinedBooleanIsWrittenAsText) {
  EXPECT_EQ(Expression("FLD_Open & ''"), R"(zef_concat(zef_boolean_text("FLD_Open"), ?1))");
}

TEST(CompileExpressionTest, PlusJoinsTextsAndKeepsNull) {
  EXPECT_EQ(Expression("FLD_Name + 'x'"), R"(("FLD_Name" || ?1))");
}

TEST(CompileExpressionTest, DivisionsAreCalls) {
  EXPECT_EQ(
      Expression("FLD_ID / 2 - FLD_ID \\ 3 + FLD_ID MOD 4 - FLD_ID ^ 5"),
      R"(zef_divide("FLD_ID", ?1) - zef_int_divide("FLD_ID", ?2) + zef_modulo("FLD_ID", ?3) - zef_power("FLD_ID", ?4))");
}

TEST(CompileExpressionTest, ImmediateIfIsACase) {
  EXPECT_EQ(Expression("IIf(FLD_ID=1, FLD_Type, 0)"), R"(CASE WHEN "FLD_ID" = ?1 THEN "FLD_Type" ELSE ?2 END)");
}

TEST(CompileExpressionTest, DateBesideTextInImmediateIfBecomesText) {
  EXPECT_EQ(Expression("IIf(True, EVE_Start, '')", "Events"),
            R"(CASE WHEN ~0 <> 0 THEN zef_date_text("EVE_Start") ELSE ?1 END)");
}

TEST(CompileExpressionTest, LargestTextFollowsTheCollation) {
  EXPECT_EQ(Expression("Max(FLD_Name)"), R"(MAX("FLD_Name" COLLATE ZEF))");
}

TEST(CompileExpressionTest, DistinctTextsAreCountedByTheCollation) {
  EXPECT_EQ(Expression("Count(DISTINCT FLD_Name)"), R"(COUNT(DISTINCT "FLD_Name" COLLATE ZEF))");
}

struct TypeRow {
  const char* expression;
  Type type;
};

class ExpressionTypeTest : public testing::TestWithParam<TypeRow> {};

TEST_P(ExpressionTypeTest, IsInferred) { EXPECT_EQ(TypeOf(GetParam().expression, "Folders, Events"), GetParam().type); }

INSTANTIATE_TEST_SUITE_P(
    Compile, ExpressionTypeTest,
    testing::Values(
        TypeRow{"DateAdd('d',1,EVE_Start)", Type::Date}, TypeRow{"EVE_Start+1", Type::Date},
        TypeRow{"EVE_Start-EVE_Start", Type::Double}, TypeRow{"EVE_Start-1", Type::Date},
        TypeRow{"CStr(FLD_ID)", Type::Text}, TypeRow{"Count(*)", Type::Long}, TypeRow{"FLD_ID=1", Type::Boolean},
        TypeRow{"NOT FLD_Open", Type::Boolean}, TypeRow{"FLD_ID+FLD_Type", Type::Long},
        TypeRow{"FLD_ID*1.5", Type::Double}, TypeRow{"FLD_ID/2", Type::Double}, TypeRow{"FLD_ID\\2", Type::Long},
        TypeRow{"FLD_Name & 1", Type::Text}, TypeRow{"FLD_Note", Type::Memo}, TypeRow{"Max(EVE_Start)", Type::Date},
        TypeRow{"Sum(FLD_ID)", Type::Double}, TypeRow{"Int(EVE_Cost)", Type::Double},
        TypeRow{"Abs(FLD_Type)", Type::Long}, TypeRow{"Nz(FLD_Type,0)", Type::Long},
        TypeRow{"IIf(FLD_Open,FLD_ID,EVE_Cost)", Type::Double}, TypeRow{"IIf(FLD_Open,EVE_Start,0)", Type::Date},
        TypeRow{"IIf(FLD_Open,0,EVE_Start)", Type::Date}, TypeRow{"Nz(EVE_Start,0)", Type::Date},
        TypeRow{"IIf(FLD_Open,EVE_Start,EVE_Cost)", Type::Date}, TypeRow{"IIf(FLD_Open,EVE_Start,True)", Type::Unknown},
        TypeRow{"IIf(FLD_Open,Null,EVE_Start)", Type::Date}, TypeRow{"IIf(FLD_Open,'',1)", Type::Text},
        TypeRow{"(SELECT Max(SEE_Date) FROM Seen)", Type::Date}, TypeRow{"#5/1/2024#", Type::Date},
        TypeRow{"-FLD_ID", Type::Long}, TypeRow{"'5'+3", Type::Double}, TypeRow{"True", Type::Boolean},
        TypeRow{"CByte(FLD_ID)", Type::Byte}, TypeRow{"EVE_Data", Type::Binary}, TypeRow{"?", Type::Unknown}));

}  // namespace
}  // namespace zef::sql
