#pragma once

#include <string>

#include "calendar/recurrence.h"
#include "tests/support/column_cases.h"
#include "tests/support/record_fixture.h"

namespace zef::test {

inline std::int32_t DayBits(const CRecurrence& rule) {
  return rule.Monday * 1 + rule.Tuesday * 2 + rule.Wendsday * 4 + rule.Thursday * 8 + rule.Friday * 16 +
         rule.Saturday * 32 + rule.Sunday * 64;
}

/// The month has no property; it is seen where it is written.
inline std::string MonthOf(const CRecurrence& rule) {
  FieldsArray fields;
  std::int32_t count = 0;
  rule.GetFieldsArray(FN_DATABASE, fields, count);
  return fields(7, 1);
}

inline const ColumnCases<CRecurrence> kRecurrenceColumns = {
    {"REC_ID", "31", "31", "", [](auto& r) { return Shown(r.ID); }},
    {"REC_Type", "3", "3", "0", [](auto& r) { return Shown(r.RType); }},
    {"REC_OccurencesNo", "11", "11", "0", [](auto& r) { return Shown(r.OccurencesNo); }},
    {"REC_Options1", "12", "12", "0", [](auto& r) { return Shown(r.Options1); }},
    {"REC_Options2", "13", "13", "0", [](auto& r) { return Shown(r.Options2); }},
    {"REC_SubType", "14", "14", "0", [](auto& r) { return Shown(r.SubType); }},
    {"REC_Day", "85", "85", "0", [](auto& r) { return Shown(DayBits(r)); }},
    {"REC_Month", "7", "7", "0", [](auto& r) { return MonthOf(r); }},
    {"REC_WeekNumber", "15", "15", "0", [](auto& r) { return Shown(r.WeekNumber); }},
    {"REC_EndDate", "'2/29/2024 6:30:15 PM'", "2/29/2024 6:30:15 PM", "12:00:00 AM",
     [](auto& r) { return Shown(r.EndDate); }},
};

/// Tests around one rule.
class RecurrenceTest : public RecordTest {
 protected:
  Ref<CRecurrence> NewRule() {
    auto rule = MakeRef<CRecurrence>();
    rule->SetSession(session);
    return rule;
  }
  /// A rule read from a row whose `REC_Day` is given.
  Ref<CRecurrence> RuleWithDays(const std::string& days) {
    Run("INSERT INTO Recurrences (REC_ID,REC_Day) VALUES (31," + days + ")");
    return session->GetRecurrence(31);
  }
  /// A new rule with all properties set, as the statements of the tests write them.
  Ref<CRecurrence> FullRule() {
    Ref<CRecurrence> rule = NewRule();
    rule->OccurencesNo = 11;
    rule->Options1 = 12;
    rule->Options2 = 13;
    rule->SubType = 14;
    rule->RType = REC_MONTHLY;
    rule->EndDate = On("2/29/2024 6:30:15 PM");
    rule->Monday = true;
    rule->Wendsday = true;
    rule->Sunday = true;
    rule->WeekNumber = 15;
    return rule;
  }
};

}  // namespace zef::test
