#include <gmock/gmock.h>

#include "platform/engine.h"
#include "platform/recordset.h"
#include "tests/client/run_zef.h"
#include "tests/support/dump.h"
#include "tests/support/filled_database.h"

namespace zef::test {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

class ZefCopyDatabaseTest : public ZefTest {
 protected:
  Ref<Connection> Connect(const char* name, const std::string& rest = {}) const {
    auto connection = MakeRef<Connection>();
    connection->Open("Provider=SQLite;Data Source=" + File(name).string() + rest);
    return connection;
  }
  void Run(const char* statement) const { Connect("people.db")->Execute(statement); }
  bool Exists(const char* name) const { return std::filesystem::exists(std::filesystem::symlink_status(File(name))); }
  /// One row with values that are easily lost.
  void FillWithExtremes() const {
    Run("INSERT INTO Contacts (CNT_ID,CNT_LastName,CNT_FirstName,CNT_Notes,CNT_BirthDate,CNT_Anniversary) VALUES "
        "(2147483647,'Ωmega 😀','','It''s \"quoted\"',#0100-01-01 11:59:59 PM#,#9999-12-31 11:59:59 PM#)");
    Run("INSERT INTO Contacts (CNT_ID,CNT_FolderID,CNT_LastName,CNT_BirthDate) VALUES "
        "(-2147483648,Null,Null,#1899-12-29 6:00:00 AM#)");
    Run("INSERT INTO ViewedEvents (VE_EventID,VE_UserID,VE_Date) VALUES (1,1,#5/1/2024#)");
    Run("INSERT INTO ViewedEvents (VE_EventID,VE_UserID,VE_Date) VALUES (1,1,#5/1/2024#)");
    auto attachments = MakeRef<Recordset>();
    attachments->Open("Attachements", Connect("people.db"), adOpenForwardOnly, adLockOptimistic, adCmdTable);
    attachments->AddNew();
    attachments->Fields().Item("ATC_ID").SetValue(1);
    attachments->Fields().Item("ATC_Content").SetValue(Bytes{std::byte{0}, std::byte{255}});
    attachments->Update();
  }
};

TEST_F(ZefCopyDatabaseTest, CopyHoldsEveryValue) {
  FillWithExtremes();
  Printed({"copy-database", "people.db", "copy.db"});
  EXPECT_EQ(Dump(*Connect("copy.db")), Dump(*Connect("people.db")));
}

TEST_F(ZefCopyDatabaseTest, CopyOfAnOlderDatabaseHasTheOlderTables) {
  Zef({"create", "old.db", "--schema", "9.1"});
  FillOlderDatabase(*Connect("old.db"));
  Printed({"copy-database", "old.db", "copy.db"});
  EXPECT_EQ(KeptRows(*Connect("copy.db")), KeptRows(*Connect("old.db")));
  EXPECT_THAT(Printed({"upgrade", "copy.db"}), StartsWith("Upgraded copy.db from version 9.1.0 to 9.2.4."));
}

TEST_F(ZefCopyDatabaseTest, CopyOfAnUpgradedDatabaseIsTheSame) {
  Zef({"create", "old.db", "--schema", "9.1"});
  FillOlderDatabase(*Connect("old.db"));
  Zef({"upgrade", "old.db"});
  Printed({"copy-database", "old.db", "copy.db"});
  EXPECT_EQ(KeptRows(*Connect("copy.db")), KeptRows(*Connect("old.db")));
}

TEST_F(ZefCopyDatabaseTest, CopyServesEveryCommand) {
  Printed({"copy-database", "people.db", "copy.db"});
  EXPECT_EQ(Printed({"add", "task", "copy.db", "Pay", "--due", "2024-05-17"}),
            "Added task 1, 'Pay', to the folder 'Tasks'.\n");
  EXPECT_EQ(Printed({"folders", "copy.db"}), Printed({"folders", "people.db"}));
}

TEST_F(ZefCopyDatabaseTest, TellsTheRowsOfEveryTable) {
  const std::string printed = Printed({"copy-database", "people.db", "copy.db"});
  EXPECT_THAT(printed, HasSubstr("Folders            12\n"));
  EXPECT_THAT(printed, EndsWith("Copied to copy.db; every value was compared and is the same.\n"));
}

TEST_F(ZefCopyDatabaseTest, TellsTheRowsAsJson) {
  const std::string printed = Printed({"copy-database", "people.db", "copy.db", "--json"});
  EXPECT_THAT(printed, StartsWith("{\"file\": \"copy.db\", \"tables\": {\"Sequences\": 12, \"_VersionInfo\": 1, "));
}

TEST_F(ZefCopyDatabaseTest, CopyGetsItsOwnPassword) {
  Printed({"create", "safe.db", "--password", "old one"});
  Printed({"copy-database", "safe.db", "copy.db", "--password", "old one", "--new-password", "new one"});
  EXPECT_THAT(Printed({"info", "copy.db", "--password", "new one"}), HasSubstr("Encrypted    yes"));
  Printed({"copy-database", "copy.db", "open.db", "--password", "new one"});
  EXPECT_THAT(Printed({"info", "open.db"}), HasSubstr("Encrypted    no"));
}

TEST_F(ZefCopyDatabaseTest, BothSidesMayBeConnectionStrings) {
  const std::string empty = "Provider=SQLite;Data Source=" + File("empty.db").string();
  CreateDatabase(empty);
  EXPECT_THAT(Printed({"copy-database", "provider=SQLite;Data Source=people.db", empty}),
              EndsWith("Copied to the database; every value was compared and is the same.\n"));
  EXPECT_EQ(Dump(*Connect("empty.db")), Dump(*Connect("people.db")));
}

TEST_F(ZefCopyDatabaseTest, GlobalConnectionStringNamesTheSource) {
  Printed({"--connect", "Provider=SQLite;Data Source=people.db", "copy-database", "copy.db"});
  EXPECT_TRUE(Exists("copy.db"));
}

TEST_F(ZefCopyDatabaseTest, ExistingFileIsRefusedAndKept) {
  Zef({"create", "copy.db"});
  Zef({"add", "task", "copy.db", "Precious"});
  EXPECT_EQ(Complaint(1, {"copy-database", "people.db", "copy.db"}), "zef: 'copy.db' exists already.\n");
  EXPECT_EQ(Scalar(*Connect("copy.db"), "SELECT TSK_Name FROM Tasks"), "Precious");
}

TEST_F(ZefCopyDatabaseTest, DatabaseWithTablesIsRefusedAndKept) {
  Zef({"create", "copy.db"});
  const std::string before = Dump(*Connect("copy.db"));
  EXPECT_EQ(Complaint(1, {"copy-database", "people.db", "Provider=SQLite;Data Source=copy.db"}),
            "zef: The database is not empty: it has a table 'Sequences'.\n");
  EXPECT_EQ(Dump(*Connect("copy.db")), before);
}

TEST_F(ZefCopyDatabaseTest, CopyOntoItselfIsRefused) {
  EXPECT_EQ(Complaint(1, {"copy-database", "people.db", "people.db"}), "zef: 'people.db' exists already.\n");
}

TEST_F(ZefCopyDatabaseTest, ColumnWithoutAPlaceIsToldAndLeavesNothing) {
  Run("ALTER TABLE Contacts ADD COLUMN CNT_Shoes Long");
  EXPECT_EQ(Complaint(1, {"copy-database", "people.db", "copy.db"}),
            "zef: The table Contacts has a column CNT_Shoes, for which a new database has no place.\n");
  EXPECT_FALSE(Exists("copy.db"));
}

TEST_F(ZefCopyDatabaseTest, VersionBetweenIsRefused) {
  Run("UPDATE _VersionInfo SET VI_Version='9.2.2'");
  EXPECT_THAT(Complaint(1, {"copy-database", "people.db", "copy.db"}), HasSubstr("Upgrade it first."));
}

TEST_F(ZefCopyDatabaseTest, TableThatIsMissingIsToldAndLeavesNothing) {
  Run("DROP TABLE Notes");
  EXPECT_THAT(Complaint(1, {"copy-database", "people.db", "copy.db"}), HasSubstr("Notes"));
  EXPECT_FALSE(Exists("copy.db"));
}

TEST_F(ZefCopyDatabaseTest, MissingSourceIsTold) {
  EXPECT_THAT(Complaint(1, {"copy-database", "none.db", "copy.db"}), HasSubstr("none.db"));
  EXPECT_FALSE(Exists("copy.db"));
}

TEST_F(ZefCopyDatabaseTest, MissingTargetIsWrongUse) {
  EXPECT_EQ(Complaint(2, {"copy-database", "people.db"}), "zef: TO is missing. (See zef copy-database --help.)\n");
}

}  // namespace
}  // namespace zef::test
