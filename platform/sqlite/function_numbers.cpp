#include <cmath>
#include <limits>
#include <utility>

#include "platform/run_time_error.h"
#include "platform/sqlite/function_call.h"

namespace zef {
namespace {

void Divide(FunctionCall& call) {
  const double divisor = call.Number(1);
  if (divisor == 0.0) throw RunTimeError(FailureNumber::DivisionByZero);
  call.ReturnNumber(call.Number(0) / divisor);
}

struct Division {
  std::int64_t dividend;
  std::int64_t divisor;
};

Division WholeDivision(const FunctionCall& call) {
  const Division division{call.Whole(0), call.Whole(1)};
  if (division.divisor == 0) throw RunTimeError(FailureNumber::DivisionByZero);
  const bool overflows = division.divisor == -1 && division.dividend == std::numeric_limits<std::int64_t>::min();
  if (overflows) throw RunTimeError(FailureNumber::Overflow);
  return division;
}

void IntDivide(FunctionCall& call) {
  const Division division = WholeDivision(call);
  call.ReturnWhole(division.dividend / division.divisor);
}

/// The remainder has the sign of the dividend.
void Modulo(FunctionCall& call) {
  const Division division = WholeDivision(call);
  call.ReturnWhole(division.dividend % division.divisor);
}

void Power(FunctionCall& call) {
  const double base = call.Number(0);
  const double exponent = call.Number(1);
  const double power = std::pow(base, exponent);
  const bool undefined = std::isnan(power) || (base == 0.0 && exponent < 0.0);
  if (undefined) throw RunTimeError(FailureNumber::InvalidCall);
  call.ReturnNumber(power);
}

void Absolute(FunctionCall& call) {
  if (!call.IsWhole(0)) return call.ReturnNumber(std::fabs(call.Number(0)));
  const std::int64_t number = call.Whole(0);
  if (number == std::numeric_limits<std::int64_t>::min()) throw RunTimeError(FailureNumber::Overflow);
  call.ReturnWhole(number < 0 ? -number : number);
}

void RoundDown(FunctionCall& call) {
  if (call.IsWhole(0)) return call.ReturnArgument(0);
  call.ReturnNumber(std::floor(call.Number(0)));
}

void CutOff(FunctionCall& call) {
  if (call.IsWhole(0)) return call.ReturnArgument(0);
  call.ReturnNumber(std::trunc(call.Number(0)));
}

void Sign(FunctionCall& call) {
  const double number = call.Number(0);
  call.ReturnWhole((number > 0.0) - (number < 0.0));
}

/// Half to even. Beyond 15 digits a double has nothing to round.
void Round(FunctionCall& call) {
  constexpr std::int32_t kMostDigits = 15;
  const std::int32_t digits = call.count() > 1 ? call.Long(1) : 0;
  if (digits < 0) throw RunTimeError(FailureNumber::InvalidCall);
  if (call.IsWhole(0)) return call.ReturnArgument(0);
  const double number = call.Number(0);
  const double scale = std::pow(10.0, digits);
  const bool whole = digits > kMostDigits || std::fabs(number) * scale > 1e15;
  call.ReturnNumber(whole ? number : std::nearbyint(number * scale) / scale);
}

void Long(FunctionCall& call) { call.ReturnWhole(call.Long(0)); }

void Integer(FunctionCall& call) {
  const std::int32_t number = call.Long(0);
  if (!std::in_range<std::int16_t>(number)) throw RunTimeError(FailureNumber::Overflow);
  call.ReturnWhole(number);
}

void Byte(FunctionCall& call) { call.ReturnWhole(ToByte(call.Value(0))); }
void Double(FunctionCall& call) { call.ReturnNumber(call.Number(0)); }
void Boolean(FunctionCall& call) { call.ReturnBoolean(ToBoolean(call.Value(0))); }
void Truth(FunctionCall& call) { call.ReturnBoolean(call.Number(0) != 0.0); }

constexpr SqliteFunction kFunctions[] = {
    {"divide", 2, 2, false, &Divide}, {"int_divide", 2, 2, false, &IntDivide},
    {"modulo", 2, 2, false, &Modulo}, {"power", 2, 2, false, &Power},
    {"abs", 1, 1, false, &Absolute},  {"int", 1, 1, false, &RoundDown},
    {"fix", 1, 1, false, &CutOff},    {"sgn", 1, 1, false, &Sign},
    {"round", 1, 2, false, &Round},   {"clng", 1, 1, false, &Long},
    {"cint", 1, 1, false, &Integer},  {"cbyte", 1, 1, false, &Byte},
    {"cdbl", 1, 1, false, &Double},   {"cbool", 1, 1, false, &Boolean},
    {"truth", 1, 1, false, &Truth},
};

}  // namespace

std::span<const SqliteFunction> NumberFunctions() { return kFunctions; }

}  // namespace zef
