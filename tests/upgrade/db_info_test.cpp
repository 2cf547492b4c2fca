#include "tests/upgrade/upgrade_fixture.h"

namespace zef::test {
namespace {

class DBInfo : public UpgradeTest {
 protected:
  DBInfo() { version = "before"; }
  bool Get() { return session->GetDBInfo(version, type); }

  std::string type = "before";
};

TEST_F(DBInfo, GivesVersionAndType) {
  ASSERT_TRUE(Get());
  EXPECT_EQ(version, "9.1.0");
  EXPECT_EQ(type, "Personal");
}

TEST_F(DBInfo, OnAnEmptyTableIsTrueAndLeavesBothArguments) {
  Run("DELETE * FROM _VersionInfo");
  EXPECT_TRUE(Get());
  EXPECT_EQ(version + " " + type, "before before");
}

TEST_F(DBInfo, OfANullTypeGivesTheEmptyText) {
  Run("UPDATE _VersionInfo SET VI_Type=Null");
  EXPECT_TRUE(Get());
  EXPECT_EQ(version + "/" + type, "9.1.0/");
}

TEST_F(DBInfo, OfANullVersionGivesTheEmptyText) {
  Run("UPDATE _VersionInfo SET VI_Version=Null");
  EXPECT_TRUE(Get());
  EXPECT_EQ(version + "/" + type, "/Personal");
}

TEST_F(DBInfo, LooksAtTheFirstRowOnly) {
  Run("INSERT INTO _VersionInfo (VI_Version,VI_Type) VALUES ('7','second')");
  EXPECT_TRUE(Get());
  EXPECT_EQ(version, "9.1.0");
}

TEST_F(DBInfo, ClearsTheErrorRecord) {
  LeaveAnOldError();
  EXPECT_TRUE(Get());
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(DBInfo, WithoutItsTableFailsAndIsRecorded) {
  Run("DROP TABLE _VersionInfo");
  EXPECT_FALSE(Get());
  EXPECT_EQ(session->GetErrorProcedure(), "GetDBInfo");
  EXPECT_EQ(session->GetErrorCode(), -2147217865);
  EXPECT_EQ(version + " " + type, "before before");
}

TEST_F(DBInfo, WithoutATypeColumnFailsWithTheVersionHandedOut) {
  Run("ALTER TABLE _VersionInfo DROP COLUMN VI_Type");
  EXPECT_FALSE(Get());
  EXPECT_EQ(session->GetErrorProcedure(), "GetDBInfo");
  EXPECT_EQ(session->GetErrorCode(), 3265);
  EXPECT_EQ(version + " " + type, "9.1.0 before");
}

TEST_F(DBInfo, SendsOneSelect) {
  EXPECT_TRUE(Get());
  EXPECT_EQ(Sent(), Texts{"SELECT * FROM _VersionInfo"});
}

}  // namespace
}  // namespace zef::test
