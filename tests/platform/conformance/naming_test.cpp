#include "tests/platform/conformance/backend.h"

namespace zef::test {
namespace {

/// Columns that bear names which a writer of statements might give by itself.
class Namings : public Conformance {
 protected:
  Namings() {
    Execute("CREATE TABLE P (ID Long, Other Long, c1 Long, c2 Long, v1 Long)");
    Execute("CREATE TABLE Copies (A Long, B Long)");
    Execute("CREATE TABLE [zef rows] ([zef row] Long, v1 Long)");
    for (const char* row : {"1,30,9,1,5", "2,20,8,2,5", "3,10,7,3,5"}) {
      Execute(std::string("INSERT INTO P VALUES (") + row + ")");
    }
  }
};

INSTANTIATE_TEST_SUITE_P(Engines, Namings, testing::ValuesIn(Backends()), BackendName);

TEST_P(Namings, AliasOfTheSameNameDoesNotSortADerivedSelect) {
  EXPECT_EQ(Rows("SELECT * FROM (SELECT TOP 2 0-ID AS ID FROM P ORDER BY P.ID) AS t"), "-1; -2");
}

TEST_P(Namings, AliasOfAnotherColumnDoesNotSortADerivedSelect) {
  EXPECT_EQ(Rows("SELECT t.Other FROM (SELECT TOP 1 ID AS Other FROM P ORDER BY P.Other) AS t"), "3");
}

TEST_P(Namings, AliasSortsADerivedSelectByItself) {
  EXPECT_EQ(Rows("SELECT * FROM (SELECT TOP 2 0-ID AS ID FROM P ORDER BY ID) AS t"), "-3; -2");
}

TEST_P(Namings, AliasSortsTheWholeStatementByItself) {
  EXPECT_EQ(Rows("SELECT 0-ID AS ID FROM P ORDER BY ID"), "-3; -2; -1");
}

TEST_P(Namings, QualifiedColumnSortsTheWholeStatement) {
  EXPECT_EQ(Rows("SELECT 0-ID AS ID FROM P ORDER BY P.ID"), "-1; -2; -3");
}

TEST_P(Namings, AliasDoesNotGroupADerivedSelect) {
  EXPECT_EQ(Rows("SELECT t.N FROM (SELECT Count(*) AS N, Max(1) AS ID FROM P GROUP BY P.ID) AS t"), "1; 1; 1");
}

TEST_P(Namings, AliasIsNotMeantInHavingOfADerivedSelect) {
  EXPECT_EQ(Rows("SELECT * FROM (SELECT 0-Max(ID) AS v1 FROM P GROUP BY v1 HAVING v1=5) AS t"), "-3");
}

TEST_P(Namings, AliasIsNotMeantInWhereOfADerivedSelect) {
  EXPECT_EQ(Rows("SELECT * FROM (SELECT 0-ID AS ID FROM P WHERE ID=2) AS t"), "-2");
}

TEST_P(Namings, AliasIsNotMeantInASelectInside) {
  EXPECT_EQ(Rows("SELECT * FROM (SELECT 0-ID AS ID FROM P WHERE EXISTS (SELECT 1 FROM Copies WHERE P.ID=2) OR ID=3 "
                 "ORDER BY P.ID) AS t"),
            "-3");
}

TEST_P(Namings, AliasOfADistinctDerivedSelectSortsIt) {
  EXPECT_EQ(Rows("SELECT * FROM (SELECT DISTINCT TOP 2 0-ID AS Other FROM P ORDER BY Other) AS t"), "-3; -2");
}

TEST_P(Namings, AliasOfADerivedUnionSortsIt) {
  EXPECT_EQ(Rows("SELECT * FROM (SELECT 0-ID AS ID FROM P UNION SELECT Other FROM P ORDER BY ID) AS t"),
            "-3; -2; -1; 10; 20; 30");
}

TEST_P(Namings, NumbersOfInsertedColumnsDoNotSortTheirSelect) {
  Execute("INSERT INTO Copies (A, B) SELECT TOP 1 ID, c1 FROM P ORDER BY c1");
  EXPECT_EQ(Text("SELECT A FROM Copies"), "3");
}

TEST_P(Namings, NumbersOfInsertedColumnsDoNotGroupTheirSelect) {
  Execute("INSERT INTO Copies (A, B) SELECT Max(v1), Count(*) FROM P GROUP BY c2 HAVING c2=3");
  EXPECT_EQ(Text("SELECT A FROM Copies"), "5");
}

TEST_P(Namings, ColumnCalledLikeANumberIsInserted) {
  Execute("INSERT INTO Copies (A, B) SELECT c2, c1 FROM P WHERE c2=3");
  EXPECT_EQ(Text("SELECT B FROM Copies"), "7");
}

TEST_P(Namings, JoinedUpdateServesColumnsOfAnyName) {
  Execute("INSERT INTO [zef rows] VALUES (2, 70)");
  Execute("UPDATE [zef rows] INNER JOIN P ON P.ID=[zef row] SET [zef rows].v1=P.Other");
  EXPECT_EQ(Text("SELECT v1 FROM [zef rows]"), "20");
}

TEST_P(Namings, TableCalledLikeAnUnnamedSelectStandsBesideIt) {
  Execute("CREATE TABLE select1 (N Long)");
  Execute("INSERT INTO select1 VALUES (4)");
  EXPECT_EQ(Rows("SELECT select1.N FROM (SELECT TOP 1 ID FROM P), select1"), "4");
}

TEST_P(Namings, TruthIsNoPositionToSortBy) { EXPECT_EQ(Rows("SELECT ID FROM P ORDER BY -True, Other"), "3; 2; 1"); }

TEST_P(Namings, SignedTruthIsANumber) { EXPECT_EQ(Text("SELECT -True"), "1"); }

}  // namespace
}  // namespace zef::test
