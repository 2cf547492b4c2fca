#include <gmock/gmock.h>

#include <fstream>

#include "platform/recordset.h"
#include "tests/client/run_zef.h"
#include "tests/support/dump.h"
#include "tests/support/filled_database.h"

namespace zef::test {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

/// A filled database "old.db" of version 9.1, beside the new one.
class ZefUpgradeTest : public ZefTest {
 protected:
  ZefUpgradeTest() {
    Zef({"create", "old.db", "--schema", "9.1"});
    FillOlderDatabase(*Connect("old.db"));
  }
  Ref<Connection> Connect(const char* name) const {
    auto connection = MakeRef<Connection>();
    connection->Open("Provider=SQLite;Data Source=" + File(name).string());
    return connection;
  }
  void Run(const char* statement) const { Connect("old.db")->Execute(statement); }
  std::string Old(const std::string& select) const { return Scalar(*Connect("old.db"), select); }
  std::string Version() const { return Old("SELECT VI_Version FROM _VersionInfo"); }
  bool Exists(const char* name) const { return std::filesystem::exists(std::filesystem::symlink_status(File(name))); }
};

TEST_F(ZefUpgradeTest, TellsWhatItDid) {
  EXPECT_EQ(Printed({"upgrade", "old.db"}),
            "Upgraded old.db from version 9.1.0 to 9.2.4. Steps: 9.2.1, 9.2.2, 9.2.3, 9.2.4.\n"
            "Added an index that it lacked: IX_Events_LinkID.\n"
            "As it was before it stands in old.db.backup.\n");
}

TEST_F(ZefUpgradeTest, TellsWhatItDidAsJson) {
  EXPECT_EQ(
      Printed({"upgrade", "old.db", "--json"}),
      "{\"file\": \"old.db\", \"from\": \"9.1.0\", \"to\": \"9.2.4\", \"steps\": [\"9.2.1\", \"9.2.2\", \"9.2.3\", "
      "\"9.2.4\"], \"indexes\": [\"IX_Events_LinkID\"], \"backup\": \"old.db.backup\"}\n");
}

TEST_F(ZefUpgradeTest, KeepsEveryRow) {
  const std::string before = KeptRows(*Connect("old.db"));
  Printed({"upgrade", "old.db"});
  EXPECT_EQ(Version(), "9.2.4");
  EXPECT_EQ(KeptRows(*Connect("old.db")), before);
}

TEST_F(ZefUpgradeTest, LetsTheOtherCommandsWork) {
  Run("UPDATE Sequences SET SEQ_Value=100");
  Printed({"upgrade", "old.db"});
  EXPECT_THAT(Printed({"tasks", "old.db"}), HasSubstr("O'Neill's"));
  Printed({"add", "task", "old.db", "Pay", "--due", "2024-05-17"});
}

TEST_F(ZefUpgradeTest, ShowsItsProgressOnATerminalOnly) {
  EXPECT_THAT(ShownOnTerminal(folder(), {"upgrade", "old.db"}),
              AllOf(HasSubstr("Copying the database"), HasSubstr("Upgrading to 9.2.1")));
}

// ---- the copy

TEST_F(ZefUpgradeTest, CopyIsTheDatabaseAsItWas) {
  const std::string before = Dump(*Connect("old.db"));
  Printed({"upgrade", "old.db"});
  EXPECT_EQ(Dump(*Connect("old.db.backup")), before);
  EXPECT_THAT(Printed({"info", "old.db.backup"}), HasSubstr("9.1.0"));
}

TEST_F(ZefUpgradeTest, CopyIsPrivateToTheUserAndAllThatIsLeft) {
  Printed({"upgrade", "old.db"});
  EXPECT_EQ(std::filesystem::status(File("old.db.backup")).permissions(),
            std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder()), std::filesystem::directory_iterator()), 3);
}

