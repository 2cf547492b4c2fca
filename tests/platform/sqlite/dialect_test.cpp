#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/platform/sqlite/memory_database.h"

namespace zef::sql {
namespace {

using testing::HasSubstr;
using testing::Not;

/// Folders whose names try the comparison, one of them Null.
class FolderNamesTest : public testing::Test {
 protected:
  FolderNamesTest() {
    const char* const names[] = {"'apple'",   "'Apple'",           "'Éclair'", "'éclair'", "'eclair'", "'straße'",
                                 "'strasse'", "'a' & Mid('xy',3)", "Null",     "'50%'",    "''"};
    int id = 0;
    for (const char* name : names) {
      database_.Run("INSERT INTO Folders (FLD_ID, FLD_Name) VALUES (" + std::to_string(++id) + ", " + name + ")");
    }
  }

  std::string Ids(const std::string& condition) {
    return database_.Rows("SELECT FLD_ID FROM Folders WHERE " + condition + " ORDER BY FLD_ID");
  }

  MemoryDatabase database_;
};

struct Search {
  const char* condition;
  const char* ids;
};

class NameSearchTest : public FolderNamesTest, public testing::WithParamInterface<Search> {};

TEST_P(NameSearchTest, FindsItsRows) { EXPECT_EQ(Ids(GetParam().condition), GetParam().ids) << GetParam().condition; }

INSTANTIATE_TEST_SUITE_P(
    Dialect, NameSearchTest,
    testing::Values(
        Search{"FLD_Name='APPLE'", "1; 2"}, Search{"FLD_Name='éclair'", "3; 4"}, Search{"FLD_Name='eclair'", "5"},
        Search{"FLD_Name='strasse'", "7"}, Search{"FLD_Name='STRAßE'", "6"}, Search{"FLD_Name=''", "11"},
        Search{"FLD_Name<>'apple'", "3; 4; 5; 6; 7; 8; 10; 11"},
        Search{"NOT FLD_Name='apple'", "3; 4; 5; 6; 7; 8; 10; 11"}, Search{"FLD_Name IN ('APPLE','A')", "1; 2; 8"},
        Search{"FLD_Name IN ('ÉCLAIR','x')", "3; 4"},
        Search{"FLD_Name NOT IN ('apple','éclair')", "5; 6; 7; 8; 10; 11"},
        Search{"FLD_Name BETWEEN 'ECLAIR' AND 'ÉCLAIR'", "3; 4; 5"}, Search{"FLD_Name<'apple'", "8; 10; 11"},
        Search{"FLD_Name LIKE 'É%'", "3; 4"}, Search{"FLD_Name LIKE '_CLAIR'", "3; 4; 5"},
        Search{"FLD_Name LIKE '%[%]'", "10"}, Search{"FLD_Name LIKE '[a-b]%'", "1; 2; 8"},
        Search{"FLD_Name LIKE '[!a-z]%'", "3; 4; 10"}, Search{"FLD_Name NOT LIKE '%a%'", "10; 11"},
        Search{"FLD_Name IS NULL", "9"}, Search{"IsNull(FLD_Name)", "9"}, Search{"FLD_Name=Null", ""},
        Search{"FLD_ID='3'", "3"}, Search{"FLD_ID=3.5", ""}, Search{"FLD_ID<3000000000 AND FLD_ID>10.5", "11"},
        Search{"FLD_ID=1 XOR FLD_ID<3", "2"}, Search{"FLD_Name & ''=''", "9; 11"},
        Search{"FLD_ID IN (SELECT FLD_ID FROM Folders WHERE FLD_Name='a')", "8"},
        Search{"FLD_Name IN (SELECT UCase(f.FLD_Name) FROM Folders f WHERE f.FLD_ID=1)", "1; 2"},
        Search{"EXISTS (SELECT * FROM Folders f WHERE f.FLD_Name=Folders.FLD_Name AND f.FLD_ID<>Folders.FLD_ID)",
               "1; 2; 3; 4"}));

/// The sign for kelvin is a character of its own, and equal to the letter.
TEST_F(FolderNamesTest, SearchForPlainTextFindsEqualOtherCharacters) {
  database_.Run(
      "INSERT INTO Folders (FLD_ID, FLD_Name) VALUES (12, '\xE2\x84\xAA"
      "elvin')");
  EXPECT_EQ(Ids("FLD_Name='Kelvin'"), "12");
}

TEST_F(FolderNamesTest, SearchForPlainTextsFindsEqualOtherCharacters) {
  database_.Run(
      "INSERT INTO Folders (FLD_ID, FLD_Name) VALUES (12, '\xE2\x84\xAA"
      "elvin')");
  EXPECT_EQ(Ids("FLD_Name IN ('x','kelvin')"), "12");
}

struct Plan {
  const char* name;
  const char* statement;
  const char* part;  ///< of the engine's plan
};

class PlanTest : public FolderNamesTest, public testing::WithParamInterface<Plan> {};

TEST_P(PlanTest, SearchesAndDoesNotScan) {
  const std::string plan = database_.PlanOf(GetParam().statement);
  EXPECT_THAT(plan, HasSubstr(GetParam().part));
  EXPECT_THAT(plan, Not(HasSubstr("SCAN")));
}

INSTANTIATE_TEST_SUITE_P(
    Dialect, PlanTest,
    testing::Values(Plan{"SearchForPlainTextUsesTheIndex", "SELECT * FROM Folders WHERE FLD_Name='apple'",
                         "USING INDEX ByName"},
                    Plan{"SearchForPlainTextUsesTheIndexOfOtherCharacters",
                         "SELECT * FROM Folders WHERE FLD_Name='apple'", "INDEX ByOtherName"},
                    Plan{"SearchForPlainTextOfAnAliasUsesTheIndex",
                         "SELECT * FROM Folders AS f WHERE FLD_Name='apple' AND FLD_Type=1", "USING INDEX ByName"},
                    Plan{"SearchForPlainTextsUsesTheIndex", "SELECT * FROM Folders WHERE FLD_Name IN ('apple','pear')",
                         "USING INDEX ByName"},
                    Plan{"SearchByKeyUsesTheRowIdentifier", "SELECT * FROM Folders WHERE FLD_ID='18'",
                         "USING INTEGER PRIMARY KEY"}),
    [](const auto& plan) { return plan.param.name; });

struct Query {
  const char* name;
  const char* statement;
  const char* rows;
};

class QueryTest : public FolderNamesTest, public testing::WithParamInterface<Query> {};

TEST_P(QueryTest, GivesItsRows) { EXPECT_EQ(database_.Rows(GetParam().statement), GetParam().rows); }

INSTANTIATE_TEST_SUITE_P(
    Dialect, QueryTest,
    testing::Values(
        Query{"OrderIgnoresLetterCase",
              "SELECT FLD_ID FROM Folders WHERE FLD_ID IN (1,2,5,8) ORDER BY FLD_Name, FLD_ID", "8; 1; 2; 5"},
        Query{"GroupsIgnoreLetterCase", "SELECT Count(*) FROM Folders WHERE FLD_ID<5 GROUP BY FLD_Name", "2; 2"},
        Query{"DistinctIgnoresLetterCase",
              "SELECT Count(*) FROM (SELECT DISTINCT FLD_Name FROM Folders WHERE FLD_ID<5) AS d", "2"},
        Query{"CountOfDistinctIgnoresLetterCase", "SELECT Count(DISTINCT FLD_Name) FROM Folders WHERE FLD_ID<5", "2"},
        Query{"UnionIgnoresLetterCase",
              "SELECT Count(*) FROM (SELECT FLD_Name FROM Folders WHERE FLD_ID=1 UNION SELECT FLD_Name FROM Folders "
              "WHERE FLD_ID=2) AS u",
              "1"},
        Query{"UnionIsSortedByTheCollation",
              "SELECT FLD_Name FROM Folders WHERE FLD_ID=5 UNION ALL SELECT FLD_Name FROM Folders WHERE FLD_ID=2 ORDER "
              "BY FLD_Name",
              "Apple; eclair"},
        Query{"LargestTextFollowsTheCollation", "SELECT Max(FLD_Name) FROM Folders WHERE FLD_ID IN (2,8)", "Apple"},
        Query{"TopGivesExactlySoManyRows", "SELECT TOP 2 FLD_ID FROM Folders ORDER BY FLD_ID DESC", "11; 10"},
        Query{"TopOfAUnionPartLimitsThatPartOnly",
              "SELECT TOP 1 1 FROM Folders UNION ALL SELECT FLD_ID FROM Folders WHERE FLD_ID<4", "1; 1; 2; 3"},
        Query{"OrderByPositionSortsByTheResultColumn", "SELECT FLD_ID, -FLD_ID FROM Folders WHERE FLD_ID<3 ORDER BY 2",
              "2, -2; 1, -1"},
        Query{"ConditionsAreSortedTrueFirst", "SELECT FLD_ID FROM Folders WHERE FLD_ID<4 ORDER BY FLD_ID=3, FLD_ID",
              "3; 1; 2"}),
    [](const auto& query) { return query.param.name; });

TEST_F(FolderNamesTest, LongChainOfConditionsRuns) {
  std::string chain = "FLD_ID=1";
  for (int i = 0; i < 5000; ++i) chain += " OR FLD_ID=-5";
  EXPECT_EQ(Ids(chain), "1");
}

TEST_F(FolderNamesTest, LongChainOfJoinedTextsRuns) {
  std::string chain = "''";
  for (int i = 0; i < 300; ++i) chain += " & 'x'";
  EXPECT_EQ(database_.Calculate("Len(" + chain + ")"), "300");
}

TEST_F(FolderNamesTest, LongListRuns) {
  std::string list = "1";
  for (int i = 0; i < 20000; ++i) list += ",-5";
  EXPECT_EQ(Ids("FLD_ID IN (" + list + ")"), "1");
}

TEST_F(FolderNamesTest, LongSumRuns) {
  std::string chain = "1";
  for (int i = 0; i < 900; ++i) chain += " + 1";
  EXPECT_EQ(database_.Calculate(chain), "901");
}

/// Two folders, and events of which one lies in no folder.
class JoinedChangeTest : public testing::Test {
 protected:
  JoinedChangeTest() {
    database_.Run("INSERT INTO Folders (FLD_ID, FLD_Name, FLD_Type) VALUES (1, 'one', 7)");
    database_.Run("INSERT INTO Folders (FLD_ID, FLD_Name, FLD_Type) VALUES (2, 'two', 8)");
    for (const char* values :
         {"(10, 1, '5/1/2024')", "(11, 1, '5/2/2024')", "(12, 2, '5/3/2024')", "(13, 9, '5/4/2024')"}) {
      database_.Run(std::string("INSERT INTO Events (EVE_ID, EVE_FolderID, EVE_Start) VALUES ") + values);
    }
  }

