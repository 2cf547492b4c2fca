#include <fmt/format.h>
#include <gmock/gmock.h>

#include "tests/platform/conformance/backend.h"
#include "tests/support/raised.h"

namespace zef::test {
namespace {

std::string Times(std::string_view text, int count) {
  std::string all;
  for (int i = 0; i < count; ++i) all += text;
  return all;
}

class Limits : public Conformance {
 protected:
  Limits() {
    Execute("CREATE TABLE N (A Long)");
    Execute("INSERT INTO N VALUES (1)");
  }
  /// "" for a statement that runs.
  std::string RefusalOf(const std::string& text) {
    const auto failure = Raised([&] { Execute(text); });
    if (!failure) return {};
    EXPECT_EQ(failure->code(), FailureNumber::StatementError);
    return failure->description();
  }
  static std::string TablesOf(int count, std::string_view join) {
    std::string text = "SELECT 1 FROM N AS t0";
    for (int i = 1; i < count; ++i) text += fmt::format(fmt::runtime(join), i);
    return text;
  }
  static constexpr const char* kTooDeep =
      "The statement is too complex: selects or operators stand too deep inside each other.";
};

INSTANTIATE_TEST_SUITE_P(Engines, Limits, testing::ValuesIn(Backends()), BackendName);

TEST_P(Limits, FiveHundredSelectsAreUnited) { EXPECT_EQ(RefusalOf("SELECT 1" + Times(" UNION SELECT 1", 499)), ""); }

TEST_P(Limits, OneUnitedSelectMoreIsRefusedAtItsPlace) {
  EXPECT_EQ(RefusalOf("SELECT 1" + Times(" UNION SELECT 1", 500)),
            "Syntax error at character 7501: a UNION has at most 500 selects, and this is one more.");
}

TEST_P(Limits, SixtyFourTablesAreListed) { EXPECT_EQ(RefusalOf(TablesOf(64, ", N AS t{}")), ""); }

TEST_P(Limits, OneListedTableMoreIsRefusedAtItsPlace) {
  EXPECT_EQ(RefusalOf(TablesOf(65, ", N AS t{}")),
            "A FROM has at most 64 tables and selects, and this is one more (character 645).");
}

TEST_P(Limits, SixtyFourTablesAreJoined) {
  EXPECT_EQ(RefusalOf(TablesOf(64, " INNER JOIN N AS t{0} ON t0.A=t{0}.A")), "");
}

TEST_P(Limits, OneJoinedTableMoreIsRefused) {
  EXPECT_NE(RefusalOf(TablesOf(65, " INNER JOIN N AS t{0} ON t0.A=t{0}.A")), "");
}

TEST_P(Limits, TablesOfDerivedSelectsCountAsWell) {
  if (!GetParam().limits_depth) GTEST_SKIP() << "this engine takes any number";
  EXPECT_EQ(RefusalOf(TablesOf(40, ", (SELECT x.A FROM N AS x INNER JOIN N AS y ON x.A=y.A) AS t{}")),
            "A select reads at most 64 tables, those of selects inside its FROM included.");
}

TEST_P(Limits, AsManyColumnsAsTheEngineTakesAreSelected) {
  EXPECT_EQ(RefusalOf("SELECT 1" + Times(",1", static_cast<int>(GetParam().most_selected) - 1)), "");
}

TEST_P(Limits, OneSelectedColumnMoreIsRefusedAtItsPlace) {
  EXPECT_EQ(RefusalOf("SELECT 1" + Times(",1", 2000)),
            "A result has at most 2000 columns, and this is one more (character 4008).");
}

TEST_P(Limits, TwoThousandColumnsSort) { EXPECT_EQ(RefusalOf("SELECT A FROM N ORDER BY A" + Times(",A", 1999)), ""); }

TEST_P(Limits, OneSortingColumnMoreIsRefusedAtItsPlace) {
  EXPECT_EQ(RefusalOf("SELECT A FROM N ORDER BY A" + Times(",A", 2000)),
            "An ORDER BY has at most 2000 columns, and this is one more (character 4026).");
}

TEST_P(Limits, OneGroupingColumnMoreIsRefusedAtItsPlace) {
  EXPECT_EQ(RefusalOf("SELECT A FROM N GROUP BY A" + Times(",A", 2000)),
            "A GROUP BY has at most 2000 columns, and this is one more (character 4026).");
}

TEST_P(Limits, OneDeclaredColumnMoreIsRefused) {
  std::string columns = "A0 Long";
  for (std::size_t i = 1; i < GetParam().most_columns; ++i) columns += ", A" + std::to_string(i) + " Long";
  EXPECT_EQ(RefusalOf("CREATE TABLE Wide (" + columns + ")"), "");
  EXPECT_THAT(RefusalOf("CREATE TABLE Wider (" + columns + ", B Long)"),
              testing::ContainsRegex("table.* " + std::to_string(GetParam().most_columns)));
}

TEST_P(Limits, SixtySelectsNestAsValues) {
  EXPECT_EQ(RefusalOf("SELECT " + Times("(SELECT ", 60) + "1" + Times(")", 60)), "");
}

TEST_P(Limits, TooManySelectsNestedAsValuesAreRefused) {
  if (!GetParam().limits_depth) GTEST_SKIP() << "this engine takes many more";
  EXPECT_EQ(RefusalOf("SELECT " + Times("(SELECT ", 150) + "1" + Times(")", 150)), kTooDeep);
}

TEST_P(Limits, SelectsNestBehindIn) {
  EXPECT_EQ(RefusalOf("SELECT A FROM N WHERE A" + Times(" IN (SELECT A FROM N WHERE A", 80) + "=1" + Times(")", 80)),
            "");
}

TEST_P(Limits, TooManySelectsNestedBehindInAreRefused) {
  if (!GetParam().limits_depth) GTEST_SKIP() << "this engine takes many more";
  EXPECT_EQ(RefusalOf("SELECT A FROM N WHERE A" + Times(" IN (SELECT A FROM N WHERE A", 150) + "=1" + Times(")", 150)),
            kTooDeep);
}

TEST_P(Limits, EightHundredOperatorsMakeAChain) {
  for (const char* link : {"+A", "&A", "/A", "=A"}) {
    EXPECT_EQ(RefusalOf("SELECT A" + Times(link, 800) + " FROM N"), "") << link;
  }
}

TEST_P(Limits, TooLongAChainIsRefused) {
  for (const char* link : {"+A", "&A", "/A", "=A"}) {
    EXPECT_NE(RefusalOf("SELECT A" + Times(link, 1100) + " FROM N"), "") << link;
  }
  if (GetParam().limits_depth) {
    EXPECT_EQ(RefusalOf("SELECT A" + Times("/A", 990) + " FROM N"), kTooDeep);
  }
}

TEST_P(Limits, ChainsOfAndAndOrHaveAnyLength) {
  EXPECT_EQ(RefusalOf("SELECT A FROM N WHERE A" + Times(" AND A", 40000)), "");
  EXPECT_EQ(RefusalOf("SELECT A FROM N WHERE A=1" + Times(" OR A=2", 20000)), "");
}

TEST_P(Limits, BracketsNestDeeply) {
  EXPECT_EQ(RefusalOf("SELECT " + Times("(", 200) + "1" + Times(")", 200)), "");
  EXPECT_NE(RefusalOf("SELECT " + Times("(", 201) + "1" + Times(")", 201)), "");
  EXPECT_NE(RefusalOf("SELECT " + Times("(", 10000) + "1" + Times(")", 10000)), "");
}

TEST_P(Limits, TextOfManyMegabytesIsALiteral) {
  EXPECT_EQ(Text("SELECT Len('" + std::string(std::size_t{16} << 20, 'x') + "')"), "16777216");
}

}  // namespace
}  // namespace zef::test
