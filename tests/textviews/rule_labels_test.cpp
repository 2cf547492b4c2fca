#include "calendar/recurrence.h"
#include "tests/textviews/view_fixture.h"

namespace zef::test {
namespace {

struct Parts {
  std::int32_t type = REC_EMPTY;
  std::int32_t sub_type = 0;
  std::int32_t options1 = 0;
  std::int32_t options2 = 0;
  std::int32_t week = 0;
};

class RuleLabels : public ViewTest {
 protected:
  /// A rule without an end.
  Ref<CRecurrence> Rule(const Parts& parts) {
    const Ref<CRecurrence> rule = New<CRecurrence>();
    rule->RType = parts.type;
    rule->SubType = parts.sub_type;
    rule->Options1 = parts.options1;
    rule->Options2 = parts.options2;
    rule->WeekNumber = parts.week;
    rule->OccurencesNo = 0;
    rule->EndDate = Date();
    return rule;
  }
  /// The rows that tell what a rule is.
  Texts Told(const CRecurrence& rule) {
    Texts rows = LabelRows(rule);
    rows.resize(11);
    while (!rows.empty() && (rows.back().empty() || rows.back() == "|")) rows.pop_back();
    return rows;
  }
  Texts Told(const Parts& parts) { return Told(*Rule(parts)); }
  std::string End(std::int32_t occurrences, Date end) {
    const Ref<CRecurrence> rule = Rule({});
    rule->OccurencesNo = occurrences;
    rule->EndDate = end;
    return LabelRow(*rule, 11);
  }
};

TEST_F(RuleLabels, EmptyRule) { EXPECT_EQ(Told(Parts{}), (Texts{"Type:|Empty"})); }

TEST_F(RuleLabels, DailyRuleWithAnInterval) {
  EXPECT_EQ(Told({.type = REC_DAILY, .options1 = 3}), (Texts{"Type:|Daily", "Sub type:|Occur every 3 day(s)"}));
}

TEST_F(RuleLabels, DailyRuleForEveryDay) {
  EXPECT_EQ(Told({.type = REC_DAILY, .sub_type = 1, .options1 = 3}), (Texts{"Type:|Daily", "Sub type:|Every day"}));
}

TEST_F(RuleLabels, SubTypeThatIsNotZeroCountsAsOne) {
  for (const std::int32_t type : {REC_DAILY, REC_MONTHLY, REC_YEARLY}) {
    const Texts one = Told({.type = type, .sub_type = 1});
    EXPECT_EQ(Told({.type = type, .sub_type = 2}), one) << type;
    EXPECT_EQ(Told({.type = type, .sub_type = -1}), one) << type;
  }
}

TEST_F(RuleLabels, WeeklyRuleDoesNotReadItsSubType) {
  EXPECT_EQ(Told({.type = REC_WEEKLY, .sub_type = 1}), Told({.type = REC_WEEKLY, .sub_type = 0}));
}

TEST_F(RuleLabels, NumbersStandAsTheyAre) {
  EXPECT_EQ(Told({.type = REC_MONTHLY, .options1 = -1, .options2 = 2'147'483'647}),
            (Texts{"Type:|Monthly", "Sub type:|Specified day", "Day:|-1", "Month interval:|2147483647"}));
}

TEST_F(RuleLabels, WeekdayThatIsUnknownIsEmptyWithItsLabel) {
  EXPECT_EQ(Told({.type = REC_MONTHLY, .sub_type = 1, .options1 = 7})[3], "Day:|");
  EXPECT_EQ(Told({.type = REC_YEARLY, .sub_type = 1, .options1 = -1})[3], "Day:|");
}

TEST_F(RuleLabels, WeeklyRuleWithoutADayHasAnEmptyList) {
  EXPECT_EQ(Told({.type = REC_WEEKLY, .options1 = 1}),
            (Texts{"Type:|Weekly", "Occur every:|1week(s)", "Occur in the following days:|"}));
}

TEST_F(RuleLabels, WeeklyRuleListsItsDaysWithABlankBehindEach) {
  const Ref<CRecurrence> rule = Rule({.type = REC_WEEKLY, .sub_type = 1, .options1 = 2});
  rule->Wendsday = true;
  rule->Monday = true;
  EXPECT_EQ(Told(*rule),
            (Texts{"Type:|Weekly", "Occur every:|2week(s)", "Occur in the following days:|Monday Wendsday "}));
}

TEST_F(RuleLabels, WeeklyRuleOfAllDaysListsThemFromMonday) {
  const Ref<CRecurrence> rule = Rule({.type = REC_WEEKLY});
  rule->Monday = rule->Tuesday = rule->Wendsday = rule->Thursday = rule->Friday = rule->Saturday = rule->Sunday = true;
  EXPECT_EQ(LabelRow(*rule, 2),
            "Occur in the following days:|Monday Tuesday Wendsday Thursday Friday Saturday Sunday ");
}

TEST_F(RuleLabels, MonthlyRuleForADay) {
  EXPECT_EQ(Told({.type = REC_MONTHLY, .options1 = 15, .options2 = 2}),
            (Texts{"Type:|Monthly", "Sub type:|Specified day", "Day:|15", "Month interval:|2"}));
}

TEST_F(RuleLabels, MonthlyRuleForAWeekday) {
  EXPECT_EQ(
      Told({.type = REC_MONTHLY, .sub_type = 1, .options1 = 2, .options2 = 6, .week = 4}),
      (Texts{"Type:|Monthly", "Sub type:|Specified weeks", "Day order:|Last", "Day:|Wendsday", "Month interval:|6"}));
}

TEST_F(RuleLabels, YearlyRuleForADay) {
  EXPECT_EQ(Told({.type = REC_YEARLY, .options1 = 1, .options2 = 29}),
            (Texts{"Type:|Yearly", "Sub type:|Specified day", "Month:|February", "Day:|29"}));
}

TEST_F(RuleLabels, YearlyRuleForAWeekday) {
  EXPECT_EQ(Told({.type = REC_YEARLY, .sub_type = 1, .options1 = 6, .options2 = 0, .week = 0}),
            (Texts{"Type:|Yearly", "Sub type:|Specified week", "Day order:|First", "Day:|Sunday", "Month:|January"}));
}

TEST_F(RuleLabels, MonthElevenHasNoName) {
  EXPECT_EQ(Told({.type = REC_YEARLY, .options1 = 11, .options2 = 1})[2], "Month:|");
}

TEST_F(RuleLabels, MonthTwelveIsDecember) {
  EXPECT_EQ(Told({.type = REC_YEARLY, .sub_type = 1, .options2 = 12})[4], "Month:|December");
}

TEST_F(RuleLabels, OrderIsAWord) {
  const Texts words = {"First", "Second", "Third", "Fourth", "Last"};
  for (std::int32_t week = 0; week < 5; ++week) {
    EXPECT_EQ(Told({.type = REC_MONTHLY, .sub_type = 1, .week = week})[2],
              "Day order:|" + words[static_cast<std::size_t>(week)]);
  }
}

TEST_F(RuleLabels, OrderThatIsUnknownIsEmptyWithItsLabel) {
  for (const std::int32_t week : {7, 5, -1}) {
    EXPECT_EQ(Told({.type = REC_MONTHLY, .sub_type = 1, .week = week})[2], "Day order:|") << week;
  }
}

TEST_F(RuleLabels, UnknownTypeTellsOnlyItsEnd) {
  for (const std::int32_t type : {5, -1}) EXPECT_EQ(Told({.type = type}), Texts{}) << type;
  EXPECT_EQ(LabelRow(*Rule({.type = 5}), 11), "End type:|No end");
}

TEST_F(RuleLabels, RowsFiveToTenStayEmpty) {
  const Texts rows = LabelRows(*Rule({.type = REC_MONTHLY, .sub_type = 1}));
  EXPECT_EQ(Texts(rows.begin() + 5, rows.begin() + 11), Texts(6, "|"));
}

TEST_F(RuleLabels, RuleWithoutNumberAndDateHasNoEnd) { EXPECT_EQ(End(0, Date()), "End type:|No end"); }

TEST_F(RuleLabels, RuleWithANumberTellsIt) { EXPECT_EQ(End(5, Date()), "Occurrences number:|5"); }

TEST_F(RuleLabels, RuleWithANegativeNumberTellsIt) { EXPECT_EQ(End(-1, Date()), "Occurrences number:|-1"); }

TEST_F(RuleLabels, EveryTypeTellsItsEnd) {
  for (std::int32_t type = REC_EMPTY; type <= REC_YEARLY; ++type) {
    EXPECT_EQ(LabelRow(*Rule({.type = type}), 11), "End type:|No end") << type;
  }
}

TEST_F(RuleLabels, RuleWithADateTellsItWithoutItsTime) {
  EXPECT_EQ(End(0, On("12/31/2024 5:00:00 PM")), "End on:|12/31/2024");
}

TEST_F(RuleLabels, RuleWithBothTellsTheDate) { EXPECT_EQ(End(5, On("12/31/2024")), "End on:|12/31/2024"); }

}  // namespace
}  // namespace zef::test
