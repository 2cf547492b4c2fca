#include <cmath>
#include <limits>

#include "tests/addressbook/contact_fixture.h"
#include "tests/support/fault_sweep.h"

namespace zef::test {
namespace {

using ContactSave = ContactTest;

// ---- the row

TEST_F(ContactSave, InsertWritesAllColumnsInTheirOrder) {
  ASSERT_TRUE(FullContact()->Save());
  EXPECT_EQ(
      Sent(),
      Texts{"INSERT INTO Contacts (CNT_ID,CNT_FolderID,CNT_Country,CNT_State,CNT_WorkCountry,CNT_WorkState,"
            "CNT_LastName,CNT_FirstName,CNT_MI,CNT_Suffix,CNT_Dear,CNT_Address,CNT_City,CNT_PostalCode,CNT_Region,"
            "CNT_Phone,CNT_MobilePhone,CNT_Email,CNT_URL,CNT_JobTitle,CNT_WorkAddress,CNT_WorkCity,CNT_WorkPostalCode,"
            "CNT_WorkRegion,CNT_WorkPhone,CNT_WorkExtension,CNT_WorkFax,CNT_WorkEmail,CNT_WorkURL,CNT_WorkDepartment,"
            "CNT_WorkOffice,CNT_Profession,CNT_AssistantName,CNT_ReferredBy,CNT_Notes,CNT_CustomField1,"
            "CNT_CustomField2,CNT_DateLastUpdate,CNT_LastMeetingDate,CNT_Anniversary,CNT_BirthDate,CNT_CategoryID,"
            "CNT_Company) VALUES (1,21,'''CNT_Country','''CNT_State','''CNT_WorkCountry','''CNT_WorkState',"
            "'''CNT_LastName','''CNT_FirstName','''CNT_MI','''CNT_Suffix','''CNT_Dear','''CNT_Address','''CNT_City',"
            "'''CNT_PostalCode','''CNT_Region','''CNT_Phone','''CNT_MobilePhone','''CNT_Email','''CNT_URL',"
            "'''CNT_JobTitle','''CNT_WorkAddress','''CNT_WorkCity','''CNT_WorkPostalCode','''CNT_WorkRegion',"
            "'''CNT_WorkPhone','''CNT_WorkExtension','''CNT_WorkFax','''CNT_WorkEmail','''CNT_WorkURL',"
            "'''CNT_WorkDepartment','''CNT_WorkOffice','''CNT_Profession','''CNT_AssistantName','''CNT_ReferredBy',"
            "'''CNT_Notes','''CNT_CustomField1','''CNT_CustomField2','5/1/2024 9:00:00 AM','3/4/2024 5:06:07 PM',"
            "'12:00:00 AM','12:00:00 AM',22,'''CNT_Company')"});
}

TEST_F(ContactSave, InsertLeavesEmptyTextsOutAndWritesZeroDates) {
  ASSERT_TRUE(Named("Ann", "")->Save());
  EXPECT_EQ(Sent(),
            Texts{"INSERT INTO Contacts (CNT_ID,CNT_FolderID,CNT_FirstName,CNT_DateLastUpdate,CNT_LastMeetingDate,"
                  "CNT_Anniversary,CNT_BirthDate,CNT_CategoryID) VALUES (1,0,'Ann','5/1/2024 9:00:00 AM',"
                  "'12:00:00 AM','12:00:00 AM','12:00:00 AM',0)"});
}

TEST_F(ContactSave, UpdateWritesAllColumnsInTheirOrderAndBlanksEmptyTexts) {
  const Ref<CContact> contact = Saved(Named("Ann", "O'Neill"));
  contact->Company = "Acme";
  contact->CategoryID = -1;
  ASSERT_TRUE(contact->Save());
  EXPECT_EQ(
      Sent().at(0),
      "UPDATE Contacts SET CNT_ID=1,CNT_FolderID=0,CNT_Country='',CNT_State='',CNT_WorkCountry='',CNT_WorkState='',"
      "CNT_LastName='O''Neill',CNT_FirstName='Ann',CNT_MI='',CNT_Suffix='',CNT_Dear='',CNT_Address='',CNT_City='',"
      "CNT_PostalCode='',CNT_Region='',CNT_Phone='',CNT_MobilePhone='',CNT_Email='',CNT_URL='',CNT_JobTitle='',"
      "CNT_WorkAddress='',CNT_WorkCity='',CNT_WorkPostalCode='',CNT_WorkRegion='',CNT_WorkPhone='',"
      "CNT_WorkExtension='',CNT_WorkFax='',CNT_WorkEmail='',CNT_WorkURL='',CNT_WorkDepartment='',CNT_WorkOffice='',"
      "CNT_Profession='',CNT_AssistantName='',CNT_ReferredBy='',CNT_Notes='',CNT_CustomField1='',CNT_CustomField2='',"
      "CNT_DateLastUpdate='5/1/2024 9:00:00 AM',CNT_LastMeetingDate='12:00:00 AM',CNT_Anniversary='12:00:00 AM',"
      "CNT_BirthDate='12:00:00 AM',CNT_CategoryID=-1,CNT_Company='Acme' WHERE CNT_ID=1");
}

TEST_F(ContactSave, ValuesComeBackAsTheyWereSaved) {
  const Ref<CContact> contact = FullContact();
  contact->BirthDate = On("2/29/1980 8:09:10 AM");
  contact->Anniversary = On("6/3/2010");
  const Ref<CContact> loaded = Saved(contact);
  ASSERT_TRUE(loaded);
  for (const TextColumn& one : kContactTexts) EXPECT_EQ((*loaded).*one.text, std::string("'") + one.column);
  EXPECT_EQ(loaded->FolderID, 21);
  EXPECT_EQ(loaded->CategoryID, 22);
  EXPECT_EQ(loaded->LastmeetingDate, On("3/4/2024 5:06:07 PM"));
  EXPECT_EQ(loaded->BirthDate, On("2/29/1980 8:09:10 AM"));
  EXPECT_EQ(loaded->Anniversary, On("6/3/2010"));
  EXPECT_EQ(loaded->DateLastUpdate, now_);
}

TEST_F(ContactSave, ClearedTextIsStoredEmptyAndNotAsNull) {
  const Ref<CContact> contact = Saved(FullContact());
  contact->Phone = "";
  ASSERT_TRUE(contact->Save());
  EXPECT_EQ(Stored("SELECT CNT_Phone FROM Contacts"), "");
}

TEST_F(ContactSave, ClearedDateIsStoredAsTheZeroDateAndNotAsNull) {
  const Ref<CContact> contact = Saved(FullContact());
  contact->LastmeetingDate = Date();
  ASSERT_TRUE(contact->Save());
  EXPECT_EQ(Stored("SELECT CNT_LastMeetingDate FROM Contacts"), "12:00:00 AM");
}

TEST_F(ContactSave, TextsOfAllScriptsComeBackWhole) {
  const Ref<CContact> contact = NewContact();
  contact->LastName = "Åström 山田 🎈";
  contact->Notes = "it's \"so\"\r\n\tand % _ [x] \\ " + std::string(70000, 'n');
  const Ref<CContact> loaded = Saved(contact);
  EXPECT_EQ(loaded->LastName, contact->LastName.get());
  EXPECT_EQ(loaded->Notes, contact->Notes.get());
}

TEST_F(ContactSave, NumbersAtTheirLimitsComeBack) {
  const Ref<CContact> contact = NewContact();
  contact->FolderID = std::numeric_limits<std::int32_t>::max();
  contact->CategoryID = std::numeric_limits<std::int32_t>::min();
  const Ref<CContact> loaded = Saved(contact);
  EXPECT_EQ(loaded->FolderID, std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(loaded->CategoryID, std::numeric_limits<std::int32_t>::min());
}

TEST_F(ContactSave, TextsAsLongAsTheirColumnsComeBack) {
  const Ref<CContact> contact = NewContact();
  for (const TextColumn& one : kContactTexts) (*contact).*one.text = std::string(one.length, 'x');
  const Ref<CContact> loaded = Saved(contact);
  ASSERT_TRUE(loaded);
  for (const TextColumn& one : kContactTexts)
    EXPECT_EQ((*loaded).*one.text, std::string(one.length, 'x')) << one.column;
}

TEST_F(ContactSave, TextLongerThanItsColumnFails) {
  for (const TextColumn& one : kContactTexts) {
    if (one.length == 0) continue;
    const Ref<CContact> contact = NewContact();
    (*contact).*one.text = std::string(one.length + 1, 'x');
    EXPECT_FALSE(contact->Save()) << one.column;
    EXPECT_EQ(session->GetErrorProcedure(), "CContact.Save");
    EXPECT_EQ(session->GetErrorCode(), -2147217833);
    EXPECT_EQ(Flags(*contact), "new modified");
  }
}

// ---- flags and the last update

TEST_F(ContactSave, LastUpdateReadsZeroAfterASaveAndTheMomentAfterARefresh) {
  const Ref<CContact> contact = Saved(FullContact());
  contact->City = "Leeds";
  const ClockOverride later(On("5/2/2024 10:00:00 AM"));
  ASSERT_TRUE(contact->Save());
  EXPECT_EQ(contact->DateLastUpdate, Date());
  ASSERT_TRUE(contact->Refresh());
  EXPECT_EQ(contact->DateLastUpdate, On("5/2/2024 10:00:00 AM"));
}

TEST_F(ContactSave, LastUpdateReadsZeroEvenAfterASaveThatWroteNothing) {
  const Ref<CContact> contact = Saved(FullContact());
  ASSERT_EQ(contact->DateLastUpdate, now_);
  ASSERT_TRUE(contact->Save());
  EXPECT_EQ(contact->DateLastUpdate, Date());
}

TEST_F(ContactSave, PropertyOfTheLastUpdateIsNotWritten) {
  const Ref<CContact> contact = NewContact();
  contact->DateLastUpdate = On("1/1/2000");
  ASSERT_TRUE(contact->Save());
  EXPECT_EQ(Stored("SELECT CNT_DateLastUpdate FROM Contacts"), "5/1/2024 9:00:00 AM");
}

TEST_F(ContactSave, SavingClearsTheFlags) {
  const Ref<CContact> contact = FullContact();
  ASSERT_TRUE(contact->Save());
  EXPECT_EQ(Flags(*contact), "old clear");
}

TEST_F(ContactSave, UnchangedNewContactGetsNoRowAndIsNoLongerNew) {
  const Ref<CContact> contact = NewContact();
  EXPECT_TRUE(contact->Save());
  EXPECT_EQ(SentInAll(), (Texts{"BEGIN", "COMMIT"}));
  EXPECT_EQ(Flags(*contact), "old clear");
}

TEST_F(ContactSave, ContactChangedOnlyAfterAnEmptyFirstSaveGetsNoRow) {
  const Ref<CContact> contact = NewContact();
  ASSERT_TRUE(contact->Save());
  contact->City = "Leeds";
  EXPECT_TRUE(contact->Save());
  EXPECT_EQ(Rows("Contacts"), 0);
}

TEST_F(ContactSave, UnchangedLoadedContactWritesNothing) {
  const Ref<CContact> contact = Saved(FullContact());
  EXPECT_TRUE(contact->Save());
  EXPECT_EQ(SentInAll(), (Texts{"BEGIN", "COMMIT"}));
}

TEST_F(ContactSave, SaveClearsAnOldError) {
  const Ref<CContact> contact = NewContact();
  LeaveAnOldError();
  EXPECT_TRUE(contact->Save());
  EXPECT_FALSE(session->GetErrorFlag());
}

// ---- transactions

TEST_F(ContactSave, SaveRunsInATransactionOfItsOwn) {
  ASSERT_TRUE(FullContact()->Save());
  EXPECT_THAT(SentInAll(), testing::ElementsAre("BEGIN", testing::StartsWith("INSERT INTO Contacts"), "COMMIT"));
  EXPECT_FALSE(session->TransactionStarted());
}

TEST_F(ContactSave, SaveJoinsARunningTransactionAndDoesNotCommitIt) {
  const Ref<CContact> contact = FullContact();
  contact->BirthDate = On("2/3/1980");
  ASSERT_TRUE(session->BeginTransaction());
  ASSERT_TRUE(contact->Save());
  EXPECT_TRUE(session->TransactionStarted());
  EXPECT_EQ(Rows("Contacts") + Rows("Events"), 0);
  ASSERT_TRUE(session->CommitTransaction());
  EXPECT_EQ(Rows("Contacts") + Rows("Events"), 2);
}

TEST_F(ContactSave, FailedSaveDoesNotUndoARunningTransaction) {
  const Ref<CContact> contact = FullContact();
  ASSERT_TRUE(session->BeginTransaction());
  connection().Execute("INSERT INTO Contacts (CNT_ID) VALUES (99)");
  Refuse("INSERT INTO Contacts");
  EXPECT_FALSE(contact->Save());
  EXPECT_TRUE(session->TransactionStarted());
  ASSERT_TRUE(session->CommitTransaction());
  EXPECT_EQ(Rows("Contacts WHERE CNT_ID=99"), 1);
}

TEST_F(ContactSave, BeginThatFailsIsRecordedInTheNameOfTheSave) {
  const Ref<CContact> contact = FullContact();
  Refuse("BEGIN");
  EXPECT_FALSE(contact->Save());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CContact.Save] Error: -2147217900 - made to fail");
  EXPECT_EQ(Flags(*contact), "new modified");
}

TEST_F(ContactSave, CommitThatFailsIsRecordedInTheNameOfTheSaveAndUndone) {
  const Ref<CContact> contact = FullContact();
  Refuse("COMMIT");
  EXPECT_FALSE(contact->Save());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CContact.Save] Error: -2147217900 - made to fail");
  EXPECT_FALSE(session->TransactionStarted());
  EXPECT_EQ(Flags(*contact), "new modified");
  EXPECT_EQ(Rows("Contacts"), 0);
}

// ---- failures

TEST_F(ContactSave, RefusedUpdateIsRecordedAndLeavesFlagsAndLastUpdate) {
  const Ref<CContact> contact = Saved(FullContact());
  contact->City = "Leeds";
  Refuse("UPDATE Contacts");
  EXPECT_FALSE(contact->Save());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CContact.Save] Error: -2147217900 - made to fail");
  EXPECT_EQ(Flags(*contact), "old modified");
  EXPECT_EQ(contact->DateLastUpdate, now_);
}

