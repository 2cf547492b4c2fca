#include "session/collections.h"
#include "tests/addressbook/contact_fixture.h"
#include "tests/support/fault_sweep.h"
#include "tests/support/tags.h"

namespace zef::test {
namespace {

constexpr char kRefusal[] = "You don't have rights to insert/edit data";

class ContactOperations : public ContactTest {
 protected:
  static Texts NamesOf(const Ref<CContacts>& contacts) {
    Texts names;
    for (const Ref<CContact>& contact : *contacts) names.push_back(contact->FullName());
    return names;
  }
  void Insert(int id, int folder, const std::string& last, const std::string& first, const std::string& initial) {
    Run("INSERT INTO Contacts (CNT_ID,CNT_FolderID,CNT_LastName,CNT_FirstName,CNT_MI) VALUES (" + std::to_string(id) +
        "," + std::to_string(folder) + ",'" + last + "','" + first + "','" + initial + "')");
  }
  void InsertFive() {
    Insert(1, 2, "lee", "Bob", "B");
    Insert(2, 2, "Abel", "Zoe", "");
    Insert(3, 2, "Lee", "Bob", "A");
    Insert(4, 2, "Lee", "Ann", "C");
    Insert(5, 6, "Aaron", "Ann", "");
  }
};

// ---- GetContact, CreateContact

TEST_F(ContactOperations, GetSendsTheSelectOfOneContact) {
  session->GetContact(-5);
  EXPECT_EQ(SentInAll(), Texts{"SELECT * FROM Contacts WHERE CNT_ID=-5"});
}

TEST_F(ContactOperations, GetWithoutARowGivesNothingAndNoError) {
  LeaveAnOldError();
  EXPECT_FALSE(session->GetContact(99));
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(ContactOperations, GetGivesTheContactItsSession) { EXPECT_EQ(Saved(Named("Ann", "Lee"))->Session(), session); }

TEST_F(ContactOperations, GetThatFailsIsRecorded) {
  Refuse("SELECT * FROM Contacts");
  EXPECT_FALSE(session->GetContact(99));
  EXPECT_EQ(session->GetEntireErrorDesc(), "[GetContact] Error: -2147217900 - made to fail");
}

TEST_F(ContactOperations, CreateTwiceGivesTwoConsecutiveIdentifiersAndNoRow) {
  SetSequences({{1, 41}});
  EXPECT_EQ(session->CreateContact()->ID, 42);
  const Ref<CContact> second = session->CreateContact();
  EXPECT_EQ(second->ID, 43);
  EXPECT_EQ(second->FolderID, 0);
  EXPECT_EQ(Flags(*second), "new clear");
  EXPECT_EQ(Rows("Contacts"), 0);
}

TEST_F(ContactOperations, CreateIsRefusedToASessionThatMayOnlyReadOnTopOfAnOldError) {
  LeaveAnOldError();
  session->UserRights = DataViewer;
  EXPECT_FALSE(session->CreateContact());
  EXPECT_EQ(session->GetEntireErrorDesc(), std::string("[CSession.CreateContact] Error: 105 - ") + kRefusal);
  EXPECT_EQ(SentInAll(), Texts{});
}

TEST_F(ContactOperations, CreateWithoutASequenceGivesNothing) {
  Run("DELETE * FROM Sequences WHERE SEQ_ID=1");
  EXPECT_FALSE(session->CreateContact());
  EXPECT_EQ(session->GetErrorProcedure(), "GetUniqueIDFromSeq");
}

// ---- LoadContactsWithCriteria, LoadContacts4Folder

TEST_F(ContactOperations, LoadingWithoutCriteriaSelectsTheWholeTable) {
  InsertFive();
  const auto contacts = Loaded(&CSession::LoadContactsWithCriteria, "");
  EXPECT_EQ(SentInAll(), Texts{"SELECT * FROM Contacts"});
  EXPECT_EQ(contacts->Count(), 5);
}

TEST_F(ContactOperations, CriteriaStandInTheStatementAsTheyCome) {
  InsertFive();
  const auto contacts = Loaded(&CSession::LoadContactsWithCriteria, "CNT_ID>3 ORDER BY CNT_ID DESC");
  EXPECT_EQ(SentInAll(), Texts{"SELECT * FROM Contacts WHERE CNT_ID>3 ORDER BY CNT_ID DESC"});
  EXPECT_EQ(NamesOf(contacts), (Texts{"Aaron, Ann", "Lee, Ann C."}));
}

TEST_F(ContactOperations, ContactsOfAFolderComeByLastNameFirstNameAndInitial) {
  InsertFive();
  const auto contacts = Loaded(&CSession::LoadContacts4Folder, 2);
  EXPECT_EQ(SentInAll(), Texts{"SELECT * FROM Contacts WHERE CNT_FolderID=2 ORDER BY CNT_LastName, CNT_FirstName, "
                               "CNT_MI ASC"});
  EXPECT_EQ(NamesOf(contacts), (Texts{"Abel, Zoe", "Lee, Ann C.", "Lee, Bob A.", "lee, Bob B."}));
}

TEST_F(ContactOperations, EmptyFolderLoadsNothingAndSucceeds) {
  const auto contacts = Loaded(&CSession::LoadContacts4Folder, 2);
  EXPECT_EQ(contacts->Count(), 0);
}

TEST_F(ContactOperations, LoadingAFolderThatFailsIsRecordedByTheLoading) {
  Refuse("SELECT * FROM Contacts");
  EXPECT_FALSE(session->LoadContacts4Folder(MakeRef<CContacts>(), 2));
  EXPECT_EQ(session->GetEntireErrorDesc(), "[LoadContactsWithCriteria] Error: -2147217900 - made to fail");
}

// ---- LoadContactTagsWithCriteria

TEST_F(ContactOperations, TagsHaveIdentifierAndFullNameOfEachRow) {
  InsertFive();
  const auto tags = Loaded(&CSession::LoadContactTagsWithCriteria, "CNT_ID<4 ORDER BY CNT_ID");
  EXPECT_EQ(SentInAll(), Texts{"SELECT * FROM Contacts WHERE CNT_ID<4 ORDER BY CNT_ID"});
  EXPECT_EQ(TextsOf(tags), (Texts{"1 lee, Bob B.", "2 Abel, Zoe", "3 Lee, Bob A."}));
}

TEST_F(ContactOperations, TagsWithoutCriteriaAreOfTheWholeTable) {
  InsertFive();
  const auto tags = Loaded(&CSession::LoadContactTagsWithCriteria, "");
  EXPECT_EQ(SentInAll(), Texts{"SELECT * FROM Contacts"});
  EXPECT_EQ(tags->Count(), 5);
}

TEST_F(ContactOperations, TagOfARowOfNullsHasNothingFromTheRowBefore) {
  InsertFive();
  Run("INSERT INTO Contacts (CNT_ID) VALUES (6)");
  const auto tags = Loaded(&CSession::LoadContactTagsWithCriteria, "CNT_ID>4 ORDER BY CNT_ID");
  EXPECT_EQ(TextsOf(tags), (Texts{"5 Aaron, Ann", "6 "}));
}

TEST_F(ContactOperations, TagsThatCannotBeOpenedLeaveTheCollection) {
  ExpectTagsKept(*session, &CSession::LoadContactTagsWithCriteria, "no such column = 1", "LoadContactTagsWithCriteria");
}

TEST_F(ContactOperations, TagsOfNoRowEmptyTheCollectionAndClearAnOldError) {
  ExpectTagsEmptied(*session, &CSession::LoadContactTagsWithCriteria, "CNT_ID=5");
}

TEST_F(ContactOperations, TagsIntoNothingAreRecorded) {
  ExpectTagsIntoNothingRefused(*session, &CSession::LoadContactTagsWithCriteria, "LoadContactTagsWithCriteria");
}

TEST_F(ContactOperations, TagsThatFailOnTheWayKeepWhatWasAdded) {
  InsertFive();
  connection().Execute("ALTER TABLE Contacts ALTER COLUMN CNT_CategoryID Double");
  connection().Execute("UPDATE Contacts SET CNT_CategoryID=1E10 WHERE CNT_ID=3");
  const auto tags = MakeRef<CTags>();
  EXPECT_FALSE(session->LoadContactTagsWithCriteria(tags, "CNT_ID>0 ORDER BY CNT_ID"));
  EXPECT_EQ(session->GetErrorCode(), 6);
  EXPECT_EQ(TextsOf(tags), (Texts{"1 lee, Bob B.", "2 Abel, Zoe"}));
}

// ---- DuplicateContact

TEST_F(ContactOperations, DuplicateHasTheValuesUnderANewIdentifierAndNoRow) {
  ASSERT_TRUE(FullContact()->Save());
  const Ref<CContact> copy = session->DuplicateContact(1);
  ASSERT_TRUE(copy);
  EXPECT_EQ(copy->ID, 2);
  for (const TextColumn& one : kContactTexts) EXPECT_EQ((*copy).*one.text, std::string("'") + one.column);
  EXPECT_EQ(Flags(*copy), "new modified");
  EXPECT_EQ(Rows("Contacts"), 1);
}

TEST_F(ContactOperations, DuplicateIsInsertedByItsFirstSaveWithoutAChange) {
  ASSERT_TRUE(FullContact()->Save());
  EXPECT_TRUE(session->DuplicateContact(1)->Save());
  EXPECT_EQ(Rows("Contacts WHERE CNT_Company='''CNT_Company'"), 2);
}

TEST_F(ContactOperations, SavedDuplicateOfAContactWithABirthDateHasABirthdayOfItsOwn) {
  const Ref<CContact> contact = Named("Ann", "Lee");
  contact->BirthDate = On("2/3/1980");
  ASSERT_TRUE(contact->Save());
  ASSERT_TRUE(session->DuplicateContact(1)->Save());
  EXPECT_EQ(Rows("Events WHERE EVE_Type='B' AND EVE_LinkID=1"), 1);
  EXPECT_EQ(Rows("Events WHERE EVE_Type='B' AND EVE_LinkID=2"), 1);
}

TEST_F(ContactOperations, DuplicateOfNoRowGivesNothingDrawsNothingAndRecordsNothing) {
  EXPECT_FALSE(session->DuplicateContact(99));
  EXPECT_FALSE(session->GetErrorFlag());
  EXPECT_EQ(Stored("SELECT SEQ_Value FROM Sequences WHERE SEQ_ID=1"), "0");
}

TEST_F(ContactOperations, DuplicateWithoutASequenceGivesNothing) {
  ASSERT_TRUE(FullContact()->Save());
  Run("DELETE * FROM Sequences WHERE SEQ_ID=1");
  EXPECT_FALSE(session->DuplicateContact(1));
  EXPECT_EQ(session->GetErrorProcedure(), "GetUniqueIDFromSeq");
}

TEST_F(ContactOperations, DuplicateIsRefusedToASessionThatMayOnlyRead) {
  ASSERT_TRUE(FullContact()->Save());
  Forget();
  session->UserRights = DataViewer;
  EXPECT_FALSE(session->DuplicateContact(1));
  EXPECT_EQ(session->GetEntireErrorDesc(), std::string("[CSession.DuplicateContact] Error: 105 - ") + kRefusal);
  EXPECT_EQ(SentInAll(), Texts{});
}

TEST_F(ContactOperations, EveryFailureOfADuplicateGivesNothingAndIsRecorded) {
  ASSERT_TRUE(FullContact()->Save());
  const auto duplicate = [&] { return session->DuplicateContact(1) != nullptr; };
  EXPECT_EQ(FailEachCall(database, *session, duplicate, {}, Unchanged::AllButSequences).size(), 5u)
      << "a select and an identifier of four calls";
}

// ---- GetObjectID

class ObjectID : public ContactOperations {
 protected:
  ObjectID() { InsertFive(); }
  bool Find(const std::string& statement) { return session->GetObjectID(statement, id, folder); }
  std::int32_t id = -7;
  std::int32_t folder = -8;
};

TEST_F(ObjectID, ComesWithItsFolderFromTheNamedColumns) {
  EXPECT_TRUE(Find("SELECT CNT_FolderID AS FolderID, CNT_ID AS ID FROM Contacts WHERE CNT_LastName='Aaron'"));
  EXPECT_EQ(id, 5);
  EXPECT_EQ(folder, 6);
}

TEST_F(ObjectID, StatementIsSentAsItComes) {
  Find("SELECT CNT_ID AS id, 3 AS FOLDERID FROM Contacts WHERE CNT_ID=4");
  EXPECT_EQ(SentInAll(), Texts{"SELECT CNT_ID AS id, 3 AS FOLDERID FROM Contacts WHERE CNT_ID=4"});
  EXPECT_EQ(id + folder, 7);
}

TEST_F(ObjectID, OfNoRowLeavesBothArgumentsAndSucceeds) {
  EXPECT_TRUE(Find("SELECT CNT_ID AS ID, CNT_FolderID AS FolderID FROM Contacts WHERE CNT_ID=99"));
  EXPECT_EQ(id, -7);
  EXPECT_EQ(folder, -8);
}

TEST_F(ObjectID, WithoutAColumnOfTheFolderRaisesWithTheIdentifierWritten) {
  EXPECT_EQ(NumberRaised([&] { Find("SELECT CNT_ID AS ID FROM Contacts WHERE CNT_ID=4"); }), 3265);
  EXPECT_EQ(id, 4);
  EXPECT_EQ(folder, -8);
}

TEST_F(ObjectID, WithoutAColumnOfTheIdentifierRaisesWithNothingWritten) {
  EXPECT_EQ(NumberRaised([&] { Find("SELECT CNT_ID, CNT_FolderID AS FolderID FROM Contacts"); }), 3265);
  EXPECT_EQ(id, -7);
  EXPECT_EQ(folder, -8);
}

TEST_F(ObjectID, ThatIsNullRaises) {
  EXPECT_EQ(NumberRaised([&] { Find("SELECT Null AS ID, 1 AS FolderID FROM Contacts"); }), 94);
}

TEST_F(ObjectID, WithAFolderThatIsNullRaisesWithTheIdentifierWritten) {
  EXPECT_EQ(NumberRaised([&] { Find("SELECT 3 AS ID, Null AS FolderID FROM Contacts"); }), 94);
  EXPECT_EQ(id, 3);
}

TEST_F(ObjectID, BeyondThirtyTwoBitsRaises) {
  EXPECT_EQ(NumberRaised([&] { Find("SELECT 3000000000 AS ID, 1 AS FolderID FROM Contacts"); }), 6);
}

TEST_F(ObjectID, GivenAsATextIsConverted) {
  EXPECT_TRUE(Find("SELECT '12' AS ID, '13' AS FolderID FROM Contacts"));
  EXPECT_EQ(id + folder, 25);
}

TEST_F(ObjectID, OfABadStatementRaisesAndRecordsNothing) {
  session->ClearError();
  EXPECT_EQ(NumberRaised([&] { Find("SELECT FROM"); }), -2147217900);
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(ObjectID, OfAStatementThatSelectsNothingRaisesAndHasRun) {
  session->ClearError();
  EXPECT_EQ(NumberRaised([&] { Find("UPDATE Contacts SET CNT_City='Leeds'"); }), 3704);
  EXPECT_EQ(id, -7);
  EXPECT_EQ(folder, -8);
  EXPECT_EQ(Rows("Contacts WHERE CNT_City='Leeds'"), 5);
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(ObjectID, DoesNotClearAnOldError) {
  LeaveAnOldError();
  EXPECT_TRUE(Find("SELECT 1 AS ID, 2 AS FolderID FROM Contacts"));
  EXPECT_EQ(session->GetErrorCode(), 77);
}

TEST(ObjectIDWithoutConnection, Raises) {
  std::int32_t id = 0;
  EXPECT_EQ(NumberRaised([&] { MakeRef<CSession>()->GetObjectID("SELECT 1", id, id); }), 91);
}

}  // namespace
}  // namespace zef::test
