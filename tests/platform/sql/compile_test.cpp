#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/platform/sql/compile_support.h"

namespace zef::sql {
namespace {

using testing::ElementsAre;

std::vector<std::string> Names(const CompiledStatement& statement) {
  std::vector<std::string> names;
  for (const ResultColumn& column : statement.columns) names.push_back(column.name);
  return names;
}

ParameterPlan PlanOf(std::string_view text, std::size_t number = 0) {
  return CompileText(text).statement.parameters.at(number);
}

TEST(CompileSelectTest, StarBecomesTheDeclaredColumns) {
  EXPECT_EQ(Written("select * from seen"), R"(SELECT "SEE_User", "SEE_Date" FROM "Seen")");
}

TEST(CompileSelectTest, BinaryColumnOfATableIsLeftToBeFetched) {
  const CompiledStatement statement = CompileText("SELECT EVE_ID, EVE_Data FROM Events ORDER BY EVE_Data").statement;
  EXPECT_EQ(statement.text, R"(SELECT "EVE_ID", rowid FROM "Events" ORDER BY "EVE_Data")");
  ASSERT_EQ(statement.later.size(), 1u);
  EXPECT_EQ(statement.later[0].position, 1);
  EXPECT_EQ(statement.later[0].text, R"(SELECT "EVE_Data" FROM "Events" WHERE rowid = ?1)");
}

TEST(CompileSelectTest, BinaryColumnOfWhatIsNoRowOfATableIsNotLeft) {
  for (const char* text :
       {"SELECT DISTINCT EVE_Data FROM Events", "SELECT EVE_Data FROM Events, Seen",
        "SELECT EVE_Data FROM Events GROUP BY EVE_Data", "SELECT EVE_Data FROM (SELECT * FROM Events) AS t",
        "SELECT EVE_Data FROM Events UNION SELECT EVE_Data FROM Events"}) {
    EXPECT_TRUE(CompileText(text).statement.later.empty()) << text;
  }
}

TEST(CompileSelectTest, NamesOfResultColumnsAreAsDeclared) {
  EXPECT_THAT(Names(CompileText("SELECT fld_id, FLD_NAME AS x FROM folders").statement), ElementsAre("FLD_ID", "x"));
}

TEST(CompileSelectTest, ExpressionsWithoutAliasAreNumberedFrom1000) {
  EXPECT_THAT(Names(CompileText("SELECT 1, FLD_ID+1, FLD_ID, FLD_ID+2 AS y, 'a' FROM Folders").statement),
              ElementsAre("Expr1000", "Expr1001", "FLD_ID", "y", "Expr1002"));
}

TEST(CompileSelectTest, LiteralsBecomeParametersInOrder) {
  const CompiledText compiled = CompileText("SELECT * FROM Seen WHERE SEE_User=18 AND SEE_User<20");
  EXPECT_EQ(compiled.statement.text,
            R"(SELECT "SEE_User", "SEE_Date" FROM "Seen" WHERE "SEE_User" = ?1 AND "SEE_User" < ?2)");
}

TEST(CompileSelectTest, IntegerBesideIntegerColumnIsBoundAsItIs) {
  EXPECT_EQ(PlanOf("SELECT * FROM Folders WHERE FLD_ID=18").type, Type::Unknown);
}

TEST(CompileSelectTest, TextBesideIntegerColumnBecomesDouble) {
  EXPECT_EQ(PlanOf("SELECT * FROM Folders WHERE FLD_ID='18'").type, Type::Double);
}

TEST(CompileSelectTest, PlaceholderBesideIntegerColumnBecomesDouble) {
  EXPECT_EQ(PlanOf("SELECT * FROM Folders WHERE FLD_ID=?").type, Type::Double);
}

TEST(CompileSelectTest, TextBesideDateColumnBecomesDate) {
  EXPECT_EQ(PlanOf("SELECT * FROM Events WHERE EVE_Start>='5/1/2024'").type, Type::Date);
}

TEST(CompileSelectTest, TextBetweenDatesBecomesDate) {
  EXPECT_EQ(PlanOf("SELECT * FROM Events WHERE EVE_Start BETWEEN '5/1/2024' AND #5/2/2024#", 0).type, Type::Date);
}

TEST(CompileSelectTest, TextInAListOfDatesBecomesDate) {
  EXPECT_EQ(PlanOf("SELECT * FROM Events WHERE EVE_Start IN ('5/1/2024', '5/2/2024')", 1).type, Type::Date);
}

TEST(CompileSelectTest, NumberBesideTextColumnBecomesText) {
  EXPECT_EQ(PlanOf("SELECT * FROM Folders WHERE FLD_Name=18").type, Type::Text);
}

TEST(CompileSelectTest, TextBesideBooleanColumnBecomesBoolean) {
  EXPECT_EQ(PlanOf("SELECT * FROM Folders WHERE FLD_Open='True'").type, Type::Boolean);
}

TEST(CompileSelectTest, TextGivenToYearBecomesDate) { EXPECT_EQ(PlanOf("SELECT Year('5/1/2024')").type, Type::Date); }

TEST(CompileSelectTest, JoinQualifiesItsColumns) {
  EXPECT_EQ(Written("SELECT FLD_ID, EVE_ID FROM Folders f INNER JOIN Events ON f.FLD_ID=EVE_FolderID"),
            R"(SELECT "f"."FLD_ID", "Events"."EVE_ID" FROM "Folders" AS "f" INNER JOIN "Events" ON )"
            R"("f"."FLD_ID" = "Events"."EVE_FolderID")");
}

TEST(CompileSelectTest, TablesBehindCommasStayAList) {
  EXPECT_EQ(Written("SELECT f.* FROM Seen f, Events"),
            R"(SELECT "f"."SEE_User", "f"."SEE_Date" FROM "Seen" AS "f", "Events")");
}

TEST(CompileSelectTest, JoinOnTheRightSideKeepsItsBrackets) {
  EXPECT_EQ(Written("SELECT 1 FROM Seen LEFT JOIN (Folders RIGHT JOIN Events ON FLD_ID=EVE_FolderID) ON "
                    "SEE_User=FLD_ID"),
            R"(SELECT ?1 FROM "Seen" LEFT JOIN ("Folders" RIGHT JOIN "Events" ON "Folders"."FLD_ID" = )"
            R"("Events"."EVE_FolderID") ON "Seen"."SEE_User" = "Folders"."FLD_ID")");
}

TEST(CompileSelectTest, ConditionOfAJoinMeansTheColumnsOfWhatItJoins) {
  EXPECT_EQ(Written("SELECT 1 FROM Events a, Folders INNER JOIN Events b ON EVE_FolderID=FLD_ID WHERE a.EVE_ID=1"),
            R"(SELECT ?1 FROM "Events" AS "a", ("Folders" INNER JOIN "Events" AS "b" ON "b"."EVE_FolderID" = )"
            R"("Folders"."FLD_ID") WHERE "a"."EVE_ID" = ?2)");
}

TEST(CompileSelectTest, SelectInFromNamesItsColumns) {
  EXPECT_EQ(Written("SELECT n FROM (SELECT FLD_ID+1 AS n FROM Folders) AS d"),
            R"(SELECT "n" FROM (SELECT "Folders"."FLD_ID" + ?1 AS "n" FROM "Folders") AS "d")");
}

TEST(CompileSelectTest, CorrelatedSelectFindsTheOuterColumn) {
  EXPECT_EQ(Where("EXISTS (SELECT * FROM Seen WHERE SEE_User=FLD_ID)"),
            R"(EXISTS (SELECT "Seen"."SEE_User", "Seen"."SEE_Date" FROM "Seen" WHERE )"
            R"("Seen"."SEE_User" = "Folders"."FLD_ID"))");
}

TEST(CompileSelectTest, TextsAreSortedByTheCollation) {
  EXPECT_EQ(Written("SELECT FLD_ID FROM Folders ORDER BY FLD_NAME, FLD_ID DESC"),
            R"(SELECT "FLD_ID" FROM "Folders" ORDER BY "FLD_Name" COLLATE ZEF, "FLD_ID" DESC)");
}

TEST(CompileSelectTest, OrderByPositionMeansTheResultColumn) {
  EXPECT_EQ(Written("SELECT FLD_ID, FLD_Name FROM Folders ORDER BY 2"),
            R"(SELECT "FLD_ID", "FLD_Name" FROM "Folders" ORDER BY "FLD_Name" COLLATE ZEF)");
}

TEST(CompileSelectTest, OrderByPositionIsNotCacheable) {
  EXPECT_FALSE(CompileText("SELECT FLD_ID FROM Folders ORDER BY 1").statement.cacheable);
}

TEST(CompileSelectTest, OrderByNameIsCacheable) {
  EXPECT_TRUE(CompileText("SELECT FLD_ID FROM Folders ORDER BY FLD_ID").statement.cacheable);
}

TEST(CompileSelectTest, OrderByAliasMeansTheResultColumn) {
  EXPECT_EQ(Written("SELECT FLD_ID*2 AS Twice FROM Folders ORDER BY twice"),
            R"(SELECT "FLD_ID" * ?1 FROM "Folders" ORDER BY "FLD_ID" * ?1)");
}

TEST(CompileSelectTest, GroupByFollowsTheCollation) {
  EXPECT_EQ(Written("SELECT FLD_Name, Count(*) FROM Folders GROUP BY FLD_Name HAVING Count(*)>1"),
            R"(SELECT "FLD_Name", COUNT(*) FROM "Folders" GROUP BY "FLD_Name" COLLATE ZEF HAVING COUNT(*) > ?1)");
}

TEST(CompileSelectTest, DistinctTextsFollowTheCollation) {
  EXPECT_EQ(Written("SELECT DISTINCT FLD_Name, FLD_ID FROM Folders"),
            R"(SELECT DISTINCT "FLD_Name" COLLATE ZEF, "FLD_ID" FROM "Folders")");
}

TEST(CompileSelectTest, UnionIsSortedByPosition) {
  EXPECT_EQ(Written("SELECT FLD_Name FROM Folders UNION SELECT EVE_Text FROM Events ORDER BY FLD_Name"),
            R"(SELECT "FLD_Name" COLLATE ZEF FROM "Folders" UNION SELECT "EVE_Text" COLLATE ZEF FROM "Events" )"
            R"(ORDER BY 1)");
}

TEST(CompileSelectTest, UnionOfNumbersHasTheWiderType) {
  const CompiledText compiled = CompileText("SELECT FLD_Type FROM Folders UNION ALL SELECT EVE_Cost FROM Events");
  EXPECT_EQ(compiled.statement.columns.at(0).type, Type::Double);
}

struct UnionRow {
  const char* first;
  const char* second;
  Type type;
};

class UnionTypeTest : public testing::TestWithParam<UnionRow> {};

TEST_P(UnionTypeTest, IsTheCommonOne) {
  const auto [first, second, type] = GetParam();
  const std::string text = std::string("SELECT ") + first + " FROM Events UNION SELECT " + second + " FROM Events";
  EXPECT_EQ(CompileText(text).statement.columns.at(0).type, type) << text;
}

INSTANTIATE_TEST_SUITE_P(
    Compile, UnionTypeTest,
    testing::Values(UnionRow{"EVE_Start", "EVE_Start", Type::Date}, UnionRow{"EVE_Start", "Null", Type::Date},
                    UnionRow{"Null", "EVE_Start", Type::Date},
                    UnionRow{"Null", "Null UNION ALL SELECT EVE_Start", Type::Date},
                    UnionRow{"EVE_Start", "0", Type::Date}, UnionRow{"EVE_Cost", "Now()", Type::Date},
                    UnionRow{"Null", "EVE_ID", Type::Long}, UnionRow{"EVE_Start", "EVE_Text", Type::Unknown}));

TEST(CompileSelectTest, TopBecomesALimit) {
  EXPECT_EQ(Written("SELECT TOP 3 FLD_ID FROM Folders ORDER BY FLD_ID"),
            R"(SELECT "FLD_ID" FROM "Folders" ORDER BY "FLD_ID" LIMIT ?1)");
}

TEST(CompileSelectTest, TopOfTheFirstPartOfAUnionStaysThere) {
  EXPECT_EQ(
      Written("SELECT TOP 3 FLD_ID FROM Folders UNION ALL SELECT EVE_ID FROM Events"),
      R"(SELECT * FROM (SELECT "FLD_ID" FROM "Folders" LIMIT ?1) AS "]`top" UNION ALL SELECT "EVE_ID" FROM "Events")");
}

TEST(CompileUpdatableTest, SelectWithTheKeyTellsItsPosition) {
  const CompiledText compiled = CompileText("SELECT FLD_Name, FLD_ID FROM Folders", {.updatable = true});
  EXPECT_THAT(compiled.statement.key_columns, ElementsAre(1U));
}

TEST(CompileUpdatableTest, SelectTellsItsTable) {
  EXPECT_EQ(CompileText("SELECT * FROM FOLDERS", {.updatable = true}).statement.table, "Folders");
}

TEST(CompileUpdatableTest, SelectWithoutTheKeyEndsWithTheRowIdentifier) {
  EXPECT_EQ(Written("SELECT FLD_Name FROM Folders WHERE FLD_ID=1", {.updatable = true}),
            R"(SELECT "FLD_Name", rowid FROM "Folders" WHERE "FLD_ID" = ?1)");
}

TEST(CompileUpdatableTest, TableWithoutKeyHasAHiddenRowIdentifier) {
  EXPECT_TRUE(CompileText("SELECT * FROM Seen", {.updatable = true}).statement.hidden_row_id);
}

TEST(CompileUpdatableTest, RowIdentifierIsNoResultColumn) {
  EXPECT_EQ(CompileText("SELECT * FROM Seen", {.updatable = true}).statement.columns.size(), 2U);
}

class NotUpdatableTest : public testing::TestWithParam<const char*> {};

TEST_P(NotUpdatableTest, HasNoTable) { EXPECT_EQ(CompileText(GetParam(), {.updatable = true}).statement.table, ""); }

INSTANTIATE_TEST_SUITE_P(Compile, NotUpdatableTest,
                         testing::Values("SELECT FLD_ID FROM Folders, Seen", "SELECT DISTINCT FLD_ID FROM Folders",
                                         "SELECT TOP 1 FLD_ID FROM Folders", "SELECT Max(FLD_ID) FROM Folders",
                                         "SELECT FLD_ID FROM Folders GROUP BY FLD_ID",
                                         "SELECT FLD_ID FROM Folders UNION SELECT EVE_ID FROM Events",
                                         "SELECT FLD_ID FROM (SELECT FLD_ID FROM Folders) AS d"));

TEST(CompileRowIdTest, UpdateByRowIdFindsItByTheLastPlaceholder) {
  EXPECT_EQ(Written("UPDATE Seen SET SEE_User=?", {.by_row_id = true}),
            R"(UPDATE "Seen" SET "SEE_User" = ?1 WHERE rowid = ?2)");
}

TEST(CompileRowIdTest, UpdateByRowIdBindsItAsItIs) {
  EXPECT_EQ(CompileText("UPDATE Seen SET SEE_User=?", {.by_row_id = true}).statement.parameters.at(1).type,
            Type::Unknown);
}

TEST(CompileInsertTest, ValuesTakeTheTypesOfTheirColumns) {
  const CompiledText compiled = CompileText("INSERT INTO Folders (FLD_ID, FLD_Name) VALUES (1, 'x')");
  EXPECT_EQ(compiled.statement.parameters.at(1).type, Type::Text);
}

TEST(CompileInsertTest, ValuesTakeTheLengthsOfTheirColumns) {
  EXPECT_EQ(PlanOf("INSERT INTO Folders (FLD_ID, FLD_Name) VALUES (1, 'x')", 1).length, 20);
}

TEST(CompileInsertTest, ValueOfTheKeyIsRequired) {
  EXPECT_TRUE(PlanOf("INSERT INTO Folders (FLD_ID) VALUES (?)").required);
}

TEST(CompileInsertTest, TextNamesColumnsAsDeclared) {
  EXPECT_EQ(Written("INSERT INTO seen (see_date, see_user) VALUES ('5/1/2024', 1)"),
            R"(INSERT INTO "Seen" ("SEE_Date", "SEE_User") VALUES (?1, ?2))");
}

TEST(CompileInsertTest, WithoutColumnsAllAreMeant) {
  EXPECT_EQ(Written("INSERT INTO Seen VALUES (1, Now())"),
            R"(INSERT INTO "Seen" ("SEE_User", "SEE_Date") VALUES (?1, zef_to_date(?2, 'SEE_Date')))");
}

TEST(CompileInsertTest, SelectIsConvertedToTheColumns) {
  EXPECT_EQ(
      Written("INSERT INTO Seen (SEE_User, SEE_Date) SELECT FLD_ID, FLD_Name FROM Folders"),
      R"(INSERT INTO "Seen" ("SEE_User", "SEE_Date") SELECT zef_required(zef_to_long("]`c1", 'SEE_User'), 'SEE_User'), )"
      R"(zef_to_date("]`c2", 'SEE_Date') FROM (SELECT "Folders"."FLD_ID" AS "]`c1", "Folders"."FLD_Name" AS "]`c2" FROM "Folders") )"
      R"(AS "]`rows")");
}

