#include "addressbook/contact.h"

#include "tests/addressbook/contact_fixture.h"

namespace zef::test {
namespace {

template <class Member>
ColumnCase<CContact> Case(const std::string& column, Member member, const std::string& literal, const std::string& text,
                          const std::string& null) {
  return {column, literal, text, null, [member](const CContact& c) { return Shown((c.*member).get()); }};
}
ColumnCase<CContact> TextCase(const std::string& column, ContactText member) {
  return Case(column, member, "'" + column + "'", column, "");
}
ColumnCase<CContact> DateCase(const std::string& column, Property<Date> CContact::*member, const std::string& date) {
  return Case(column, member, "'" + date + "'", date, "12:00:00 AM");
}

const ColumnCases<CContact> kColumns = {
    {"CNT_ID", "71", "71", "", [](auto& c) { return Shown(c.ID); }},
    Case("CNT_FolderID", &CContact::FolderID, "72", "72", "0"),
    Case("CNT_CategoryID", &CContact::CategoryID, "73", "73", "0"),
    TextCase("CNT_FirstName", &CContact::FirstName),
    TextCase("CNT_LastName", &CContact::LastName),
    TextCase("CNT_MI", &CContact::MI),
    TextCase("CNT_Suffix", &CContact::Suffix),
    TextCase("CNT_Dear", &CContact::Dear),
    TextCase("CNT_Address", &CContact::Address),
    TextCase("CNT_City", &CContact::City),
    TextCase("CNT_State", &CContact::State),
    TextCase("CNT_Country", &CContact::Country),
    TextCase("CNT_PostalCode", &CContact::PostalCode),
    TextCase("CNT_Region", &CContact::Region),
    TextCase("CNT_Phone", &CContact::Phone),
    TextCase("CNT_MobilePhone", &CContact::MobilePhone),
    TextCase("CNT_Email", &CContact::Email),
    TextCase("CNT_URL", &CContact::URL),
    TextCase("CNT_JobTitle", &CContact::JobTitle),
    DateCase("CNT_BirthDate", &CContact::BirthDate, "2/3/2024 1:00:00 PM"),
    DateCase("CNT_Anniversary", &CContact::Anniversary, "2/4/2024 2:00:00 PM"),
    TextCase("CNT_Company", &CContact::Company),
    TextCase("CNT_WorkAddress", &CContact::WorkAddress),
    TextCase("CNT_WorkCity", &CContact::WorkCity),
    TextCase("CNT_WorkState", &CContact::WorkState),
    TextCase("CNT_WorkCountry", &CContact::WorkCountry),
    TextCase("CNT_WorkPostalCode", &CContact::WorkPostalCode),
    TextCase("CNT_WorkRegion", &CContact::WorkRegion),
    TextCase("CNT_WorkPhone", &CContact::WorkPhone),
    TextCase("CNT_WorkExtension", &CContact::WorkExtension),
    TextCase("CNT_WorkFax", &CContact::WorkFax),
    TextCase("CNT_WorkEmail", &CContact::WorkEmail),
    TextCase("CNT_WorkURL", &CContact::WorkURL),
    TextCase("CNT_WorkOffice", &CContact::WorkOffice),
    TextCase("CNT_WorkDepartment", &CContact::WorkDepartment),
    TextCase("CNT_Profession", &CContact::Profession),
    TextCase("CNT_AssistantName", &CContact::AssistantName),
    DateCase("CNT_LastMeetingDate", &CContact::LastmeetingDate, "2/5/2024 3:00:00 PM"),
    TextCase("CNT_ReferredBy", &CContact::ReferredBy),
    TextCase("CNT_Notes", &CContact::Notes),
    TextCase("CNT_CustomField1", &CContact::CustomField1),
    TextCase("CNT_CustomField2", &CContact::CustomField2),
    DateCase("CNT_DateLastUpdate", &CContact::DateLastUpdate, "2/6/2024 4:00:00 PM"),
};

/// The setters of what `IsEmpty` looks at.
std::vector<Setter<CContact>> Setters() {
  std::vector<Setter<CContact>> setters = {
      {"CategoryID", [](auto& c) { c.CategoryID = 5; }, [](auto& c) { c.CategoryID = 6; }},
      {"BirthDate", [](auto& c) { c.BirthDate = Date(1); }, [](auto& c) { c.BirthDate = Date(2); }},
      {"Anniversary", [](auto& c) { c.Anniversary = Date(1); }, [](auto& c) { c.Anniversary = Date(2); }},
      {"LastmeetingDate", [](auto& c) { c.LastmeetingDate = Date(1); }, [](auto& c) { c.LastmeetingDate = Date(2); }},
  };
  for (const TextColumn& one : kContactTexts) {
    const ContactText text = one.text;
    setters.push_back({one.column, [text](auto& c) { c.*text = "a"; }, [text](auto& c) { c.*text = "A"; }});
  }
  return setters;
}
const std::vector<Setter<CContact>> kSettersThatDoNotCount = {
    {"FolderID", [](auto& c) { c.FolderID = 7; }, [](auto& c) { c.FolderID = 8; }},
    {"DateLastUpdate", [](auto& c) { c.DateLastUpdate = Date(1); }, [](auto& c) { c.DateLastUpdate = Date(2); }},
};

using ContactRecord = ContactTest;

// ---- a new contact

TEST_F(ContactRecord, NewContactIsNewAndNotModified) { EXPECT_EQ(Flags(*MakeRef<CContact>()), "new clear"); }

TEST_F(ContactRecord, NewContactHasZeroOrNothingInEveryColumn) {
  const auto contact = MakeRef<CContact>();
  EXPECT_EQ(contact->ID, 0);
  ExpectAllNullValues(*contact, kColumns);
}

// ---- properties and flags

TEST_F(ContactRecord, EverySetterMarksOnlyAChange) {
  const auto contact = MakeRef<CContact>();
  for (const Setter<CContact>& setter : Setters()) ExpectMarksOnlyChanges(*contact, setter);
  for (const Setter<CContact>& setter : kSettersThatDoNotCount) ExpectMarksOnlyChanges(*contact, setter);
}

TEST_F(ContactRecord, IdentifierAndSessionDoNotMarkTheContact) {
  const auto contact = MakeRef<CContact>();
  contact->ID = 5;
  contact->SetSession(session);
  EXPECT_FALSE(contact->IsModified());
}

TEST_F(ContactRecord, ResetFlagsMakesTheContactNewAndModified) {
  const Ref<CContact> contact = Saved(FullContact());
  contact->ResetFlags();
  EXPECT_EQ(Flags(*contact), "new modified");
}

TEST_F(ContactRecord, ResetFlagsXSetsEachFlag) {
  const Ref<CContact> contact = NewContact();
  contact->ResetFlagsX(true, false);
  EXPECT_EQ(Flags(*contact), "old modified");
  contact->ResetFlagsX(false, true);
  EXPECT_EQ(Flags(*contact), "new clear");
}

// ---- emptiness

TEST_F(ContactRecord, NewContactIsEmpty) { EXPECT_TRUE(MakeRef<CContact>()->IsEmpty()); }

TEST_F(ContactRecord, EachPropertyThatCountsMakesAContactNotEmpty) {
  for (const Setter<CContact>& setter : Setters()) {
    const auto contact = MakeRef<CContact>();
    setter.set_first(*contact);
    EXPECT_FALSE(contact->IsEmpty()) << setter.name;
  }
}

TEST_F(ContactRecord, IdentifierFolderAndLastUpdateDoNotCount) {
  const auto contact = MakeRef<CContact>();
  for (const Setter<CContact>& setter : kSettersThatDoNotCount) setter.set_first(*contact);
  contact->ID = 5;
  EXPECT_TRUE(contact->IsEmpty());
}

TEST_F(ContactRecord, CategoryOneCounts) {
  const auto contact = MakeRef<CContact>();
  contact->CategoryID = 1;
  EXPECT_FALSE(contact->IsEmpty());
}

TEST_F(ContactRecord, CategoryMinusOneDoesNotCount) {
  const auto contact = MakeRef<CContact>();
  contact->CategoryID = -1;
  EXPECT_TRUE(contact->IsEmpty());
}

// ---- reading a row

TEST_F(ContactRecord, RowFillsEveryProperty) {
  Run(InsertOfAll("Contacts", kColumns));
  ExpectAllValues(*session->GetContact(71), kColumns);
}

TEST_F(ContactRecord, NullsReadAsEmptyAndZero) {
  Run("INSERT INTO Contacts (CNT_ID) VALUES (71)");
  ExpectAllNullValues(*session->GetContact(71), kColumns);
}

TEST_F(ContactRecord, NullReplacesWhatTheObjectHeld) {
  Run("INSERT INTO Contacts (CNT_ID) VALUES (71)");
  const Ref<CContact> contact = FullContact();
  contact->ID = 71;
  ASSERT_TRUE(contact->Refresh());
  ExpectAllNullValues(*contact, kColumns);
}

TEST_F(ContactRecord, ColumnsAreReadInTheirOrder) {
  Run(InsertOfAll("Contacts", kColumns));
  ExpectReadInOrder(connection(), "Contacts", kColumns, [] { return MakeRef<CContact>(); });
}

TEST_F(ContactRecord, NullIdentifierCannotBeRead) {
  Run("INSERT INTO Contacts (CNT_ID) VALUES (71)");
  const Ref<Recordset> rs = Run("SELECT Null AS CNT_ID," + ColumnList(kColumns, "CNT_ID") + " FROM Contacts");
  EXPECT_EQ(NumberRaised([&] { NewContact()->GetValuesFromRS(rs); }), 94);
}

TEST_F(ContactRecord, ReadsAndWritesEveryColumnOfItsTable) {
  EXPECT_THAT(ColumnsRead(kColumns), testing::ElementsAreArray(ColumnsOf(connection(), "Contacts")));
  EXPECT_THAT(ColumnsWritten(*NewContact(), "CNT_ID"),
              testing::UnorderedElementsAreArray(ColumnsOf(connection(), "Contacts")));
}

TEST_F(ContactRecord, ReadingClearsTheFlags) {
  Run(InsertOfAll("Contacts", kColumns));
  EXPECT_EQ(Flags(*session->GetContact(71)), "old clear");
}

TEST_F(ContactRecord, ReadingWithoutARecordSetRaises) {
  EXPECT_EQ(NumberRaised([] { MakeRef<CContact>()->GetValuesFromRS(nullptr); }), 91);
}

// ---- refreshing

TEST_F(ContactRecord, RefreshSendsTheSelectOfOneContactAndTakesItsValues) {
  const Ref<CContact> contact = Saved(Named("Ann", "Lee"));
  Run("UPDATE Contacts SET CNT_City='Leeds'");
  EXPECT_TRUE(contact->Refresh());
  EXPECT_EQ(SentInAll(), Texts{"SELECT * FROM Contacts WHERE CNT_ID=1"});
  EXPECT_EQ(contact->City, "Leeds");
}

TEST_F(ContactRecord, RefreshClearsTheFlags) {
  const Ref<CContact> contact = Saved(Named("Ann", "Lee"));
  contact->City = "Leeds";
  ASSERT_TRUE(contact->Refresh());
  EXPECT_EQ(Flags(*contact), "old clear");
  EXPECT_EQ(contact->City, "");
}

TEST_F(ContactRecord, RefreshOfADeletedContactRecords104) {
  const Ref<CContact> contact = Saved(Named("Ann", "Lee"));
  Run("DELETE * FROM Contacts");
  EXPECT_FALSE(contact->Refresh());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CContact.Refresh] Error: 104 - No contact found");
}

TEST_F(ContactRecord, RefreshOfADeletedContactLeavesValuesAndFlags) {
  const Ref<CContact> contact = Saved(Named("Ann", "Lee"));
  contact->City = "Leeds";
  Run("DELETE * FROM Contacts");
  EXPECT_FALSE(contact->Refresh());
  EXPECT_EQ(contact->FullName() + contact->City.get(), "Lee, AnnLeeds");
  EXPECT_EQ(Flags(*contact), "old modified");
}

TEST_F(ContactRecord, RefreshThatFailsIsRecorded) {
  const Ref<CContact> contact = Saved(Named("Ann", "Lee"));
  Refuse("SELECT * FROM Contacts");
  EXPECT_FALSE(contact->Refresh());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CContact.Refresh] Error: -2147217900 - made to fail");
}

