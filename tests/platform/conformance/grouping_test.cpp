#include "tests/platform/conformance/backend.h"
#include "tests/support/raised.h"

namespace zef::test {
namespace {

class Groups : public Conformance {
 protected:
  Groups() {
    Execute("CREATE TABLE G (A Long, B Long, Word Text(10))");
    for (const char* row : {"1,10,'x'", "1,20,'X'", "2,30,'y'"}) {
      Execute(std::string("INSERT INTO G VALUES (") + row + ")");
    }
  }
};

INSTANTIATE_TEST_SUITE_P(Engines, Groups, testing::ValuesIn(Backends()), BackendName);

TEST_P(Groups, RefuseAColumnThatIsNoKey) { EXPECT_EQ(FailureOf("SELECT A, B FROM G GROUP BY A"), -2147217900); }

TEST_P(Groups, NameTheColumnThatIsNoKeyAndItsPlace) {
  EXPECT_EQ(Raised([&] { Execute("SELECT A, B FROM G GROUP BY A"); })->description(),
            "The column 'B' stands beside groups or aggregates and is neither grouped nor in one (character 11).");
}

TEST_P(Groups, RefuseAColumnBesideAnAggregate) { EXPECT_EQ(FailureOf("SELECT A, Count(*) FROM G"), -2147217900); }

TEST_P(Groups, RefuseAColumnBeforeAnAggregateInOneExpression) {
  EXPECT_EQ(FailureOf("SELECT A+Count(*) FROM G"), -2147217900);
}

TEST_P(Groups, RefuseAStarBesideAnAggregate) { EXPECT_EQ(FailureOf("SELECT *, Count(*) FROM G"), -2147217900); }

TEST_P(Groups, RefuseAStarThatIsNotAllKeys) { EXPECT_EQ(FailureOf("SELECT * FROM G GROUP BY A"), -2147217900); }

TEST_P(Groups, RefuseAColumnThatIsNoKeyInHaving) {
  EXPECT_EQ(FailureOf("SELECT A FROM G GROUP BY A HAVING B=10"), -2147217900);
}

TEST_P(Groups, RefuseAColumnThatIsNoKeyInOrderBy) {
  EXPECT_EQ(FailureOf("SELECT A FROM G GROUP BY A ORDER BY B"), -2147217900);
}

TEST_P(Groups, RefuseAColumnThatIsNoKeyInASelectInside) {
  EXPECT_EQ(FailureOf("SELECT A, (SELECT Max(A) FROM G AS H WHERE H.B=G.B) FROM G GROUP BY A"), -2147217900);
}

TEST_P(Groups, RefuseAColumnInADerivedSelect) {
  EXPECT_EQ(FailureOf("SELECT * FROM (SELECT A, Max(B) AS M FROM G) AS t"), -2147217900);
}

TEST_P(Groups, RefuseHavingOverAPlainColumn) { EXPECT_EQ(FailureOf("SELECT A FROM G HAVING A=1"), -2147217900); }

TEST_P(Groups, RefuseAnotherCalculationThanTheKey) {
  EXPECT_EQ(FailureOf("SELECT A+1 FROM G GROUP BY A+2"), -2147217900);
}

TEST_P(Groups, TellTheSameShapeWithOtherLiteralsApart) {
  Text("SELECT A+1 FROM G GROUP BY A+1");
  EXPECT_EQ(FailureOf("SELECT A+1 FROM G GROUP BY A+2"), -2147217900);
}

TEST_P(Groups, TakeAKeyInAnySpelling) { EXPECT_EQ(Rows("SELECT g.a FROM G GROUP BY A ORDER BY G.A"), "1; 2"); }

TEST_P(Groups, TakeACalculationThatIsAKey) { EXPECT_EQ(Rows("SELECT A+1 FROM G GROUP BY A+1 ORDER BY A+1"), "2; 3"); }

TEST_P(Groups, TakeACalculationFromAKey) { EXPECT_EQ(Rows("SELECT (A+1)*10 FROM G GROUP BY A+1"), "20; 30"); }

TEST_P(Groups, TakeAConditionThatIsAKey) { EXPECT_EQ(Rows("SELECT Count(*) FROM G GROUP BY A=1 HAVING A=1"), "2"); }

TEST_P(Groups, TakeAPositionAsKey) { EXPECT_EQ(Rows("SELECT A, Max(B) FROM G GROUP BY 1"), "1; 2"); }

TEST_P(Groups, TakeAKeyInASelectInside) {
  EXPECT_EQ(Rows("SELECT (SELECT Max(H.B) FROM G AS H WHERE H.A=G.A) FROM G GROUP BY A"), "20; 30");
}

TEST_P(Groups, TakeAggregatesToSortBy) { EXPECT_EQ(Rows("SELECT A FROM G GROUP BY A ORDER BY Max(B) DESC"), "2; 1"); }

TEST_P(Groups, TakeColumnsOfTheSelectAround) {
  EXPECT_EQ(Rows("SELECT B FROM G WHERE B=(SELECT Max(H.B+G.A-G.A) FROM G AS H WHERE H.A=G.A)"), "20; 30");
}

TEST_P(Groups, TakeAStarThatIsAllKeys) { EXPECT_EQ(Rows("SELECT * FROM (SELECT A FROM G) AS t GROUP BY A"), "1; 2"); }

TEST_P(Groups, TakeTextsByTheOrderOfTexts) { EXPECT_EQ(Rows("SELECT Count(*) FROM G GROUP BY Word"), "2; 1"); }

TEST_P(Groups, AreNotSortedByOtherColumnsBehindDistinct) {
  EXPECT_EQ(FailureOf("SELECT DISTINCT A FROM G ORDER BY B"), -2147217900);
}

TEST_P(Groups, AreSortedByAResultColumnBehindDistinct) {
  EXPECT_EQ(Rows("SELECT DISTINCT A FROM G ORDER BY G.A DESC"), "2; 1");
}

TEST_P(Groups, AreSortedByACalculatedResultColumnBehindDistinct) {
  EXPECT_EQ(Rows("SELECT DISTINCT A+1 FROM G ORDER BY A+1 DESC"), "3; 2");
}

TEST_P(Groups, AreNotSortedByAnotherCalculationBehindDistinct) {
  EXPECT_EQ(FailureOf("SELECT DISTINCT A+1 FROM G ORDER BY A+2"), -2147217900);
}

TEST_P(Groups, AreSortedByAColumnOfTheStarBehindDistinct) {
  EXPECT_EQ(Rows("SELECT DISTINCT * FROM G ORDER BY B DESC"), "2; 1; 1");
}

}  // namespace
}  // namespace zef::test
