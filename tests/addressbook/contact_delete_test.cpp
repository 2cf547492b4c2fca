#include "tests/addressbook/contact_fixture.h"
#include "tests/support/fault_sweep.h"

namespace zef::test {
namespace {

constexpr char kRefusal[] = "You don't have rights to insert/edit data";

class ContactDelete : public DateEventsTest {
 protected:
  std::int32_t ContactsAndEvents() { return Rows("Contacts") + Rows("Events"); }
};

TEST_F(ContactDelete, SendsContactThenBirthdayThenAnniversaryInOneTransaction) {
  AnnLee();
  EXPECT_TRUE(session->DeleteContact(1));
  EXPECT_EQ(SentInAll(),
            (Texts{"BEGIN", "DELETE * FROM Contacts WHERE CNT_ID=1", kBirthdaysLookUp,
                   "DELETE FROM Events WHERE EVE_Type='B' and EVE_LinkID=1 AND EVE_FolderID=8", kAnniversariesLookUp,
                   "DELETE FROM Events WHERE EVE_Type='A' and EVE_LinkID=1 AND EVE_FolderID=7", "COMMIT"}));
  EXPECT_EQ(ContactsAndEvents(), 0);
}

TEST_F(ContactDelete, LeavesOtherContactsAndTheirEvents) {
  AnnLee();
  AnnLee();
  EXPECT_TRUE(session->DeleteContact(1));
  EXPECT_EQ(Rows("Contacts WHERE CNT_ID=2"), 1);
  EXPECT_EQ(Rows("Events WHERE EVE_LinkID=2"), 2);
}

TEST_F(ContactDelete, LeavesEventsOfOtherTypesAndInOtherFolders) {
  AnnLee();
  for (const char* row : {"(90,'E',1,8)", "(91,'T',1,9)", "(92,'B',1,7)", "(93,'A',1,8)", "(94,'B',1,6)"}) {
    Run(std::string("INSERT INTO Events (EVE_ID,EVE_Type,EVE_LinkID,EVE_FolderID) VALUES ") + row);
  }
  EXPECT_TRUE(session->DeleteContact(1));
  EXPECT_EQ(Rows("Events WHERE EVE_ID>=90"), 5);
  EXPECT_EQ(Rows("Events"), 5);
}

TEST_F(ContactDelete, LeavesCallsOfTheContactAndRulesOfItsEvents) {
  AnnLee();
  Run("INSERT INTO PhoneLogs (PL_ID,PL_ContactID) VALUES (5,1)");
  EXPECT_TRUE(session->DeleteContact(1));
  EXPECT_EQ(Rows("PhoneLogs WHERE PL_ContactID=1"), 1);
  EXPECT_EQ(Rows("Recurrences"), 2);
}

TEST_F(ContactDelete, WithoutARowSucceedsAndClearsAnOldError) {
  LeaveAnOldError();
  EXPECT_TRUE(session->DeleteContact(99));
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(ContactDelete, WithoutTheFoldersLeavesTheEventsAndSucceeds) {
  AnnLee();
  Run("DELETE * FROM Folders");
  EXPECT_TRUE(session->DeleteContact(1));
  EXPECT_FALSE(session->GetErrorFlag());
  EXPECT_EQ(Rows("Contacts"), 0);
  EXPECT_EQ(Rows("Events"), 2);
}

TEST_F(ContactDelete, FailedLookUpOfAFolderLeavesItsEventAndStandsOnRecord) {
  AnnLee();
  Refuse(kAnniversariesLookUp);
  EXPECT_TRUE(session->DeleteContact(1));
  EXPECT_EQ(session->GetErrorProcedure(), "GetFolderIDByCriteria");
  EXPECT_EQ(Rows("Contacts"), 0);
  EXPECT_EQ(Rows("Events WHERE EVE_Type='A'"), 1);
  EXPECT_EQ(Rows("Events"), 1);
}

TEST_F(ContactDelete, FailedFirstLookUpLeavesItsEventAndNothingOnRecord) {
  AnnLee();
  Refuse(kBirthdaysLookUp);
  EXPECT_TRUE(session->DeleteContact(1));
  EXPECT_FALSE(session->GetErrorFlag());
  EXPECT_EQ(Rows("Events WHERE EVE_Type='B'"), 1);
  EXPECT_EQ(Rows("Events"), 1);
}

TEST_F(ContactDelete, InTheClientsTransactionNeitherCommitsNorUndoesIt) {
  AnnLee();
  ASSERT_TRUE(session->BeginTransaction());
  EXPECT_TRUE(session->DeleteContact(1));
  EXPECT_TRUE(session->TransactionStarted());
  EXPECT_EQ(ContactsAndEvents(), 3);
  ASSERT_TRUE(session->RollbackTransaction());
  EXPECT_EQ(ContactsAndEvents(), 3);
}

TEST_F(ContactDelete, InTheClientsTransactionIsCommittedWithIt) {
  AnnLee();
  ASSERT_TRUE(session->BeginTransaction());
  EXPECT_TRUE(session->DeleteContact(1));
  ASSERT_TRUE(session->CommitTransaction());
  EXPECT_EQ(ContactsAndEvents(), 0);
}

TEST_F(ContactDelete, FailureInTheClientsTransactionLeavesItRunning) {
  AnnLee();
  ASSERT_TRUE(session->BeginTransaction());
  Refuse("DELETE FROM Events WHERE EVE_Type='A'");
  EXPECT_FALSE(session->DeleteContact(1));
  EXPECT_TRUE(session->TransactionStarted());
  ASSERT_TRUE(session->CommitTransaction());
  EXPECT_EQ(Rows("Contacts"), 0) << "the client has decided";
  EXPECT_EQ(Rows("Events WHERE EVE_Type='A'"), 1);
}

TEST_F(ContactDelete, FailureIsRecordedUnderTheBareNameAndUndone) {
  AnnLee();
  for (const char* statement : {"DELETE * FROM Contacts", "DELETE FROM Events WHERE EVE_Type='B'", "COMMIT", "BEGIN"}) {
    Refuse(statement);
    EXPECT_FALSE(session->DeleteContact(1));
    EXPECT_EQ(session->GetEntireErrorDesc(), "[DeleteContact] Error: -2147217900 - made to fail") << statement;
    EXPECT_FALSE(session->TransactionStarted());
    EXPECT_EQ(ContactsAndEvents(), 3);
  }
}

TEST_F(ContactDelete, EveryFailureLeavesAllRows) {
  AnnLee();
  const auto remove = [&] { return session->DeleteContact(1); };
  EXPECT_EQ(FailEachCall(database, *session, remove, {}, Unchanged::AllTables, "SELECT FLD_ID").size(), 5u)
      << "three deletes, BEGIN and COMMIT; a look-up that fails does not stop it";
}

TEST_F(ContactDelete, IsRefusedToASessionThatMayOnlyRead) {
  AnnLee();
  session->UserRights = DataViewer;
  EXPECT_FALSE(session->DeleteContact(1));
  EXPECT_EQ(session->GetEntireErrorDesc(), std::string("[CSession.DeleteContact] Error: 105 - ") + kRefusal);
  EXPECT_EQ(SentInAll(), Texts{});
}

TEST_F(ContactDelete, RefusalLeavesTheClientsTransactionRunning) {
  ASSERT_TRUE(session->BeginTransaction());
  session->UserRights = DataViewer;
  EXPECT_FALSE(session->DeleteContact(1));
  EXPECT_TRUE(session->TransactionStarted());
  EXPECT_TRUE(session->RollbackTransaction());
}

}  // namespace
}  // namespace zef::test