TEST_F(ContactSave, FailedSaveSucceedsWhenRepeated) {
  const Ref<CContact> contact = FullContact();
  contact->BirthDate = On("2/3/1980");
  Refuse("INSERT INTO Events");
  EXPECT_FALSE(contact->Save());
  RefuseNothing();
  EXPECT_TRUE(contact->Save());
  EXPECT_EQ(Rows("Contacts") + Rows("Events"), 2);
}

TEST_F(ContactSave, SecondContactUnderOneIdentifierFails) {
  const Ref<CContact> contact = FullContact();
  Run("INSERT INTO Contacts (CNT_ID) VALUES (1)");
  EXPECT_FALSE(contact->Save());
  EXPECT_EQ(session->GetErrorCode(), -2147217873);
}

TEST_F(ContactSave, DateThatIsNoneIsRecordedByTheFieldsAlone) {
  for (const auto date : {&CContact::BirthDate, &CContact::Anniversary, &CContact::LastmeetingDate}) {
    for (const double value : {3e6, -7e5, std::nan("")}) {
      const Ref<CContact> contact = FullContact();
      (*contact).*date = Date(value);
      EXPECT_FALSE(contact->Save());
      EXPECT_EQ(session->GetErrorProcedure(), "CContact.GetFieldsArray");
      EXPECT_EQ(session->GetErrorCode(), 5);
      EXPECT_FALSE(session->TransactionStarted());
      EXPECT_EQ(Rows("Contacts"), 0);
    }
  }
}

