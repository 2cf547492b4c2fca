#include "tests/platform/postgresql/server_test.h"

namespace zef::test {
namespace {

class RoundTripsPostgreSQL : public ServerTest {
 protected:
  RoundTripsPostgreSQL() {
    Execute("CREATE TABLE Numbers (N Long NOT NULL PRIMARY KEY, Word Text(10))");
    Execute("INSERT INTO Numbers (N,Word) VALUES (1,'one')");
    Execute("SELECT * FROM Numbers WHERE N=1");
    Execute("UPDATE Numbers SET Word='x' WHERE N=0");
    connection_->BeginTrans();
    Execute("SELECT * FROM Numbers WHERE N=1");  // another statement there: it locks the row
    connection_->CommitTrans();
  }
};

TEST_F(RoundTripsPostgreSQL, AKnownSelectTakesOne) {
  EXPECT_EQ(TripsOf([&] { Execute("SELECT * FROM Numbers WHERE N=2"); }), 1);
}

TEST_F(RoundTripsPostgreSQL, ASelectOfANewShapeTakesOne) {
  EXPECT_EQ(TripsOf([&] { Execute("SELECT Word FROM Numbers WHERE N<2"); }), 1);
}

TEST_F(RoundTripsPostgreSQL, ATableThatIsNotKnownTakesOneMore) {
  Execute("CREATE TABLE Words (Word Text(10))");
  Execute("SELECT * FROM Numbers");
  EXPECT_EQ(TripsOf([&] { Execute("SELECT * FROM Words"); }), 2);
}

TEST_F(RoundTripsPostgreSQL, ANewShapeOnChangedTablesTakesFourMore) {
  Connect()->Execute("ALTER TABLE Numbers ADD COLUMN Other Long");
  EXPECT_EQ(TripsOf([&] { Execute("SELECT Word FROM Numbers WHERE N<2"); }), 5);
}

TEST_F(RoundTripsPostgreSQL, ANewShapeOnChangedTablesLeavesTheTransactionUsable) {
  connection_->BeginTrans();
  Text("SELECT 1 AS One");
  Connect()->Execute("ALTER TABLE Numbers ADD COLUMN Other Long");
  Execute("UPDATE Numbers SET Word='uno',Other=1 WHERE N=1");
  connection_->CommitTrans();
  EXPECT_EQ(Text("SELECT Other FROM Numbers WHERE N=1"), "1");
}

TEST_F(RoundTripsPostgreSQL, AKnownChangeOutsideATransactionTakesOne) {
  EXPECT_EQ(TripsOf([&] { Execute("UPDATE Numbers SET Word='uno' WHERE N=1"); }), 1);
}

TEST_F(RoundTripsPostgreSQL, ATransactionTakesOneMoreThanItsStatements) {
  EXPECT_EQ(TripsOf([&] {
              connection_->BeginTrans();
              Execute("UPDATE Numbers SET Word='uno' WHERE N=1");
              Execute("UPDATE Numbers SET Word='due' WHERE N=2");
              connection_->CommitTrans();
            }),
            3);
}

TEST_F(RoundTripsPostgreSQL, ANestedTransactionTakesNone) {
  connection_->BeginTrans();
  EXPECT_EQ(TripsOf([&] {
              connection_->BeginTrans();
              Execute("UPDATE Numbers SET Word='uno' WHERE N=1");
              connection_->CommitTrans();
            }),
            1);
}

TEST_F(RoundTripsPostgreSQL, ATransactionWithoutAStatementTakesNone) {
  EXPECT_EQ(TripsOf([&] {
              connection_->BeginTrans();
              connection_->BeginTrans();
              connection_->RollbackTrans();
              connection_->CommitTrans();
            }),
            0);
}

TEST_F(RoundTripsPostgreSQL, ASequenceTakesThree) {
  const auto draw = [&] {
    connection_->BeginTrans();
    auto rs = MakeRef<Recordset>();
    rs->Open("SELECT N FROM Numbers WHERE N=1", connection_, adOpenForwardOnly, adLockPessimistic);
    rs->Fields().Item(0).SetValue(1);
    rs->Update();
    rs.reset();
    connection_->CommitTrans();
  };
  draw();
  EXPECT_EQ(TripsOf(draw), 3);
}

TEST_F(RoundTripsPostgreSQL, AFailedStatementInATransactionTakesOne) {
  connection_->BeginTrans();
  EXPECT_EQ(TripsOf([&] { NumberRaised([&] { Execute("INSERT INTO Numbers (N,Word) VALUES (1,'one')"); }); }), 1);
  EXPECT_EQ(TripsOf([&] { Execute("SELECT * FROM Numbers WHERE N=2"); }), 1);
}

}  // namespace
}  // namespace zef::test
