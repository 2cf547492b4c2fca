#include "platform/sqlite/functions.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/sqlite/function_call.h"
#include "platform/text.h"

namespace zef {
namespace {

using Report = std::function<void(RunTimeError)>;

/// What the connection keeps for each of its functions.
struct Registered {
  const SqliteFunction& function;
  std::shared_ptr<Report> report;
};

bool EndsInNull(const FunctionCall& call, const SqliteFunction& function) {
  bool null = false;
  for (std::size_t i = 0; i < call.count(); ++i) null = null || call.IsNull(i);
  return null && !function.takes_null;
}

/// A statement has one number for values that do not convert, wherever in it they stand.
RunTimeError DoesNotConvert() {
  return {FailureNumber::TypesDoNotConvert, "A value does not convert to the type that is needed here."};
}

void Fail(sqlite3_context* context, const Report& report) noexcept {
  RunTimeError failure = CurrentFailure().value_or(RunTimeError(FailureNumber::InvalidCall));
  if (failure.code() == FailureNumber::TypeMismatch) failure = DoesNotConvert();
  sqlite3_result_error(context, failure.description().c_str(), -1);
  report(failure);
}

void Run(sqlite3_context* context, int count, sqlite3_value** arguments) {
  const auto& registered = *static_cast<const Registered*>(sqlite3_user_data(context));
  FunctionCall call(context, {arguments, static_cast<std::size_t>(count)});
  if (EndsInNull(call, registered.function)) return sqlite3_result_null(context);
  try {
    registered.function.run(call);
  } catch (...) {
    Fail(context, *registered.report);
  }
}

void Forget(void* registered) { delete static_cast<Registered*>(registered); }

int CompareTexts(void*, int a_size, const void* a, int b_size, const void* b) noexcept {
  return text::Compare({static_cast<const char*>(a), static_cast<std::size_t>(a_size)},
                       {static_cast<const char*>(b), static_cast<std::size_t>(b_size)});
}

void Check(sqlite3* db, int code) {
  if (code != SQLITE_OK) throw RunTimeError(FailureNumber::FileUnusable, sqlite3_errmsg(db));
}

void Register(sqlite3* db, const SqliteFunction& function, int count, const std::shared_ptr<Report>& report) {
  constexpr int kTraits = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
  const std::string name = std::string("zef_") + function.name;
  auto* const registered = new Registered{function, report};  // the connection deletes it, also if it takes no function
  Check(db, sqlite3_create_function_v2(db, name.c_str(), count, kTraits, registered, &Run, nullptr, nullptr, &Forget));
}

}  // namespace

void RegisterFunctions(sqlite3* db, std::function<void(RunTimeError)> report) {
  const auto shared = std::make_shared<Report>(std::move(report));
  for (const auto functions : {TextFunctions(), DateFunctions(), NumberFunctions(), StorageFunctions()}) {
    for (const SqliteFunction& function : functions) {
      for (int count = function.least; count <= function.most; ++count) Register(db, function, count, shared);
    }
  }
  Check(db, sqlite3_create_collation_v2(db, "ZEF", SQLITE_UTF8, nullptr, &CompareTexts, nullptr));
}

}  // namespace zef