TEST_F(ZefUpgradeTest, CopyTakesTheNextFreeName) {
  std::ofstream(File("old.db.backup")) << "mine";
  std::filesystem::create_symlink("nowhere", File("old.db.backup.2"));
  EXPECT_THAT(Printed({"upgrade", "old.db"}), HasSubstr("it stands in old.db.backup.3.\n"));
  EXPECT_EQ(std::filesystem::file_size(File("old.db.backup")), 4u);
  EXPECT_FALSE(Exists("nowhere"));
}

TEST_F(ZefUpgradeTest, CopyCanBeUpgradedItself) {
  Printed({"upgrade", "old.db"});
  Printed({"upgrade", "old.db.backup"});
  EXPECT_EQ(KeptRows(*Connect("old.db.backup")), KeptRows(*Connect("old.db")));
}

// ---- where it begins

TEST_F(ZefUpgradeTest, OfADatabaseThatIsUpToDateSaysSoAndMakesNoCopy) {
  EXPECT_EQ(Printed({"upgrade", "people.db"}), "people.db has version 9.2.4 already.\n");
  EXPECT_FALSE(Exists("people.db.backup"));
}

TEST_F(ZefUpgradeTest, OfADatabaseThatIsUpToDateSaysSoAsJson) {
  EXPECT_EQ(Printed({"upgrade", "people.db", "--json"}),
            "{\"file\": \"people.db\", \"from\": \"9.2.4\", \"to\": \"9.2.4\", \"steps\": [], \"indexes\": [], "
            "\"backup\": null}\n");
}

TEST_F(ZefUpgradeTest, TwiceChangesNothingTheSecondTime) {
  Printed({"upgrade", "old.db"});
  const std::string once = Dump(*Connect("old.db"));
  EXPECT_EQ(Printed({"upgrade", "old.db"}), "old.db has version 9.2.4 already.\n");
  EXPECT_EQ(Dump(*Connect("old.db")), once);
  EXPECT_FALSE(Exists("old.db.backup.2"));
}

TEST_F(ZefUpgradeTest, GoesOnFromAVersionInBetween) {
  Printed({"upgrade", "old.db"});
  Run("UPDATE _VersionInfo SET VI_Version='9.2.2'");
  EXPECT_THAT(Printed({"upgrade", "old.db"}), StartsWith("Upgraded old.db from version 9.2.2 to 9.2.4. Steps: 9.2.3, "
                                                         "9.2.4.\nAs it was"));
}

TEST_F(ZefUpgradeTest, BeginsFromAnyVersionOf91) {
  Run("UPDATE _VersionInfo SET VI_Version='9.1.17 beta'");
  EXPECT_THAT(Printed({"upgrade", "old.db"}), StartsWith("Upgraded old.db from version 9.1.17 beta to 9.2.4."));
}

class ZefUnknownVersionTest : public ZefUpgradeTest, public testing::WithParamInterface<const char*> {};
INSTANTIATE_TEST_SUITE_P(Versions, ZefUnknownVersionTest, testing::Values("9.3", "9.1", "8.0", "9.2.5", "9.2.40"));

TEST_P(ZefUnknownVersionTest, IsRefusedAndLeftAsItIs) {
  Run(("UPDATE _VersionInfo SET VI_Version='" + std::string(GetParam()) + "'").c_str());
  const std::string before = Dump(*Connect("old.db"));
  EXPECT_EQ(Complaint(1, {"upgrade", "old.db"}),
            "zef: The database has version '" + std::string(GetParam()) + "', from which no way leads to 9.2.4.\n");
  EXPECT_EQ(Dump(*Connect("old.db")), before);
  EXPECT_FALSE(Exists("old.db.backup"));
}

TEST_F(ZefUpgradeTest, OfADatabaseWithoutAVersionIsRefused) {
  Run("DELETE * FROM _VersionInfo");
  EXPECT_EQ(Complaint(1, {"upgrade", "old.db"}), "zef: 'old.db' is a database, but none of zef's.\n");
}

// ---- indexes

