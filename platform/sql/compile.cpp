#include "platform/sql/compile.h"

#include <utility>

#include "platform/run_time_error.h"
#include "platform/sql/change_writer.h"
#include "platform/sql/select_writer.h"
#include "platform/sql/writing.h"

namespace zef::sql {

CompiledStatement Compile(const Statement& statement, const Shape& shape, Catalog& catalog, const Dialect& dialect,
                          CompileOptions options) {
  Writing writing(shape, catalog, dialect, options);
  if (statement.select) WriteSelectStatement(writing, *statement.select);
  if (statement.insert) WriteInsert(writing, *statement.insert);
  if (statement.update) WriteUpdate(writing, *statement.update);
  if (statement.remove) WriteDelete(writing, *statement.remove);
  if (writing.result().text.empty()) throw RunTimeError(FailureNumber::StatementError, "The statement cannot be run.");
  return std::move(writing.result());
}

}  // namespace zef::sql
