#include "platform/run_time_error.h"
#include "platform/sql/convert.h"
#include "platform/sqlite/function_call.h"

namespace zef {
namespace {

void Store(FunctionCall& call, const sql::ParameterPlan& plan) {
  Value scratch;
  const Value given = call.Value(0);
  call.ReturnValue(sql::Converted(given, plan, scratch));
}

template <sql::Type type>
void StoreAs(FunctionCall& call) {
  sql::ParameterPlan plan;
  plan.type = type;
  Store(call, plan);
}

/// The second argument is the most characters, 0 for no limit.
void StoreText(FunctionCall& call) {
  std::string kept;
  sql::ParameterPlan plan;
  plan.type = sql::Type::Text;
  plan.length = call.Long(1);
  const bool fits = call.IsText(0) && sql::FitsLength(call.Text(0, kept), plan.length);
  if (fits) return call.ReturnArgument(0);
  Store(call, plan);
}

/// The second argument is the name of the column.
void Require(FunctionCall& call) {
  if (!call.IsNull(0)) return call.ReturnArgument(0);
  std::string kept;
  const std::string_view column = call.Text(1, kept);
  throw RunTimeError(FailureNumber::ConstraintViolated, "The column '" + std::string(column) + "' needs a value.");
}

constexpr SqliteFunction kFunctions[] = {
    {"to_boolean", 1, 1, false, &StoreAs<sql::Type::Boolean>},
    {"to_byte", 1, 1, false, &StoreAs<sql::Type::Byte>},
    {"to_short", 1, 1, false, &StoreAs<sql::Type::Short>},
    {"to_long", 1, 1, false, &StoreAs<sql::Type::Long>},
    {"to_double", 1, 1, false, &StoreAs<sql::Type::Double>},
    {"to_date", 1, 1, false, &StoreAs<sql::Type::Date>},
    {"to_text", 2, 2, false, &StoreText},
    {"required", 2, 2, true, &Require},
};

}  // namespace

std::span<const SqliteFunction> StorageFunctions() { return kFunctions; }

}  // namespace zef
