#include "tests/upgrade/upgrade_fixture.h"

namespace zef::test {
namespace {

std::string FindFolder(const std::string& name) {
  return "SELECT FLD_ID FROM Folders WHERE FLD_Protected = 1 AND FLD_Name='" + name + "'";
}

/// What the step itself sends, without what saving a folder takes.
class Upgrade921Statements : public UpgradeTest {
 protected:
  Texts SentByStep() {
    Texts texts = Sent();
    std::erase_if(texts, [](const std::string& text) {
      return text.starts_with("SELECT * FROM Folders WHERE FLD_ID<>") || text.starts_with("INSERT INTO Folders ");
    });
    return texts;
  }
};

TEST_F(Upgrade921Statements, OfAnOlderDatabaseAreTheseInThisOrder) {
  ASSERT_TRUE(To921());
  EXPECT_EQ(SentByStep(),
            (Texts{
                "SELECT * FROM Events WHERE 0=1",
                "ALTER TABLE EVENTS ALTER COLUMN EVE_TEXT TEXT(255) ",
                "ALTER TABLE EVENTS ADD COLUMN EVE_TYPE TEXT(1) NULL",
                "UPDATE EVENTS SET EVE_TYPE = 'E' ",
                "ALTER TABLE EVENTS ADD COLUMN EVE_LinkID Long NULL",
                "UPDATE EVENTS SET EVE_LinkID = -1",
                "SELECT * FROM Folders WHERE 0=1",
                "ALTER TABLE Folders ADD COLUMN FLD_Protected Byte NULL",
                "UPDATE Folders SET FLD_Protected = 0",
                "UPDATE Folders SET FLD_Protected = 1 WHERE FLD_Name='Alarms' AND FLD_ParentID=0",
                "UPDATE Folders SET FLD_Protected = 1 WHERE FLD_Name='Notes' AND FLD_ParentID=0",
                "UPDATE Folders SET FLD_Protected = 1 WHERE FLD_Name='Calendar' AND FLD_ParentID=0",
                "UPDATE Folders SET FLD_Protected = 1 WHERE FLD_Name='Contacts' AND FLD_ParentID=0",
                "SELECT * FROM Folders WHERE FLD_Name='Task' AND FLD_ParentID=0",
                "UPDATE Folders SET FLD_Protected = 1 WHERE FLD_Name='Tasks' AND FLD_ParentID=0",
                FindFolder("All Events"),
                FindFolder("Calendar"),
                FindFolder("Completed Tasks"),
                FindFolder("Tasks"),
                FindFolder("Phone Call Notes"),
                FindFolder("Notes"),
                FindFolder("Tasks Due Dates"),
                FindFolder("Calendar"),
                FindFolder("Anniversaries"),
                FindFolder("Calendar"),
                FindFolder("Birthdays"),
                FindFolder("Calendar"),
                "ALTER TABLE NOTES ALTER COLUMN NOT_Title Memo ",
                "RELATIONSHIPS Tasks",
                "ALTER TABLE [Tasks] DROP CONSTRAINT [lstTaskPriorityTasks]",
                "RELATIONSHIPS Notes",
                "ALTER TABLE [Notes] DROP CONSTRAINT [CategoriesNotes]",
                "RELATIONSHIPS Contacts",
                "ALTER TABLE [Contacts] DROP CONSTRAINT [lstStatesContacts]",
                "RELATIONSHIPS Contacts",
                "ALTER TABLE [Contacts] DROP CONSTRAINT [lstStatesContacts1]",
                "RELATIONSHIPS Contacts",
                "ALTER TABLE [Contacts] DROP CONSTRAINT [lstCountriesContacts]",
                "RELATIONSHIPS Contacts",
                "ALTER TABLE [Contacts] DROP CONSTRAINT [lstCountriesContacts1]",
                "SELECT * FROM Tasks WHERE 0=1",
                "ALTER TABLE TASKS ADD COLUMN TSK_PRIORITY Text(64) NULL",
                "UPDATE TASKS,lstTaskPriority SET TSK_PRIORITY =lstTaskPriority.TP_Name WHERE lstTaskPriority.TP_ID = "
                "Tasks.TSK_PriorityID",
                "ALTER TABLE TASKS DROP COLUMN TSK_PRIORITYID",
                "SELECT * FROM Contacts WHERE 0=1",
                "ALTER TABLE Contacts ADD COLUMN CNT_STATE Text(128) NULL",
                "UPDATE Contacts,lstStates SET CNT_STATE =lstStates.ST_Name WHERE lstStates.ST_ID = "
                "Contacts.CNT_StateID",
                "ALTER TABLE CONTACTS DROP COLUMN CNT_STATEID",
                "SELECT * FROM Contacts WHERE 0=1",
                "ALTER TABLE Contacts ADD COLUMN CNT_Country Text(128) NULL",
                "UPDATE Contacts,lstCountries SET CNT_Country =lstCountries.COU_Name WHERE lstCountries.COU_ID = "
                "Contacts.CNT_CountryID",
                "ALTER TABLE CONTACTS DROP COLUMN CNT_CountryID",
                "SELECT * FROM Contacts WHERE 0=1",
                "ALTER TABLE Contacts ADD COLUMN CNT_WorkSTATE Text(128) NULL",
                "UPDATE Contacts,lstStates SET CNT_WorkState =lstStates.ST_Name WHERE lstStates.ST_ID = "
                "Contacts.CNT_WorkStateID",
                "ALTER TABLE CONTACTS DROP COLUMN CNT_WorkStateID",
                "SELECT * FROM Contacts WHERE 0=1",
                "ALTER TABLE Contacts ADD COLUMN CNT_WorkCountry Text(128) NULL",
                "UPDATE Contacts,lstCountries SET CNT_WorkCountry =lstCountries.COU_Name WHERE lstCountries.COU_ID = "
                "Contacts.CNT_WorkCountryID",
                "ALTER TABLE CONTACTS DROP COLUMN CNT_WorkCountryID",
                "UPDATE _VersionInfo SET VI_Version = '9.2.1'",
            }));
}

TEST_F(Upgrade921Statements, OfAFinishedDatabaseAreOnlyThoseWithoutAGuard) {
  ASSERT_TRUE(To921());
  Forget();
  version = "9.1.0";
  ASSERT_TRUE(To921());
  EXPECT_EQ(SentByStep(), (Texts{
                              "SELECT * FROM Events WHERE 0=1",
                              "ALTER TABLE EVENTS ALTER COLUMN EVE_TEXT TEXT(255) ",
                              "SELECT * FROM Folders WHERE 0=1",
                              "UPDATE Folders SET FLD_Protected = 1 WHERE FLD_Name='Alarms' AND FLD_ParentID=0",
                              "UPDATE Folders SET FLD_Protected = 1 WHERE FLD_Name='Notes' AND FLD_ParentID=0",
                              "UPDATE Folders SET FLD_Protected = 1 WHERE FLD_Name='Calendar' AND FLD_ParentID=0",
                              "UPDATE Folders SET FLD_Protected = 1 WHERE FLD_Name='Contacts' AND FLD_ParentID=0",
                              "SELECT * FROM Folders WHERE FLD_Name='Task' AND FLD_ParentID=0",
                              "UPDATE Folders SET FLD_Protected = 1 WHERE FLD_Name='Tasks' AND FLD_ParentID=0",
                              FindFolder("All Events"),
                              FindFolder("Completed Tasks"),
                              FindFolder("Phone Call Notes"),
                              FindFolder("Tasks Due Dates"),
                              FindFolder("Anniversaries"),
                              FindFolder("Birthdays"),
                              "ALTER TABLE NOTES ALTER COLUMN NOT_Title Memo ",
                              "RELATIONSHIPS Tasks",
                              "RELATIONSHIPS Notes",
                              "RELATIONSHIPS Contacts",
                              "RELATIONSHIPS Contacts",
                              "RELATIONSHIPS Contacts",
                              "RELATIONSHIPS Contacts",
                              "SELECT * FROM Tasks WHERE 0=1",
                              "SELECT * FROM Contacts WHERE 0=1",
                              "SELECT * FROM Contacts WHERE 0=1",
                              "SELECT * FROM Contacts WHERE 0=1",
                              "SELECT * FROM Contacts WHERE 0=1",
                              "UPDATE _VersionInfo SET VI_Version = '9.2.1'",
                          }));
}

TEST_F(Upgrade921Statements, RenameTheOlderRootOfTasks) {
  Run("UPDATE Folders SET FLD_Name='Task' WHERE FLD_Name='Tasks'");
  ASSERT_TRUE(To921());
  const Texts sent = SentByStep();
  ASSERT_GT(sent.size(), 15u);
  EXPECT_EQ((Texts(sent.begin() + 13, sent.begin() + 16)),
            (Texts{"SELECT * FROM Folders WHERE FLD_Name='Task' AND FLD_ParentID=0",
                   "SELECT * FROM Folders WHERE FLD_Name='Tasks' AND FLD_ParentID=0",
                   "UPDATE Folders SET FLD_Protected = 1, FLD_Name='Tasks' WHERE FLD_Name='Task' AND FLD_ParentID=0"}));
}

TEST_F(Upgrade921Statements, OfAnotherVersionAreNone) {
  version = "9.2.1";
  ASSERT_TRUE(To921());
  EXPECT_EQ(SentInAll(), Texts{});
}

TEST_F(Upgrade921Statements, StandInNoTransactionButThatOfAFolder) {
  ASSERT_TRUE(To921());
  const Texts sent = SentInAll();
  EXPECT_EQ(std::count(sent.begin(), sent.end(), "BEGIN"), 12) << "a number and a row for each of six folders";
}

}  // namespace
}  // namespace zef::test
