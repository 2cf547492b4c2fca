#include <gtest/gtest.h>

#include "tests/platform/sql/compile_support.h"

namespace zef::sql {
namespace {

struct Row {
  const char* name;
  const char* statement;
  FailureNumber number;
  const char* sentence;
};

class RefusedCompileTest : public testing::TestWithParam<Row> {};

TEST_P(RefusedCompileTest, HasItsNumber) {
  EXPECT_EQ(RefusalOf(GetParam().statement).number, static_cast<std::int32_t>(GetParam().number));
}

TEST_P(RefusedCompileTest, SaysWhatAndWhere) {
  EXPECT_EQ(RefusalOf(GetParam().statement).sentence, GetParam().sentence);
}

constexpr FailureNumber kStatement = FailureNumber::StatementError;
constexpr FailureNumber kColumn = FailureNumber::NoSuchColumn;
constexpr FailureNumber kTable = FailureNumber::NoSuchTable;
constexpr FailureNumber kTypes = FailureNumber::TypesDoNotConvert;
constexpr FailureNumber kNeeds = FailureNumber::ConstraintViolated;

INSTANTIATE_TEST_SUITE_P(
    Compile, RefusedCompileTest,
    testing::Values(
        Row{"Column", "SELECT X FROM Seen", kColumn, "The column 'X' is not known (character 8)."},
        Row{"ColumnOfTable", "SELECT Seen.X FROM Seen", kColumn, "The column 'Seen.X' is not known (character 8)."},
        Row{"PlaceBehindLiteral", "SELECT 'it''s' FROM Seen WHERE X=1", kColumn,
            "The column 'X' is not known (character 32)."},
        Row{"Ambiguous", "SELECT SEE_Date FROM Seen, Seen AS s", kColumn,
            "The column 'SEE_Date' is ambiguous: more than one source has it (character 8)."},
        Row{"ColumnOfWhatIsNotJoined", "SELECT 1 FROM Events, Folders INNER JOIN Seen ON EVE_ID=FLD_ID", kColumn,
            "The column 'EVE_ID' is not known (character 50)."},
        Row{"ColumnOfTheOuterJoin",
            "SELECT 1 FROM Events INNER JOIN (Folders INNER JOIN Seen ON EVE_ID=FLD_ID) ON EVE_ID=SEE_User", kColumn,
            "The column 'EVE_ID' is not known (character 61)."},
        Row{"Table", "SELECT * FROM Nothing", kTable, "The table 'Nothing' is not known (character 15)."},
        Row{"Star", "SELECT x.* FROM Seen", kTable, "The table 'x' is not known (character 8)."},
        Row{"TableOfInsert", "INSERT INTO Nothing (a) VALUES (1)", kTable,
            "The table 'Nothing' is not known (character 13)."},
        Row{"ColumnOfInsert", "INSERT INTO Seen (X) VALUES (1)", kColumn,
            "The column 'X' is not known (character 13)."},
        Row{"ColumnOfUpdate", "UPDATE Seen SET X=1", kColumn, "The column 'X' is not known (character 17)."},
        Row{"Function", "SELECT Foo(1)", kStatement, "The function 'Foo' is not known (character 8)."},
        Row{"First", "SELECT First(SEE_User) FROM Seen", kStatement,
            "The function 'First' is not supported (character 8)."},
        Row{"TooManyArguments", "SELECT Year(1, 2)", kStatement,
            "The function 'Year' takes another number of arguments than 2 (character 8)."},
        Row{"TooFewArguments", "SELECT IIf(1, 2)", kStatement,
            "The function 'IIf' takes another number of arguments than 2 (character 8)."},
        Row{"AggregateInWhere", "SELECT 1 FROM Seen WHERE Count(*)=1", kStatement,
            "The aggregate 'Count' cannot stand here (character 26)."},
        Row{"AggregateInAggregate", "SELECT Max(Min(SEE_User)) FROM Seen", kStatement,
            "The aggregate 'Min' cannot stand here (character 12)."},
        Row{"TextColumnBesideNumberColumn", "SELECT 1 FROM Folders WHERE FLD_Name=FLD_ID", kTypes,
            "The types of the values that are compared do not convert (character 37)."},
        Row{"DateColumnBesideTextColumn", "SELECT 1 FROM Events WHERE EVE_Start IN (EVE_Text)", kTypes,
            "The types of the values that are compared do not convert (character 38)."},
        Row{"TextPlusNumber", "SELECT FLD_Name+FLD_ID FROM Folders", kTypes,
            "The types of the operands do not convert (character 16)."},
        Row{"TextAsCondition", "SELECT 1 FROM Folders WHERE FLD_Name", kTypes,
            "A condition is expected, neither a text nor bytes (character 29)."},
        Row{"SumOfTexts", "SELECT Sum(FLD_Name) FROM Folders", kTypes,
            "The aggregate 'Sum' needs numbers (character 8)."},
        Row{"NumberIntoBytes", "UPDATE Events SET EVE_Data=EVE_ID", kTypes,
            "The value does not convert to the type of the column 'EVE_Data' (character 28)."},
        Row{"KeyOmitted", "INSERT INTO Folders (FLD_Name) VALUES ('a')", kNeeds,
            "The column 'FLD_ID' needs a value (character 13)."},
        Row{"KeyNull", "INSERT INTO Folders (FLD_ID) VALUES (NULL)", kNeeds,
            "The column 'FLD_ID' needs a value (character 38)."},
        Row{"RequiredSetToNull", "UPDATE Seen SET SEE_User=NULL", kNeeds,
            "The column 'SEE_User' needs a value (character 26)."},
        Row{"FewerValuesThanColumns", "INSERT INTO Seen VALUES (1)", kStatement,
            "There must be one value for each column (character 13)."},
        Row{"MoreResultsThanColumns", "INSERT INTO Seen (SEE_User) SELECT SEE_User, SEE_Date FROM Seen", kStatement,
            "There must be one value for each column (character 13)."},
        Row{"ColumnTwice", "INSERT INTO Seen (SEE_User, SEE_User) VALUES (1, 2)", kStatement,
            "The column 'SEE_User' stands twice (character 13)."},
        Row{"SetTwice", "UPDATE Seen SET SEE_User=1, SEE_User=2", kStatement,
            "The column 'SEE_User' is set twice (character 29)."},
        Row{"TwoTargets", "UPDATE Seen, Folders SET SEE_User=1, FLD_Name='a'", kStatement,
            "An UPDATE changes the columns of one table only (character 38)."},
        Row{"DeleteOfUnnamedTable", "DELETE FROM Seen, Folders", kStatement,
            "A DELETE from joined tables names one of them, as in DELETE name.* FROM (character 19)."},
        Row{"OrderByPosition", "SELECT SEE_User FROM Seen ORDER BY 2", kStatement,
            "No result column has that position (character 36)."},
        Row{"UnionColumns", "SELECT 1 UNION SELECT 1, 2", kStatement,
            "The selects of a UNION have different numbers of columns."},
        Row{"SameSourceTwice", "SELECT 1 FROM Seen, Seen", kStatement,
            "The source 'Seen' stands twice in FROM; one needs an alias (character 21)."},
        Row{"TwoColumnsAsAValue", "SELECT (SELECT SEE_User, SEE_Date FROM Seen)", kStatement,
            "A select that serves as a value or a list has one column (character 8)."},
        Row{"SameNameTwiceInATable", "SELECT * FROM (SELECT 1 AS a, 2 AS a) AS d", kStatement,
            "The column name 'a' stands twice in a select that serves as a table (character 15)."}),
    [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace zef::sql
