#include <gmock/gmock.h>

#include "tests/support/raised.h"
#include "tests/upgrade/upgrade_fixture.h"
#include "upgrade/bas_adox.h"

namespace zef::test {
namespace {

class Relationship : public UpgradeTest {
 protected:
  Relationship() { catalog.SetActiveConnection(session->conDBConnection); }

  bool Delete(const std::string& primary, const std::string& foreign, const std::string& name = {}) {
    return DeleteRelationship(catalog, primary, foreign, name, message);
  }
  std::int32_t KeysOf(const std::string& table) { return catalog.Tables(table).Keys.Count(); }

  Catalog catalog;
};

TEST_F(Relationship, WithoutANameHasThatOfItsTables) {
  EXPECT_TRUE(Delete("lstTaskPriority", "Tasks"));
  EXPECT_EQ(KeysOf("Tasks"), 0);
}

TEST_F(Relationship, IsDeletedByItsOwnNameAndTheOthersStay) {
  EXPECT_TRUE(Delete("lstStates", "Contacts", "lstStatesContacts1"));
  ASSERT_EQ(KeysOf("Contacts"), 3);
  EXPECT_EQ(catalog.Tables("Contacts").Keys.Item(0).Name, "lstStatesContacts");
}

TEST_F(Relationship, InAnotherLetterCaseIsFoundAndDeleted) {
  EXPECT_TRUE(Delete("x", "contacts", "LSTSTATESCONTACTS"));
  EXPECT_EQ(KeysOf("Contacts"), 3);
}

TEST_F(Relationship, WithLettersOfOtherScriptsInAnotherCaseIsFoundAndDeleted) {
  Run("ALTER TABLE Alarms ADD CONSTRAINT [Ärger Ω] FOREIGN KEY (ALA_CategoryID) REFERENCES Categories (CAT_ID)");
  EXPECT_TRUE(Delete("Categories", "Alarms", "äRGER ω")) << message;
  EXPECT_EQ(KeysOf("Alarms"), 0);
}

TEST_F(Relationship, IsDeletedUnderTheNameThatTheCallerGave) {
  EXPECT_TRUE(Delete("LSTTASKPRIORITY", "tasks"));
  EXPECT_EQ(Sent().back(), "ALTER TABLE [tasks] DROP CONSTRAINT [LSTTASKPRIORITYtasks]");
}

TEST_F(Relationship, ThatIsNotThereIsNoFailure) {
  EXPECT_TRUE(Delete("lstTaskPriority", "Notes"));
  EXPECT_EQ(KeysOf("Notes"), 1);
  EXPECT_EQ(message, "untouched");
}

TEST_F(Relationship, DeletedTwiceIsNoFailure) {
  EXPECT_TRUE(Delete("Categories", "Notes"));
  EXPECT_TRUE(Delete("Categories", "Notes"));
}

TEST_F(Relationship, OfSixtyFourCharactersIsSoughtWhole) {
  const std::string shorter(63, 'r');
  Run("ALTER TABLE Alarms ADD CONSTRAINT " + shorter + " FOREIGN KEY (ALA_CategoryID) REFERENCES Categories (CAT_ID)");
  EXPECT_TRUE(Delete("Categories", "Alarms", shorter + "s"));
  EXPECT_EQ(KeysOf("Alarms"), 1);
}

TEST_F(Relationship, OfSeventyCharactersIsSoughtByItsFirst64) {
  const std::string name(64, 'r');
  Run("ALTER TABLE Alarms ADD CONSTRAINT " + name + " FOREIGN KEY (ALA_CategoryID) REFERENCES Categories (CAT_ID)");
  EXPECT_TRUE(Delete("Categories", "Alarms", name + "behind"));
  EXPECT_EQ(KeysOf("Alarms"), 0);
}

TEST_F(Relationship, OfLongTableNamesIsSoughtByTheFirst64CharactersOfBoth) {
  const std::string foreign(60, 'f');
  Run("CREATE TABLE " + foreign + " (Id Long, CONSTRAINT Cate" + foreign +
      " FOREIGN KEY (Id) REFERENCES Categories (CAT_ID))");
  EXPECT_TRUE(Delete("Categories", foreign));
  EXPECT_EQ(KeysOf(foreign), 1);
  EXPECT_TRUE(Delete("Cate", foreign));
  EXPECT_EQ(KeysOf(foreign), 0);
}

TEST_F(Relationship, OfATableThatIsNotThereFailsAndNamesBothTables) {
  EXPECT_FALSE(Delete("lstStates", "Persons", "lstStatesContacts"));
  EXPECT_EQ(message,
            "Unable to delete relationship between lstStates and Persons tables.\r\n\r\nThe item is not in the "
            "collection under the requested name or position. (Error #3265)");
}

TEST_F(Relationship, ThatTheDatabaseRefusesToDropFailsWithItsSentence) {
  Refuse("ALTER TABLE");
  EXPECT_FALSE(Delete("Categories", "Notes"));
  EXPECT_EQ(message,
            "Unable to delete relationship between Categories and Notes tables.\r\n\r\nmade to fail (Error "
            "#-2147217900)");
  RefuseNothing();
  EXPECT_EQ(KeysOf("Notes"), 1);
}

TEST_F(Relationship, WhoseDeletionFailsLeavesTheErrorRecord) {
  session->ClearError();
  EXPECT_FALSE(Delete("Categories", "Nowhere"));
  EXPECT_FALSE(session->GetErrorFlag());
  EXPECT_EQ(session->GetErrorDescription(), "");
}

TEST_F(Relationship, WithoutAConnectionFailsWith91) {
  Catalog unbound;
  EXPECT_FALSE(DeleteRelationship(unbound, "Categories", "Notes", "", message));
  EXPECT_THAT(message, testing::EndsWith(" (Error #91)"));
}

TEST_F(Relationship, DeletedLeavesRowsAndIndexes) {
  InsertTask(1, "2");
  EXPECT_TRUE(Delete("lstTaskPriority", "Tasks"));
  EXPECT_EQ(Stored("SELECT TSK_PriorityID FROM Tasks"), "2");
  EXPECT_EQ(NumberRaised([&] { Run("INSERT INTO Tasks (TSK_ID) VALUES (1)"); }), -2147217873);
  EXPECT_EQ(NumberRaised([&] { Run("DROP INDEX IX_Tasks_FolderID ON Tasks"); }), 0);
}

}  // namespace
}  // namespace zef::test
