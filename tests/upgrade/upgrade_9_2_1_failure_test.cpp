#include <gmock/gmock.h>

#include "tests/upgrade/upgrade_fixture.h"

namespace zef::test {
namespace {

class Upgrade921Failure : public UpgradeTest {
 protected:
  void ExpectFailed() {
    EXPECT_FALSE(To921());
    EXPECT_EQ(version, "9.1.0");
    EXPECT_EQ(StoredVersion(), "9.1.0");
    EXPECT_EQ(message, "untouched");
  }
  /// A False that only the description tells of.
  void ExpectToldQuietly(const std::string& description) {
    session->ClearError();
    ExpectFailed();
    EXPECT_EQ(session->GetErrorDescription(), description);
    EXPECT_FALSE(session->GetErrorFlag());
    EXPECT_EQ(session->GetErrorCode(), 0);
    EXPECT_EQ(session->GetErrorProcedure(), "");
  }
  void RemoveRoot(const std::string& name) { Run("DELETE * FROM Folders WHERE FLD_Name='" + name + "'"); }
};

TEST_F(Upgrade921Failure, WithoutACalendarIsToldInTheDescriptionAlone) {
  RemoveRoot("Calendar");
  ExpectToldQuietly("Cannot find Calendar folder");
}

TEST_F(Upgrade921Failure, WithoutACalendarKeepsTheColumnsAndFlags) {
  Run("INSERT INTO Events (EVE_ID,EVE_Text) VALUES (1,'a')");
  RemoveRoot("Calendar");
  ExpectFailed();
  EXPECT_EQ(Rows("Folders WHERE FLD_Protected=1"), 4);
  EXPECT_EQ(Rows("Events WHERE EVE_Type='E' AND EVE_LinkID=-1"), 1);
  EXPECT_EQ(Stored("SELECT Count(TSK_PriorityID) FROM Tasks"), "0") << "what comes later is not done";
}

TEST_F(Upgrade921Failure, WithoutACalendarLeavesTheRestOfAnOlderError) {
  RemoveRoot("Calendar");
  LeaveAnOldError();
  ExpectFailed();
  EXPECT_EQ(session->GetEntireErrorDesc(), "[Earlier] Error: 77 - Cannot find Calendar folder");
  EXPECT_TRUE(session->GetErrorFlag());
}

TEST_F(Upgrade921Failure, OfADeletedRelationshipLeavesTheRestOfAnOlderError) {
  ASSERT_TRUE(To921());
  Run("ALTER TABLE Notes ADD CONSTRAINT CategoriesNotes FOREIGN KEY (NOT_CategoryID) REFERENCES Categories (CAT_ID)");
  LeaveAnOldError();
  Refuse("ALTER TABLE [Notes]");
  version = "9.1.0";
  EXPECT_FALSE(To921());
  EXPECT_THAT(session->GetEntireErrorDesc(), testing::StartsWith("[Earlier] Error: 77 - Unable to delete"));
}

TEST_F(Upgrade921Failure, WithoutTasksIsToldInTheDescriptionAlone) {
  RemoveRoot("Tasks");
  ExpectToldQuietly("Cannot find Tasks folder");
  EXPECT_EQ(Place("All Events"), "All Events in Calendar");
}

TEST_F(Upgrade921Failure, WithoutNotesIsToldInTheDescriptionAlone) {
  RemoveRoot("Notes");
  ExpectToldQuietly("Cannot find Notes folder");
}

class Upgrade921WithoutCalendar : public Upgrade921Failure, public testing::WithParamInterface<std::string> {};

TEST_P(Upgrade921WithoutCalendar, MissesItUnderTheNameOfEvents) {
  ASSERT_TRUE(To921());
  Run("DELETE * FROM Folders WHERE FLD_Name='" + GetParam() + "'");
  RemoveRoot("Calendar");
  Run("UPDATE _VersionInfo SET VI_Version='9.1.0'");
  version = "9.1.0";
  ExpectToldQuietly("Cannot find Events folder");
}

INSTANTIATE_TEST_SUITE_P(Folders, Upgrade921WithoutCalendar,
                         testing::Values("Tasks Due Dates", "Anniversaries", "Birthdays"),
                         [](const auto& folder) { return folder.param.substr(0, folder.param.find(' ')); });

TEST_F(Upgrade921Failure, OfAFolderWhoseNameIsTakenKeepsWhatItsSaveRecorded) {
  InsertFolder(50, 1, "All Events");
  ExpectFailed();
  EXPECT_EQ(session->GetErrorProcedure(), "CFolder.Save");
  EXPECT_EQ(session->GetErrorCode(), 1000);
}

TEST_F(Upgrade921Failure, OfADeletedRelationshipIsToldInTheDescriptionAlone) {
  Refuse("ALTER TABLE [Notes]");
  EXPECT_FALSE(To921());
  EXPECT_EQ(session->GetErrorDescription(),
            "Unable to delete relationship between Categories and Notes tables.\r\n\r\nmade to fail (Error "
            "#-2147217900)");
  EXPECT_FALSE(session->GetErrorFlag());
  EXPECT_EQ(version, "9.1.0");
}

TEST_F(Upgrade921Failure, OfAStatementIsRecordedUnderTheStep) {
  Refuse("ALTER TABLE NOTES");
  ExpectFailed();
  EXPECT_EQ(session->GetEntireErrorDesc(), "[UpgradeDBToVersion9_2_1] Error: -2147217900 - made to fail");
}

TEST_F(Upgrade921Failure, OfTheRightsComesWithTheFirstNewFolder) {
  session->UserRights = DataViewer;
  ExpectFailed();
  EXPECT_EQ(session->GetErrorProcedure(), "UpgradeDBToVersion9_2_1");
  EXPECT_EQ(session->GetErrorCode(), 91);
  EXPECT_EQ(Rows("Folders WHERE FLD_Protected=1"), 5) << "the step itself asks for no rights";
}

TEST_F(Upgrade921Failure, OfADataViewerComesNotWhereAllFoldersAreThere) {
  ASSERT_TRUE(To921());
  version = "9.1.0";
  session->UserRights = DataViewer;
  EXPECT_TRUE(To921());
}

TEST_F(Upgrade921Failure, WithoutAConnectionReachesTheCaller) {
  session->DisconnectFromDatabase();
  EXPECT_THROW(To921(), RunTimeError);
}

TEST_F(Upgrade921Failure, BetweenAddAndDropIsNotMendedByASecondRun) {
  InsertTask(1, "3");
  Refuse("UPDATE TASKS,lstTaskPriority");
  ExpectFailed();
  RefuseNothing();
  ASSERT_TRUE(To921());
  EXPECT_EQ(Stored("SELECT TSK_Priority FROM Tasks"), "Null");
  EXPECT_EQ(Stored("SELECT TSK_PriorityID FROM Tasks"), "3");
}

TEST_F(Upgrade921Failure, BetweenCopyAndDropKeepsTheNamesBesideTheIdentifiers) {
  InsertTask(1, "3");
  Refuse("ALTER TABLE TASKS DROP");
  ExpectFailed();
  RefuseNothing();
  ASSERT_TRUE(To921());
  EXPECT_EQ(Stored("SELECT TSK_Priority & TSK_PriorityID FROM Tasks"), "High3");
}

TEST_F(Upgrade921Failure, BetweenAddAndFillLeavesEventsWithoutAType) {
  Run("INSERT INTO Events (EVE_ID,EVE_Text) VALUES (1,'a')");
  Refuse("UPDATE EVENTS SET EVE_TYPE");
  ExpectFailed();
  RefuseNothing();
  ASSERT_TRUE(To921());
  EXPECT_EQ(Rows("Events WHERE EVE_Type IS NULL AND EVE_LinkID=-1"), 1);
}

TEST_F(Upgrade921Failure, OfANameThatIsTooLongLeavesTheIdentifiers) {
  Run("ALTER TABLE lstTaskPriority ALTER COLUMN TP_Name Text(100)");
  Run("UPDATE lstTaskPriority SET TP_Name='" + std::string(65, 'x') + "' WHERE TP_ID=3");
  InsertTask(1, "3");
  ExpectFailed();
  EXPECT_EQ(session->GetErrorCode(), -2147217833);
  EXPECT_EQ(Stored("SELECT TSK_PriorityID FROM Tasks"), "3");
}

TEST_F(Upgrade921Failure, OfAnEventTextThatIsTooLongLeavesTheText) {
  Run("ALTER TABLE Events ALTER COLUMN EVE_Text Memo");
  Run("INSERT INTO Events (EVE_ID,EVE_Text) VALUES (1,'" + std::string(256, 'x') + "')");
  ExpectFailed();
  EXPECT_EQ(session->GetErrorCode(), -2147217833);
  EXPECT_EQ(Stored("SELECT Len(EVE_Text) FROM Events"), "256");
}

}  // namespace
}  // namespace zef::test
