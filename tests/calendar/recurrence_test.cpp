#include "tests/calendar/recurrence_fixture.h"

namespace zef::test {
namespace {

using RecurrenceRecord = RecurrenceTest;

// ---- a new rule

TEST_F(RecurrenceRecord, NewRuleIsEmpty) { EXPECT_TRUE(MakeRef<CRecurrence>()->IsEmpty()); }

TEST_F(RecurrenceRecord, NewRuleHasOneOccurrence) { EXPECT_EQ(MakeRef<CRecurrence>()->OccurencesNo, 1); }

TEST_F(RecurrenceRecord, NewRuleEndsAtTheMomentOfItsCreation) { EXPECT_EQ(MakeRef<CRecurrence>()->EndDate, now_); }

TEST_F(RecurrenceRecord, NewRuleIsNewAndNotModified) { EXPECT_EQ(Flags(*MakeRef<CRecurrence>()), "new clear"); }

TEST_F(RecurrenceRecord, NewRuleHasZeroInEverythingElse) {
  const auto rule = MakeRef<CRecurrence>();
  EXPECT_EQ(rule->ID, 0);
  EXPECT_EQ(rule->RType, REC_EMPTY);
  EXPECT_EQ(rule->Options1, 0);
  EXPECT_EQ(rule->Options2, 0);
  EXPECT_EQ(rule->SubType, 0);
  EXPECT_EQ(rule->WeekNumber, 0);
  EXPECT_EQ(DayBits(*rule), 0);
  EXPECT_FALSE(rule->Session());
}

TEST_F(RecurrenceRecord, RuleOfAnyOtherTypeIsNotEmpty) {
  for (const std::int32_t type : {1, 2, 3, 4, 5, -1}) {
    const auto rule = MakeRef<CRecurrence>();
    rule->RType = type;
    EXPECT_FALSE(rule->IsEmpty()) << type;
  }
}

TEST_F(RecurrenceRecord, RuleOfTheEmptyTypeIsEmptyWhateverElseItHolds) {
  const Ref<CRecurrence> rule = FullRule();
  rule->RType = REC_EMPTY;
  EXPECT_TRUE(rule->IsEmpty());
}

TEST_F(RecurrenceRecord, NumbersOfTheTypesAreFixed) {
  EXPECT_EQ(REC_EMPTY, 0);
  EXPECT_EQ(REC_DAILY, 1);
  EXPECT_EQ(REC_WEEKLY, 2);
  EXPECT_EQ(REC_MONTHLY, 3);
  EXPECT_EQ(REC_YEARLY, 4);
}

// ---- setting properties

TEST_F(RecurrenceRecord, EverySetterMarksOnlyAChange) {
  const std::vector<Setter<CRecurrence>> setters = {
      {"EndDate", [](auto& r) { r.EndDate = Date(1); }, [](auto& r) { r.EndDate = Date(); }},
      {"Options1", [](auto& r) { r.Options1 = 5; }, [](auto& r) { r.Options1 = 6; }},
      {"Options2", [](auto& r) { r.Options2 = 5; }, [](auto& r) { r.Options2 = 6; }},
      {"SubType", [](auto& r) { r.SubType = 5; }, [](auto& r) { r.SubType = 6; }},
      {"WeekNumber", [](auto& r) { r.WeekNumber = 5; }, [](auto& r) { r.WeekNumber = 6; }},
      {"Monday", [](auto& r) { r.Monday = true; }, [](auto& r) { r.Monday = false; }},
      {"Tuesday", [](auto& r) { r.Tuesday = true; }, [](auto& r) { r.Tuesday = false; }},
      {"Wendsday", [](auto& r) { r.Wendsday = true; }, [](auto& r) { r.Wendsday = false; }},
      {"Thursday", [](auto& r) { r.Thursday = true; }, [](auto& r) { r.Thursday = false; }},
      {"Friday", [](auto& r) { r.Friday = true; }, [](auto& r) { r.Friday = false; }},
      {"Saturday", [](auto& r) { r.Saturday = true; }, [](auto& r) { r.Saturday = false; }},
      {"Sunday", [](auto& r) { r.Sunday = true; }, [](auto& r) { r.Sunday = false; }},
      {"OccurencesNo", [](auto& r) { r.OccurencesNo = 5; }, [](auto& r) { r.OccurencesNo = 6; }},
      {"RType", [](auto& r) { r.RType = REC_DAILY; }, [](auto& r) { r.RType = REC_EMPTY; }},
  };
  const auto rule = MakeRef<CRecurrence>();
  for (const Setter<CRecurrence>& setter : setters) ExpectMarksOnlyChanges(*rule, setter);
}

TEST_F(RecurrenceRecord, AssigningTheIdentifierDoesNotMarkTheRule) {
  const auto rule = MakeRef<CRecurrence>();
  rule->ID = 5;
  EXPECT_FALSE(rule->IsModified());
}

TEST_F(RecurrenceRecord, WeekdaySetAgainAfterASaveDoesNotMarkTheRule) {
  const Ref<CRecurrence> rule = NewRule();
  rule->Tuesday = true;
  ASSERT_TRUE(rule->Save());
  rule->Tuesday = true;
  EXPECT_FALSE(rule->IsModified());
}

// ---- weekdays

TEST_F(RecurrenceRecord, EachWeekdayReadsItsOwnBit) {
  const auto days = [](const CRecurrence& r) {
    return std::vector<bool>{r.Monday, r.Tuesday, r.Wendsday, r.Thursday, r.Friday, r.Saturday, r.Sunday};
  };
  for (int bit = 0; bit < 7; ++bit) {
    std::vector<bool> expected(7);
    expected[static_cast<std::size_t>(bit)] = true;
    EXPECT_EQ(days(*RuleWithDays(std::to_string(1 << bit))), expected) << bit;
    Run("DELETE * FROM Recurrences");
  }
}

TEST_F(RecurrenceRecord, AllWeekdaysAreSetFor127) { EXPECT_EQ(DayBits(*RuleWithDays("127")), 127); }

TEST_F(RecurrenceRecord, OnlyMondayAndSundayAreSetFor65) {
  const Ref<CRecurrence> rule = RuleWithDays("65");
  EXPECT_TRUE(rule->Monday);
  EXPECT_TRUE(rule->Sunday);
  EXPECT_FALSE(rule->Tuesday || rule->Wendsday || rule->Thursday || rule->Friday || rule->Saturday);
}

TEST_F(RecurrenceRecord, ClearingAWeekdayLeavesTheOtherBits) {
  const Ref<CRecurrence> rule = RuleWithDays("127");
  rule->Thursday = false;
  ASSERT_TRUE(rule->Save());
  EXPECT_EQ(Stored("SELECT REC_Day FROM Recurrences"), "119");
}

TEST_F(RecurrenceRecord, SettingAWeekdayLeavesBitsWithoutAName) {
  const Ref<CRecurrence> rule = RuleWithDays("256");
  rule->Monday = true;
  ASSERT_TRUE(rule->Save());
  EXPECT_EQ(Stored("SELECT REC_Day FROM Recurrences"), "257");
}

// ---- reading a row

TEST_F(RecurrenceRecord, RowFillsEveryProperty) {
  Run(InsertOfAll("Recurrences", kRecurrenceColumns));
  ExpectAllValues(*session->GetRecurrence(31), kRecurrenceColumns);
}

TEST_F(RecurrenceRecord, NullsReadAsZero) {
  Run("INSERT INTO Recurrences (REC_ID) VALUES (31)");
  ExpectAllNullValues(*session->GetRecurrence(31), kRecurrenceColumns);
}

TEST_F(RecurrenceRecord, RowOfNullsIsEmpty) {
  Run("INSERT INTO Recurrences (REC_ID) VALUES (31)");
  EXPECT_TRUE(session->GetRecurrence(31)->IsEmpty());
}

TEST_F(RecurrenceRecord, ColumnsAreReadInTheirOrder) {
  Run(InsertOfAll("Recurrences", kRecurrenceColumns));
  ExpectReadInOrder(connection(), "Recurrences", kRecurrenceColumns, [this] { return NewRule(); });
}

TEST_F(RecurrenceRecord, NullIdentifierCannotBeRead) {
  Run("INSERT INTO Recurrences (REC_ID) VALUES (31)");
  const Ref<Recordset> rs =
      Run("SELECT Null AS REC_ID," + ColumnList(kRecurrenceColumns, "REC_ID") + " FROM Recurrences");
  EXPECT_EQ(NumberRaised([&] { NewRule()->GetValuesFromRS(rs); }), 94);
}

TEST_F(RecurrenceRecord, ReadingClearsBothFlags) {
  Run(InsertOfAll("Recurrences", kRecurrenceColumns));
  const Ref<CRecurrence> rule = NewRule();
  rule->Options1 = 99;
  rule->GetValuesFromRS(Run("SELECT * FROM Recurrences"));
  EXPECT_EQ(Flags(*rule), "old clear");
}

TEST_F(RecurrenceRecord, ReadingNeitherMovesNorClosesTheRecordset) {
  Run("INSERT INTO Recurrences (REC_ID) VALUES (31)");
  Run("INSERT INTO Recurrences (REC_ID) VALUES (32)");
  const Ref<Recordset> rs = Run("SELECT * FROM Recurrences ORDER BY REC_ID");
  NewRule()->GetValuesFromRS(rs);
  EXPECT_EQ(ToLong(rs->Fields().Item("REC_ID").Value()), 31);
}

TEST_F(RecurrenceRecord, ReadsAndWritesEveryColumnOfItsTable) {
  EXPECT_THAT(ColumnsRead(kRecurrenceColumns),
              testing::UnorderedElementsAreArray(ColumnsOf(connection(), "Recurrences")));
  EXPECT_THAT(ColumnsWritten(*NewRule(), "REC_ID"),
              testing::UnorderedElementsAreArray(ColumnsOf(connection(), "Recurrences")));
}

// ---- the session's operations

TEST_F(RecurrenceRecord, GetRecurrenceSendsOneSelect) {
  session->GetRecurrence(31);
  EXPECT_EQ(SentInAll(), Texts{"SELECT * FROM Recurrences WHERE REC_ID=31"});
}

TEST_F(RecurrenceRecord, GetRecurrenceGivesTheRuleItsSession) {
  Run(InsertOfAll("Recurrences", kRecurrenceColumns));
  EXPECT_EQ(session->GetRecurrence(31)->Session(), session);
}

TEST_F(RecurrenceRecord, GetRecurrenceWithoutARowGivesNothingAndNoError) {
  LeaveAnOldError();
  EXPECT_FALSE(session->GetRecurrence(31));
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(RecurrenceRecord, GetRecurrenceThatFailsIsRecorded) {
  Run(InsertOfAll("Recurrences", kRecurrenceColumns));
  Refuse("SELECT");
  EXPECT_FALSE(session->GetRecurrence(31));
  EXPECT_EQ(session->GetEntireErrorDesc(), "[GetRecurrence] Error: -2147217900 - made to fail");
}

TEST_F(RecurrenceRecord, DeleteRecurrenceSendsOneDelete) {
  EXPECT_TRUE(session->DeleteRecurrence(31));
  EXPECT_EQ(SentInAll(), Texts{"DELETE * FROM Recurrences WHERE REC_ID=31"});
}

TEST_F(RecurrenceRecord, DeleteRecurrenceRemovesThatRowAlone) {
  Run("INSERT INTO Recurrences (REC_ID) VALUES (31)");
  Run("INSERT INTO Recurrences (REC_ID) VALUES (32)");
  EXPECT_TRUE(session->DeleteRecurrence(31));
  EXPECT_EQ(Stored("SELECT REC_ID FROM Recurrences"), "32");
}

TEST_F(RecurrenceRecord, DeleteRecurrenceWithoutARowSucceedsAndClearsAnOldError) {
  LeaveAnOldError();
  EXPECT_TRUE(session->DeleteRecurrence(31));
  EXPECT_FALSE(session->GetErrorFlag());
}

TEST_F(RecurrenceRecord, DeleteRecurrenceLeavesItsOwnersColumn) {
  Run("INSERT INTO Recurrences (REC_ID) VALUES (31)");
  Run("INSERT INTO Events (EVE_ID,EVE_RecurrenceID) VALUES (1,31)");
  EXPECT_TRUE(session->DeleteRecurrence(31));
  EXPECT_EQ(Stored("SELECT EVE_RecurrenceID FROM Events"), "31");
}

TEST_F(RecurrenceRecord, DeleteRecurrenceIsOpenToASessionThatMayOnlyRead) {
  Run("INSERT INTO Recurrences (REC_ID) VALUES (31)");
  session->UserRights = DataViewer;
  EXPECT_TRUE(session->DeleteRecurrence(31));
  EXPECT_EQ(Rows("Recurrences"), 0);
}

TEST_F(RecurrenceRecord, DeleteRecurrenceThatFailsIsRecorded) {
  Refuse("DELETE");
  EXPECT_FALSE(session->DeleteRecurrence(31));
  EXPECT_EQ(session->GetEntireErrorDesc(), "[DeleteRecurrence] Error: -2147217900 - made to fail");
}

}  // namespace
}  // namespace zef::test
