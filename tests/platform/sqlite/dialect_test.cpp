#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/platform/dialect_cases.h"
#include "tests/platform/sqlite/memory_database.h"

namespace zef::sql {
namespace {

using testing::HasSubstr;
using testing::Not;

/// Folders whose names try the comparison, one of them Null.
class FolderNamesTest : public testing::Test {
 protected:
  FolderNamesTest() {
    int id = 0;
    for (const char* name : test::kFolderNames) {
      database_.Run("INSERT INTO Folders (FLD_ID, FLD_Name) VALUES (" + std::to_string(++id) + ", " + name + ")");
    }
  }

  std::string Ids(const std::string& condition) {
    return database_.Rows("SELECT FLD_ID FROM Folders WHERE " + condition + " ORDER BY FLD_ID");
  }

  MemoryDatabase database_;
};

class NameSearchTest : public FolderNamesTest, public testing::WithParamInterface<test::DialectSearch> {};

TEST_P(NameSearchTest, FindsItsRows) { EXPECT_EQ(Ids(GetParam().condition), GetParam().ids) << GetParam().condition; }

INSTANTIATE_TEST_SUITE_P(Dialect, NameSearchTest, testing::ValuesIn(test::kNameSearches));

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

class QueryTest : public FolderNamesTest, public testing::WithParamInterface<test::DialectQuery> {};

TEST_P(QueryTest, GivesItsRows) { EXPECT_EQ(database_.Rows(GetParam().statement), GetParam().rows); }

INSTANTIATE_TEST_SUITE_P(Dialect, QueryTest, testing::ValuesIn(test::kQueries),
                         [](const auto& one) { return one.param.name; });

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

class ChangeTest : public JoinedChangeTest, public testing::WithParamInterface<test::DialectChange> {};

TEST_P(ChangeTest, LeavesTheseRows) {
  if (*GetParam().statement != '\0') database_.Run(GetParam().statement);
  EXPECT_EQ(database_.Rows(GetParam().select), GetParam().rows);
}

INSTANTIATE_TEST_SUITE_P(Dialect, ChangeTest, testing::ValuesIn(test::kJoinedChanges),
                         [](const auto& one) { return one.param.name; });

TEST_F(JoinedChangeTest, TextThatIsNoDateDoesNotConvert) {
  EXPECT_EQ(database_.FailureNumberOf("SELECT EVE_ID FROM Events WHERE EVE_Start='soon'"), -2147217913);
}

}  // namespace
}  // namespace zef::sql
