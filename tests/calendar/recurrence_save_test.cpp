#include "tests/calendar/recurrence_fixture.h"

namespace zef::test {
namespace {

using RecurrenceSave = RecurrenceTest;

// ---- saving

TEST_F(RecurrenceSave, InsertWritesAllColumnsInTheirOrder) {
  ASSERT_TRUE(FullRule()->Save());
  EXPECT_EQ(Sent(), Texts{"INSERT INTO Recurrences (REC_ID,REC_OccurencesNo,REC_Options1,REC_Options2,REC_SubType,"
                          "REC_Type,REC_EndDate,REC_Day,REC_Month,REC_WeekNumber) VALUES "
                          "(1,11,12,13,14,3,'2/29/2024 6:30:15 PM',69,0,15)"});
}

TEST_F(RecurrenceSave, UpdateWritesAllColumnsInTheirOrder) {
  const Ref<CRecurrence> rule = FullRule();
  ASSERT_TRUE(rule->Save());
  rule->WeekNumber = 16;
  Forget();
  ASSERT_TRUE(rule->Save());
  EXPECT_EQ(Sent(), Texts{"UPDATE Recurrences SET REC_ID=1,REC_OccurencesNo=11,REC_Options1=12,REC_Options2=13,"
                          "REC_SubType=14,REC_Type=3,REC_EndDate='2/29/2024 6:30:15 PM',REC_Day=69,REC_Month=0,"
                          "REC_WeekNumber=16 WHERE REC_ID=1"});
}

TEST_F(RecurrenceSave, InsertWritesZerosAndTheZeroDate) {
  const Ref<CRecurrence> rule = NewRule();
  rule->EndDate = Date();
  rule->OccurencesNo = 0;
  ASSERT_TRUE(rule->Save());
  EXPECT_EQ(Sent(), Texts{"INSERT INTO Recurrences (REC_ID,REC_OccurencesNo,REC_Options1,REC_Options2,REC_SubType,"
                          "REC_Type,REC_EndDate,REC_Day,REC_Month,REC_WeekNumber) VALUES "
                          "(1,0,0,0,0,0,'12:00:00 AM',0,0,0)"});
}

TEST_F(RecurrenceSave, UpdateWritesZerosNegativesAndADateAtMidnight) {
  const Ref<CRecurrence> rule = FullRule();
  rule->ResetFlagsX(true, false);
  rule->ID = 5;
  rule->EndDate = On("5/1/2024");
  rule->Options1 = -1;
  rule->Options2 = 0;
  ASSERT_TRUE(rule->Save());
  EXPECT_EQ(Sent(), Texts{"UPDATE Recurrences SET REC_ID=5,REC_OccurencesNo=11,REC_Options1=-1,REC_Options2=0,"
                          "REC_SubType=14,REC_Type=3,REC_EndDate='5/1/2024',REC_Day=69,REC_Month=0,"
                          "REC_WeekNumber=15 WHERE REC_ID=5"});
}

TEST_F(RecurrenceSave, ZeroEndDateIsStoredAsTheZeroDateAndNotAsNull) {
  const Ref<CRecurrence> rule = NewRule();
  rule->EndDate = Date();
  ASSERT_TRUE(rule->Save());
  EXPECT_EQ(Stored("SELECT REC_EndDate FROM Recurrences"), "12:00:00 AM");
}

TEST_F(RecurrenceSave, ValuesComeBackAsTheyWereSaved) {
  const Ref<CRecurrence> saved = FullRule();
  ASSERT_TRUE(saved->Save());
  const Ref<CRecurrence> loaded = session->GetRecurrence(saved->ID);
  ASSERT_TRUE(loaded);
  for (const ColumnCase<CRecurrence>& one : kRecurrenceColumns) {
    EXPECT_EQ(one.property(*loaded), one.property(*saved)) << one.column;
  }
}

TEST_F(RecurrenceSave, MonthOfARowIsWrittenBack) {
  Run(InsertOfAll("Recurrences", kRecurrenceColumns));
  const Ref<CRecurrence> rule = session->GetRecurrence(31);
  rule->Options1 = 99;
  ASSERT_TRUE(rule->Save());
  EXPECT_EQ(Stored("SELECT REC_Month FROM Recurrences"), "7");
}

TEST_F(RecurrenceSave, FirstSaveDrawsTheIdentifierFromSequenceEight) {
  SetSequences({{8, 41}});
  const Ref<CRecurrence> rule = FullRule();
  ASSERT_TRUE(rule->Save());
  EXPECT_EQ(rule->ID, 42);
  EXPECT_EQ(Stored("SELECT SEQ_Value FROM Sequences WHERE SEQ_ID=8"), "42");
}

TEST_F(RecurrenceSave, SavingClearsBothFlags) {
  const Ref<CRecurrence> rule = FullRule();
  ASSERT_TRUE(rule->Save());
  EXPECT_EQ(Flags(*rule), "old clear");
}

TEST_F(RecurrenceSave, UnchangedNewRuleSendsNothing) {
  ASSERT_TRUE(NewRule()->Save());
  EXPECT_EQ(SentInAll(), Texts{});
}

TEST_F(RecurrenceSave, UnchangedNewRuleIsNoLongerNewAfterASave) {
  const Ref<CRecurrence> rule = NewRule();
  ASSERT_TRUE(rule->Save());
  EXPECT_FALSE(rule->IsNew());
}

TEST_F(RecurrenceSave, ChangeAfterASaveWithoutChangesUpdatesNoRow) {
  const Ref<CRecurrence> rule = NewRule();
  ASSERT_TRUE(rule->Save());
  rule->Options1 = 5;
  EXPECT_TRUE(rule->Save());
  EXPECT_EQ(Rows("Recurrences"), 0);
}

TEST_F(RecurrenceSave, SaveClearsAnOldErrorEvenWithNothingToWrite) {
  LeaveAnOldError();
  ASSERT_TRUE(NewRule()->Save());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[] Error: 0 - ");
}

TEST_F(RecurrenceSave, SaveOpensNoTransactionOfItsOwn) {
  const Ref<CRecurrence> rule = FullRule();
  rule->ResetFlagsX(true, false);
  ASSERT_TRUE(rule->Save());
  EXPECT_EQ(SentInAll().size(), 1u);
}

TEST_F(RecurrenceSave, SaveIsOpenToASessionThatMayOnlyRead) {
  session->UserRights = DataViewer;
  EXPECT_TRUE(FullRule()->Save());
  EXPECT_EQ(Rows("Recurrences"), 1);
}

TEST_F(RecurrenceSave, ResetFlagsMakesTheNextSaveInsertUnderANewIdentifier) {
  const Ref<CRecurrence> rule = FullRule();
  ASSERT_TRUE(rule->Save());
  rule->ResetFlags();
  ASSERT_TRUE(rule->Save());
  EXPECT_EQ(rule->ID, 2);
  EXPECT_EQ(Rows("Recurrences WHERE REC_WeekNumber=15"), 2);
}

TEST_F(RecurrenceSave, ResetFlagsXSetsModifiedFirstAndNewSecond) {
  const Ref<CRecurrence> rule = NewRule();
  rule->ResetFlagsX(true, false);
  EXPECT_EQ(Flags(*rule), "old modified");
  rule->ResetFlagsX(false, true);
  EXPECT_EQ(Flags(*rule), "new clear");
}

// ---- a save that fails

TEST_F(RecurrenceSave, RefusedInsertIsRecordedAndLeavesTheFlags) {
  const Ref<CRecurrence> rule = FullRule();
  Refuse("INSERT INTO Recurrences");
  EXPECT_FALSE(rule->Save());
  EXPECT_EQ(session->GetEntireErrorDesc(), "[CRecurrence.Save] Error: -2147217900 - made to fail");
  EXPECT_EQ(Flags(*rule), "new modified");
}

TEST_F(RecurrenceSave, RefusedUpdateLeavesTheFlags) {
  const Ref<CRecurrence> rule = FullRule();
  ASSERT_TRUE(rule->Save());
  rule->WeekNumber = 16;
  Refuse("UPDATE Recurrences");
  EXPECT_FALSE(rule->Save());
  EXPECT_EQ(Flags(*rule), "old modified");
}

TEST_F(RecurrenceSave, FailedSaveCanBeRepeated) {
  const Ref<CRecurrence> rule = FullRule();
  Refuse("INSERT INTO Recurrences");
  ASSERT_FALSE(rule->Save());
  RefuseNothing();
  EXPECT_TRUE(rule->Save());
  EXPECT_EQ(Rows("Recurrences"), 1);
}

TEST_F(RecurrenceSave, SaveWithoutASequenceFailsInItsOwnNameForTheSequencesReason) {
  Run("DELETE * FROM Sequences WHERE SEQ_ID=8");
  const Ref<CRecurrence> rule = FullRule();
  EXPECT_FALSE(rule->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CRecurrence.Save");
  EXPECT_EQ(session->GetErrorCode(), 3021);
  EXPECT_EQ(Flags(*rule), "new modified");
  EXPECT_EQ(Rows("Recurrences"), 0);
}

TEST_F(RecurrenceSave, SaveOfADateOutOfRangeIsRecordedByTheFieldsAlone) {
  const Ref<CRecurrence> rule = FullRule();
  rule->EndDate = Date(3e6);
  EXPECT_FALSE(rule->Save());
  EXPECT_EQ(session->GetErrorProcedure(), "CRecurrence.GetFieldsArray");
  EXPECT_EQ(session->GetErrorCode(), 5);
}

TEST_F(RecurrenceSave, SaveOfADateOutOfRangeDrawsNoIdentifier) {
  const Ref<CRecurrence> rule = FullRule();
  rule->EndDate = Date(3e6);
  EXPECT_FALSE(rule->Save());
  EXPECT_EQ(rule->ID, 0);
  EXPECT_EQ(Stored("SELECT SEQ_Value FROM Sequences WHERE SEQ_ID=8"), "0");
}

// ---- the fields

TEST_F(RecurrenceSave, FieldsHaveFifteenRowsAndThreeColumns) {
  FieldsArray fields;
  std::int32_t count = 0;
  EXPECT_TRUE(FullRule()->GetFieldsArray(FN_DATABASE, fields, count));
  EXPECT_EQ(count, 15);
  EXPECT_EQ(fields.LastRow(), 15);
  EXPECT_EQ(fields.LastColumn(), 2);
}

TEST_F(RecurrenceSave, FieldsBehindTheLastOneAreEmpty) {
  FieldsArray fields;
  std::int32_t count = 0;
  ASSERT_TRUE(FullRule()->GetFieldsArray(FN_DATABASE, fields, count));
  EXPECT_EQ(fields(8, 0), "REC_WeekNumber");
  for (std::int32_t row = 9; row <= 15; ++row) EXPECT_EQ(fields(row, 0) + fields(row, 1), "") << row;
}

TEST_F(RecurrenceSave, FieldsOfAnUnknownKindAreDimensionedAnewAndEmpty) {
  FieldsArray fields(3, 3);
  fields(0, 0) = "left over";
  std::int32_t count = 0;
  EXPECT_TRUE(FullRule()->GetFieldsArray(static_cast<FieldType>(3), fields, count));
  EXPECT_EQ(count, 15);
  EXPECT_EQ(fields.LastRow(), 15);
  for (std::int32_t row = 0; row <= 15; ++row) EXPECT_EQ(fields(row, 0) + fields(row, 1), "") << row;
}

}  // namespace
}  // namespace zef::test
