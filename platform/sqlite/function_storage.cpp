#include <utility>

#include "platform/run_time_error.h"
#include "platform/sql/convert.h"
#include "platform/sqlite/function_call.h"

namespace zef {
namespace {

/// `name` is the argument that names the column.
void Store(FunctionCall& call, sql::ParameterPlan plan, std::size_t name) {
  std::string kept;
  plan.column = call.Text(name, kept);
  Value scratch;
  const Value given = call.Value(0);
  call.ReturnValue(sql::Converted(given, plan, scratch));
}

/// The second argument is the name of the column.
template <sql::Type type>
void StoreAs(FunctionCall& call) {
  sql::ParameterPlan plan;
  plan.type = type;
  Store(call, std::move(plan), 1);
}

/// The second argument is the most characters, 0 for no limit, the third the name of the column.
void StoreText(FunctionCall& call) {
  std::string kept;
  sql::ParameterPlan plan;
  plan.type = sql::Type::Text;
  plan.length = call.Long(1);
  const bool fits = call.IsText(0) && sql::FitsLength(call.Text(0, kept), plan.length);
  if (fits) return call.ReturnArgument(0);
  Store(call, std::move(plan), 2);
}

/// The second argument is the name of the column.
void Require(FunctionCall& call) {
  if (!call.IsNull(0)) return call.ReturnArgument(0);
  std::string kept;
  const std::string_view column = call.Text(1, kept);
  throw RunTimeError(FailureNumber::ConstraintViolated, "The column '" + std::string(column) + "' needs a value.");
}

constexpr SqliteFunction kFunctions[] = {
    {"to_boolean", 2, 2, false, &StoreAs<sql::Type::Boolean>},
    {"to_byte", 2, 2, false, &StoreAs<sql::Type::Byte>},
    {"to_short", 2, 2, false, &StoreAs<sql::Type::Short>},
    {"to_long", 2, 2, false, &StoreAs<sql::Type::Long>},
    {"to_double", 2, 2, false, &StoreAs<sql::Type::Double>},
    {"to_date", 2, 2, false, &StoreAs<sql::Type::Date>},
    {"to_text", 3, 3, false, &StoreText},
    {"required", 2, 2, true, &Require},
};

}  // namespace

std::span<const SqliteFunction> StorageFunctions() { return kFunctions; }

}  // namespace zef
