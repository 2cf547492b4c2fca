#include "tests/platform/conformance/backend.h"

namespace zef::test {
namespace {

class Connections : public Conformance {
 protected:
  Connections() { Execute("CREATE TABLE Numbers (N Long NOT NULL PRIMARY KEY, Word Text(10))"); }
};
INSTANTIATE_TEST_SUITE_P(Engines, Connections, testing::ValuesIn(Backends()), BackendName);

struct BadStatement {
  const char* name;
  const char* text;
  std::int32_t number;
};

constexpr BadStatement kBadStatements[] = {
    {"NoSuchTable", "SELECT * FROM Nothing", -2147217865},
    {"NoSuchTableToChange", "ALTER TABLE Nothing ADD COLUMN A Long", -2147217865},
    {"NoSuchColumn", "SELECT Colour FROM Numbers", -2147217904},
    {"NoSuchColumnToDrop", "ALTER TABLE Numbers DROP COLUMN Colour", -2147217904},
    {"NoStatement", "PLEASE DO", -2147217900},
    {"EmptyStatement", "", -2147217900},
    {"UnclosedText", "SELECT 'abc", -2147217900},
    {"UnclosedBracket", "SELECT (1", -2147217900},
    {"TwoStatements", "DELETE FROM Numbers; DELETE FROM Numbers", -2147217900},
    {"UnknownFunction", "SELECT load_extension('x')", -2147217900},
    {"TableExists", "CREATE TABLE NUMBERS (A Long)", -2147217857},
    {"ColumnExists", "ALTER TABLE Numbers ADD COLUMN word Long", -2147217858},
    {"KeyIsNull", "INSERT INTO Numbers (Word) VALUES ('x')", -2147217873},
    {"DivisionByZero", "SELECT 1/0", 11},
};

TEST_P(Connections, TellEachKindOfBadStatementByItsNumber) {
  for (const BadStatement& bad : kBadStatements) EXPECT_EQ(FailureOf(bad.text), bad.number) << bad.name;
}

TEST_P(Connections, EnterProviderFailuresIntoTheirErrors) {
  FailureOf("SELECT * FROM Nothing");
  ASSERT_EQ(connection_->Errors().Count(), 1);
  EXPECT_EQ(connection_->Errors().Item(0).Number, -2147217865);
  EXPECT_FALSE(connection_->Errors().Item(0).Description.empty());
}

TEST_P(Connections, KeepTheirErrorsThroughASuccess) {
  FailureOf("SELECT * FROM Nothing");
  Execute("SELECT * FROM Numbers");
  EXPECT_EQ(connection_->Errors().Count(), 1);
}

TEST_P(Connections, ReplaceOldErrorsByANewOne) {
  FailureOf("SELECT * FROM Nothing");
  FailureOf("SELECT Colour FROM Numbers");
  ASSERT_EQ(connection_->Errors().Count(), 1);
  EXPECT_EQ(connection_->Errors().Item(0).Number, -2147217904);
}

TEST_P(Connections, KeepRunTimeFailuresOutOfTheirErrors) {
  const Ref<Recordset> rs = Execute("SELECT * FROM Numbers");
  EXPECT_THROW(rs->MoveNext(), RunTimeError);
  EXPECT_EQ(connection_->Errors().Count(), 0);
}

TEST_P(Connections, EnterFailuresInsideAStatementIntoTheirErrors) {
  FailureOf("SELECT 1/0");
  ASSERT_EQ(connection_->Errors().Count(), 1);
  EXPECT_EQ(connection_->Errors().Item(0).Number, 11);
}

TEST_P(Connections, RefuseAnErrorThatIsNotThere) { EXPECT_THROW(connection_->Errors().Item(0), RunTimeError); }

TEST_P(Connections, NeverShowTheValuesOfAStatement) {
  FailureOf("INSERT INTO Numbers (N,Word) VALUES ('my secret','x')");
  EXPECT_EQ(connection_->Errors().Item(0).Description.find("secret"), std::string::npos);
  FailureOf("SELECT * FROM Numbers WHERE 'my secret' 5");
  EXPECT_EQ(connection_->Errors().Item(0).Description.find("secret"), std::string::npos);
}

TEST_P(Connections, RefuseEverythingOnceClosed) {
  connection_->Close();
  EXPECT_FALSE(connection_->IsOpen());
  EXPECT_THROW(connection_->Close(), RunTimeError);
  EXPECT_THROW(connection_->BeginTrans(), RunTimeError);
  EXPECT_EQ(FailureOf("SELECT 1"), 3704);
}

TEST_P(Connections, NoticeAColumnThatAnotherConnectionAdded) {
  Execute("INSERT INTO Numbers (N) VALUES (1)");
  EXPECT_EQ(Execute("SELECT * FROM Numbers")->Fields().Count(), 2);
  Connect()->Execute("ALTER TABLE Numbers ADD COLUMN Extra Long");
  EXPECT_EQ(Execute("SELECT * FROM Numbers")->Fields().Count(), 3);
}

TEST_P(Connections, NoticeAColumnThatAnotherConnectionMadeNarrower) {
  const std::string insert = "INSERT INTO Numbers (N,Word) VALUES (1,'ten chars.')";
  Execute(insert);
  Connect()->Execute("DELETE FROM Numbers");
  Connect()->Execute("ALTER TABLE Numbers ALTER COLUMN Word Text(5)");
  EXPECT_EQ(FailureOf(insert), -2147217833);
  EXPECT_EQ(Count(*connection_, "Numbers"), 0);
}

TEST_P(Connections, NoticeAColumnThatAnotherConnectionMadeWider) {
  Execute("INSERT INTO Numbers (N,Word) VALUES (1,'short')");
  Connect()->Execute("ALTER TABLE Numbers ALTER COLUMN Word Text(20)");
  EXPECT_EQ(FailureOf("INSERT INTO Numbers (N,Word) VALUES (2,'more than ten chars')"), 0);
}

TEST_P(Connections, SortGroupsByAnAggregate) {
  Execute("INSERT INTO Numbers (N,Word) VALUES (1,'a')");
  Execute("INSERT INTO Numbers (N,Word) VALUES (2,'b')");
  Execute("INSERT INTO Numbers (N,Word) VALUES (3,'b')");
  EXPECT_EQ(Text("SELECT Word FROM Numbers GROUP BY Word ORDER BY Count(*) DESC"), "b");
}

TEST_P(Connections, NoticeATableThatAnotherConnectionDropped) {
  Execute("SELECT * FROM Numbers");
  Connect()->Execute("DROP TABLE Numbers");
  EXPECT_EQ(FailureOf("SELECT * FROM Numbers"), -2147217865);
}

TEST_P(Connections, ServeManyMoreShapesThanTheyKeep) {
  Execute("INSERT INTO Numbers (N) VALUES (1)");
  for (int i = 0; i < 1000; ++i) {
    std::string columns = "N";
    for (int bit = 0; bit < 10; ++bit) columns += (i >> bit & 1) != 0 ? ",N" : ",Word";
    EXPECT_EQ(Text("SELECT " + columns + " FROM Numbers"), "1");
  }
}

}  // namespace
}  // namespace zef::test