TEST_F(ContactSave, SessionThatMayOnlyReadIsRefusedAndSendsNothing) {
  const Ref<CContact> contact = Saved(FullContact());
  contact->City = "Leeds";
  session->UserRights = Administrator | DataViewer;
  EXPECT_FALSE(contact->Save());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CContact.Save] Error: 105 - You don't have rights to insert/edit data");
  EXPECT_EQ(SentInAll(), Texts{});
  EXPECT_EQ(Flags(*contact), "old modified");
  EXPECT_EQ(contact->DateLastUpdate, now_);
}

TEST_F(ContactSave, RefusalComesEvenToAnUnchangedContact) {
  const Ref<CContact> contact = Saved(FullContact());
  session->UserRights = DataViewer;
  EXPECT_FALSE(contact->Save());
  EXPECT_EQ(session->GetErrorCode(), 105);
  EXPECT_EQ(SentInAll(), Texts{});
  EXPECT_EQ(contact->DateLastUpdate, now_);
}

TEST_F(ContactSave, EveryFailureOfANewContactsSaveLeavesNothingBehind) {
  const auto make = [&] {
    Ref<CContact> contact = session->CreateContact();
    if (!contact) return contact;
    contact->LastName = "Lee";
    contact->BirthDate = On("2/3/1980");
    contact->Anniversary = On("6/3/2010");
    return contact;
  };
  const auto failures = FailEachFirstSave(database, *session, make);
  EXPECT_EQ(failures.size(), 29u)
      << "five identifiers of four calls each, five inserts, two look-ups, BEGIN and COMMIT";
}

}  // namespace
}  // namespace zef::test
