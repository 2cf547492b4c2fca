#include <limits>

#include "tests/folders/category_fixture.h"
#include "tests/support/fault_sweep.h"
#include "tests/support/raised.h"

namespace zef::test {
namespace {

using CategoryRecord = CategoryTest;

TEST_F(CategoryRecord, FreshOneIsNewUnmodifiedAndEmpty) {
  const auto category = MakeRef<CCategory>();
  EXPECT_EQ(Flags(*category), "new clear");
  EXPECT_EQ(category->ID, 0);
  EXPECT_EQ(category->Color, 0);
  EXPECT_EQ(category->Name, "");
  EXPECT_TRUE(category->DateLastUpdate->IsZero());
}

TEST_F(CategoryRecord, EachPropertyMarksItAsModified) {
  const auto color = MakeRef<CCategory>();
  color->Color = 1;
  const auto name = MakeRef<CCategory>();
  name->Name = "Home";
  const auto date = MakeRef<CCategory>();
  date->DateLastUpdate = now_;
  EXPECT_TRUE(color->IsModified() && name->IsModified() && date->IsModified());
}

TEST_F(CategoryRecord, IsReadWithAllItsColumns) {
  Run("INSERT INTO Categories (CAT_ID,CAT_Name,CAT_Color,CAT_DateLastUpdate) VALUES (5,'Home',255,'2/3/1850')");
  const Ref<CCategory> category = session->GetCategory(5);
  EXPECT_EQ(category->ID, 5);
  EXPECT_EQ(category->Name, "Home");
  EXPECT_EQ(category->Color, 255);
  EXPECT_EQ(category->DateLastUpdate, On("2/3/1850"));
  EXPECT_EQ(Flags(*category), "old clear");
}

TEST_F(CategoryRecord, NullsReadAsZeroAndEmpty) {
  Run("INSERT INTO Categories (CAT_ID) VALUES (5)");
  const Ref<CCategory> category = session->GetCategory(5);
  EXPECT_EQ(category->Name, "");
  EXPECT_EQ(category->Color, 0);
  EXPECT_TRUE(category->DateLastUpdate->IsZero());
}

TEST_F(CategoryRecord, NullInTheKeyRaises) {
  Run("INSERT INTO Categories (CAT_ID) VALUES (5)");
  const Ref<Recordset> row = Run("SELECT Null AS CAT_ID, CAT_Name, CAT_Color, CAT_DateLastUpdate FROM Categories");
  EXPECT_EQ(NumberRaised([&] { MakeRef<CCategory>()->GetValuesFromRS(row); }), 94);
}

// ---- Save

TEST_F(CategoryRecord, SaveThatCannotMakeItsRowsDrawsNoIdentifier) {
  const Ref<CCategory> category = NewCategory("Home");
  const ClockOverride no_date(Date(1e9));
  EXPECT_FALSE(category->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CCategory.Save");
  EXPECT_EQ(session->GetErrorCode(), 5);
  EXPECT_EQ(SequencesDrawn(), Texts{});
  EXPECT_EQ(category->ID, 0);
}

TEST_F(CategoryRecord, FirstSaveDrawsFromSequenceNine) {
  SetSequences({{9, 41}});
  EXPECT_EQ(StoredCategory("Home")->ID, 42);
  EXPECT_EQ(Rows("Categories WHERE CAT_ID=42"), 1);
}

TEST_F(CategoryRecord, InsertSpellsTheNameInItsOwnWay) {
  const Ref<CCategory> category = NewCategory("O'Neill's");
  category->Color = -1;
  EXPECT_TRUE(category->Save());
  EXPECT_EQ(Sent(), Texts{"INSERT INTO Categories (CAT_ID,CAT_NAme,CAT_Color,CAT_DateLastUpdate) VALUES "
                          "(1,'O''Neill''s',-1,'5/1/2024 9:00:00 AM')"});
  EXPECT_EQ(Stored("SELECT CAT_Name FROM Categories"), "O'Neill's");
}

TEST_F(CategoryRecord, InsertLeavesOutAnEmptyName) {
  const Ref<CCategory> category = NewCategory();
  category->Color = 7;
  EXPECT_TRUE(category->Save());
  EXPECT_EQ(Sent(), Texts{"INSERT INTO Categories (CAT_ID,CAT_Color,CAT_DateLastUpdate) VALUES "
                          "(1,7,'5/1/2024 9:00:00 AM')"});
  EXPECT_EQ(Stored("SELECT CAT_Name FROM Categories"), "Null");
}

TEST_F(CategoryRecord, SecondSaveAfterAChangeUpdates) {
  const Ref<CCategory> category = StoredCategory("Home");
  category->Name = "";
  EXPECT_TRUE(category->Save());
  EXPECT_EQ(Sent(), Texts{"UPDATE Categories SET CAT_ID=1,CAT_NAme='',CAT_Color=0,CAT_DateLastUpdate="
                          "'5/1/2024 9:00:00 AM' WHERE CAT_ID=1"});
}

TEST_F(CategoryRecord, SaveOfANewUnchangedOneDrawsNothingAndAddsNoRow) {
  const Ref<CCategory> category = NewCategory();
  EXPECT_TRUE(category->Save());
  EXPECT_EQ(SentInAll(), Texts{});
  EXPECT_EQ(category->ID, 0);
  EXPECT_EQ(Flags(*category), "old clear");
}

TEST_F(CategoryRecord, SaveKeepsTheOldDateOfTheObject) {
  EXPECT_TRUE(StoredCategory("Home")->DateLastUpdate->IsZero());
  EXPECT_EQ(session->GetCategory(1)->DateLastUpdate, now_);
}

TEST_F(CategoryRecord, SaveClearsTheFlagsAndAnOldError) {
  LeaveAnOldError();
  const Ref<CCategory> category = NewCategory("Home");
  EXPECT_TRUE(category->Save());
  EXPECT_EQ(Flags(*category), "old clear");
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(CategoryRecord, TwoMayBearOneName) {
  StoredCategory("Home");
  EXPECT_TRUE(NewCategory("Home")->Save());
  EXPECT_EQ(Rows("Categories"), 2);
}

TEST_F(CategoryRecord, LimitsOfColorsAreKept) {
  for (const std::int32_t color :
       {std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()}) {
    const Ref<CCategory> category = NewCategory("Home");
    category->Color = color;
    ASSERT_TRUE(category->Save());
    EXPECT_EQ(session->GetCategory(category->ID)->Color, color);
  }
}

TEST_F(CategoryRecord, EmojiInANameIsKept) {
  const std::string name = "\xF0\x9F\x8E\xB5 'x'";
  EXPECT_EQ(session->GetCategory(StoredCategory(name)->ID)->Name, name);
}

TEST_F(CategoryRecord, NameThatIsTooLongFailsAndCanBeMended) {
  const Ref<CCategory> category = NewCategory(std::string(256, 'n'));
  EXPECT_FALSE(category->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CCategory.Save");
  EXPECT_EQ(session->GetErrorCode(), -2147217833);
  EXPECT_EQ(Flags(*category), "new modified");
  category->Name = std::string(255, 'n');
  EXPECT_TRUE(category->Save());
}

TEST_F(CategoryRecord, ResetFlagsMakesTheNextSaveInsertUnderANewIdentifier) {
  const Ref<CCategory> category = StoredCategory("Home");
  category->ResetFlags();
  ASSERT_TRUE(category->Save());
  EXPECT_EQ(category->ID, 2);
  EXPECT_EQ(Rows("Categories"), 2);
}

TEST_F(CategoryRecord, SaveIsRefusedToASessionThatMayOnlyRead) {
  const Ref<CCategory> category = NewCategory("Home");
  LeaveAnOldError();
  session->UserRights = DataViewer;
  EXPECT_FALSE(category->Save());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CCategory.Save] Error: 105 - You don't have rights to insert/edit data");
  EXPECT_EQ(SentInAll(), Texts{});
  EXPECT_EQ(Flags(*category), "new modified");
}

TEST_F(CategoryRecord, SaveWithoutItsSequenceFailsInTheNameOfTheSequence) {
  Run("DELETE * FROM Sequences WHERE SEQ_ID=9");
  const Ref<CCategory> category = NewCategory("Home");
  EXPECT_FALSE(category->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "GetUniqueIDFromSeq");
  EXPECT_EQ(session->GetErrorCode(), 3021);
  EXPECT_EQ(Flags(*category), "new modified");
  EXPECT_EQ(Rows("Categories"), 0);
}

TEST_F(CategoryRecord, SaveJoinsTheClientsTransaction) {
  ASSERT_TRUE(session->BeginTransaction());
  ASSERT_TRUE(NewCategory("Home")->Save());
  EXPECT_TRUE(session->TransactionStarted());
  ASSERT_TRUE(session->RollbackTransaction());
  EXPECT_EQ(Rows("Categories"), 0);
}

TEST_F(CategoryRecord, SaveWithoutASessionRaises) {
  EXPECT_EQ(NumberRaised([] { MakeRef<CCategory>()->Save(); }), 91);
}

TEST_F(CategoryRecord, EveryFailureOfANewOnesSaveLeavesFlagsAndRows) {
  const Ref<CCategory> category = NewCategory("Home");
  const auto flags = [&] { return Flags(*category); };
  EXPECT_EQ(FailEachCall(
                database, *session, [&] { return category->Save(); }, flags, Unchanged::AllButSequences)
                .size(),
            5u);
}

TEST_F(CategoryRecord, FailureOfAnUpdateLeavesFlagsAndRow) {
  const Ref<CCategory> category = StoredCategory("Home");
  category->Name = "Work";
  const auto flags = [&] { return Flags(*category); };
  const auto failures = FailEachCall(
      database, *session, [&] { return category->Save(); }, flags);
  ASSERT_EQ(failures.size(), 1u);
  EXPECT_EQ(failures[0].procedure, "CCategory.Save");
}

}  // namespace
}  // namespace zef::test
