#include "tests/upgrade/upgrade_fixture.h"

namespace zef::test {
namespace {

/// The three steps behind 9.2.1.
class SmallUpgrades : public UpgradeTest {
 protected:
  SmallUpgrades() {
    EXPECT_TRUE(To921());
    Forget();
  }
  void ExpectOldErrorReadable() { EXPECT_EQ(session->GetEntireErrorDesc(), "[Earlier] Error: 77 - an old error"); }
};

using Upgrade922 = SmallUpgrades;
using Upgrade923 = SmallUpgrades;
using Upgrade924 = SmallUpgrades;

TEST_F(Upgrade922, SendsTheseStatements) {
  ASSERT_TRUE(To922());
  const Texts sent = Sent();
  ASSERT_EQ(sent.size(), 9u);
  EXPECT_EQ((Texts(sent.begin(), sent.begin() + 6)),
            (Texts{"ALTER TABLE CONTACTS ALTER COLUMN CNT_Phone TEXT(32)",
                   "ALTER TABLE CONTACTS ALTER COLUMN CNT_MobilePhone TEXT(32)",
                   "ALTER TABLE CONTACTS ALTER COLUMN CNT_WorkPhone TEXT(32)",
                   "ALTER TABLE CONTACTS ALTER COLUMN CNT_WorkFax TEXT(32)",
                   "SELECT FLD_ID FROM Folders WHERE FLD_Protected = 1 AND FLD_Name='All Tasks'",
                   "SELECT FLD_ID FROM Folders WHERE FLD_Protected = 1 AND FLD_Name='Tasks'"}));
  EXPECT_EQ(sent.back(), "UPDATE _VersionInfo SET VI_Version = '9.2.2'");
}

TEST_F(Upgrade922, StampsTheDatabaseAndHandsOutTheVersion) {
  ASSERT_TRUE(To922());
  EXPECT_EQ(version + " " + StoredVersion(), "9.2.2 9.2.2");
}

TEST_F(Upgrade922, DoesNotReadTheVersion) {
  version = "anything";
  ASSERT_TRUE(To922());
  EXPECT_EQ(version, "9.2.2");
}

TEST_F(Upgrade922, WithAllTasksInPlaceDoesNotLookForTasks) {
  ASSERT_TRUE(To922());
  Forget();
  ASSERT_TRUE(To922());
  const Texts sent = SentInAll();
  ASSERT_EQ(sent.size(), 6u);
  EXPECT_EQ((Texts(sent.begin() + 4, sent.end())),
            (Texts{"SELECT FLD_ID FROM Folders WHERE FLD_Protected = 1 AND FLD_Name='All Tasks'",
                   "UPDATE _VersionInfo SET VI_Version = '9.2.2'"}));
}

TEST_F(Upgrade922, LeavesAnOlderErrorReadableWhenItCreatesNoFolder) {
  ASSERT_TRUE(To922());
  LeaveAnOldError();
  ASSERT_TRUE(To922());
  ExpectOldErrorReadable();
}

TEST_F(Upgrade922, LetsAllFourNumbersHold32Characters) {
  Run("INSERT INTO Contacts (CNT_ID,CNT_Phone) VALUES (1,'555')");
  ASSERT_TRUE(To922());
  for (const char* column : {"CNT_Phone", "CNT_MobilePhone", "CNT_WorkPhone", "CNT_WorkFax"}) {
    const std::string set = "UPDATE Contacts SET " + std::string(column) + "='";
    Run(set + std::string(32, '5') + "'");
    EXPECT_THROW(Run(set + std::string(33, '5') + "'"), RunTimeError) << column;
  }
}

TEST_F(Upgrade922, RefusesANumberThatDoesNotFitAndKeepsIt) {
  Run("ALTER TABLE Contacts ALTER COLUMN CNT_Phone Text(64)");
  Run("INSERT INTO Contacts (CNT_ID,CNT_Phone) VALUES (1,'" + std::string(33, '5') + "')");
  EXPECT_FALSE(To922());
  EXPECT_EQ(session->GetErrorProcedure(), "UpgradeDBToVersion9_2_2");
  EXPECT_EQ(session->GetErrorCode(), -2147217833);
  EXPECT_EQ(Stored("SELECT CNT_Phone FROM Contacts"), std::string(33, '5'));
  EXPECT_EQ(version + " " + StoredVersion(), "9.2.1 9.2.1");
}

TEST_F(Upgrade922, CreatesAllTasks) {
  ASSERT_TRUE(To922());
  EXPECT_EQ(Place("All Tasks"), "All Tasks in Tasks");
  EXPECT_EQ(Rows("Folders WHERE FLD_Name='All Tasks' AND FLD_Description='All Tasks' AND FLD_Type=2"), 1);
}

TEST_F(Upgrade922, TwiceCreatesNoSecondAllTasks) {
  ASSERT_TRUE(To922());
  ASSERT_TRUE(To922());
  EXPECT_EQ(Rows("Folders WHERE FLD_Name='All Tasks'"), 1);
}

TEST_F(Upgrade922, DoesNotCountAnUnprotectedAllTasksAsFound) {
  InsertFolder(50, 1, "All Tasks");
  ASSERT_TRUE(To922());
  EXPECT_EQ(Rows("Folders WHERE FLD_Name='All Tasks'"), 2);
}

TEST_F(Upgrade922, WithoutProtectedTasksFailsAfterTheColumns) {
  Run("UPDATE Folders SET FLD_Protected=0 WHERE FLD_Name='Tasks'");
  session->ClearError();
  EXPECT_FALSE(To922());
  EXPECT_EQ(session->GetErrorDescription(), "Cannot find Tasks folder");
  EXPECT_FALSE(session->GetErrorFlag());
  EXPECT_EQ(version + " " + StoredVersion(), "9.2.1 9.2.1");
  Run("INSERT INTO Contacts (CNT_ID,CNT_WorkFax) VALUES (1,'" + std::string(32, '5') + "')");
}

TEST_F(Upgrade922, WithoutProtectedTasksLeavesTheRestOfAnOlderError) {
  Run("UPDATE Folders SET FLD_Protected=0 WHERE FLD_Name='Tasks'");
  LeaveAnOldError();
  EXPECT_FALSE(To922());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[Earlier] Error: 77 - Cannot find Tasks folder");
}

TEST_F(Upgrade922, KeepsWhatTheSaveOfItsFolderRecorded) {
  InsertFolder(50, 3, "All Tasks");
  EXPECT_FALSE(To922());
  EXPECT_EQ(session->GetErrorProcedure(), "CFolder.Save");
  EXPECT_EQ(version + " " + StoredVersion(), "9.2.1 9.2.1");
}

TEST_F(Upgrade922, OfADataViewerIsRecordedUnderTheStep) {
  session->UserRights = DataViewer;
  EXPECT_FALSE(To922());
  EXPECT_EQ(session->GetErrorProcedure(), "UpgradeDBToVersion9_2_2");
  EXPECT_EQ(session->GetErrorCode(), 91);
}

TEST_F(Upgrade922, LeavesTheMessageArgumentAlone) {
  ASSERT_TRUE(To922());
  EXPECT_EQ(message, "untouched");
}

TEST_F(Upgrade923, SendsTheStampAlone) {
  ASSERT_TRUE(To923());
  EXPECT_EQ(SentInAll(), Texts{"UPDATE _VersionInfo SET VI_Version = '9.2.3'"});
  EXPECT_EQ(version + " " + StoredVersion(), "9.2.3 9.2.3");
}

TEST_F(Upgrade923, SetsEvenANewerDatabaseBack) {
  Run("UPDATE _VersionInfo SET VI_Version='10.0'");
  ASSERT_TRUE(To923());
  EXPECT_EQ(StoredVersion(), "9.2.3");
}

TEST_F(Upgrade923, StampsEveryRow) {
  Run("INSERT INTO _VersionInfo (VI_Version) VALUES ('x')");
  ASSERT_TRUE(To923());
  EXPECT_EQ(Rows("_VersionInfo WHERE VI_Version='9.2.3'"), 2);
}

TEST_F(Upgrade923, LeavesAnOlderErrorReadable) {
  LeaveAnOldError();
  ASSERT_TRUE(To923());
  ExpectOldErrorReadable();
}

TEST_F(Upgrade923, LeavesTheMessageArgumentAlone) {
  ASSERT_TRUE(To923());
  EXPECT_EQ(message, "untouched");
}

TEST_F(Upgrade923, ThatFailsIsRecordedAndLeavesTheVersion) {
  Run("DROP TABLE _VersionInfo");
  EXPECT_FALSE(To923());
  EXPECT_EQ(session->GetErrorProcedure(), "UpgradeDBToVersion9_2_3");
  EXPECT_EQ(session->GetErrorCode(), -2147217865);
  EXPECT_EQ(version + " " + message, "9.2.1 untouched");
}

TEST_F(Upgrade923, OfADataViewerIsDone) {
  session->UserRights = DataViewer;
  EXPECT_TRUE(To923());
}

TEST_F(Upgrade924, SendsTheseTwoStatements) {
  ASSERT_TRUE(To924());
  EXPECT_EQ(SentInAll(), (Texts{"UPDATE Folders SET FLD_Protected = 0 WHERE FLD_Name ='Task Due Dates'",
                                "UPDATE _VersionInfo SET VI_Version = '9.2.4'"}));
  EXPECT_EQ(version + " " + StoredVersion(), "9.2.4 9.2.4");
}

TEST_F(Upgrade924, TakesTheProtectionOffTheFolderOfThatName) {
  InsertFolder(50, 1, "Task Due Dates");
  Run("UPDATE Folders SET FLD_Protected=1 WHERE FLD_ID=50");
  ASSERT_TRUE(To924());
  EXPECT_EQ(Stored("SELECT FLD_Protected FROM Folders WHERE FLD_ID=50"), "0");
}

TEST_F(Upgrade924, LeavesTheFolderOfTheDueDatesProtected) {
  ASSERT_TRUE(To924());
  EXPECT_EQ(Place("Tasks Due Dates"), "Tasks Due Dates in Calendar");
}

TEST_F(Upgrade924, DoesNotReadTheVersion) {
  version = "anything";
  ASSERT_TRUE(To924());
  EXPECT_EQ(version, "9.2.4");
}

TEST_F(Upgrade924, LeavesAnOlderErrorReadable) {
  LeaveAnOldError();
  ASSERT_TRUE(To924());
  ExpectOldErrorReadable();
}

TEST_F(Upgrade924, LeavesTheMessageArgumentAlone) {
  ASSERT_TRUE(To924());
  EXPECT_EQ(message, "untouched");
}

TEST_F(Upgrade924, OfADataViewerIsDone) {
  session->UserRights = DataViewer;
  EXPECT_TRUE(To924());
}

TEST_F(Upgrade924, ThatFailsIsRecordedAndLeavesTheVersion) {
  Refuse("UPDATE Folders");
  EXPECT_FALSE(To924());
  EXPECT_EQ(session->GetErrorProcedure(), "UpgradeDBToVersion9_2_4");
  EXPECT_EQ(version + " " + StoredVersion() + " " + message, "9.2.1 9.2.1 untouched");
}

}  // namespace
}  // namespace zef::test
