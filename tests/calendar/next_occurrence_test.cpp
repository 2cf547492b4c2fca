#include "calendar/next_occurrence.h"

#include <gtest/gtest.h>

#include <chrono>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace zef {
namespace {

constexpr std::int32_t kDaily = 1;
constexpr std::int32_t kWeekly = 2;
constexpr std::int32_t kMonthly = 3;
constexpr std::int32_t kYearly = 4;
constexpr std::int32_t kByDay = 0;
constexpr std::int32_t kByWeek = 1;

enum Bit : std::int32_t { kMondayBit = 1, kWednesdayBit = 4, kFridayBit = 16, kSaturdayBit = 32, kSundayBit = 64 };
enum Index : std::int32_t { kMonday, kTuesday, kWednesday, kThursday, kFriday, kSaturday, kSunday, kNoWeekday };
enum Month : std::int32_t { kJanuary, kFebruary, kJune = 5 };
enum Week : std::int32_t { kFirst, kSecond, kThird, kFourth, kLast, kNoWeek };

constexpr std::int32_t kSmallest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();

Rule Daily(std::int32_t sub_type, std::int32_t days) {
  return {.type = kDaily, .sub_type = sub_type, .options1 = days};
}

Rule Weekly(std::int32_t weeks, std::int32_t days) { return {.type = kWeekly, .options1 = weeks, .days = days}; }

Rule MonthlyByDay(std::int32_t day, std::int32_t months) {
  return {.type = kMonthly, .sub_type = kByDay, .options1 = day, .options2 = months};
}

Rule MonthlyByWeek(std::int32_t week, std::int32_t weekday, std::int32_t months) {
  return {.type = kMonthly, .sub_type = kByWeek, .options1 = weekday, .options2 = months, .week_number = week};
}

Rule YearlyByDay(std::int32_t month, std::int32_t day) {
  return {.type = kYearly, .sub_type = kByDay, .options1 = month, .options2 = day};
}

Rule YearlyByWeek(std::int32_t week, std::int32_t weekday, std::int32_t month) {
  return {.type = kYearly, .sub_type = kByWeek, .options1 = weekday, .options2 = month, .week_number = week};
}

Date At(const char* text) { return ParseDate(text).value(); }

std::string Readable(Date date) {
  static constexpr const char* kNames[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
  if (date.IsZero()) return "the zero date";
  return std::string(kNames[date.Weekday() - 1]) + " " + ShortDateText(date) + ", second " +
         std::to_string(date.SecondsOfDay());
}

void ExpectDate(Date actual, Date expected) {
  EXPECT_EQ(actual.value(), expected.value()) << Readable(actual) << " instead of " << Readable(expected);
}

struct Case {
  const char* name;
  Rule rule;
  const char* reference;
  const char* expected;  ///< empty for the zero date
};

void PrintTo(const Case& example, std::ostream* out) { *out << example.reference << " to " << example.expected; }

class NextDate : public testing::TestWithParam<Case> {
 protected:
  Date Expected() const { return *GetParam().expected == '\0' ? Date() : At(GetParam().expected); }
};

TEST_P(NextDate, IsThatOfTheWalk) { ExpectDate(NextOccurrence(GetParam().rule, At(GetParam().reference)), Expected()); }

TEST_P(NextDate, IsTheSameWhenAskedAgain) {
  NextOccurrence(GetParam().rule, At(GetParam().reference));
  ExpectDate(NextOccurrence(GetParam().rule, At(GetParam().reference)), Expected());
}

std::string NameOf(const testing::TestParamInfo<Case>& info) { return info.param.name; }

INSTANTIATE_TEST_SUITE_P(
    Daily, NextDate,
    testing::Values(Case{"EveryThirdDay", Daily(0, 3), "30 Jan 2024 9:30", "2 Feb 2024 9:30"},
                    Case{"TheSecondKindStepsOneDay", Daily(1, 3), "30 Jan 2024 9:30", "31 Jan 2024 9:30"},
                    Case{"AnyOtherKindStepsOneDay", Daily(-7, 3), "30 Jan 2024 9:30", "31 Jan 2024 9:30"},
                    Case{"AnIntervalOf0StaysWhereItIs", Daily(0, 0), "30 Jan 2024 9:30", "30 Jan 2024 9:30"},
                    Case{"ANegativeIntervalGoesBack", Daily(0, -3), "2 Feb 2024 9:30", "30 Jan 2024 9:30"},
                    Case{"NoLimitOfDaysHolds", Daily(0, 40000), "1 Jan 2024 9:00", "8 Jul 2133 9:00"},
                    Case{"TheLargestIntervalFails", Daily(0, kLargest), "1 Jan 2024", ""},
                    Case{"TheSmallestIntervalFails", Daily(0, kSmallest), "1 Jan 2024", ""},
                    Case{"BeforeDayZeroTheTimeStays", Daily(0, 3), "28 Dec 1899 6:00", "31 Dec 1899 6:00"},
                    Case{"BehindTheRangeFails", Daily(1, 0), "31 Dec 9999", ""}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Weekly, NextDate,
    testing::Values(
        Case{"TheNextSetDayOfTheWeek", Weekly(1, 21), "15 May 2024 9:00", "17 May 2024 9:00"},
        Case{"FromTheLastSetDayIntoTheNextWeek", Weekly(1, 21), "17 May 2024 9:00", "20 May 2024 9:00"},
        Case{"EverySecondWeekSkipsOne", Weekly(2, kMondayBit), "15 May 2024 9:00", "27 May 2024 9:00"},
        Case{"SundayStillBelongsToTheActiveWeek", Weekly(2, kMondayBit), "19 May 2024 9:00", "27 May 2024 9:00"},
        Case{"SundayEndsTheActiveWeek", Weekly(2, kSundayBit), "13 May 2024 9:00", "19 May 2024 9:00"},
        Case{"FromSundayToTheSundayAfterNext", Weekly(2, kSundayBit), "19 May 2024 9:00", "2 Jun 2024 9:00"},
        Case{"EveryThirdWeek", Weekly(3, kMondayBit), "13 May 2024 9:00", "3 Jun 2024 9:00"},
        Case{"NoSetDayEndsByTheLimit", Weekly(1, 0), "15 May 2024 9:00", ""},
        Case{"NoSetDayInEverySecondWeekEndsByTheLimit", Weekly(2, 0), "15 May 1000 9:00", ""},
        Case{"AnIntervalOf0Fails", Weekly(0, kMondayBit), "15 May 2024 9:00", ""},
        Case{"BitsAboveTheSevenNameNoDay", Weekly(1, 128), "15 May 2024 9:00", ""},
        Case{"AllBitsNameTheNextDay", Weekly(1, -1), "15 May 2024 9:00", "16 May 2024 9:00"},
        Case{"AnIntervalOfMinus1IsEveryWeek", Weekly(-1, kMondayBit), "15 May 2024 9:00", "20 May 2024 9:00"},
        // Monday 20 May is in week 1, not active. The jump leaves out -2 - 1 - 1 weeks: it goes by 8 - 2 - 28 days to
        // Sunday 28 April, in week -3. The Monday behind it is in week -2, which is active.
        Case{"ANegativeIntervalJumpsBack", Weekly(-2, kMondayBit), "15 May 2024 9:00", "29 Apr 2024 9:00"},
        Case{"ASetDayOfTheActiveWeekComesBeforeAnyOverflow", Weekly(kLargest, kFridayBit), "15 May 2024 9:00",
             "17 May 2024 9:00"},
        Case{"TheLargestIntervalOverflowsInDays", Weekly(kLargest, kMondayBit), "15 May 2024 9:00", ""},
        Case{"TheSmallestIntervalOverflowsInWeeks", Weekly(kSmallest, kMondayBit), "15 May 2024 9:00", ""},
        Case{"AFarJumpDoesNotCountTowardsTheLimit", Weekly(10000, kMondayBit), "15 May 2024 9:00", "8 Jan 2216 9:00"},
        Case{"AJumpBehindTheRangeFails", Weekly(500000, kMondayBit), "15 May 2024 9:00", ""},
        Case{"BeforeDayZeroTheTimeStays", Weekly(1, kSaturdayBit), "29 Dec 1899 6:00", "12/30/1899 6:00 AM"},
        Case{"BehindTheRangeFails", Weekly(1, kSaturdayBit), "31 Dec 9999", ""}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    MonthlyByDay, NextDate,
    testing::Values(
        Case{"LaterInTheMonthKeepsTheTime", MonthlyByDay(15, 1), "10 Mar 2024 9:00", "15 Mar 2024 9:00"},
        Case{"TheTimeIsLostAtTheFirstOfTheMonth", MonthlyByDay(15, 1), "15 Mar 2024 9:00", "15 Apr 2024"},
        Case{"TheMonthOfTheReferenceIsActive", MonthlyByDay(15, 2), "10 Mar 2024 9:00", "15 Mar 2024 9:00"},
        Case{"EverySecondMonth", MonthlyByDay(15, 2), "15 Mar 2024 9:00", "15 May 2024"},
        Case{"TheFirst", MonthlyByDay(1, 1), "1 Mar 2024 9:00", "1 Apr 2024"},
        Case{"AShortMonthIsRunThroughWithTheTime", MonthlyByDay(31, 1), "10 Apr 2024 9:00", "31 May 2024 9:00"},
        Case{"FebruaryIsRunThroughWithoutTheTime", MonthlyByDay(31, 1), "31 Jan 2024 9:00", "31 Mar 2024"},
        Case{"AMonthWhoseFirstWasLeaptOverIsNotCounted", MonthlyByDay(31, 2), "31 Jan 2024 9:00", "31 Aug 2024"},
        Case{"LeapingOverTheFirstKeepsTheTime", MonthlyByDay(31, 1), "20 Feb 2023 9:00", "31 Mar 2023 9:00"},
        Case{"FebruaryIsPassedOver", MonthlyByDay(30, 1), "30 Jan 2023 9:00", "30 Mar 2023"},
        Case{"Day0EndsByTheLimit", MonthlyByDay(0, 1), "10 Mar 2024 9:00", ""},
        Case{"ANegativeDayEndsByTheLimit", MonthlyByDay(kSmallest, 1), "10 Mar 2024 9:00", ""},
        Case{"Day32EndsByTheLimit", MonthlyByDay(32, 1), "10 Mar 2024 9:00", ""},
        Case{"TheLargestDayFails", MonthlyByDay(kLargest, 1), "10 Mar 2024 9:00", ""},
        Case{"AnIntervalOf0Fails", MonthlyByDay(15, 0), "10 Mar 2024 9:00", ""},
        Case{"ANegativeIntervalCountsAsItsPositive", MonthlyByDay(15, -2), "15 Mar 2024 9:00", "15 May 2024"},
        Case{"TheSmallestIntervalIsNeverActiveAgain", MonthlyByDay(15, kSmallest), "15 Mar 2024 9:00", ""},
        Case{"AnIntervalWithinTheLimitIsReached", MonthlyByDay(1, 985), "1 Jan 2024", "1 Feb 2106"},
        Case{"AnIntervalBeyondTheLimitIsNot", MonthlyByDay(1, 986), "1 Jan 2024", ""},
        Case{"BeforeDayZeroTheTimeStays", MonthlyByDay(31, 1), "28 Dec 1899 6:00", "31 Dec 1899 6:00"},
        Case{"BehindTheRangeFails", MonthlyByDay(15, 1), "15 Dec 9999", ""},
        Case{"TheLastDayOfTheRangeIsReached", MonthlyByDay(31, 1), "15 Dec 9999 9:00", "31 Dec 9999 9:00"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    MonthlyByWeek, NextDate,
    testing::Values(
        Case{"FirstMonday", MonthlyByWeek(kFirst, kMonday, 1), "1 May 2024 9:00", "6 May 2024 9:00"},
        Case{"FromOneFirstMondayToTheNext", MonthlyByWeek(kFirst, kMonday, 1), "6 May 2024 9:00", "3 Jun 2024 9:00"},
        Case{"EverySecondMonth", MonthlyByWeek(kFirst, kMonday, 2), "7 May 2024 9:00", "1 Jul 2024 9:00"},
        Case{"LastFriday", MonthlyByWeek(kLast, kFriday, 1), "7 May 2024 9:00", "31 May 2024 9:00"},
        Case{"FromOneLastFridayToTheNext", MonthlyByWeek(kLast, kFriday, 1), "31 May 2024 9:00", "28 Jun 2024 9:00"},
        Case{"FourthTuesday", MonthlyByWeek(kFourth, kTuesday, 1), "1 May 2024 9:00", "28 May 2024 9:00"},
        Case{"ThirdSunday", MonthlyByWeek(kThird, kSunday, 1), "1 May 2024 9:00", "19 May 2024 9:00"},
        Case{"NoWeekdayTakesTheFirstDayOfTheWeek", MonthlyByWeek(kSecond, kNoWeekday, 1), "1 May 2024 9:00",
             "8 May 2024 9:00"},
        Case{"ANegativeWeekdayIsNone", MonthlyByWeek(kSecond, -1, 1), "1 May 2024 9:00", "8 May 2024 9:00"},
        Case{"NoWeekEndsByTheLimit", MonthlyByWeek(kNoWeek, kMonday, 1), "1 May 2024 9:00", ""},
        Case{"ANegativeWeekEndsByTheLimit", MonthlyByWeek(-1, kMonday, 1), "1 May 2024 9:00", ""},
        Case{"TheSmallestWeekFails", MonthlyByWeek(kSmallest, kMonday, 1), "1 May 2024 9:00", ""},
        Case{"TheLargestWeekFails", MonthlyByWeek(kLargest, kMonday, 1), "1 May 2024 9:00", ""},
        Case{"AnIntervalOf0Fails", MonthlyByWeek(kFirst, kMonday, 0), "1 May 2024 9:00", ""},
        Case{"TheSmallestIntervalKeepsTheMonthOfTheReference", MonthlyByWeek(kFirst, kMonday, kSmallest),
             "1 May 2024 9:00", "6 May 2024 9:00"},
        Case{"AnIntervalBeyondTheLimitIsNotReached", MonthlyByWeek(kFirst, kMonday, 1000), "7 May 2024 9:00", ""},
        Case{"BeforeDayZeroTheTimeStays", MonthlyByWeek(kFourth, kThursday, 1), "22 Dec 1899 6:00", "28 Dec 1899 6:00"},
        Case{"TheLastFridayOfTheRangeLooksBehindIt", MonthlyByWeek(kLast, kFriday, 1), "20 Dec 9999", ""},
        Case{"TheFourthFridayOfTheRangeIsReached", MonthlyByWeek(kFourth, kFriday, 1), "20 Dec 9999 9:00",
             "24 Dec 9999 9:00"},
        Case{"BehindTheRangeFails", MonthlyByWeek(kFirst, kFriday, 1), "31 Dec 9999", ""}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    YearlyByDay, NextDate,
    testing::Values(Case{"LaterInTheYearIsAtMidnight", YearlyByDay(kJune, 15), "1 May 2024 9:00", "15 Jun 2024"},
                    Case{"OnTheDayItselfKeepsTheTime", YearlyByDay(kJune, 15), "15 Jun 2024 9:00", "15 Jun 2025 9:00"},
                    Case{"EarlierInTheYearIsInTheNext", YearlyByDay(kJune, 15), "20 Jun 2024 9:00", "15 Jun 2025"},
                    Case{"ADayThatTheMonthLacksRunsOn", YearlyByDay(kFebruary, 31), "3 Mar 2024", "2 Mar 2025"},
                    Case{"Month13IsJanuary", YearlyByDay(12, 5), "1 Mar 2024", "5 Jan 2025"},
                    Case{"Month0IsDecember", YearlyByDay(-1, 5), "1 Mar 2024", "5 Dec 2024"},
                    Case{"Day0IsTheLastOfTheMonthBefore", YearlyByDay(kJune, 0), "1 May 2024", "31 May 2024"},
                    Case{"TheLargestDayOf16BitsIsTaken", YearlyByDay(kJanuary, 32767), "1 May 2024", "17 Sep 2113"},
                    Case{"ADayBeyond16BitsFails", YearlyByDay(kJanuary, 32768), "1 May 2024", ""},
                    Case{"ADayBelow16BitsFails", YearlyByDay(kJanuary, -32769), "1 May 2024", ""},
                    Case{"TheLargestMonthOf16BitsIsTaken", YearlyByDay(32766, 1), "1 May 2024", "1 Jul 4754"},
                    Case{"AMonthBeyond16BitsFails", YearlyByDay(32767, 1), "1 May 2024", ""},
                    Case{"TheLargestMonthOverflows", YearlyByDay(kLargest, 1), "1 May 2024", ""},
                    Case{"TheSmallestMonthFails", YearlyByDay(kSmallest, 1), "1 May 2024", ""},
                    Case{"BeforeDayZeroTheTimeStays", YearlyByDay(11, 29), "29 Dec 1898 6:00", "29 Dec 1899 6:00"},
                    Case{"BehindTheRangeFails", YearlyByDay(11, 31), "31 Dec 9999", ""},
                    Case{"OneYearBehindTheRangeFails", YearlyByDay(kJune, 15), "31 Dec 9999", ""}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    YearlyByWeek, NextDate,
    testing::Values(
        Case{"FirstMondayOfJune", YearlyByWeek(kFirst, kMonday, kJune), "15 Jan 2024 9:00", "3 Jun 2024"},
        Case{"AStartInsideTheMonthKeepsTheTime", YearlyByWeek(kFirst, kMonday, kJune), "2 Jun 2024 9:00",
             "3 Jun 2024 9:00"},
        Case{"FromTheDayToTheNextYear", YearlyByWeek(kFirst, kMonday, kJune), "3 Jun 2024 9:00", "2 Jun 2025"},
        Case{"FromBehindTheMonthToTheNextYear", YearlyByWeek(kFirst, kMonday, kJune), "1 Jul 2024 9:00", "2 Jun 2025"},
        Case{"TheFirstOfTheMonthLiesOutsideTheFirstWeek", YearlyByWeek(kFirst, kSaturday, kJune), "31 May 2024 9:00",
             "8 Jun 2024 9:00"},
        Case{"TheFirstOfJanuaryLiesOutsideTheFirstWeek", YearlyByWeek(kFirst, kMonday, kJanuary), "1 Dec 2023",
             "8 Jan 2024"},
        Case{"TheTwentySecondLiesOutsideTheFourthWeek", YearlyByWeek(kFourth, kThursday, kFebruary), "1 Jan 2024",
             "29 Feb 2024"},
        Case{"LastMondayOfJune", YearlyByWeek(kLast, kMonday, kJune), "4 Jun 2024 9:00", "24 Jun 2024 9:00"},
        Case{"FromOneLastMondayToTheNextYear", YearlyByWeek(kLast, kMonday, kJune), "24 Jun 2024 9:00", "30 Jun 2025"},
        Case{"NoWeekEndsByTheLimit", YearlyByWeek(kNoWeek, kMonday, kJune), "24 Jun 2024 9:00", ""},
        Case{"NoWeekdayTakesTheFirstDayOfTheWeek", YearlyByWeek(kSecond, kNoWeekday, kJune), "1 May 2024 9:00",
             "9 Jun 2024"},
        // 1 and 22 February 2024 were Thursdays; in 2023 the 22nd was the last Wednesday and the fourth week has none.
        Case{"AWeekThatTheMonthLacksEndsByTheLimit", YearlyByWeek(kFourth, kWednesday, kFebruary), "1 Jan 2023", ""},
        Case{"Month13EndsByTheLimit", YearlyByWeek(kFirst, kMonday, 12), "1 Jan 2024", ""},
        Case{"Month0EndsByTheLimit", YearlyByWeek(kFirst, kMonday, -1), "1 Jan 2024", ""},
        Case{"AMonthBeyond16BitsFails", YearlyByWeek(kFirst, kMonday, 32767), "1 Jan 2024", ""},
        Case{"TheLargestMonthOverflows", YearlyByWeek(kFirst, kMonday, kLargest), "1 Jan 2024", ""},
        Case{"TheSmallestMonthFails", YearlyByWeek(kFirst, kMonday, kSmallest), "1 Jan 2024", ""},
        Case{"TheLargestWeekFails", YearlyByWeek(kLargest, kMonday, kJune), "1 Jan 2024", ""},
        Case{"BeforeDayZeroTheTimeStays", YearlyByWeek(kFourth, kThursday, 11), "22 Dec 1899 6:00", "28 Dec 1899 6:00"},
        Case{"TheLastWeekOfTheRangeLooksBehindIt", YearlyByWeek(kLast, kFriday, 11), "20 Dec 9999", ""},
        Case{"BehindTheRangeFails", YearlyByWeek(kFirst, kMonday, kJune), "31 Dec 9999", ""}),
    NameOf);

// ---- chains

TEST(YearlyChain, TwentyNinthOfFebruaryDriftsToTheFirstOfMarch) {
  Date date = At("29 Feb 2024 9:00");
  for (const char* const next :
       {"28 Feb 2025 9:00", "1 Mar 2025", "1 Mar 2026", "1 Mar 2027", "1 Mar 2028", "28 Feb 2029"}) {
    date = NextOccurrence(YearlyByDay(kFebruary, 29), date);
    ExpectDate(date, At(next));
  }
}

TEST(WeeklyChain, VisitsEverySetDayOfActiveWeeks) {
  Date date = At("15 May 2024 9:00");
  for (const char* const next : {"17 May 2024 9:00", "27 May 2024 9:00", "31 May 2024 9:00", "10 Jun 2024 9:00"}) {
    date = NextOccurrence(Weekly(2, kMondayBit | kFridayBit), date);
    ExpectDate(date, At(next));
  }
}

// ---- the limit, to the day: 1 March 2106 is 30000 days behind 10 January 2024 and in month 986 from there

TEST(MonthlyByDayLimit, ThirtyThousandDaysAreReached) {
  ExpectDate(NextOccurrence(MonthlyByDay(1, 986), At("10 Jan 2024")), At("1 Mar 2106"));
}

TEST(MonthlyByDayLimit, OneDayMoreIsNot) { ExpectDate(NextOccurrence(MonthlyByDay(1, 986), At("9 Jan 2024")), Date()); }

TEST(MonthlyByWeekLimit, ThirtyThousandDaysAreReached) {
  ExpectDate(NextOccurrence(MonthlyByWeek(kFirst, kNoWeekday, 986), At("10 Jan 2024")), At("1 Mar 2106"));
}

TEST(MonthlyByWeekLimit, OneDayMoreIsNot) {
  ExpectDate(NextOccurrence(MonthlyByWeek(kFirst, kNoWeekday, 986), At("9 Jan 2024")), Date());
}

// ---- the end date

TEST(EndDate, AResultOnItStays) {
  Rule rule = Daily(1, 0);
  rule.end = At("2 May 2024 9:00");
  ExpectDate(NextOccurrence(rule, At("1 May 2024 9:00")), At("2 May 2024 9:00"));
}

TEST(EndDate, AResultLaterOnTheSameDayIsDropped) {
  Rule rule = Daily(1, 0);
  rule.end = At("2 May 2024 8:00");
  ExpectDate(NextOccurrence(rule, At("1 May 2024 9:00")), Date());
}

TEST(EndDate, AResultBeforeItStays) {
  Rule rule = Daily(1, 0);
  rule.end = At("3 May 2024");
  ExpectDate(NextOccurrence(rule, At("1 May 2024 9:00")), At("2 May 2024 9:00"));
}

TEST(EndDate, OfTheMomentOfTheReferenceLeavesNothing) {
  Rule rule = Daily(1, 0);
  rule.end = At("1 May 2024 9:00");
  ExpectDate(NextOccurrence(rule, At("1 May 2024 9:00")), Date());
}

TEST(EndDate, BeforeDayZeroTimesCountForward) {
  Rule rule = Daily(1, 0);
  rule.end = At("28 Dec 1899 6:00");
  ExpectDate(NextOccurrence(rule, At("27 Dec 1899 18:00")), Date());
  ExpectDate(NextOccurrence(rule, At("27 Dec 1899 3:00")), At("28 Dec 1899 3:00"));
}

class EndOfEveryKind : public testing::TestWithParam<Rule> {};

TEST_P(EndOfEveryKind, DropsWhatIsLater) {
  Rule rule = GetParam();
  ASSERT_FALSE(NextOccurrence(rule, At("1 May 2024 9:00")).IsZero());
  rule.end = At("1 May 2024 9:00");
  ExpectDate(NextOccurrence(rule, At("1 May 2024 9:00")), Date());
}

INSTANTIATE_TEST_SUITE_P(Kinds, EndOfEveryKind,
                         testing::Values(Daily(0, 1), Weekly(1, kWednesdayBit), MonthlyByDay(15, 1),
                                         MonthlyByWeek(kFirst, kMonday, 1), YearlyByDay(kJune, 15),
                                         YearlyByWeek(kFirst, kMonday, kJune)));

// ---- types and references

class NoType : public testing::TestWithParam<std::int32_t> {};

TEST_P(NoType, HasNoNextDate) {
  Rule rule = Daily(1, 1);
  rule.type = GetParam();
  ExpectDate(NextOccurrence(rule, At("1 May 2024 9:00")), Date());
}

INSTANTIATE_TEST_SUITE_P(Types, NoType, testing::Values(0, 5, -1, kSmallest, kLargest));

class OddReference : public testing::TestWithParam<double> {};

TEST_P(OddReference, HasNoNextDateInAnyKind) {
  const Rule rules[] = {Daily(0, 0),         Weekly(1, -1),
                        MonthlyByDay(15, 1), MonthlyByWeek(kFirst, kMonday, 1),
                        YearlyByDay(5, 15),  YearlyByWeek(0, 0, 5)};
  for (const Rule& rule : rules) ExpectDate(NextOccurrence(rule, Date(GetParam())), Date());
}

INSTANTIATE_TEST_SUITE_P(Values, OddReference,
                         testing::Values(2958466.0, -657435.0, 1e300, -1e300, std::numeric_limits<double>::infinity(),
                                         -std::numeric_limits<double>::infinity(),
                                         std::numeric_limits<double>::quiet_NaN()));

TEST(ZeroReference, IsADayLikeAnyOther) { ExpectDate(NextOccurrence(Daily(1, 0), Date()), Date(1.0)); }

TEST(FirstDayReference, IsADayLikeAnyOther) {
  ExpectDate(NextOccurrence(Daily(1, 0), At("1/1/100 6:00")), At("1/2/100 6:00"));
}

}  // namespace
}  // namespace zef
