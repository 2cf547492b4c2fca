#include <algorithm>
#include <limits>

#include "platform/run_time_error.h"
#include "platform/sqlite/function_call.h"
#include "platform/text.h"

namespace zef {
namespace {

/// A count or position that must not lie below `least`.
std::int64_t Bounded(const FunctionCall& call, std::size_t i, std::int32_t least) {
  const std::int32_t number = call.Long(i);
  if (number < least) throw RunTimeError(FailureNumber::InvalidCall);
  return number;
}

void Find(FunctionCall& call, std::size_t whole, std::int64_t start) {
  std::string kept_whole;
  std::string kept_part;
  call.ReturnWhole(text::Find(call.Text(whole, kept_whole), call.Text(whole + 1, kept_part), start));
}

void InStr(FunctionCall& call) { Find(call, 0, 1); }

void InStrFrom(FunctionCall& call) { Find(call, 1, Bounded(call, 0, 1)); }

void Left(FunctionCall& call) {
  std::string kept;
  call.ReturnText(text::Left(call.Text(0, kept), Bounded(call, 1, 0)));
}

void Right(FunctionCall& call) {
  std::string kept;
  call.ReturnText(text::Right(call.Text(0, kept), Bounded(call, 1, 0)));
}

void Mid(FunctionCall& call) {
  std::string kept;
  const std::int64_t start = Bounded(call, 1, 1);
  const std::int64_t count = call.count() > 2 ? Bounded(call, 2, 0) : std::numeric_limits<std::int32_t>::max();
  call.ReturnText(text::Mid(call.Text(0, kept), start, count));
}

void Len(FunctionCall& call) {
  std::string kept;
  call.ReturnWhole(call.IsBytes(0) ? call.Bytes(0) : text::Length(call.Text(0, kept)));
}

void Trim(FunctionCall& call) {
  std::string kept;
  call.ReturnText(text::Trim(call.Text(0, kept)));
}

void LeftTrim(FunctionCall& call) {
  std::string kept;
  const std::string_view text = call.Text(0, kept);
  call.ReturnText(text.substr(std::min(text.find_first_not_of(' '), text.size())));
}

void RightTrim(FunctionCall& call) {
  std::string kept;
  const std::string_view text = call.Text(0, kept);
  call.ReturnText(text.substr(0, text.find_last_not_of(' ') + 1));
}

void UpperCase(FunctionCall& call) {
  std::string kept;
  call.ReturnText(text::UpperCase(call.Text(0, kept)));
}

void LowerCase(FunctionCall& call) {
  std::string kept;
  call.ReturnText(text::LowerCase(call.Text(0, kept)));
}

void Text(FunctionCall& call) {
  std::string kept;
  call.ReturnText(call.Text(0, kept));
}

void DateText(FunctionCall& call) { call.ReturnText(ToText(ToDate(call.Value(0)))); }

void BooleanText(FunctionCall& call) { call.ReturnText(ToText(Value(ToBoolean(call.Value(0))))); }

/// Null adds nothing.
void Concat(FunctionCall& call) {
  std::string joined;
  std::string kept;
  for (std::size_t i = 0; i < call.count(); ++i) {
    if (!call.IsNull(i)) joined += call.Text(i, kept);
  }
  call.ReturnText(joined);
}

void Like(FunctionCall& call) {
  std::string kept_text;
  std::string kept_pattern;
  call.ReturnWhole(text::Like(call.Text(0, kept_text), call.Text(1, kept_pattern)) ? 1 : 0);
}

/// True if the first text equals one of the others.
void Equals(FunctionCall& call) {
  std::string kept;
  std::string kept_other;
  const std::string_view text = call.Text(0, kept);
  bool equal = false;
  for (std::size_t i = 1; i < call.count() && !equal; ++i) equal = text::Compare(text, call.Text(i, kept_other)) == 0;
  call.ReturnWhole(equal ? 1 : 0);
}

constexpr SqliteFunction kFunctions[] = {
    {"instr", 2, 2, false, &InStr},
    {"instr_from", 3, 3, false, &InStrFrom},
    {"left", 2, 2, false, &Left},
    {"right", 2, 2, false, &Right},
    {"mid", 2, 3, false, &Mid},
    {"len", 1, 1, false, &Len},
    {"trim", 1, 1, false, &Trim},
    {"ltrim", 1, 1, false, &LeftTrim},
    {"rtrim", 1, 1, false, &RightTrim},
    {"ucase", 1, 1, false, &UpperCase},
    {"lcase", 1, 1, false, &LowerCase},
    {"cstr", 1, 1, false, &Text},
    {"date_text", 1, 1, false, &DateText},
    {"boolean_text", 1, 1, false, &BooleanText},
    {"concat", -1, -1, true, &Concat},
    {"like", 2, 2, false, &Like},
    {"equals", -1, -1, false, &Equals},
};

}  // namespace

std::span<const SqliteFunction> TextFunctions() { return kFunctions; }

}  // namespace zef