  MemoryDatabase database_;
};

/// A statement, if any, and a select with the rows that it must give then.
struct Change {
  const char* name;
  const char* statement;
  const char* select;
  const char* rows;
};

class ChangeTest : public JoinedChangeTest, public testing::WithParamInterface<Change> {};

TEST_P(ChangeTest, LeavesTheseRows) {
  if (*GetParam().statement != '\0') database_.Run(GetParam().statement);
  EXPECT_EQ(database_.Rows(GetParam().select), GetParam().rows);
}

INSTANTIATE_TEST_SUITE_P(
    Dialect, ChangeTest,
    testing::Values(
        Change{"UpdateOverAListOfTablesTakesValuesOfTheOther",
               "UPDATE EVENTS,Folders SET EVE_TEXT =Folders.FLD_Name WHERE Folders.FLD_ID = Events.EVE_FolderID",
               "SELECT EVE_ID, EVE_Text FROM Events", "10, one; 11, one; 12, two; 13, Null"},
        Change{"UpdateOverALeftJoinReachesRowsWithoutPartner",
               "UPDATE Events AS e LEFT JOIN Folders AS f ON e.EVE_FolderID=f.FLD_ID SET e.EVE_Text='none' WHERE "
               "f.FLD_ID IS NULL",
               "SELECT EVE_ID FROM Events WHERE EVE_Text='none'", "13"},
        Change{"UpdateOfTheRightTableOfAJoinWorks",
               "UPDATE Folders INNER JOIN Events ON FLD_ID=EVE_FolderID SET EVE_Rank=FLD_Type, EVE_Cost=1.5",
               "SELECT EVE_Rank, EVE_Cost FROM Events", "7, 1.5; 7, 1.5; 8, 1.5; Null, Null"},
        Change{"UpdateInsideABracketedJoinWorks",
               "UPDATE Seen RIGHT JOIN (Folders INNER JOIN Events ON FLD_ID=EVE_FolderID) ON SEE_User=FLD_ID SET "
               "EVE_Rank=3",
               "SELECT Count(*) FROM Events WHERE EVE_Rank=3", "3"},
        Change{"UpdateWithCorrelatedSelectWorks",
               "UPDATE Folders SET FLD_Note=(SELECT Max(EVE_Start) FROM Events WHERE EVE_FolderID=FLD_ID)",
               "SELECT FLD_Note FROM Folders", "5/2/2024; 5/3/2024"},
        Change{"DeleteOverAJoinTakesTheNamedTable",
               "DELETE Events.* FROM Events INNER JOIN Folders ON EVE_FolderID=FLD_ID WHERE FLD_Name='ONE'",
               "SELECT EVE_ID FROM Events", "12; 13"},
        Change{"DeleteOverAJoinLeavesTheOtherTable",
               "DELETE Events.* FROM Events INNER JOIN Folders ON EVE_FolderID=FLD_ID", "SELECT FLD_ID FROM Folders",
               "1; 2"},
        Change{"DeleteWithAliasWorks", "DELETE e.* FROM Events AS e WHERE e.EVE_ID<13", "SELECT EVE_ID FROM Events",
               "13"},
        Change{"InsertFromSelectConverts",
               "INSERT INTO Seen (SEE_Date, SEE_User) SELECT EVE_Start, EVE_ID & '' FROM Events WHERE "
               "EVE_Start>'5/2/2024'",
               "SELECT * FROM Seen", "12, 5/3/2024; 13, 5/4/2024"},
        Change{"RightJoinKeepsRowsOfTheRightSide", "",
               "SELECT EVE_ID FROM Folders RIGHT JOIN Events ON FLD_ID=EVE_FolderID WHERE FLD_ID IS NULL", "13"},
        Change{"DatesAreComparedAsDates", "",
               "SELECT EVE_ID FROM Events WHERE EVE_Start BETWEEN '5/2/2024' AND #5/3/2024#", "11; 12"},
        Change{"GroupByCalculatedDatePartWorks", "",
               "SELECT Month(EVE_Start), Count(*), Min(EVE_Start) FROM Events GROUP BY Month(EVE_Start)",
               "5, 4, 5/1/2024"},
        Change{"DerivedTablesCanBeJoined", "",
               "SELECT f.FLD_Name, d.n FROM Folders AS f INNER JOIN (SELECT EVE_FolderID, Count(*) AS n FROM Events "
               "GROUP BY EVE_FolderID) AS d ON f.FLD_ID=d.EVE_FolderID ORDER BY d.n DESC",
               "one, 2; two, 1"}),
    [](const auto& change) { return change.param.name; });

TEST_F(JoinedChangeTest, TextThatIsNoDateDoesNotConvert) {
  EXPECT_EQ(database_.FailureNumberOf("SELECT EVE_ID FROM Events WHERE EVE_Start='soon'"), -2147217913);
}

}  // namespace
}  // namespace zef::sql
