#include <cmath>
#include <utility>

#include "platform/date_parts.h"
#include "platform/run_time_error.h"
#include "platform/sqlite/function_call.h"

namespace zef {
namespace {

using date_parts::kSecondsPerDay;

void Year(FunctionCall& call) { call.ReturnWhole(call.Moment(0).Year()); }
void Month(FunctionCall& call) { call.ReturnWhole(call.Moment(0).Month()); }
void Day(FunctionCall& call) { call.ReturnWhole(call.Moment(0).Day()); }
void Hour(FunctionCall& call) { call.ReturnWhole(call.Moment(0).SecondsOfDay() / 3600); }
void Minute(FunctionCall& call) { call.ReturnWhole(call.Moment(0).SecondsOfDay() / 60 % 60); }
void Second(FunctionCall& call) { call.ReturnWhole(call.Moment(0).SecondsOfDay() % 60); }

/// The second argument is the weekday that counts as 1, Sunday if it is 0 or missing.
void Weekday(FunctionCall& call) {
  const std::int32_t given = call.count() > 1 ? call.Long(1) : 0;
  if (given < 0 || given > 7) throw RunTimeError(FailureNumber::InvalidCall);
  const std::int32_t first = given == 0 ? 1 : given;
  call.ReturnWhole((call.Moment(0).Weekday() - first + 7) % 7 + 1);
}

void Add(FunctionCall& call) {
  std::string kept;
  call.ReturnDate(DateAdd(call.Text(0, kept), call.Number(1), ToDate(call.Value(2))));
}

void Difference(FunctionCall& call) {
  std::string kept;
  call.ReturnWhole(DateDiff(call.Text(0, kept), call.Moment(1), call.Moment(2)));
}

void Part(FunctionCall& call) {
  std::string kept;
  call.ReturnWhole(DatePart(call.Text(0, kept), call.Moment(1)));
}

void FromCalendar(FunctionCall& call) { call.ReturnDate(DateSerial(call.Long(0), call.Long(1), call.Long(2))); }

std::int64_t SmallPart(const FunctionCall& call, std::size_t i) {
  const std::int32_t part = call.Long(i);
  if (!std::in_range<std::int16_t>(part)) throw RunTimeError(FailureNumber::Overflow);
  return part;
}

/// Parts outside their usual range run on into the neighbouring ones and into other days.
void FromTime(FunctionCall& call) {
  const std::int64_t total = SmallPart(call, 0) * 3600 + SmallPart(call, 1) * 60 + SmallPart(call, 2);
  const std::int64_t seconds = (total % kSecondsPerDay + kSecondsPerDay) % kSecondsPerDay;
  call.ReturnDate(date_parts::Join({(total - seconds) / kSecondsPerDay, static_cast<int>(seconds)}));
}

Date TimeOf(Date moment) { return date_parts::Join({0, moment.SecondsOfDay()}); }

void DateOnly(FunctionCall& call) { call.ReturnDate(call.Moment(0).WithoutTime()); }
void TimeOnly(FunctionCall& call) { call.ReturnDate(TimeOf(call.Moment(0))); }
/// Days from day zero, and the number of the date there: before day zero the time of day is taken off the number.
double DaysOf(double date) { return date < 0 ? 2 * std::trunc(date) - date : date; }
double DateAt(double days) { return days < 0 ? 2 * std::floor(days) - days : days; }

void Sum(FunctionCall& call) { call.ReturnNumber(DateAt(DaysOf(call.Number(0)) + call.Number(1))); }
void Distance(FunctionCall& call) { call.ReturnNumber(DaysOf(call.Number(1)) - DaysOf(call.Number(0))); }
void Convert(FunctionCall& call) { call.ReturnDate(ToDate(call.Value(0))); }

constexpr SqliteFunction kFunctions[] = {
    {"year", 1, 1, false, &Year},
    {"month", 1, 1, false, &Month},
    {"day", 1, 1, false, &Day},
    {"hour", 1, 1, false, &Hour},
    {"minute", 1, 1, false, &Minute},
    {"second", 1, 1, false, &Second},
    {"weekday", 1, 2, false, &Weekday},
    {"date_add", 3, 3, false, &Add},
    {"date_sum", 2, 2, false, &Sum},
    {"date_distance", 2, 2, false, &Distance},
    {"date_diff", 3, 3, false, &Difference},
    {"date_part", 2, 2, false, &Part},
    {"date_serial", 3, 3, false, &FromCalendar},
    {"time_serial", 3, 3, false, &FromTime},
    {"date_value", 1, 1, false, &DateOnly},
    {"time_value", 1, 1, false, &TimeOnly},
    {"cdate", 1, 1, false, &Convert},
};

}  // namespace

std::span<const SqliteFunction> DateFunctions() { return kFunctions; }

}  // namespace zef
