#include <gtest/gtest.h>

#include <random>
#include <string>

#include "tests/platform/sql/tree_printer.h"

namespace zef::sql {
namespace {

struct Row {
  std::string_view name;
  std::string_view statement;
  std::string_view sentence;
};

class RefusedStatementTest : public testing::TestWithParam<Row> {};

TEST_P(RefusedStatementTest, NamesPlaceAndCause) {
  EXPECT_EQ(Refusal(GetParam().statement), "Syntax error at character " + std::string(GetParam().sentence) + ".");
}

INSTANTIATE_TEST_SUITE_P(
    Parse, RefusedStatementTest,
    testing::Values(
        Row{"Empty", "", "1: a statement begins with SELECT, INSERT, UPDATE, DELETE, CREATE, ALTER or DROP"},
        Row{"OnlySemicolon", " ;", "2: a statement begins with SELECT, INSERT, UPDATE, DELETE, CREATE, ALTER or DROP"},
        Row{"UnknownVerb", "FETCH a",
            "1: a statement begins with SELECT, INSERT, UPDATE, DELETE, CREATE, ALTER or DROP"},
        Row{"OpenBracket", "SELECT * FROM t WHERE (a=1", "27: a closing bracket is missing"},
        Row{"OpenCall", "SELECT Mid(a, 'some longer text' FROM t", "34: a closing bracket is missing"},
        Row{"OpenList", "SELECT 1 WHERE a IN (1,2", "25: a closing bracket is missing"},
        Row{"ClosingBracketTooMany", "SELECT (a)) FROM t", "11: the statement should end here"},
        Row{"NoItems", "SELECT FROM t", "8: an expression is expected"},
        Row{"TrailingComma", "SELECT a, FROM t", "11: an expression is expected"},
        Row{"NoTable", "SELECT a FROM", "14: a table name is expected"},
        Row{"ReservedTable", "SELECT a FROM Order", "15: a table name is expected"},
        Row{"ReservedColumn", "SELECT a, Group FROM t", "11: an expression is expected"},
        Row{"LeftAlone", "SELECT Left FROM t", "8: an expression is expected"},
        Row{"NoAlias", "SELECT a AS FROM t", "13: a name is expected"},
        Row{"TextAsAlias", "SELECT a AS 'x' FROM t", "13: a name is expected"},
        Row{"ThreeNames", "SELECT a.b.c FROM t", "11: the statement should end here"},
        Row{"NumberBehindPoint", "SELECT a.1 FROM t", "10: a column name is expected"},
        Row{"NoCondition", "SELECT a FROM t WHERE", "22: an expression is expected"},
        Row{"TwoWheres", "SELECT a FROM t WHERE a WHERE b", "25: the statement should end here"},
        Row{"GroupWithoutBy", "SELECT a FROM t GROUP a", "23: BY is expected"},
        Row{"OrderWithoutBy", "SELECT a FROM t ORDER a", "23: BY is expected"},
        Row{"UnionOfNothing", "SELECT a UNION", "15: SELECT is expected"},
        Row{"OrderBeforeUnion", "SELECT a ORDER BY a UNION SELECT b", "21: the statement should end here"},
        Row{"TopOfText", "SELECT TOP 'x' a", "12: TOP needs a whole number"},
        Row{"TopBelowZero", "SELECT TOP -1 a", "12: TOP needs a whole number"},
        Row{"TopOfNothing", "SELECT TOP a FROM t", "12: TOP needs a whole number"},
        Row{"JoinWithoutCondition", "SELECT * FROM a INNER JOIN b WHERE c", "30: ON is expected"},
        Row{"LeftWithoutJoin", "SELECT * FROM a LEFT b ON c", "22: JOIN is expected"},
        Row{"BracketedJoinWithAlias", "SELECT * FROM (a INNER JOIN b ON c) AS d", "37: the statement should end here"},
        Row{"NotOfNothing", "SELECT a NOT 5", "14: LIKE, IN or BETWEEN is expected"},
        Row{"NotEqual", "SELECT a NOT = 5", "14: LIKE, IN or BETWEEN is expected"},
        Row{"IsAValue", "SELECT a IS 5", "13: NULL is expected"},
        Row{"BetweenWithoutAnd", "SELECT a BETWEEN 1 OR 2", "20: AND is expected"},
        Row{"InWithoutBracket", "SELECT a IN 5", "13: ( is expected"},
        Row{"InNothing", "SELECT a IN ()", "14: an expression is expected"},
        Row{"EmptyBrackets", "SELECT ()", "9: an expression is expected"},
        Row{"EmptyArgument", "SELECT f(1,,2)", "12: an expression is expected"},
        Row{"OperatorWithoutOperand", "SELECT 1 +", "11: an expression is expected"},
        Row{"TwoOperators", "SELECT 1 * / 2", "12: an expression is expected"},
        Row{"SplitComparison", "SELECT a < > b", "12: an expression is expected"},
        Row{"Comment", "SELECT a /* b */ FROM t", "11: an expression is expected"},
        Row{"TwoLiterals", "SELECT 'a' 'b'", "12: the statement should end here"},
        Row{"ExistsOfAValue", "SELECT EXISTS (1)", "16: SELECT is expected"},
        Row{"CallOfAReservedWord", "SELECT Where(1)", "8: an expression is expected"},
        Row{"StarAsValue", "SELECT 1 + *", "12: an expression is expected"},
        Row{"StarBesideArguments", "SELECT Count(*, a)", "15: a closing bracket is missing"},
        Row{"InsertWithoutInto", "INSERT t VALUES (1)", "8: INTO is expected"},
        Row{"InsertOfNothing", "INSERT INTO t (a)", "18: VALUES or SELECT is expected"},
        Row{"InsertTooFewValues", "INSERT INTO t (a,b) VALUES (1)", "13: there must be one value for each column"},
        Row{"InsertTooManyValues", "INSERT INTO t (a) VALUES (1,2)", "13: there must be one value for each column"},
        Row{"InsertTwoRows", "INSERT INTO t VALUES (1),(2)", "25: the statement should end here"},
        Row{"UpdateWithoutSet", "UPDATE t WHERE a", "10: SET is expected"},
        Row{"UpdateWithoutValue", "UPDATE t SET a", "15: = is expected"},
        Row{"UpdateOfAValue", "UPDATE t SET 1=2", "14: an expression is expected"},
        Row{"DeleteWithoutFrom", "DELETE t WHERE a", "8: FROM is expected"},
        Row{"DeleteOfAColumn", "DELETE t.a FROM t", "8: FROM is expected"}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    ParseSchema, RefusedStatementTest,
    testing::Values(Row{"CreateNothing", "CREATE", "7: TABLE, INDEX or UNIQUE INDEX is expected"},
                    Row{"CreateUniqueTable", "CREATE UNIQUE TABLE t", "15: INDEX is expected"},
                    Row{"CreateTableWithoutColumns", "CREATE TABLE t ()", "17: a column name is expected"},
                    Row{"CreateTableOfConstraints", "CREATE TABLE t (PRIMARY KEY (a))", "32: a column is expected"},
                    Row{"ColumnWithoutType", "CREATE TABLE t (a, b Long)", "18: a column type is expected"},
                    Row{"UnknownType", "CREATE TABLE t (a Counter)", "19: a column type is expected"},
                    Row{"TypeInBrackets", "CREATE TABLE t (a [Long])", "19: a column type is expected"},
                    Row{"ReservedColumn", "CREATE TABLE t (Select Long)", "17: a column name is expected"},
                    Row{"LengthOfZero", "CREATE TABLE t (a Text(0))", "24: a length is a whole number from 1"},
                    Row{"LengthBelowZero", "CREATE TABLE t (a Text(-1))", "24: a length is a whole number from 1"},
                    Row{"LengthOfText", "CREATE TABLE t (a Text('x'))", "24: a length is a whole number from 1"},
                    Row{"LengthOfDecimal", "CREATE TABLE t (a Text(1.5))", "24: a length is a whole number from 1"},
                    Row{"LengthOfALong", "CREATE TABLE t (a Long(4))", "23: a closing bracket is missing"},
                    Row{"NotWithoutNull", "CREATE TABLE t (a Long NOT)", "27: NULL is expected"},
                    Row{"PrimaryWithoutKey", "CREATE TABLE t (a Long PRIMARY)", "31: KEY is expected"},
                    Row{"ForeignKeyColumn", "CREATE TABLE t (a Long FOREIGN KEY)",
                        "24: PRIMARY KEY, UNIQUE or REFERENCES is expected"},
                    Row{"ConstraintOfNothing", "CREATE TABLE t (a Long, CONSTRAINT k)",
                        "37: PRIMARY KEY, UNIQUE or FOREIGN KEY is expected"},
                    Row{"ForeignKeyWithoutReferences", "CREATE TABLE t (a Long, CONSTRAINT k FOREIGN KEY (a))",
                        "53: REFERENCES is expected"},
                    Row{"IndexWithoutTable", "CREATE INDEX i (a)", "16: ON is expected"},
                    Row{"IndexOfNothing", "CREATE INDEX i ON t ()", "22: a column name is expected"},
                    Row{"DropNothing", "DROP", "5: TABLE or INDEX is expected"},
                    Row{"DropIndexWithoutTable", "DROP INDEX i", "13: ON is expected"},
                    Row{"AlterNothing", "ALTER TABLE t", "14: ADD, ALTER or DROP is expected"},
                    Row{"AlterIndex", "ALTER INDEX i", "7: TABLE is expected"},
                    Row{"AlterColumnToAKey", "ALTER TABLE t ALTER COLUMN a Long PRIMARY KEY",
                        "35: the statement should end here"},
                    Row{"DropOfTwo", "ALTER TABLE t DROP a, b", "21: the statement should end here"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(ParseFailureTest, RefusalNeverRepeatsTheStatement) {
  EXPECT_EQ(Refusal("SELECT * FROM t WHERE a='O'Secret").find("Secret"), std::string::npos);
}

// Depth and length.

std::string Repeat(int count, std::string_view text) {
  std::string repeated;
  for (int i = 0; i < count; ++i) repeated += text;
  return repeated;
}

std::string Nested(int depth, std::string_view before, std::string_view after) {
  return "SELECT " + Repeat(depth, before) + "1" + Repeat(depth, after);
}

struct NestingRow {
  std::string_view name;
  std::string_view before;
  std::string_view after;
};

class NestingTest : public testing::TestWithParam<NestingRow> {};

TEST_P(NestingTest, IsAcceptedTwoHundredDeep) {
  EXPECT_EQ(Refusal(Nested(200, GetParam().before, GetParam().after)), "accepted");
}

TEST_P(NestingTest, IsRefusedBeyond) {
  const std::string refusal = Refusal(Nested(201, GetParam().before, GetParam().after));
  EXPECT_NE(refusal.find("the statement is nested too deeply"), std::string::npos) << refusal;
}

TEST_P(NestingTest, IsRefusedWhenTenThousandAreLeftOpen) {
  const std::string refusal = Refusal(Nested(10000, GetParam().before, ""));
  EXPECT_NE(refusal.find("the statement is nested too deeply"), std::string::npos) << refusal;
}

INSTANTIATE_TEST_SUITE_P(Parse, NestingTest,
                         testing::Values(NestingRow{"Brackets", "(", ")"}, NestingRow{"Not", "NOT ", ""},
                                         NestingRow{"Minus", "- ", ""}, NestingRow{"Calls", "f(", ")"},
                                         NestingRow{"Subqueries", "(SELECT ", ")"},
                                         NestingRow{"Exists", "EXISTS (SELECT ", ")"}, NestingRow{"In", "a IN (", ")"},
                                         NestingRow{"Loosest", "a XOR (", ")"},
                                         NestingRow{"Operators", "a OR b AND c = d + (", ")"},
                                         NestingRow{"DerivedTables", "* FROM (SELECT ", ") AS t"},
                                         NestingRow{"Unions", "1 UNION (SELECT ", ")"}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(ParseLimitTest, TenThousandBracketedSelectsAreRefused) {
  EXPECT_EQ(Refusal(Repeat(10000, "(") + "SELECT 1"),
            "Syntax error at character 201: the statement is nested too deeply.");
}

TEST(ParseLimitTest, TenThousandBracketedSourcesAreRefused) {
  EXPECT_EQ(Refusal("SELECT * FROM " + Repeat(10000, "(") + "t"),
            "Syntax error at character 215: the statement is nested too deeply.");
}

class ChainTest : public testing::TestWithParam<std::string_view> {};

TEST_P(ChainTest, OfAnyLengthIsAccepted) {
  EXPECT_EQ(Refusal("SELECT a" + Repeat(29999, std::string(GetParam()) + "b=1")), "accepted");
}

INSTANTIATE_TEST_SUITE_P(Parse, ChainTest, testing::Values(" AND ", " OR ", " XOR "));

class OperatorChainTest : public testing::TestWithParam<std::string_view> {};

TEST_P(OperatorChainTest, OfAThousandIsAccepted) {
  EXPECT_EQ(Refusal("SELECT a" + Repeat(1000, std::string(GetParam()) + "b")), "accepted");
}

TEST_P(OperatorChainTest, OfThirtyThousandIsRefused) {
  const std::string refusal = Refusal("SELECT a" + Repeat(30000, std::string(GetParam()) + "b"));
  EXPECT_NE(refusal.find("too many operators"), std::string::npos) << refusal;
}

INSTANTIATE_TEST_SUITE_P(Parse, OperatorChainTest,
                         testing::Values(" + ", " & ", " * ", " = ", "^", " MOD ", " LIKE ", "\\"));

TEST(ParseLimitTest, ChainsInsideChainsAreRefusedByTheirSum) {
  const std::string inner = "(a" + Repeat(600, "+b") + ")" + Repeat(600, "*c");
  EXPECT_NE(Refusal("SELECT " + inner).find("too many operators"), std::string::npos);
}

TEST(ParseLimitTest, ChainsSideBySideAreAccepted) {
  const std::string chain = "(a" + Repeat(600, "+b") + ")";
  EXPECT_EQ(Refusal("SELECT " + chain + "," + chain + " WHERE " + chain + "=" + chain), "accepted");
}

TEST(ParseLimitTest, ThirtyThousandTablesAreRefused) {
  EXPECT_NE(Refusal("SELECT * FROM t" + Repeat(30000, ",t")).find("too many operators or joins"), std::string::npos);
}

TEST(ParseLimitTest, ThirtyThousandJoinsAreRefused) {
  const std::string refusal = Refusal("SELECT * FROM t" + Repeat(30000, " LEFT JOIN t ON a"));
  EXPECT_NE(refusal.find("too many operators or joins"), std::string::npos) << refusal;
}

TEST(ParseLimitTest, TenThousandUnionsAreRefused) {
  EXPECT_EQ(Refusal("SELECT 1" + Repeat(10000, " UNION SELECT 1")),
            "Syntax error at character 7501: a UNION has at most 500 selects, and this is one more.");
}

TEST(ParseLimitTest, ListOfThirtyThousandIsAccepted) {
  EXPECT_EQ(Refusal("SELECT a FROM t WHERE a IN (1" + Repeat(29999, ",1") + ")"), "accepted");
}

// Whatever the bytes are, a statement is parsed or refused.

constexpr std::string_view kStatements[] = {
    "SELECT DISTINCT TOP 5 t.*, [a b] AS x, IIf(IsNull(c), 'it''s \xC3\xA4', -1.5E3) FROM (t LEFT JOIN u ON t.i=u.i), "
    "(SELECT 1 AS z) AS v WHERE NOT (a BETWEEN #5/1/2024 9:00:00 AM# AND Now() OR b NOT IN (1,-2,?)) AND EXISTS "
    "(SELECT "
    "* FROM w) XOR c LIKE \"x[%]\" GROUP BY a, b HAVING Count(*)>2^-1 UNION ALL (SELECT 1) ORDER BY a DESC, 2;",
    "INSERT INTO t (a, [b c]) VALUES (-1, 'x' & \"y\")",
    "UPDATE t INNER JOIN u ON t.i=u.i SET t.a=u.b\\2 MOD 3, `c`=Null WHERE t.d IS NOT NULL",
    "DELETE t.* FROM t, u WHERE t.i=u.i",
    "CREATE TABLE t (a Long NOT NULL CONSTRAINT k PRIMARY KEY, b Text(20) REFERENCES u (c), CONSTRAINT f FOREIGN KEY "
    "(a, "
    "b) REFERENCES v (x, y))",
    "ALTER TABLE t ADD COLUMN a Text(30) NOT NULL",
};

class RobustnessTest : public testing::TestWithParam<std::string_view> {};

TEST_P(RobustnessTest, WholeStatementIsAccepted) { EXPECT_EQ(Refusal(GetParam()), "accepted"); }

TEST_P(RobustnessTest, EveryTruncationIsParsedOrRefused) {
  for (std::size_t length = 0; length < GetParam().size(); ++length) {
    EXPECT_NE(Refusal(GetParam().substr(0, length)), "another number") << "at " << length;
  }
}

TEST_P(RobustnessTest, EveryMutationIsParsedOrRefused) {
  std::mt19937 random(20240501);
  for (int round = 0; round < 5000; ++round) {
    std::string statement(GetParam());
    for (int change = 0; change < 3; ++change) statement[random() % statement.size()] = static_cast<char>(random());
    EXPECT_NE(Refusal(statement), "another number") << "in round " << round;
  }
}

TEST_P(RobustnessTest, EveryLossOfAPieceIsParsedOrRefused) {
  std::mt19937 random(20240502);
  for (int round = 0; round < 5000; ++round) {
    std::string statement(GetParam());
    statement.erase(random() % statement.size(), 1 + random() % 12);
    EXPECT_NE(Refusal(statement), "another number") << "in round " << round;
  }
}

INSTANTIATE_TEST_SUITE_P(Parse, RobustnessTest, testing::ValuesIn(kStatements));

}  // namespace
}  // namespace zef::sql
