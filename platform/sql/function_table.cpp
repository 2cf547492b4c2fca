#include "platform/sql/function_table.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "platform/sql/statement_error.h"
#include "platform/text.h"

namespace zef::sql {
namespace {

constexpr Type Any = Type::Unknown;
constexpr Type Text = Type::Text;
constexpr Type Number = Type::Double;
constexpr Type Moment = Type::Date;

/// A function that takes its arguments in two ways has two rows.
constexpr FunctionRow kFunctions[] = {
    {"INSTR", 2, 2, Type::Long, {Text, Text}, "instr"},
    {"INSTR", 3, 3, Type::Long, {Number, Text, Text}, "instr_from"},
    {"LEFT", 2, 2, Type::Text, {Text, Number}, "left"},
    {"RIGHT", 2, 2, Type::Text, {Text, Number}, "right"},
    {"MID", 2, 3, Type::Text, {Text, Number, Number}, "mid"},
    {"LEN", 1, 1, Type::Long, {Text}, "len"},
    {"TRIM", 1, 1, Type::Text, {Text}, "trim"},
    {"LTRIM", 1, 1, Type::Text, {Text}, "ltrim"},
    {"RTRIM", 1, 1, Type::Text, {Text}, "rtrim"},
    {"UCASE", 1, 1, Type::Text, {Text}, "ucase"},
    {"LCASE", 1, 1, Type::Text, {Text}, "lcase"},
    {"YEAR", 1, 1, Type::Long, {Moment}, "year"},
    {"MONTH", 1, 1, Type::Long, {Moment}, "month"},
    {"DAY", 1, 1, Type::Long, {Moment}, "day"},
    {"HOUR", 1, 1, Type::Long, {Moment}, "hour"},
    {"MINUTE", 1, 1, Type::Long, {Moment}, "minute"},
    {"SECOND", 1, 1, Type::Long, {Moment}, "second"},
    {"WEEKDAY", 1, 2, Type::Long, {Moment, Number}, "weekday"},
    {"DATEADD", 3, 3, Type::Date, {Text, Number, Moment}, "date_add"},
    {"DATEDIFF", 3, 3, Type::Long, {Text, Moment, Moment}, "date_diff"},
    {"DATEPART", 2, 2, Type::Long, {Text, Moment}, "date_part"},
    {"DATESERIAL", 3, 3, Type::Date, {Number, Number, Number}, "date_serial"},
    {"TIMESERIAL", 3, 3, Type::Date, {Number, Number, Number}, "time_serial"},
    {"DATEVALUE", 1, 1, Type::Date, {Moment}, "date_value"},
    {"TIMEVALUE", 1, 1, Type::Date, {Moment}, "time_value"},
    {"CSTR", 1, 1, Type::Text, {Text}, "cstr"},
    {"CLNG", 1, 1, Type::Long, {Any}, "clng"},
    {"CINT", 1, 1, Type::Short, {Any}, "cint"},
    {"CBYTE", 1, 1, Type::Byte, {Any}, "cbyte"},
    {"CDBL", 1, 1, Type::Double, {Any}, "cdbl"},
    {"CBOOL", 1, 1, Type::Boolean, {Any}, "cbool"},
    {"CDATE", 1, 1, Type::Date, {Any}, "cdate"},
    {"ABS", 1, 1, FunctionRow::kAsNumber, {Number}, "abs"},
    {"INT", 1, 1, FunctionRow::kAsNumber, {Number}, "int"},
    {"FIX", 1, 1, FunctionRow::kAsNumber, {Number}, "fix"},
    {"SGN", 1, 1, Type::Long, {Number}, "sgn"},
    {"ROUND", 1, 2, FunctionRow::kAsNumber, {Number, Number}, "round"},
};

constexpr AggregateRow kAggregates[] = {
    {"COUNT", Type::Long, false},  {"SUM", Type::Double, true},   {"AVG", Type::Double, true},
    {"MIN", Type::Unknown, false}, {"MAX", Type::Unknown, false},
};

}  // namespace

const FunctionRow* FindFunction(std::string_view name, std::size_t count, std::size_t place) {
  bool known = false;
  for (const FunctionRow& row : kFunctions) {
    if (!text::EqualNames(row.name, name)) continue;
    if (row.least <= count && count <= row.most) return &row;
    known = true;
  }
  if (!known) return nullptr;
  RaiseArgumentCount(name, count, place);
}

const AggregateRow* FindAggregate(std::string_view name) {
  const auto* const row = std::find_if(std::begin(kAggregates), std::end(kAggregates),
                                       [name](const AggregateRow& one) { return text::EqualNames(one.name, name); });
  return row == std::end(kAggregates) ? nullptr : row;
}

void RaiseArgumentCount(std::string_view name, std::size_t count, std::size_t place) {
  RaiseAt(FailureNumber::StatementError,
          "The function '" + std::string(name) + "' takes another number of arguments than " + std::to_string(count),
          place);
}

}  // namespace zef::sql