TEST_F(ContactRecord, RefreshDoesNotClearAnOldError) {
  const Ref<CContact> contact = Saved(Named("Ann", "Lee"));
  LeaveAnOldError();
  EXPECT_TRUE(contact->Refresh());
  EXPECT_EQ(session->GetErrorCode(), 77);
}

// ---- the fields

TEST_F(ContactRecord, FieldsHaveFiftyRowsThreeColumnsAndAreEmptyBehindTheLast) {
  FieldsArray fields;
  std::int32_t count = 0;
  EXPECT_TRUE(FullContact()->GetFieldsArray(FN_DATABASE, fields, count));
  EXPECT_EQ(count, 50);
  EXPECT_EQ(fields.LastRow(), 50);
  EXPECT_EQ(fields.LastColumn(), 2);
  EXPECT_EQ(fields(41, 0), "CNT_Company");
  for (std::int32_t row = 42; row <= 50; ++row) EXPECT_EQ(fields(row, 0) + fields(row, 1), "") << row;
}

TEST_F(ContactRecord, FieldsOfAnUnknownKindAreEmpty) {
  FieldsArray fields;
  std::int32_t count = 0;
  EXPECT_TRUE(FullContact()->GetFieldsArray(static_cast<FieldType>(0), fields, count));
  EXPECT_EQ(count, 50);
  for (std::int32_t row = 0; row <= 50; ++row) EXPECT_EQ(fields(row, 0) + fields(row, 1), "") << row;
}

TEST_F(ContactRecord, FieldsUpToADateOutOfRangeAreFilledAndTheFailureIsRecorded) {
  const Ref<CContact> contact = FullContact();
  contact->Anniversary = Date(3e6);
  FieldsArray fields;
  std::int32_t count = 0;
  EXPECT_FALSE(contact->GetFieldsArray(FN_DATABASE, fields, count));
  EXPECT_EQ(fields(37, 0), "CNT_LastMeetingDate");
  EXPECT_EQ(fields(38, 0), "");
  EXPECT_EQ(session->GetErrorProcedure(), "CContact.GetFieldsArray");
}

}  // namespace
}  // namespace zef::test
