#include "tests/platform/postgresql/server_test.h"

namespace zef::test {
namespace {

/// A table with many more rows than come in one portion.
class StreamingPostgreSQL : public ServerTest {
 protected:
  StreamingPostgreSQL() {
    Execute("CREATE TABLE Numbers (N Long NOT NULL PRIMARY KEY)");
    Execute("INSERT INTO Numbers (N) VALUES (0)");
    for (int n = 1; n < kRows; n *= 2) {
      Execute("INSERT INTO Numbers (N) SELECT N+" + std::to_string(n) + " FROM Numbers");
    }
  }
  static std::int64_t Sum(const Ref<Recordset>& rs) {
    std::int64_t sum = 0;
    for (; !rs->EndOfFile(); rs->MoveNext()) sum += ToLong(rs->ValueAt(0));
    return sum;
  }

  static constexpr int kRows = 2048;
  static constexpr std::int64_t kSum = std::int64_t{kRows} * (kRows - 1) / 2;
};

TEST_F(StreamingPostgreSQL, AllRowsComeInOneRoundTrip) {
  Execute("SELECT N FROM Numbers");
  std::int64_t sum = 0;
  EXPECT_EQ(TripsOf([&] { sum = Sum(Execute("SELECT N FROM Numbers")); }), 1);
  EXPECT_EQ(sum, kSum);
}

TEST_F(StreamingPostgreSQL, AnotherStatementRunsWhileRowsCome) {
  const Ref<Recordset> rs = Execute("SELECT N FROM Numbers");
  EXPECT_EQ(Text("SELECT Count(*) FROM Numbers"), std::to_string(kRows));
  EXPECT_EQ(Sum(rs), kSum);
}

TEST_F(StreamingPostgreSQL, TwoLongWalksGoOnSideBySide) {
  const Ref<Recordset> first = Execute("SELECT N FROM Numbers");
  const Ref<Recordset> second = Execute("SELECT N FROM Numbers");
  EXPECT_EQ(Sum(second), kSum);
  EXPECT_EQ(Sum(first), kSum);
}

TEST_F(StreamingPostgreSQL, AWalkThatIsGivenUpMayFailLaterAndNobodyIsTold) {
  Execute("SELECT 1/(N-2000) FROM Numbers");
  EXPECT_EQ(Text("SELECT Count(*) FROM Numbers"), std::to_string(kRows));
}

TEST_F(StreamingPostgreSQL, AWalkThatIsGivenUpAndFailsLaterLeavesTheTransactionUsable) {
  connection_->BeginTrans();
  Execute("UPDATE Numbers SET N=-1 WHERE N=0");
  Execute("SELECT 1/(N-2000) FROM Numbers");
  connection_->CommitTrans();
  EXPECT_EQ(Text("SELECT Min(N) FROM Numbers"), "-1");
}

TEST_F(StreamingPostgreSQL, AWalkIsGivenUpOnAConnectionThatWasLostMeanwhile) {
  const Ref<Recordset> rs = Execute("SELECT N FROM Numbers");
  database_.EndConnections();
  rs->Close();
  EXPECT_NE(NumberRaised([&] { Execute("SELECT N FROM Numbers"); }), 0);
}

TEST_F(StreamingPostgreSQL, AWalkThatIsGivenUpLeavesTheConnectionFree) {
  Execute("SELECT N FROM Numbers");
  EXPECT_EQ(Text("SELECT Count(*) FROM Numbers"), std::to_string(kRows));
}

TEST_F(StreamingPostgreSQL, ARowThatFailsLateLeavesTheTransactionUsable) {
  connection_->BeginTrans();
  Execute("UPDATE Numbers SET N=-1 WHERE N=0");
  const Ref<Recordset> rs = Execute("SELECT 1/(N-2000) FROM Numbers");
  EXPECT_EQ(NumberRaised([&] {
              while (!rs->EndOfFile()) rs->MoveNext();
            }),
            11);
  EXPECT_EQ(Text("SELECT Count(*) FROM Numbers WHERE N=-1"), "1");
  connection_->CommitTrans();
  EXPECT_EQ(Text("SELECT Count(*) FROM Numbers WHERE N=-1"), "1");
}

TEST_F(StreamingPostgreSQL, AFirstRowThatFailsLateLeavesTheTransactionUsable) {
  connection_->BeginTrans();
  const Ref<Recordset> rs = Execute("SELECT 1/(N-2000) FROM Numbers");
  EXPECT_EQ(NumberRaised([&] {
              while (!rs->EndOfFile()) rs->MoveNext();
            }),
            11);
  Execute("UPDATE Numbers SET N=-1 WHERE N=0");
  connection_->CommitTrans();
  EXPECT_EQ(Text("SELECT Count(*) FROM Numbers WHERE N=-1"), "1");
}

TEST_F(StreamingPostgreSQL, ARowThatFailsUnderANestedTransactionLeavesTheOuterOneUsable) {
  connection_->BeginTrans();
  Execute("UPDATE Numbers SET N=-1 WHERE N=0");
  const Ref<Recordset> rs = Execute("SELECT 1/(N-2000) FROM Numbers");
  connection_->BeginTrans();
  Execute("UPDATE Numbers SET N=-2 WHERE N=1");
  connection_->CommitTrans();
  connection_->CommitTrans();
  EXPECT_EQ(Text("SELECT Count(*) FROM Numbers WHERE N<0"), "2");
}

TEST_F(StreamingPostgreSQL, ARollbackWhileRowsComeKeepsThem) {
  connection_->BeginTrans();
  const Ref<Recordset> rs = Execute("SELECT N FROM Numbers");
  connection_->RollbackTrans();
  EXPECT_EQ(Sum(rs), kSum);
}

}  // namespace
}  // namespace zef::test
