#include <array>
#include <vector>

#include "calendar/recurrence.h"
#include "platform/date.h"
#include "session/bas_global.h"
#include "textviews/export.h"
#include "textviews/labels.h"

namespace zef {
namespace {

/// The row that tells when a rule ends; the rows before it tell what it is.
constexpr std::int32_t kEndRow = 11;

/// By week number.
constexpr std::array<std::string_view, 5> kOrders = {"First", "Second", "Third", "Fourth", "Last"};

struct Line {
  std::string_view label;
  std::string value;
};

std::string OrderOf(const CRecurrence& rule) {
  const std::int32_t week = rule.WeekNumber;
  if (week < 0 || week >= std::ssize(kOrders)) return {};
  return std::string(kOrders[static_cast<std::size_t>(week)]);
}

/// The days of a weekly rule, each with a blank behind it.
std::string DaysOf(const CRecurrence& rule) {
  const bool set[] = {rule.Monday, rule.Tuesday, rule.Wendsday, rule.Thursday, rule.Friday, rule.Saturday, rule.Sunday};
  std::string days;
  for (std::int32_t day = 0; day < std::ssize(set); ++day) {
    if (set[day]) days += GetDayName(day) + " ";
  }
  return days;
}

std::vector<Line> DailyLines(const CRecurrence& rule) {
  const std::string interval = "Occur every " + ToText(rule.Options1) + " day(s)";
  return {{"Type:", "Daily"}, {"Sub type:", rule.SubType == 0 ? interval : "Every day"}};
}

std::vector<Line> WeeklyLines(const CRecurrence& rule) {
  return {{"Type:", "Weekly"},
          {"Occur every:", ToText(rule.Options1) + "week(s)"},
          {"Occur in the following days:", DaysOf(rule)}};
}

std::vector<Line> MonthlyLines(const CRecurrence& rule) {
  if (rule.SubType == 0) {
    return {{"Type:", "Monthly"},
            {"Sub type:", "Specified day"},
            {"Day:", ToText(rule.Options1)},
            {"Month interval:", ToText(rule.Options2)}};
  }
  return {{"Type:", "Monthly"},
          {"Sub type:", "Specified weeks"},
          {"Day order:", OrderOf(rule)},
          {"Day:", GetDayName(rule.Options1)},
          {"Month interval:", ToText(rule.Options2)}};
}

std::vector<Line> YearlyLines(const CRecurrence& rule) {
  if (rule.SubType == 0) {
    return {{"Type:", "Yearly"},
            {"Sub type:", "Specified day"},
            {"Month:", GetMonthName(rule.Options1)},
            {"Day:", ToText(rule.Options2)}};
  }
  return {{"Type:", "Yearly"},
          {"Sub type:", "Specified week"},
          {"Day order:", OrderOf(rule)},
          {"Day:", GetDayName(rule.Options1)},
          {"Month:", GetMonthName(rule.Options2)}};
}

std::vector<Line> LinesOf(const CRecurrence& rule) {
  switch (rule.RType) {
    case REC_EMPTY: return {{"Type:", "Empty"}};
    case REC_DAILY: return DailyLines(rule);
    case REC_WEEKLY: return WeeklyLines(rule);
    case REC_MONTHLY: return MonthlyLines(rule);
    case REC_YEARLY: return YearlyLines(rule);
    default: return {};
  }
}

Line EndOf(const CRecurrence& rule) {
  if (!rule.EndDate->IsZero()) return {"End on:", ShortDateText(rule.EndDate)};
  if (rule.OccurencesNo == 0) return {"End type:", "No end"};
  return {"Occurrences number:", ToText(rule.OccurencesNo)};
}

void SetRow(FieldsArray& rows, std::int32_t row, Line line) {
  rows(row, 0) = line.label;
  rows(row, 1) = std::move(line.value);
}

}  // namespace

void FillLabels(const CRecurrence& rule, FieldsArray& rows) {
  std::int32_t row = 0;
  for (Line& line : LinesOf(rule)) SetRow(rows, row++, std::move(line));
  SetRow(rows, kEndRow, EndOf(rule));
}

bool CRecurrence::Save2File(std::int32_t lngFileNumber) const {
  return SaveToOpenFile(*this, "CRecurrence.Save2File", lngFileNumber);
}

}  // namespace zef