TEST_F(ZefUpgradeTest, AddsOfEachMissingIndexWhatANewDatabaseHas) {
  Run("DROP INDEX IX_Contacts_Phone ON Contacts");
  EXPECT_THAT(Printed({"upgrade", "old.db"}),
              HasSubstr("Added indexes that it lacked: IX_Events_LinkID, IX_Contacts_Phone.\n"));
}

TEST_F(ZefUpgradeTest, AddsAMissingIndexToADatabaseThatIsUpToDateWithoutACopy) {
  Connect("people.db")->Execute("DROP INDEX IX_Events_LinkID ON Events");
  EXPECT_EQ(Printed({"upgrade", "people.db"}),
            "people.db has version 9.2.4 already.\nAdded an index that it lacked: IX_Events_LinkID.\n");
  EXPECT_FALSE(Exists("people.db.backup"));
  EXPECT_EQ(Printed({"upgrade", "people.db"}), "people.db has version 9.2.4 already.\n");
}

// ---- failures

/// One that lacks a folder of the system, without which the first step cannot go to its end.
class ZefFailedUpgradeTest : public ZefUpgradeTest {
 protected:
  ZefFailedUpgradeTest() { Run("DELETE * FROM Folders WHERE FLD_Name='Calendar'"); }
};

TEST_F(ZefFailedUpgradeTest, TellsTheReasonAndWhereTheCopyIs) {
  EXPECT_EQ(Complaint(1, {"upgrade", "old.db"}),
            "zef: Cannot find Calendar folder. The database is as it was before; the copy made of it stays as "
            "'old.db.backup'.\n");
  EXPECT_TRUE(Exists("old.db.backup"));
}

TEST_F(ZefFailedUpgradeTest, LeavesTheDatabaseAsItWas) {
  const std::string before = Dump(*Connect("old.db"));
  Complaint(1, {"upgrade", "old.db"});
  EXPECT_EQ(Dump(*Connect("old.db")), before);
  EXPECT_EQ(Old("SELECT TSK_PriorityID FROM Tasks WHERE TSK_ID=1"), "3");
  EXPECT_EQ(Version(), "9.1.0");
}

TEST_F(ZefFailedUpgradeTest, SucceedsOnceTheReasonIsGone) {
  Complaint(1, {"upgrade", "old.db"});
  Run("INSERT INTO Folders (FLD_ID,FLD_ParentID,FLD_Options,FLD_Name,FLD_Type) VALUES (99,0,0,'Calendar',4)");
  EXPECT_THAT(Printed({"upgrade", "old.db"}), HasSubstr("old.db.backup.2"));
}

TEST_F(ZefUpgradeTest, WordTooManyIsWrongUse) {
  EXPECT_THAT(Complaint(2, {"upgrade", "old.db", "9.2.4"}), HasSubstr("'9.2.4' is not expected here."));
}

#ifndef ZEF_SYSTEM_SQLITE

TEST_F(ZefTest, UpgradeOfAnEncryptedDatabaseKeepsThePasswordInTheCopyToo) {
  Zef({"create", "secret.db", "--schema", "9.1", "--password", "p'w\"d"});
  Printed({"upgrade", "secret.db", "--password", "p'w\"d"});
  EXPECT_THAT(Printed({"info", "secret.db", "--password", "p'w\"d"}), HasSubstr("9.2.4"));
  EXPECT_THAT(Printed({"info", "secret.db.backup", "--password", "p'w\"d"}), HasSubstr("9.1.0"));
  EXPECT_THAT(Complaint(1, {"info", "secret.db.backup"}), HasSubstr("The database is protected"));
}

TEST_F(ZefTest, UpgradeWithAWrongPasswordIsRefusedAndMakesNoCopy) {
  Zef({"create", "secret.db", "--schema", "9.1", "--password", "right"});
  EXPECT_EQ(Complaint(1, {"upgrade", "secret.db", "--password", "wrong"}),
            "zef: The password of the database is wrong.\n");
  EXPECT_FALSE(std::filesystem::exists(File("secret.db.backup")));
}

#endif

}  // namespace
}  // namespace zef::test
