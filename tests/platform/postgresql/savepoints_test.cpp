#include "tests/platform/postgresql/server_test.h"

namespace zef::test {
namespace {

/// A statement needs a savepoint of its own only where going back to the last one would undo more than the statement.
class SavepointsPostgreSQL : public ServerTest {
 protected:
  SavepointsPostgreSQL() {
    Execute("CREATE TABLE Numbers (N Long NOT NULL PRIMARY KEY, Word Text(10))");
    for (const char* n : {"1", "2", "3"}) Write(n);
    connection_->BeginTrans();
  }
  void Write(const std::string& n) { Execute("INSERT INTO Numbers (N,Word) VALUES (" + n + ",'word')"); }
  void Fail() {
    EXPECT_EQ(NumberRaised([&] { Write("1"); }), static_cast<std::int32_t>(FailureNumber::ConstraintViolated));
  }
  void FailToRead() {
    EXPECT_NE(NumberRaised([&] { Execute("SELECT 1/(N-1) FROM Numbers"); }), 0);
  }
  /// Fails a write of another client at once if the row is locked.
  bool IsLocked(const std::string& n) {
    return database_.Ask("SELECT count(*) FROM (SELECT 1 FROM \"Numbers\" WHERE \"N\"=" + n +
                         " FOR UPDATE SKIP LOCKED) AS x") == "0";
  }
  std::string Rows() { return Scalar(*Connect(), "SELECT Count(*) FROM Numbers"); }
  Ref<Recordset> Locking(const std::string& n) {
    auto rs = MakeRef<Recordset>();
    rs->Open("SELECT Word FROM Numbers WHERE N=" + n, connection_, adOpenForwardOnly, adLockPessimistic);
    return rs;
  }
};

TEST_F(SavepointsPostgreSQL, AFailedFirstStatementLeavesTheTransactionUsable) {
  Fail();
  Write("4");
  connection_->CommitTrans();
  EXPECT_EQ(Rows(), "4");
}

TEST_F(SavepointsPostgreSQL, AFailureBehindASelectLeavesTheTransactionUsable) {
  Execute("SELECT * FROM Numbers");
  Fail();
  FailToRead();
  Write("4");
  connection_->RollbackTrans();
  EXPECT_EQ(Rows(), "3");
}

TEST_F(SavepointsPostgreSQL, AFailureKeepsWhatWasWrittenBefore) {
  Write("4");
  Execute("SELECT * FROM Numbers");
  Fail();
  FailToRead();
  Write("5");
  Fail();
  connection_->CommitTrans();
  EXPECT_EQ(Rows(), "5");
}

TEST_F(SavepointsPostgreSQL, AFailureInANestedTransactionKeepsWhatWasWrittenInIt) {
  Write("4");
  connection_->BeginTrans();
  Fail();
  Write("5");
  Fail();
  connection_->CommitTrans();
  connection_->CommitTrans();
  EXPECT_EQ(Rows(), "5");
}

TEST_F(SavepointsPostgreSQL, ARollbackOfANestedTransactionThatCameFirstKeepsTheOuterOne) {
  connection_->BeginTrans();
  Write("4");
  connection_->RollbackTrans();
  EXPECT_EQ(connection_->OpenedEngine().TransactionDepth(), 1);
  Write("5");
  connection_->CommitTrans();
  EXPECT_EQ(Rows(), "4");
}

TEST_F(SavepointsPostgreSQL, ARollbackOfANestedTransactionKeepsALockOfTheOuterOne) {
  const Ref<Recordset> locked = Locking("1");
  connection_->BeginTrans();
  Write("4");
  connection_->RollbackTrans();
  EXPECT_TRUE(IsLocked("1"));
}

TEST_F(SavepointsPostgreSQL, AFailureOfAnotherStatementKeepsALock) {
  const Ref<Recordset> locked = Locking("1");
  Fail();
  EXPECT_TRUE(IsLocked("1"));
}

/// The server keeps a list of its own for a row that several savepoints have marked; that is slow.
TEST_F(SavepointsPostgreSQL, ALockedRowIsWrittenUnderTheSavepointOfItsLock) {
  Write("4");
  connection_->BeginTrans();
  const Ref<Recordset> locked = Locking("1");
  locked->Fields().Item(0).SetValue(std::string("uno"));
  locked->Update();
  database_.Ask("CREATE EXTENSION pgrowlocks");
  EXPECT_EQ(database_.Ask("SELECT multi FROM pgrowlocks('\"Numbers\"')"), "f");
}

}  // namespace
}  // namespace zef::test
