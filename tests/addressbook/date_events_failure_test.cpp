#include "tests/addressbook/contact_fixture.h"

namespace zef::test {
namespace {

class DateEventsFailure : public DateEventsTest {
 protected:
  void DeleteFolder(const std::string& name) { Run("DELETE * FROM Folders WHERE FLD_Name='" + name + "'"); }
  Ref<CContact> Born() {
    Ref<CContact> contact = Named("Ann", "Lee");
    contact->BirthDate = On("2/29/1980");
    return contact;
  }
};

// ---- without the folder

TEST_F(DateEventsFailure, MissingFolderFailsANewContactWithNothingOnRecord) {
  DeleteFolder("Birthdays");
  EXPECT_FALSE(Born()->Save());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[] Error: 0 - ");
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(DateEventsFailure, MissingFolderUndoesTheContactAndItsOtherEvent) {
  DeleteFolder("Birthdays");
  const Ref<CContact> contact = Born();
  contact->Anniversary = On("6/3/2010");
  EXPECT_FALSE(contact->Save());
  EXPECT_FALSE(session->TransactionStarted());
  EXPECT_EQ(Rows("Contacts") + Rows("Events") + Rows("Recurrences"), 0);
  EXPECT_EQ(Flags(*contact), "new modified");
}

TEST_F(DateEventsFailure, UnprotectedFolderOfThatNameDoesNotCount) {
  Run("UPDATE Folders SET FLD_Protected=0 WHERE FLD_Name='Birthdays'");
  EXPECT_FALSE(Born()->Save());
}

TEST_F(DateEventsFailure, FolderWithTheNumberZeroCountsAsMissing) {
  Run("UPDATE Folders SET FLD_ID=0 WHERE FLD_Name='Birthdays'");
  EXPECT_FALSE(Born()->Save());
  EXPECT_EQ(Rows("Contacts") + Rows("Events"), 0);
}

TEST_F(DateEventsFailure, MissingFolderDoesNotMatterWithoutThatDate) {
  DeleteFolder("Birthdays");
  const Ref<CContact> contact = Named("Ann", "Lee");
  contact->Anniversary = On("6/3/2010");
  EXPECT_TRUE(contact->Save());
  EXPECT_EQ(Rows("Contacts") + Rows("Events"), 2);
}

TEST_F(DateEventsFailure, MissingFolderDoesNotStopAClearedDate) {
  const Ref<CContact> contact = AnnLee();
  DeleteFolder("Birthdays");
  contact->BirthDate = Date();
  EXPECT_TRUE(contact->Save());
  EXPECT_EQ(Sent().back(), "DELETE FROM Events WHERE EVE_Type='B' and EVE_LinkID=1 AND EVE_FolderID=-1");
  EXPECT_EQ(Rows("Events"), 2);
}

TEST_F(DateEventsFailure, MissingFolderFailsAnOldContactWithThatDate) {
  const Ref<CContact> contact = AnnLee();
  DeleteFolder("Birthdays");
  contact->City = "Leeds";
  EXPECT_FALSE(contact->Save());
  EXPECT_FALSE(session->GetErrorFlag());
  EXPECT_EQ(Rows("Contacts WHERE CNT_City='Leeds'"), 0);
  EXPECT_EQ(Flags(*contact), "old modified");
}

TEST_F(DateEventsFailure, QuietFailureInTheClientsTransactionUndoesNothing) {
  DeleteFolder("Birthdays");
  const Ref<CContact> contact = Born();
  ASSERT_TRUE(session->BeginTransaction());
  EXPECT_FALSE(contact->Save());
  ASSERT_TRUE(session->CommitTransaction());
  EXPECT_EQ(Rows("Contacts"), 1);
  EXPECT_EQ(Flags(*contact), "new modified");
}

// ---- a look-up that fails

TEST_F(DateEventsFailure, FailedLookUpDoesNotStopAClearedDate) {
  const Ref<CContact> contact = AnnLee();
  contact->BirthDate = Date();
  Refuse(kBirthdaysLookUp);
  EXPECT_TRUE(contact->Save());
  EXPECT_EQ(Rows("Events"), 2);
  EXPECT_EQ(Stored("SELECT CNT_BirthDate FROM Contacts"), "12:00:00 AM");
}

TEST_F(DateEventsFailure, FailedLookUpOfTheAnniversaryIsOffTheRecordAfterThatOfTheBirthday) {
  const Ref<CContact> contact = AnnLee();
  contact->Anniversary = Date();
  Refuse(kAnniversariesLookUp);
  EXPECT_TRUE(contact->Save());
  EXPECT_FALSE(session->GetErrorFlag());
  EXPECT_EQ(Rows("Events WHERE EVE_Type='A'"), 1);
}

TEST_F(DateEventsFailure, FailedLookUpFailsAContactWithThatDateInItsOwnName) {
  const Ref<CContact> contact = AnnLee();
  contact->City = "Leeds";
  Refuse(kBirthdaysLookUp);
  EXPECT_FALSE(contact->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "GetFolderIDByCriteria");
  EXPECT_EQ(Rows("Contacts WHERE CNT_City='Leeds'"), 0);
}

TEST_F(DateEventsFailure, LookUpThatFailsOnceGivesAnOldContactASecondEvent) {
  const Ref<CContact> contact = AnnLee();
  contact->City = "Leeds";
  FailCall(3);  // behind BEGIN and the update
  EXPECT_TRUE(contact->Save());
  EXPECT_FALSE(session->GetErrorFlag());
  EXPECT_EQ(Rows("Events WHERE EVE_Type='A' AND EVE_LinkID=1"), 2);
  EXPECT_EQ(Rows("Events WHERE EVE_Type='B' AND EVE_LinkID=1"), 1);
}

// ---- texts that do not fit

TEST_F(DateEventsFailure, NamesWhoseTextJustFitsAreSaved) {
  const Ref<CContact> contact = Named(std::string(100, 'f'), std::string(143, 'l'));
  contact->BirthDate = On("2/3/1980");
  EXPECT_TRUE(contact->Save());
  EXPECT_EQ(Of("B", "Len(EVE_Text)"), "255");
}

TEST_F(DateEventsFailure, NamesWhoseTextIsTooLongFailInTheNameOfTheEventAndUndoTheContact) {
  const Ref<CContact> contact = Named(std::string(100, 'f'), std::string(144, 'l'));
  contact->BirthDate = On("2/3/1980");
  EXPECT_FALSE(contact->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CEvent.Save");
  EXPECT_EQ(session->GetErrorCode(), -2147217833);
  EXPECT_FALSE(session->TransactionStarted());
  EXPECT_EQ(Rows("Contacts"), 0);
}

TEST_F(DateEventsFailure, LongNameCanBeGivenToAContactThatHasItsEvents) {
  const Ref<CContact> contact = AnnLee();
  contact->LastName = std::string(255, 'l');
  EXPECT_TRUE(contact->Save());
}

// ---- statements that fail

TEST_F(DateEventsFailure, EventThatCannotBeRefreshedUndoesTheUpdate) {
  const Ref<CContact> contact = AnnLee();
  contact->BirthDate = On("7/8/1981");
  Refuse("UPDATE Events");
  EXPECT_FALSE(contact->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CEvent.Save");
  EXPECT_EQ(Stored("SELECT CNT_BirthDate FROM Contacts"), "2/29/1980 8:09:10 AM");
  EXPECT_EQ(Flags(*contact), "old modified");
}

TEST_F(DateEventsFailure, RuleThatCannotBeInsertedEndsWithItsOwnRecordAndUndoesTheContact) {
  Refuse("INSERT INTO Recurrences");
  EXPECT_FALSE(Born()->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CRecurrence.Save");
  EXPECT_EQ(Rows("Contacts"), 0);
}

TEST_F(DateEventsFailure, SearchThatFailsIsRecordedInTheNameOfTheContact) {
  const Ref<CContact> contact = AnnLee();
  contact->City = "Leeds";
  Refuse("SELECT EVE_ID FROM Events");
  EXPECT_FALSE(contact->Save());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CContact.Save] Error: -2147217900 - made to fail");
  EXPECT_FALSE(session->TransactionStarted());
}

TEST_F(DateEventsFailure, EventThatCannotBeReadIsATrappedFailure) {
  const Ref<CContact> contact = AnnLee();
  contact->City = "Leeds";
  Refuse("SELECT * FROM Events");
  EXPECT_FALSE(contact->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CContact.Save");
  EXPECT_EQ(Rows("Contacts WHERE CNT_City='Leeds'"), 0);
}

TEST_F(DateEventsFailure, DeleteThatFailsIsRecordedInTheNameOfTheContactAndUndone) {
  const Ref<CContact> contact = AnnLee();
  contact->BirthDate = Date();
  Refuse("DELETE FROM Events");
  EXPECT_FALSE(contact->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CContact.Save");
  EXPECT_EQ(Stored("SELECT CNT_BirthDate FROM Contacts"), "2/29/1980 8:09:10 AM");
}

TEST_F(DateEventsFailure, EventsWithoutASequenceAreATrappedFailure) {
  Run("DELETE * FROM Sequences WHERE SEQ_ID=4");
  EXPECT_FALSE(Born()->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CContact.Save");
  EXPECT_EQ(session->GetErrorCode(), 91);
  EXPECT_EQ(Rows("Contacts"), 0);
}

TEST_F(DateEventsFailure, RolledBackSaveTakesTheEventsNumberBack) {
  Refuse("INSERT INTO Events");
  EXPECT_FALSE(Born()->Save());
  EXPECT_EQ(Stored("SELECT SEQ_Value FROM Sequences WHERE SEQ_ID=4"), "0");
}

}  // namespace
}  // namespace zef::test
