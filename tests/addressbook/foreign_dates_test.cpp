#include "platform/sqlite/sqlite_file.h"
#include "session/collections.h"
#include "tests/addressbook/contact_fixture.h"

namespace zef::test {
namespace {

/// A contact whose row another program has given dates that no calendar has.
class ForeignDates : public ContactTest {
 protected:
  ForeignDates() {
    Run("INSERT INTO Contacts (CNT_ID,CNT_FolderID,CNT_LastName) VALUES (7,2,'Lee')");
    Run("INSERT INTO Contacts (CNT_ID,CNT_FolderID,CNT_LastName,CNT_BirthDate) VALUES (8,2,'Moe','2/29/1996')");
    const DatabaseHandle file = OpenDatabaseFile(database.path(), "");
    EXPECT_EQ(
        sqlite3_exec(file.get(), "UPDATE Contacts SET CNT_BirthDate=3000000.5, CNT_Anniversary=-1e300 WHERE CNT_ID=7",
                     nullptr, nullptr, nullptr),
        SQLITE_OK);
  }
};

TEST_F(ForeignDates, AreReadAsTheyAre) {
  const Ref<CContact> contact = session->GetContact(7);
  ASSERT_TRUE(contact) << session->GetEntireErrorDesc();
  EXPECT_EQ(contact->BirthDate->value(), 3000000.5);
  EXPECT_EQ(contact->Anniversary->value(), -1e300);
}

TEST_F(ForeignDates, KeepNoContactOfTheFolderFromBeingLoaded) {
  const auto contacts = MakeRef<CContacts>();
  EXPECT_TRUE(session->LoadContacts4Folder(contacts, 2)) << session->GetEntireErrorDesc();
  EXPECT_EQ(contacts->Count(), 2);
}

TEST_F(ForeignDates, AreNamedByASaveThatCannotWriteThem) {
  const Ref<CContact> contact = session->GetContact(7);
  contact->FirstName = "Ann";
  EXPECT_FALSE(contact->Save());
  EXPECT_EQ(
      session->GetEntireErrorDesc(),
      "[CContact.GetFieldsArray] Error: 5 - The date in the column 'CNT_Anniversary' lies outside of the years 100 "
      "to 9999.");
  EXPECT_FALSE(session->TransactionStarted());
}

TEST_F(ForeignDates, AreNamedByADuplicateThatCannotBeSaved) {
  const Ref<CContact> copy = session->DuplicateContact(7);
  ASSERT_TRUE(copy);
  EXPECT_FALSE(copy->Save());
  EXPECT_EQ(session->GetErrorCode(), 5);
  EXPECT_EQ(Rows("Contacts"), 2);
}

TEST_F(ForeignDates, AreReplacedByDatesOfTheCalendar) {
  const Ref<CContact> contact = session->GetContact(7);
  contact->BirthDate = On("2/28/1995");
  contact->Anniversary = Date();
  EXPECT_TRUE(contact->Save()) << session->GetEntireErrorDesc();
  EXPECT_EQ(Stored("SELECT EVE_StartDate FROM Events WHERE EVE_Type='B' AND EVE_LinkID=7"), "2/28/1995");
}

TEST_F(ForeignDates, DoNotKeepAContactFromBeingDeleted) {
  EXPECT_TRUE(session->DeleteContact(7)) << session->GetEntireErrorDesc();
  EXPECT_EQ(Rows("Contacts"), 1);
}

}  // namespace
}  // namespace zef::test
