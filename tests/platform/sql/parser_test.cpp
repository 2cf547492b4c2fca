#include "platform/sql/parser.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/platform/sql/tree_rows.h"

namespace zef::sql {
namespace {

class StatementTest : public testing::TestWithParam<Row> {};

TEST_P(StatementTest, GivesItsTree) { EXPECT_EQ(Print(GetParam().statement), GetParam().tree); }

INSTANTIATE_TEST_SUITE_P(
    Select, StatementTest,
    testing::Values(
        Row{"AllColumns", "SELECT * FROM a WHERE b=1 AND c='x'", "SELECT * FROM a WHERE ((<b> = 1) AND (<c> = 'x'))"},
        Row{"AnyLetterCase", "select a from t wHeRe b", "SELECT <a> FROM t WHERE <b>"},
        Row{"AnyBlanks", "\tSELECT\r\na\n,b FROM\vt\f", "SELECT <a>, <b> FROM t"},
        Row{"TrailingSemicolon", "SELECT a FROM t; ", "SELECT <a> FROM t"},
        Row{"WithoutFrom", "SELECT 1, 'a'", "SELECT 1, 'a'"},
        Row{"Distinct", "SELECT DISTINCT a FROM t", "SELECT DISTINCT <a> FROM t"},
        Row{"All", "SELECT ALL a FROM t", "SELECT <a> FROM t"},
        Row{"DistinctRowOfOneTable", "SELECT DISTINCTROW a FROM t", "SELECT <a> FROM t"},
        Row{"DistinctRowOfTwoTables", "SELECT DISTINCTROW a FROM t, u", "SELECT DISTINCT <a> FROM [t CROSS u]"},
        Row{"DistinctRowWithoutTable", "SELECT DISTINCTROW 1", "SELECT 1"},
        Row{"Top", "SELECT TOP 5 a FROM t", "SELECT TOP 5 <a> FROM t"},
        Row{"DistinctTop", "SELECT DISTINCT TOP 5 a FROM t", "SELECT DISTINCT TOP 5 <a> FROM t"},
        Row{"TopBeforeStar", "SELECT TOP 1 * FROM t", "SELECT TOP 1 * FROM t"},
        Row{"Aliases", "SELECT a AS x, b y, c AS [z z] FROM t", "SELECT <a> AS x, <b> AS y, <c> AS z z FROM t"},
        Row{"StarOfATable", "SELECT t.*, [u v].*, a FROM t", "SELECT <t>.*, <u v>.*, <a> FROM t"},
        Row{"QualifiedNames", "SELECT t.a, [t].[b c], `t`.`d` FROM t", "SELECT <t>.<a>, <t>.<b c>, <t>.<d> FROM t"},
        Row{"BlanksAroundPoint", "SELECT t . a FROM t", "SELECT <t>.<a> FROM t"},
        Row{"ReservedWordBehindPoint", "SELECT t.Order FROM t", "SELECT <t>.<Order> FROM t"},
        Row{"ReservedWordInBrackets", "SELECT [Order], `Select`, [True] FROM [From]",
            "SELECT <Order>, <Select>, <True> FROM From"},
        Row{"GroupBy", "SELECT a, Count(*) FROM t GROUP BY a, b HAVING Count(*)>1",
            "SELECT <a>, Count(*) FROM t GROUP BY <a>, <b> HAVING (Count(*) > 1)"},
        Row{"HavingWithoutGroup", "SELECT Max(a) FROM t HAVING Max(a)>1",
            "SELECT Max(<a>) FROM t HAVING (Max(<a>) > 1)"},
        Row{"OrderBy", "SELECT a FROM t ORDER BY a ASC, b DESC, c, 2",
            "SELECT <a> FROM t ORDER BY <a>, <b> DESC, <c>, 2"},
        Row{"OrderByAnExpression", "SELECT a FROM t ORDER BY a+1 DESC", "SELECT <a> FROM t ORDER BY (<a> + 1) DESC"},
        Row{"OrderByAColumnNamedDesc", "SELECT a FROM t ORDER BY Desc DESC", "SELECT <a> FROM t ORDER BY <Desc> DESC"},
        Row{"EveryClause",
            "SELECT DISTINCT TOP 3 a FROM t WHERE b GROUP BY a HAVING c UNION SELECT d FROM u ORDER BY a",
            "SELECT DISTINCT TOP 3 <a> FROM t WHERE <b> GROUP BY <a> HAVING <c> UNION SELECT <d> FROM u ORDER BY <a>"},
        Row{"NameBeyondAscii",
            "SELECT Stra\xC3\x9F"
            "e FROM \xC3\x84rzte",
            "SELECT <Stra\xC3\x9F"
            "e> FROM \xC3\x84rzte"},
        Row{"TextNextToWords", "SELECT'a'AS b", "SELECT 'a' AS b"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Union, StatementTest,
    testing::Values(
        Row{"Plain", "SELECT a FROM t UNION SELECT b FROM u", "SELECT <a> FROM t UNION SELECT <b> FROM u"},
        Row{"All", "SELECT 1 UNION ALL SELECT 2 UNION SELECT 3", "SELECT 1 UNION ALL SELECT 2 UNION SELECT 3"},
        Row{"OrderBelongsToTheWhole", "SELECT a FROM t UNION SELECT b FROM u ORDER BY 1",
            "SELECT <a> FROM t UNION SELECT <b> FROM u ORDER BY 1"},
        Row{"BracketedParts", "(SELECT 1) UNION (SELECT 2)", "SELECT 1 UNION SELECT 2"},
        Row{"BracketedSelectAlone", "((SELECT 1))", "SELECT 1"},
        Row{"OrderInsideFirstPart", "(SELECT TOP 1 a FROM t ORDER BY a) UNION SELECT 2",
            "SELECT * FROM (SELECT TOP 1 <a> FROM t ORDER BY <a>) UNION SELECT 2"},
        Row{"OrderInsideLastPart", "SELECT 2 UNION (SELECT TOP 1 a FROM t ORDER BY a)",
            "SELECT 2 UNION SELECT * FROM (SELECT TOP 1 <a> FROM t ORDER BY <a>)"},
        Row{"UnionInsideLastPart", "SELECT 1 UNION (SELECT 2 UNION ALL SELECT 3)",
            "SELECT 1 UNION SELECT * FROM (SELECT 2 UNION ALL SELECT 3)"},
        Row{"BracketedTopOrderedAnew", "(SELECT TOP 1 a FROM t) ORDER BY a",
            "SELECT * FROM (SELECT TOP 1 <a> FROM t) ORDER BY <a>"},
        Row{"BracketedAsDerivedTable", "SELECT * FROM ((SELECT 1) UNION (SELECT 2)) AS x",
            "SELECT * FROM (SELECT 1 UNION SELECT 2) AS x"},
        Row{"BracketedBehindIn", "SELECT 1 WHERE a IN ((SELECT 1) UNION (SELECT 2))",
            "SELECT 1 WHERE (<a> IN (SELECT 1 UNION SELECT 2))"},
        Row{"BracketedAsOneValue", "SELECT ((SELECT 1) UNION (SELECT 2))", "SELECT (SELECT 1 UNION SELECT 2)"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Source, StatementTest,
    testing::Values(
        Row{"TableAliases", "SELECT * FROM t AS x, u y, [v w] AS [z]",
            "SELECT * FROM [[t AS x CROSS u AS y] CROSS v w AS z]"},
        Row{"InnerJoin", "SELECT * FROM a INNER JOIN b ON a.x=b.x", "SELECT * FROM [a INNER b ON (<a>.<x> = <b>.<x>)]"},
        Row{"LeftJoin", "SELECT * FROM a LEFT JOIN b ON x=y", "SELECT * FROM [a LEFT b ON (<x> = <y>)]"},
        Row{"LeftOuterJoin", "SELECT * FROM a LEFT OUTER JOIN b ON x=y", "SELECT * FROM [a LEFT b ON (<x> = <y>)]"},
        Row{"RightJoin", "SELECT * FROM a RIGHT JOIN b ON x=y", "SELECT * FROM [a RIGHT b ON (<x> = <y>)]"},
        Row{"RightOuterJoin", "SELECT * FROM a RIGHT OUTER JOIN b ON x=y", "SELECT * FROM [a RIGHT b ON (<x> = <y>)]"},
        Row{"JoinOfAliases", "SELECT * FROM a AS x LEFT JOIN b y ON x.i=y.i",
            "SELECT * FROM [a AS x LEFT b AS y ON (<x>.<i> = <y>.<i>)]"},
        Row{"JoinsGoFromTheLeft", "SELECT * FROM a INNER JOIN b ON x LEFT JOIN c ON y",
            "SELECT * FROM [[a INNER b ON <x>] LEFT c ON <y>]"},
        Row{"BracketsOnTheLeft", "SELECT * FROM (a INNER JOIN b ON x) LEFT JOIN c ON y",
            "SELECT * FROM [[a INNER b ON <x>] LEFT c ON <y>]"},
        Row{"BracketsOnTheRight", "SELECT * FROM a INNER JOIN (b LEFT JOIN c ON y) ON x",
            "SELECT * FROM [a INNER [b LEFT c ON <y>] ON <x>]"},
        Row{"BracketsInBrackets", "SELECT * FROM ((a INNER JOIN b ON x) INNER JOIN c ON y) INNER JOIN d ON z",
            "SELECT * FROM [[[a INNER b ON <x>] INNER c ON <y>] INNER d ON <z>]"},
        Row{"BracketsAroundATable", "SELECT * FROM (a)", "SELECT * FROM a"},
        Row{"CommaOfJoins", "SELECT * FROM a INNER JOIN b ON x, c", "SELECT * FROM [[a INNER b ON <x>] CROSS c]"},
        Row{"DerivedTable", "SELECT * FROM (SELECT a FROM t) AS x", "SELECT * FROM (SELECT <a> FROM t) AS x"},
        Row{"DerivedTableInBrackets", "SELECT * FROM ((SELECT 1)) AS x", "SELECT * FROM (SELECT 1) AS x"},
        Row{"DerivedTableInAJoin", "SELECT * FROM a INNER JOIN (SELECT 1 AS i) b ON a.i=b.i",
            "SELECT * FROM [a INNER (SELECT 1 AS i) AS b ON (<a>.<i> = <b>.<i>)]"},
        Row{"ConditionWithLeftFunction", "SELECT * FROM a LEFT JOIN b ON Left(x,1)=y",
            "SELECT * FROM [a LEFT b ON (Left(<x>, 1) = <y>)]"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Change, StatementTest,
    testing::Values(
        Row{"InsertValues", "INSERT INTO t (a, [b c]) VALUES (-1, 'x')", "INSERT t (a, b c) VALUES (-1, 'x')"},
        Row{"InsertWithoutColumns", "INSERT INTO t VALUES (1, Null, #5/1/2024#)",
            "INSERT t VALUES (1, NULL, #45413.000000#)"},
        Row{"InsertPlaceholders", "INSERT INTO t (a,b) VALUES (?,?)", "INSERT t (a, b) VALUES (?0, ?1)"},
        Row{"InsertExpressions", "INSERT INTO t (a) VALUES (1+(SELECT Max(a) FROM t))",
            "INSERT t (a) VALUES ((1 + (SELECT Max(<a>) FROM t)))"},
        Row{"InsertSelect", "INSERT INTO t SELECT * FROM u", "INSERT t SELECT * FROM u"},
        Row{"InsertColumnsSelect", "INSERT INTO t (a,b) SELECT c,d FROM u", "INSERT t (a, b) SELECT <c>, <d> FROM u"},
        Row{"InsertBracketedSelect", "INSERT INTO t (SELECT * FROM u)", "INSERT t SELECT * FROM u"},
        Row{"InsertColumnsBracketedSelect", "INSERT INTO t (a) (SELECT b FROM u)", "INSERT t (a) SELECT <b> FROM u"},
        Row{"InsertUnion", "INSERT INTO t (a) SELECT 1 UNION SELECT 2", "INSERT t (a) SELECT 1 UNION SELECT 2"},
        Row{"InsertNamesOfTypes", "INSERT INTO t (Text, Date, Name, Type, Value, Count) VALUES (1,2,3,4,5,6)",
            "INSERT t (Text, Date, Name, Type, Value, Count) VALUES (1, 2, 3, 4, 5, 6)"},
        Row{"Update", "UPDATE t SET a=1, [b c]='x', t.d=Null", "UPDATE t SET <a> := 1, <b c> := 'x', <t>.<d> := NULL"},
        Row{"UpdateWhere", "UPDATE t SET a=a+1 WHERE b<>2", "UPDATE t SET <a> := (<a> + 1) WHERE (<b> <> 2)"},
        Row{"UpdateToAComparison", "UPDATE t SET a=b=c", "UPDATE t SET <a> := (<b> = <c>)"},
        Row{"UpdateJoin", "UPDATE t INNER JOIN u ON t.i=u.i SET t.a=u.b",
            "UPDATE [t INNER u ON (<t>.<i> = <u>.<i>)] SET <t>.<a> := <u>.<b>"},
        Row{"UpdateCommaList", "UPDATE t, u x SET t.a=x.b WHERE t.i=x.i",
            "UPDATE [t CROSS u AS x] SET <t>.<a> := <x>.<b> WHERE (<t>.<i> = <x>.<i>)"},
        Row{"Delete", "DELETE FROM t", "DELETE FROM t"},
        Row{"DeleteStar", "DELETE * FROM t WHERE a=1", "DELETE FROM t WHERE (<a> = 1)"},
        Row{"DeleteStarOfATable", "DELETE t.* FROM t INNER JOIN u ON t.i=u.i WHERE u.a",
            "DELETE OF t FROM [t INNER u ON (<t>.<i> = <u>.<i>)] WHERE <u>.<a>"},
        Row{"DeleteStarOfAName", "DELETE [t].* FROM [t], u", "DELETE OF t FROM [t CROSS u]"},
        Row{"DeleteStarOfAnAlias", "DELETE x.* FROM t AS x", "DELETE OF x FROM t AS x"}),
    NameOf);

class ExpressionTest : public testing::TestWithParam<Row> {};

TEST_P(ExpressionTest, GivesItsTree) { EXPECT_EQ(PrintExpression(GetParam().statement), GetParam().tree); }

INSTANTIATE_TEST_SUITE_P(
    Form, ExpressionTest,
    testing::Values(
        Row{"True", "a=True", "(<a> = TRUE)"}, Row{"False", "a=false", "(<a> = FALSE)"}, Row{"Null", "Null", "NULL"},
        Row{"Date", "a=#2024-05-01 12:00:00#", "(<a> = #45413.500000#)"},
        Row{"Placeholders", "a=? OR b=?", "((<a> = ?0) OR (<b> = ?1))"},
        Row{"InList", "a IN (1,-2,'x')", "(<a> IN (1, -2, 'x'))"}, Row{"NotInList", "a NOT IN (1)", "(<a> NOT IN (1))"},
        Row{"InSelect", "a IN (SELECT b FROM u)", "(<a> IN (SELECT <b> FROM u))"},
        Row{"NotInSelect", "a NOT IN (SELECT b FROM u)", "(<a> NOT IN (SELECT <b> FROM u))"},
        Row{"Exists", "EXISTS (SELECT * FROM u)", "EXISTS (SELECT * FROM u)"},
        Row{"NotExists", "NOT EXISTS (SELECT * FROM u)", "NOT EXISTS (SELECT * FROM u)"},
        Row{"NotNotExists", "NOT NOT EXISTS (SELECT 1)", "(NOT NOT EXISTS (SELECT 1))"},
        Row{"Between", "a BETWEEN 1 AND 2 AND b", "((<a> BETWEEN 1 AND 2) AND <b>)"},
        Row{"NotBetween", "a NOT BETWEEN b+1 AND c", "(<a> NOT BETWEEN (<b> + 1) AND <c>)"},
        Row{"BetweenDates", "a BETWEEN #5/1/2024# AND #5/2/2024#", "(<a> BETWEEN #45413.000000# AND #45414.000000#)"},
        Row{"Like", "a LIKE 'x%'", "(<a> LIKE 'x%')"},
        Row{"NotLike", "a NOT LIKE b & '%'", "(<a> NOT LIKE (<b> & '%'))"}, Row{"IsNull", "a IS NULL", "(<a> IS NULL)"},
        Row{"IsNotNull", "t.a Is Not Null", "(<t>.<a> IS NOT NULL)"},
        Row{"Subquery", "a=(SELECT Max(a) FROM t)", "(<a> = (SELECT Max(<a>) FROM t))"},
        Row{"SubqueryInBrackets", "a=((SELECT 1))", "(<a> = (SELECT 1))"},
        Row{"SubqueryInArithmetic", "((SELECT 1)+2)", "((SELECT 1) + 2)"}, Row{"Brackets", "((a))", "<a>"},
        Row{"Calls", "IIf(IsNull(a),b,Mid(c,2,3))", "IIf(IsNull(<a>), <b>, Mid(<c>, 2, 3))"},
        Row{"CallWithoutArguments", "a<Date()", "(<a> < Date())"}, Row{"CallWithBlanks", "a<Now ( )", "(<a> < Now())"},
        Row{"CallOfLeft", "Left(a,1)='x'", "(Left(<a>, 1) = 'x')"},
        Row{"CallOfRight", "RIGHT (a,1)='x'", "(RIGHT(<a>, 1) = 'x')"},
        Row{"CountOfAll", "Count(*)=1", "(Count(*) = 1)"},
        Row{"CountOfDistinct", "Count(DISTINCT a)=1", "(Count(DISTINCT <a>) = 1)"},
        Row{"NameInBracketsIsNoCall", "[Date]=1", "(<Date> = 1)"}, Row{"TwoMinuses", "a=5--3", "(<a> = (5 - -3))"},
        Row{"MinusOfANumberBehindAWord", "a AND -1", "(<a> AND (- 1))"},
        Row{"MinusBetweenNameAndNumber", "a-1", "(<a> - 1)"}, Row{"UnaryMinus", "-a=- 1", "((- <a>) = (- 1))"},
        Row{"UnaryPlus", "+a", "(+ <a>)"}, Row{"NotOfAnOperand", "a=NOT b AND c", "((<a> = (NOT <b>)) AND <c>)"},
        Row{"TextOfBothQuotes", "a='x' & \"y\"", "(<a> = ('x' & 'y'))"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Precedence, ExpressionTest,
    testing::Values(Row{"PowerBeforeSign", "-a^b", "(- (<a> ^ <b>))"},
                    Row{"PowerBeforeSignOfANumber", "0=-2^2", "(0 = (- (2 ^ 2)))"},
                    Row{"SignInExponent", "a^-b*c", "((<a> ^ (- <b>)) * <c>)"},
                    Row{"PowerFromTheLeft", "a^b^c", "((<a> ^ <b>) ^ <c>)"},
                    Row{"SignBeforeProduct", "-a*b", "((- <a>) * <b>)"},
                    Row{"ProductOfASign", "a*-b+c", "((<a> * (- <b>)) + <c>)"},
                    Row{"ProductAndQuotientFromTheLeft", "a/b*c", "((<a> / <b>) * <c>)"},
                    Row{"ProductBeforeWholeDivision", "a\\b*c", "(<a> \\ (<b> * <c>))"},
                    Row{"WholeDivisionBeforeMod", "a MOD b\\c", "(<a> MOD (<b> \\ <c>))"},
                    Row{"ModBeforeSum", "a+b MOD c", "(<a> + (<b> MOD <c>))"},
                    Row{"SumAndDifferenceFromTheLeft", "a-b+c-d", "(((<a> - <b>) + <c>) - <d>)"},
                    Row{"SumBeforeConcatenation", "a & b+c", "(<a> & (<b> + <c>))"},
                    Row{"ConcatenationBeforeComparison", "a=b & c", "(<a> = (<b> & <c>))"},
                    Row{"ComparisonsFromTheLeft", "a=b<>c", "((<a> = <b>) <> <c>)"},
                    Row{"LessAndGreater", "a<b AND c<=d AND e>f", "(((<a> < <b>) AND (<c> <= <d>)) AND (<e> > <f>))"},
                    Row{"GreaterOrEqual", "a>=b", "(<a> >= <b>)"},
                    Row{"ComparisonBeforeNot", "NOT a=b", "(NOT (<a> = <b>))"},
                    Row{"LikeBeforeNot", "NOT a LIKE b", "(NOT (<a> LIKE <b>))"},
                    Row{"InBeforeNot", "NOT a IN (1)", "(NOT (<a> IN (1)))"},
                    Row{"IsNullBeforeNot", "NOT a IS NULL", "(NOT (<a> IS NULL))"},
                    Row{"NotBeforeAnd", "NOT a AND b", "((NOT <a>) AND <b>)"},
                    Row{"AndBeforeOr", "a OR b AND c", "(<a> OR (<b> AND <c>))"},
                    Row{"OrBeforeXor", "a XOR b OR c", "(<a> XOR (<b> OR <c>))"},
                    Row{"BracketsBeforeAll", "(a OR b) AND c*(d+e)", "((<a> OR <b>) AND (<c> * (<d> + <e>)))"},
                    Row{"LongChainIsBalanced", "a AND b AND c AND d", "((<a> AND <b>) AND (<c> AND <d>))"}),
    NameOf);

TEST(ParseTest, ColumnsMayBeNamedLikeTypesAndFunctions) {
  EXPECT_EQ(Print("SELECT Text, Date, Name, Type, Value, Count, Memo, Key FROM t"),
            "SELECT <Text>, <Date>, <Name>, <Type>, <Value>, <Count>, <Memo>, <Key> FROM t");
}

Statement ParseText(std::string_view statement) {
  Shape shape;
  ReadShape(statement, shape);
  return Parse(shape);
}

TEST(ParseTest, PlaceOfAColumnCountsCharactersOfTheStatement) {
  const Statement statement = ParseText("SELECT 'a longer text', 'it''s \xC3\xA4', b FROM t");
  EXPECT_EQ(statement.select->items[2].expr->place, 36U);
}

TEST(ParseTest, PlaceBehindALiteralShorterThanInTheKeyIsTrue) {
  EXPECT_EQ(ParseText("SELECT 1,2,b FROM t").select->items[2].expr->place, 12U);
}

TEST(ParseTest, PlaceOfAnOperatorIsItsOwn) { EXPECT_EQ(ParseText("SELECT 10 + b").select->items[0].expr->place, 11U); }

TEST(ParseTest, PlaceOfATableIsItsOwn) { EXPECT_EQ(ParseText("SELECT a FROM t").select->from->place, 15U); }

}  // namespace
}  // namespace zef::sql
