#include "tests/support/dump.h"
#include "tests/upgrade/upgrade_fixture.h"

namespace zef::test {
namespace {

class Upgrade921 : public UpgradeTest {
 protected:
  void ExpectNothingDone() {
    EXPECT_TRUE(To921());
    EXPECT_EQ(SentInAll(), Texts{});
    EXPECT_EQ(StoredVersion(), "9.1.0");
  }
  std::string Protected(const std::string& folder) {
    return Stored("SELECT FLD_Protected FROM Folders WHERE FLD_ParentID=0 AND FLD_Name='" + folder + "'");
  }
};

TEST_F(Upgrade921, StampsTheDatabaseAndHandsOutTheVersion) {
  ASSERT_TRUE(To921()) << session->GetEntireErrorDesc();
  EXPECT_EQ(version, "9.2.1");
  EXPECT_EQ(StoredVersion(), "9.2.1");
}

TEST_F(Upgrade921, OfAnythingBehindTheFirstFourCharactersIsDone) {
  version = "9.1.beta";
  ASSERT_TRUE(To921());
  EXPECT_EQ(version, "9.2.1");
}

TEST_F(Upgrade921, OfTheFirstFourCharactersAloneIsDone) {
  version = "9.1.";
  ASSERT_TRUE(To921());
  EXPECT_EQ(StoredVersion(), "9.2.1");
}

TEST_F(Upgrade921, OfALaterVersionIsTrueWithoutWork) {
  version = "9.2.1";
  ExpectNothingDone();
  EXPECT_EQ(version, "9.2.1");
}

TEST_F(Upgrade921, OfAnEmptyVersionIsTrueWithoutWork) {
  version.clear();
  ExpectNothingDone();
  EXPECT_EQ(version, "");
}

TEST_F(Upgrade921, OfAVersionWithoutTheSecondPointIsTrueWithoutWork) {
  version = "9.1";
  ExpectNothingDone();
  EXPECT_EQ(version, "9.1");
}

TEST_F(Upgrade921, OfALongerNumberIsTrueWithoutWork) {
  version = "9.10.0";
  ExpectNothingDone();
}

TEST_F(Upgrade921, TakesTheVersionFromTheCallerNotFromTheDatabase) {
  Run("UPDATE _VersionInfo SET VI_Version='8.0'");
  ASSERT_TRUE(To921());
  EXPECT_EQ(StoredVersion(), "9.2.1");
}

TEST_F(Upgrade921, BindsItsCatalogEvenWhenItHasNoWork) {
  version = "9.2.4";
  connection().Close();
  EXPECT_FALSE(To921());
  EXPECT_EQ(session->GetErrorCode(), 3704);
}

TEST_F(Upgrade921, LeavesTheMessageArgumentAlone) {
  ASSERT_TRUE(To921());
  EXPECT_EQ(message, "untouched");
}

TEST_F(Upgrade921, LeavesAnOlderErrorReadableWhenItCreatesNoFolder) {
  ASSERT_TRUE(To921());
  LeaveAnOldError();
  version = "9.1.0";
  ASSERT_TRUE(To921());
  EXPECT_EQ(session->GetErrorProcedure(), "Earlier");
}

TEST_F(Upgrade921, MakesEventsOrdinaryOnesWithoutALink) {
  Run("INSERT INTO Events (EVE_ID,EVE_Text) VALUES (1,'a')");
  Run("INSERT INTO Events (EVE_ID,EVE_Text) VALUES (2,Null)");
  ASSERT_TRUE(To921());
  EXPECT_EQ(Rows("Events WHERE EVE_Type='E' AND EVE_LinkID=-1"), 2);
  EXPECT_EQ(Rows("Events"), 2);
}

TEST_F(Upgrade921, AddsTheLinkToEventsThatHaveATypeAlready) {
  Run("ALTER TABLE Events ADD COLUMN eve_type Text(1) NULL");
  Run("INSERT INTO Events (EVE_ID,EVE_Type) VALUES (1,'T')");
  ASSERT_TRUE(To921());
  EXPECT_EQ(Rows("Events WHERE EVE_Type='T' AND EVE_LinkID=-1"), 1);
}

TEST_F(Upgrade921, AddsTheTypeToEventsThatHaveALinkAlready) {
  Run("ALTER TABLE Events ADD COLUMN eve_linkid Long NULL");
  Run("INSERT INTO Events (EVE_ID,EVE_LinkID) VALUES (1,7)");
  ASSERT_TRUE(To921());
  EXPECT_EQ(Rows("Events WHERE EVE_Type='E' AND EVE_LinkID=7"), 1);
}

TEST_F(Upgrade921, LeavesTheProtectionOfOtherFoldersWhereItIsThere) {
  Run("ALTER TABLE Folders ADD COLUMN fld_protected Byte NULL");
  InsertFolder(50, 0, "Mine");
  Run("UPDATE Folders SET FLD_Protected=1 WHERE FLD_ID=50");
  ASSERT_TRUE(To921());
  EXPECT_EQ(Protected("Mine"), "1");
  EXPECT_EQ(Protected("Calendar"), "1");
}

TEST_F(Upgrade921, GeneratesNoEvents) {
  Run("INSERT INTO Contacts (CNT_ID,CNT_LastName,CNT_BirthDate) VALUES (1,'A','2/29/1996')");
  Run("INSERT INTO Tasks (TSK_ID,TSK_Name,TSK_DueDate) VALUES (1,'T','6/7/2024')");
  ASSERT_TRUE(To921());
  EXPECT_EQ(Rows("Events"), 0);
}

TEST_F(Upgrade921, LetsEventsHold255Characters) {
  ASSERT_TRUE(To921());
  Run("INSERT INTO Events (EVE_ID,EVE_Text) VALUES (1,'" + std::string(255, 'x') + "')");
  EXPECT_EQ(Stored("SELECT Len(EVE_Text) FROM Events"), "255");
}

TEST_F(Upgrade921, LetsTitlesOfNotesHoldLongTexts) {
  Run("INSERT INTO Notes (NOT_ID,NOT_Title) VALUES (1,'It''s kept')");
  ASSERT_TRUE(To921());
  EXPECT_EQ(Stored("SELECT NOT_Title FROM Notes"), "It's kept");
  Run("UPDATE Notes SET NOT_Title='" + std::string(5000, 'x') + "'");
  EXPECT_EQ(Stored("SELECT Len(NOT_Title) FROM Notes"), "5000");
}

TEST_F(Upgrade921, ProtectsTheFiveRootFolders) {
  ASSERT_TRUE(To921());
  for (const char* name : {"Alarms", "Notes", "Calendar", "Contacts", "Tasks"}) EXPECT_EQ(Protected(name), "1") << name;
}

TEST_F(Upgrade921, LeavesOtherFoldersUnprotected) {
  InsertFolder(50, 1, "Calendar");
  InsertFolder(51, 0, "Mine");
  ASSERT_TRUE(To921());
  EXPECT_EQ(Rows("Folders WHERE FLD_ID>=50 AND FLD_Protected=0"), 2);
}

TEST_F(Upgrade921, CreatesTheSystemFoldersInTheirPlaces) {
  ASSERT_TRUE(To921());
  EXPECT_EQ(Place("All Events"), "All Events in Calendar");
  EXPECT_EQ(Place("Completed Tasks"), "Completed Tasks in Tasks");
  EXPECT_EQ(Place("Phone Call Notes"), "Phone Call Notes in Notes");
  EXPECT_EQ(Place("Tasks Due Dates"), "Tasks Due Dates in Calendar");
  EXPECT_EQ(Place("Anniversaries"), "Anniversaries in Calendar");
  EXPECT_EQ(Place("Birthdays"), "Birthdays in Calendar");
  EXPECT_EQ(Rows("Folders"), 11);
}

TEST_F(Upgrade921, GivesSystemFoldersTheirTypesAndDescriptions) {
  ASSERT_TRUE(To921());
  EXPECT_EQ(Rows("Folders WHERE FLD_ID>5 AND FLD_Description=FLD_Name"), 6);
  EXPECT_EQ(Stored("SELECT FLD_Type FROM Folders WHERE FLD_Name='Birthdays'"), "4");
  EXPECT_EQ(Stored("SELECT FLD_Type FROM Folders WHERE FLD_Name='Completed Tasks'"), "2");
  EXPECT_EQ(Stored("SELECT FLD_Type FROM Folders WHERE FLD_Name='Phone Call Notes'"), "3");
}

TEST_F(Upgrade921, NumbersSystemFoldersFromTheSequence) {
  ASSERT_TRUE(To921());
  EXPECT_EQ(Stored("SELECT FLD_ID FROM Folders WHERE FLD_Name='All Events'"), "6");
  EXPECT_EQ(Stored("SELECT SEQ_Value FROM Sequences WHERE SEQ_ID=12"), "11");
}

TEST_F(Upgrade921, RenamesTheOlderRootOfTasksAndUsesIt) {
  Run("UPDATE Folders SET FLD_Name='Task' WHERE FLD_Name='Tasks'");
  ASSERT_TRUE(To921());
  EXPECT_EQ(Stored("SELECT FLD_Name FROM Folders WHERE FLD_ID=3"), "Tasks");
  EXPECT_EQ(Protected("Tasks"), "1");
  EXPECT_EQ(Place("Completed Tasks"), "Completed Tasks in Tasks");
}

TEST_F(Upgrade921, OfBothRootsOfTasksProtectsTheNewerOneOnly) {
  InsertFolder(50, 0, "Task");
  ASSERT_TRUE(To921());
  EXPECT_EQ(Protected("Task"), "0");
  EXPECT_EQ(Protected("Tasks"), "1");
}

TEST_F(Upgrade921, RenamesTheOlderRootThoughAnotherFolderBelowHasTheName) {
  Run("UPDATE Folders SET FLD_Name='Task' WHERE FLD_Name='Tasks'");
  InsertFolder(50, 1, "Tasks");
  ASSERT_TRUE(To921());
  EXPECT_EQ(Stored("SELECT FLD_Name FROM Folders WHERE FLD_ID=3"), "Tasks");
  EXPECT_EQ(Stored("SELECT FLD_Protected FROM Folders WHERE FLD_ID=50"), "0");
}

TEST_F(Upgrade921, CountsAProtectedFolderAsFoundWhereverItLies) {
  ASSERT_TRUE(To921());
  Run("UPDATE Folders SET FLD_ParentID=4 WHERE FLD_Name='Birthdays'");
  version = "9.1.0";
  ASSERT_TRUE(To921());
  EXPECT_EQ(Rows("Folders WHERE FLD_Name='Birthdays'"), 1);
}

TEST_F(Upgrade921, DoesNotCountAnUnprotectedFolderAsFound) {
  InsertFolder(50, 0, "All Events");
  ASSERT_TRUE(To921());
  EXPECT_EQ(Rows("Folders WHERE FLD_Name='All Events'"), 2);
  EXPECT_EQ(Rows("Folders WHERE FLD_Name='All Events' AND FLD_Protected=1"), 1);
}

TEST_F(Upgrade921, RemovesTheSixRelationships) {
  ASSERT_TRUE(To921());
  for (const char* table : {"Tasks", "Notes", "Contacts"}) {
    EXPECT_TRUE(connection().OpenedEngine().Relationships(table)->empty()) << table;
  }
}

TEST_F(Upgrade921, KeepsOtherRelationships) {
  Run("ALTER TABLE Contacts ADD CONSTRAINT Mine FOREIGN KEY (CNT_CategoryID) REFERENCES Categories (CAT_ID)");
  ASSERT_TRUE(To921());
  EXPECT_EQ(*connection().OpenedEngine().Relationships("Contacts"), Texts{"Mine"});
}

TEST_F(Upgrade921, OfADatabaseWithoutTheRelationshipsIsDone) {
  Run("ALTER TABLE Tasks DROP CONSTRAINT lstTaskPriorityTasks");
  Run("ALTER TABLE Contacts DROP CONSTRAINT lstStatesContacts1");
  EXPECT_TRUE(To921()) << session->GetEntireErrorDesc();
  EXPECT_EQ(version, "9.2.1");
}

TEST_F(Upgrade921, ReplacesTheReferencesWhoseNameIsNotThereYet) {
  Run("ALTER TABLE Contacts ADD COLUMN cnt_state Text(128) NULL");
  Run("INSERT INTO Contacts (CNT_ID,CNT_StateID,CNT_WorkStateID) VALUES (1,2,1)");
  ASSERT_TRUE(To921());
  EXPECT_EQ(Rows("Contacts WHERE CNT_State IS NULL AND CNT_StateID=2 AND CNT_WorkState='Alabama'"), 1);
}

TEST_F(Upgrade921, TurnsPrioritiesIntoTheirNames) {
  InsertTask(1, "3");
  ASSERT_TRUE(To921());
  EXPECT_EQ(Stored("SELECT TSK_Priority FROM Tasks"), "High");
}

TEST_F(Upgrade921, TurnsADanglingPriorityIntoNull) {
  InsertTask(1, "99");
  ASSERT_TRUE(To921());
  EXPECT_EQ(Stored("SELECT TSK_Priority FROM Tasks"), "Null");
}

TEST_F(Upgrade921, TurnsANullPriorityIntoNull) {
  InsertTask(1, "Null");
  ASSERT_TRUE(To921());
  EXPECT_EQ(Stored("SELECT TSK_Priority FROM Tasks"), "Null");
}

TEST_F(Upgrade921, TurnsAPriorityWithoutANameIntoNull) {
  Run("UPDATE lstTaskPriority SET TP_Name=Null WHERE TP_ID=3");
  InsertTask(1, "3");
  ASSERT_TRUE(To921());
  EXPECT_EQ(Stored("SELECT TSK_Priority FROM Tasks"), "Null");
}

TEST_F(Upgrade921, TurnsEachStateAndCountryOfAContactIntoItsOwnName) {
  Run("UPDATE lstCountries SET COU_Name='Côte d''Ivoire' WHERE COU_ID=2");
  Run("INSERT INTO Contacts (CNT_ID,CNT_StateID,CNT_CountryID,CNT_WorkStateID,CNT_WorkCountryID) VALUES (1,2,1,1,2)");
  ASSERT_TRUE(To921());
  EXPECT_EQ(Stored("SELECT CNT_State & '|' & CNT_Country & '|' & CNT_WorkState & '|' & CNT_WorkCountry FROM Contacts"),
            "Alaska|Afghanistan|Alabama|Côte d'Ivoire");
}

TEST_F(Upgrade921, DropsTheOldIdentifiers) {
  ASSERT_TRUE(To921());
  for (const char* select :
       {"SELECT TSK_PriorityID FROM Tasks", "SELECT CNT_StateID FROM Contacts", "SELECT CNT_CountryID FROM Contacts",
        "SELECT CNT_WorkStateID FROM Contacts", "SELECT CNT_WorkCountryID FROM Contacts"}) {
    EXPECT_THROW(Run(select), RunTimeError) << select;
  }
}

TEST_F(Upgrade921, TwiceChangesNothingButTheStamp) {
  InsertTask(1, "3");
  ASSERT_TRUE(To921());
  const std::string before = Dump(connection());
  version = "9.1.0";
  EXPECT_TRUE(To921());
  EXPECT_EQ(Dump(connection()), before);
  EXPECT_EQ(version, "9.2.1");
}

TEST_F(Upgrade921, OfAFinishedDatabaseStampsItBack) {
  ASSERT_TRUE(WholeChain());
  version = "9.1.0";
  EXPECT_TRUE(To921());
  EXPECT_EQ(version + " " + StoredVersion(), "9.2.1 9.2.1");
}

TEST_F(Upgrade921, StampsEveryRow) {
  Run("INSERT INTO _VersionInfo (VI_Version) VALUES ('x')");
  ASSERT_TRUE(To921());
  EXPECT_EQ(Rows("_VersionInfo WHERE VI_Version='9.2.1'"), 2);
}

TEST_F(Upgrade921, InsideATransactionOfTheClientIsUndoneWithIt) {
  InsertTask(1, "3");
  ASSERT_TRUE(session->BeginTransaction());
  ASSERT_TRUE(To921()) << session->GetEntireErrorDesc();
  ASSERT_TRUE(session->RollbackTransaction());
  EXPECT_EQ(StoredVersion(), "9.1.0");
  EXPECT_EQ(Stored("SELECT TSK_PriorityID FROM Tasks"), "3");
}

}  // namespace
}  // namespace zef::test
