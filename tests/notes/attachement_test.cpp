#include "notes/attachement.h"

#include "tests/notes/attachement_fixture.h"

namespace zef::test {
namespace {

const ColumnCases<CAttachement> kColumns = {
    {"ATC_ID", "81", "81", "", [](auto& a) { return Shown(a.ID); }},
    {"ATC_Name", "'a name'", "a name", "", [](auto& a) { return Shown(a.Name); }},
    {"ATC_DocType", "'txt'", "txt", "", [](auto& a) { return Shown(a.DocType); }},
    {"ATC_Description", "'a description'", "a description", "", [](auto& a) { return Shown(a.Description); }},
    {"ATC_FileName", "'/a/file'", "/a/file", "", [](auto& a) { return Shown(a.FileName); }},
};

const std::vector<Setter<CAttachement>> kSetters = {
    {"Name", [](auto& a) { a.Name = "a"; }, [](auto& a) { a.Name = "A"; }},
    {"DocType", [](auto& a) { a.DocType = "a"; }, [](auto& a) { a.DocType = "A"; }},
    {"Description", [](auto& a) { a.Description = "a"; }, [](auto& a) { a.Description = "A"; }},
    {"FileName", [](auto& a) { a.FileName = "a"; }, [](auto& a) { a.FileName = "A"; }},
    {"CacheFileName", [](auto& a) { a.CacheFileName = "a"; }, [](auto& a) { a.CacheFileName = "A"; }},
    {"Cached", [](auto& a) { a.Cached = true; }, [](auto& a) { a.Cached = false; }},
};

using AttachementRecord = AttachementTest;

// ---- a new attachment

TEST_F(AttachementRecord, NewAttachementIsNewAndNotModified) {
  EXPECT_EQ(Flags(*MakeRef<CAttachement>()), "new clear");
}

TEST_F(AttachementRecord, NewAttachementIsNotCachedAndHasNoTexts) {
  const auto attachement = MakeRef<CAttachement>();
  EXPECT_EQ(attachement->ID, 0);
  EXPECT_FALSE(attachement->Cached);
  EXPECT_EQ(attachement->CacheFileName, "");
  EXPECT_TRUE(attachement->IsEmpty());
}

TEST_F(AttachementRecord, AnyOneTextOfTheRowMakesItNotEmpty) {
  for (auto text : {&CAttachement::Name, &CAttachement::DocType, &CAttachement::Description, &CAttachement::FileName}) {
    const auto attachement = MakeRef<CAttachement>();
    (*attachement).*text = "x";
    EXPECT_FALSE(attachement->IsEmpty());
  }
}

TEST_F(AttachementRecord, CacheAndIdentifierDoNotKeepItFromBeingEmpty) {
  const auto attachement = MakeRef<CAttachement>();
  attachement->ID = 5;
  attachement->CacheFileName = "/tmp/zef1.txt";
  attachement->Cached = true;
  EXPECT_TRUE(attachement->IsEmpty());
}

TEST_F(AttachementRecord, EverySetterMarksOnlyAChange) {
  for (const Setter<CAttachement>& setter : kSetters) ExpectMarksOnlyChanges(*MakeRef<CAttachement>(), setter);
}

TEST_F(AttachementRecord, CachedMarksALoadedAttachement) {
  const Ref<CAttachement> attachement = LoadedAttachement();
  attachement->Cached = true;
  EXPECT_TRUE(attachement->IsModified());
}

// ---- reading

TEST_F(AttachementRecord, RowFillsEveryProperty) {
  Run(InsertOfAll("Attachements", kColumns));
  ExpectAllValues(*session->GetAttachement(81), kColumns);
}

TEST_F(AttachementRecord, NullsReadAsEmpty) {
  Run("INSERT INTO Attachements (ATC_ID) VALUES (81)");
  ExpectAllNullValues(*session->GetAttachement(81), kColumns);
}

TEST_F(AttachementRecord, ColumnsAreReadInTheirOrder) {
  Run(InsertOfAll("Attachements", kColumns));
  ExpectReadInOrder(connection(), "Attachements", kColumns, [] { return MakeRef<CAttachement>(); });
}

TEST_F(AttachementRecord, NullIdentifierCannotBeRead) {
  Run("INSERT INTO Attachements (ATC_ID) VALUES (81)");
  const Ref<Recordset> rs = Run("SELECT Null AS ATC_ID," + ColumnList(kColumns, "ATC_ID") + " FROM Attachements");
  EXPECT_EQ(NumberRaised([&] { MakeRef<CAttachement>()->GetValuesFromRS(rs); }), 94);
}

TEST_F(AttachementRecord, ReadingClearsBothFlags) { EXPECT_EQ(Flags(*LoadedAttachement()), "old clear"); }

TEST_F(AttachementRecord, ReadingARowLeavesTheCacheProperties) {
  const Ref<CAttachement> attachement = LoadedAttachement();
  attachement->CacheFileName = CachePath("mine");
  attachement->Cached = true;
  attachement->GetValuesFromRS(Run("SELECT * FROM Attachements"));
  EXPECT_EQ(attachement->CacheFileName, CachePath("mine"));
  EXPECT_TRUE(attachement->Cached);
}

TEST_F(AttachementRecord, ReadsEveryColumnButTheContent) {
  Texts columns = ColumnsRead(kColumns);
  columns.push_back("ATC_Content");
  EXPECT_THAT(columns, testing::UnorderedElementsAreArray(ColumnsOf(connection(), "Attachements")));
}

TEST_F(AttachementRecord, FieldsHaveTenEmptyRowsAndTwoFurtherColumns) {
  FieldsArray fields;
  std::int32_t count = 0;
  ASSERT_TRUE(FullAttachement()->GetFieldsArray(FN_DATABASE, fields, count));
  EXPECT_EQ(count, 10);
  EXPECT_EQ(fields.LastRow(), 10);
  EXPECT_EQ(fields.LastColumn(), 2);
  for (std::int32_t row = 0; row <= 10; ++row) EXPECT_EQ(fields(row, 0) + fields(row, 1), "") << row;
}

// ---- the session's operations

TEST_F(AttachementRecord, GetAttachementSendsOneSelect) {
  session->GetAttachement(81);
  EXPECT_EQ(SentInAll(), Texts{"SELECT * FROM Attachements WHERE ATC_ID=81"});
}

TEST_F(AttachementRecord, GetAttachementWithoutARowGivesNothingAndNoError) {
  LeaveAnOldError();
  EXPECT_FALSE(session->GetAttachement(81));
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(AttachementRecord, GetAttachementThatFailsIsRecorded) {
  Refuse("SELECT");
  EXPECT_FALSE(session->GetAttachement(81));
  EXPECT_EQ(session->GetEntireErrorDesc(), "[GetAttachement] Error: -2147217900 - made to fail");
}

TEST_F(AttachementRecord, DeleteAttachementSendsOneDelete) {
  LoadedAttachement();
  EXPECT_TRUE(session->DeleteAttachement(1));
  EXPECT_EQ(SentInAll(), Texts{"DELETE * FROM Attachements WHERE ATC_ID=1"});
  EXPECT_EQ(Rows("Attachements"), 0);
}

TEST_F(AttachementRecord, DeleteAttachementWithoutARowSucceedsAndClearsAnOldError) {
  LeaveAnOldError();
  EXPECT_TRUE(session->DeleteAttachement(81));
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(AttachementRecord, DeleteAttachementIsOpenToASessionThatMayOnlyRead) {
  LoadedAttachement();
  session->UserRights = DataViewer;
  EXPECT_TRUE(session->DeleteAttachement(1));
  EXPECT_EQ(Rows("Attachements"), 0);
}

TEST_F(AttachementRecord, DeleteAttachementLeavesTheCacheFile) {
  ASSERT_TRUE(LoadedAttachement()->Cache2File());
  EXPECT_TRUE(session->DeleteAttachement(1));
  EXPECT_EQ(CacheFiles(), Texts{"zef1.jpg"});
}

TEST_F(AttachementRecord, DeleteAttachementJoinsTheClientsTransaction) {
  LoadedAttachement();
  ASSERT_TRUE(session->BeginTransaction());
  EXPECT_TRUE(session->DeleteAttachement(1));
  EXPECT_TRUE(session->TransactionStarted());
  ASSERT_TRUE(session->RollbackTransaction());
  EXPECT_EQ(Rows("Attachements"), 1);
}

TEST_F(AttachementRecord, DeleteAttachementThatFailsIsRecorded) {
  Refuse("DELETE");
  EXPECT_FALSE(session->DeleteAttachement(81));
  EXPECT_EQ(session->GetEntireErrorDesc(), "[DeleteAttachement] Error: -2147217900 - made to fail");
}

}  // namespace
}  // namespace zef::test