TEST(CompileUpdateTest, OneTableIsUpdatedPlainly) {
  EXPECT_EQ(Written("UPDATE Folders SET FLD_Name='a', FLD_Type=2 WHERE FLD_ID=3"),
            R"(UPDATE "Folders" SET "FLD_Name" = ?1, "FLD_Type" = ?2 WHERE "FLD_ID" = ?3)");
}

TEST(CompileUpdateTest, ColumnOfTheSameTypeIsStoredAsItIs) {
  EXPECT_EQ(Written("UPDATE Folders SET FLD_Note=FLD_Name"), R"(UPDATE "Folders" SET "FLD_Note" = "FLD_Name")");
}

TEST(CompileUpdateTest, LongerTextColumnIsChecked) {
  EXPECT_EQ(Written("UPDATE Folders SET FLD_Name=FLD_Note"),
            R"(UPDATE "Folders" SET "FLD_Name" = zef_to_text("FLD_Note", 20, 'FLD_Name'))");
}

TEST(CompileUpdateTest, JoinedSourcesAreFoundByRow) {
  EXPECT_EQ(Written("UPDATE EVENTS,Folders SET EVE_TEXT =Folders.FLD_Name WHERE Folders.FLD_ID = Events.EVE_FolderID"),
            R"(UPDATE "Events" SET "EVE_Text" = "]`rows"."]`c1" FROM (SELECT "Events".rowid AS "]`row", )"
            R"(zef_to_text("Folders"."FLD_Name", 10, 'EVE_Text') AS "]`c1" FROM "Events", "Folders" WHERE )"
            R"("Folders"."FLD_ID" = "Events"."EVE_FolderID") AS "]`rows" WHERE "Events".rowid = "]`rows"."]`row")");
}

TEST(CompileDeleteTest, StarAndPlainDeleteAreTheSame) {
  EXPECT_EQ(Written("DELETE * FROM Folders WHERE FLD_ID=1"), Written("DELETE FROM Folders WHERE FLD_ID=1"));
}

TEST(CompileDeleteTest, OneTableIsDeletedFromPlainly) {
  EXPECT_EQ(Written("DELETE * FROM Folders WHERE FLD_ID=1"), R"(DELETE FROM "Folders" WHERE "FLD_ID" = ?1)");
}

TEST(CompileDeleteTest, JoinedSourcesAreFoundByRow) {
  EXPECT_EQ(Written("DELETE e.* FROM Events AS e INNER JOIN Folders ON FLD_ID=EVE_FolderID WHERE FLD_Type=1"),
            R"(DELETE FROM "Events" WHERE rowid IN (SELECT "e".rowid FROM "Events" AS "e" INNER JOIN "Folders" ON )"
            R"("Folders"."FLD_ID" = "e"."EVE_FolderID" WHERE "Folders"."FLD_Type" = ?1))");
}

}  // namespace
}  // namespace zef::sql
