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
