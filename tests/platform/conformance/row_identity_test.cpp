#include <algorithm>

#include "tests/platform/conformance/backend.h"
#include "tests/support/raised.h"

namespace zef::test {
namespace {

/// Tables without a key, some of whose columns bear names that an engine has for the identity of a row. Their values
/// run against the order of the rows.
class RowIdentities : public Conformance {
 protected:
  void MakeTable(const std::string& columns) {
    Execute("CREATE TABLE T (V Long, " + columns + ")");
    Execute("CREATE TABLE U (W Long)");
    Execute("INSERT INTO U VALUES (20)");
    const auto count = static_cast<std::size_t>(std::count(columns.begin(), columns.end(), ',')) + 1;
    for (int v = 1; v <= 3; ++v) {
      std::string values = std::to_string(v * 10);
      for (std::size_t i = 0; i < count; ++i) values += "," + std::to_string(4 - v);
      Execute("INSERT INTO T VALUES (" + values + ")");
    }
  }
  void UpdateThroughRecordset() {
    const auto rs = MakeRef<Recordset>();
    rs->Open("SELECT V FROM T WHERE V=10", connection_, adOpenStatic, adLockOptimistic);
    rs->Fields().Item(0).SetValue(std::int32_t{11});
    rs->Update();
  }
};

INSTANTIATE_TEST_SUITE_P(Engines, RowIdentities, testing::ValuesIn(Backends()), BackendName);

TEST_P(RowIdentities, JoinedUpdateOfATableWithAColumnRowidChangesTheRightRow) {
  MakeTable("rowid Long");
  Execute("UPDATE T INNER JOIN U ON T.V=U.W SET T.V=21");
  EXPECT_EQ(Rows("SELECT V FROM T ORDER BY V"), "10; 21; 30");
}

TEST_P(RowIdentities, BracketedUpdateOfATableWithAColumnRowidChangesTheRightRow) {
  MakeTable("RowID Long");
  Execute("UPDATE U INNER JOIN (T INNER JOIN U AS X ON T.V=X.W) ON T.V=U.W SET T.V=T.RowID");
  EXPECT_EQ(Rows("SELECT V FROM T ORDER BY V"), "2; 10; 30");
}

TEST_P(RowIdentities, JoinedDeleteFromATableWithAColumnRowidDeletesTheRightRow) {
  MakeTable("rowid Long, [_rowid_] Long");
  Execute("DELETE T.* FROM T INNER JOIN U ON T.V=U.W WHERE W=20");
  EXPECT_EQ(Rows("SELECT V FROM T ORDER BY V"), "10; 30");
}

TEST_P(RowIdentities, RecordsetOfATableWithAColumnRowidWritesTheRightRow) {
  MakeTable("rowid Long");
  UpdateThroughRecordset();
  EXPECT_EQ(Rows("SELECT V FROM T ORDER BY V"), "11; 20; 30");
}

TEST_P(RowIdentities, TableWithAllTheNamesIsRead) {
  MakeTable("rowid Long, [_rowid_] Long, oid Long");
  EXPECT_EQ(Rows("SELECT oid FROM T WHERE V=10"), "3");
}

TEST_P(RowIdentities, TableWithAllTheNamesIsUpdatedAlone) {
  MakeTable("rowid Long, [_rowid_] Long, oid Long");
  Execute("UPDATE T SET V=11 WHERE oid=3");
  EXPECT_EQ(Rows("SELECT V FROM T ORDER BY V"), "11; 20; 30");
}

TEST_P(RowIdentities, TableWithAllTheNamesIsNotUpdatedJoined) {
  if (!GetParam().identity_has_names) GTEST_SKIP() << "no column takes the identity's name here";
  MakeTable("rowid Long, [_rowid_] Long, oid Long");
  EXPECT_EQ(FailureOf("UPDATE T INNER JOIN U ON T.V=U.W SET T.V=21"), -2147217900);
}

TEST_P(RowIdentities, TableWithAllTheNamesIsNotWrittenThroughARecordset) {
  if (!GetParam().identity_has_names) GTEST_SKIP() << "no column takes the identity's name here";
  MakeTable("rowid Long, [_rowid_] Long, oid Long");
  EXPECT_EQ(NumberRaised([&] { UpdateThroughRecordset(); }), -2147467259);
}

TEST_P(RowIdentities, NameOfTheIdentityIsUnknownToClients) {
  MakeTable("N Long");
  for (const char* name : {"rowid", "_rowid_", "oid", "[rowid]", "T.rowid"}) {
    EXPECT_EQ(FailureOf(std::string("SELECT ") + name + " FROM T"), -2147217904) << name;
  }
}

TEST_P(RowIdentities, NameOfTheIdentityIsUnknownBesideAColumnOfAnotherTable) {
  MakeTable("N Long");
  Execute("CREATE TABLE R (rowid Long)");
  Execute("INSERT INTO R VALUES (7)");
  EXPECT_EQ(Text("SELECT rowid FROM T, R"), "7");
}

}  // namespace
}  // namespace zef::test
