#pragma once

#include <sqlite3.h>

#include <memory>
#include <optional>
#include <vector>

#include "platform/sql_engine.h"

namespace zef {

struct FinalizeStatement {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using StatementHandle = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

/// Prepares a statement of a client's. It reports a changed schema instead of being prepared anew behind our back: what
/// was worked out for the old columns must not be used for new ones.
StatementHandle PrepareForClient(sqlite3* db, std::string_view text);
/// Prepares a statement of the engine's own, which any change of the schema leaves as it is.
StatementHandle PrepareOwn(sqlite3* db, std::string_view text);

/// A prepared statement of the embedded engine. `failure` is where the engine's own functions leave what went wrong in
/// them.
class SqliteStatement final : public PreparedStatement {
 public:
  /// The compiled statement must outlive this one.
  SqliteStatement(sqlite3* db, const sql::CompiledStatement& compiled, std::optional<RunTimeError>& failure);

  void Bind(int number, const Value& value, bool lasting) override;
  Step Next() override;
  void Read(Positions columns, std::span<const sql::Type> types, std::span<Value> values) const override;
  std::size_t Fill(Positions columns, std::span<const sql::Type> types, std::span<const Slot> slots) const override;
  void Reset() override;
  std::int64_t RowsWritten() const override { return rows_written_; }

 private:
  /// A column that is fetched, and the statement that does so, which is prepared at its first use.
  struct Later {
    const sql::LaterColumn& column;
    mutable StatementHandle handle;
  };

  const Later* FindLater(int column) const;
  void Fetch(const Later& later, Value& value) const;

  sqlite3* db_;
  StatementHandle handle_;
  std::vector<Later> later_;
  std::optional<RunTimeError>& failure_;
  std::int64_t rows_written_ = 0;
  bool running_ = false;  ///< stands on a row
};

}  // namespace zef
