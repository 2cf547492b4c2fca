#include "tests/platform/postgresql/server_test.h"

namespace zef::test {
namespace {

/// A connection that keeps nothing from one transaction to the next, as behind a pooler that gives each transaction
/// another connection to the server.
class TransactionPoolingPostgreSQL : public ServerTest {
 protected:
  TransactionPoolingPostgreSQL() {
    Execute("CREATE TABLE Numbers (N Long NOT NULL PRIMARY KEY, Word Text(10))");
    Execute("INSERT INTO Numbers (N,Word) VALUES (1,'one')");
    database_.Ask("CREATE VIEW \"Settings\" AS SELECT name AS \"Name\", setting AS \"Setting\" FROM pg_settings");
    database_.Ask("CREATE VIEW \"Prepared\" AS SELECT statement AS \"Statement\" FROM pg_prepared_statements");
    plain_ = connection_;
    connection_ = MakeRef<Connection>();
    connection_->Open(database_.ConnectionString() + ";Transaction Pooling=Yes");
  }
  std::string Setting(const std::string& name) {
    return Text("SELECT Setting FROM Settings WHERE Name='" + name + "'");
  }
  std::string Prepared() { return Text("SELECT Count(*) FROM Prepared WHERE Statement LIKE '%Numbers%'"); }

  Ref<Connection> plain_;
};

TEST_F(TransactionPoolingPostgreSQL, IsYesOrNo) {
  for (const char* no : {"No", "false"}) Connection().Open(database_.ConnectionString() + ";transaction pooling=" + no);
  EXPECT_EQ(NumberRaised([&] { Connection().Open(database_.ConnectionString() + ";Transaction Pooling=perhaps"); }),
            static_cast<std::int32_t>(FailureNumber::StatementError));
}

TEST_F(TransactionPoolingPostgreSQL, LeavesNoPreparedStatements) {
  for (int i = 0; i < 3; ++i) EXPECT_EQ(Text("SELECT Word FROM Numbers WHERE N=1"), "one");
  EXPECT_EQ(Prepared(), "0");
}

TEST_F(TransactionPoolingPostgreSQL, SetsWhatItNeedsForEachStatement) {
  EXPECT_EQ(Setting("lock_timeout"), "5000");
  EXPECT_EQ(Setting("lock_timeout"), "5000");
}

TEST_F(TransactionPoolingPostgreSQL, SetsWhatItNeedsForEachTransaction) {
  connection_->BeginTrans();
  Execute("UPDATE Numbers SET Word='uno' WHERE N=1");
  EXPECT_EQ(Setting("lock_timeout"), "5000");
  connection_->CommitTrans();
}

TEST_F(TransactionPoolingPostgreSQL, SetsItAgainWhereAFailureHasBegunTheTransactionAnew) {
  connection_->BeginTrans();
  EXPECT_NE(NumberRaised([&] { Execute("INSERT INTO Numbers (N,Word) VALUES (1,'one')"); }), 0);
  EXPECT_EQ(Setting("lock_timeout"), "5000");
  connection_->CommitTrans();
}

TEST_F(TransactionPoolingPostgreSQL, TakesARoundTripAStatementStill) {
  Execute("UPDATE Numbers SET Word='uno' WHERE N=1");
  EXPECT_EQ(TripsOf([&] {
              connection_->BeginTrans();
              Execute("UPDATE Numbers SET Word='due' WHERE N=1");
              connection_->CommitTrans();
            }),
            2);
}

TEST_F(TransactionPoolingPostgreSQL, SeesAColumnThatATableHasGotMeanwhile) {
  const auto columns = [&] { return Execute("SELECT * FROM Numbers")->Fields().Count(); };
  EXPECT_EQ(columns(), 2);
  plain_->Execute("ALTER TABLE Numbers ADD COLUMN Other Long");
  EXPECT_EQ(columns(), 3);
}

TEST_F(TransactionPoolingPostgreSQL, WritesRecordSetsOfATableThatHasGotAColumnMeanwhile) {
  const auto rename = [&](const std::string& word) {
    auto rs = MakeRef<Recordset>();
    rs->Open("SELECT * FROM Numbers", connection_, adOpenStatic, adLockOptimistic);
    rs->Fields().Item("Word").SetValue(word);
    rs->Update();
  };
  rename("uno");
  plain_->Execute("ALTER TABLE Numbers ADD COLUMN Other Long");
  rename("eins");
  EXPECT_EQ(Text("SELECT Word FROM Numbers"), "eins");
}

}  // namespace
}  // namespace zef::test
