#include "tests/platform/postgresql/server_test.h"

namespace zef::test {
namespace {

class LostConnectionPostgreSQL : public ServerTest {
 protected:
  LostConnectionPostgreSQL() { Execute("CREATE TABLE Numbers (N Long NOT NULL PRIMARY KEY)"); }
  void Lose() { database_.EndConnections(); }
};

TEST_F(LostConnectionPostgreSQL, IsToldInASentence) {
  Lose();
  const auto failure = Raised([&] { Execute("SELECT N FROM Numbers"); });
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->code(), FailureNumber::FileUnusable);
  EXPECT_EQ(failure->description(), "The connection to the server was lost; connect again.");
}

TEST_F(LostConnectionPostgreSQL, StaysLost) {
  Lose();
  EXPECT_NE(NumberRaised([&] { Execute("SELECT N FROM Numbers"); }), 0);
  EXPECT_NE(NumberRaised([&] { Execute("SELECT N FROM Numbers"); }), 0);
  EXPECT_NE(NumberRaised([&] { connection_->BeginTrans(); }), 0);
}

TEST_F(LostConnectionPostgreSQL, CanBeOpenedAgain) {
  Lose();
  EXPECT_NE(NumberRaised([&] { Execute("SELECT N FROM Numbers"); }), 0);
  connection_->Close();
  connection_->Open(database_.ConnectionString());
  EXPECT_EQ(Text("SELECT Count(*) FROM Numbers"), "0");
}

TEST_F(LostConnectionPostgreSQL, UndoesItsTransaction) {
  connection_->BeginTrans();
  Execute("INSERT INTO Numbers (N) VALUES (1)");
  Lose();
  EXPECT_NE(NumberRaised([&] { connection_->CommitTrans(); }), 0);
  connection_->RollbackTrans();
  EXPECT_EQ(Scalar(*Connect(), "SELECT Count(*) FROM Numbers"), "0");
}

}  // namespace
}  // namespace zef::test
