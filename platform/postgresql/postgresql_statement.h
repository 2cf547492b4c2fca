#pragma once

#include <string>
#include <vector>

#include "platform/postgresql/server_connection.h"
#include "platform/sql_engine.h"

namespace zef {

/// A prepared statement of the server's engine. It is prepared in the round trip of its first run. The rows of a select
/// come in portions.
class PostgresqlStatement final : public PreparedStatement {
 public:
  /// The compiled statement and the connection must outlive this one. `name` is its own on the connection, or empty for
  /// a statement that the server keeps for one run only; `check` goes
  /// before the preparing, in the same round trip, and fails if the tables have changed since the compilation.
  PostgresqlStatement(ServerConnection& connection, const sql::CompiledStatement& compiled, std::string name,
                      std::string check);
  ~PostgresqlStatement() override;
  PostgresqlStatement(const PostgresqlStatement&) = delete;
  PostgresqlStatement& operator=(const PostgresqlStatement&) = delete;

  void Bind(int number, const Value& value, bool lasting) override;
  Step Next() override;
  void Read(Positions columns, std::span<const sql::Type> types, std::span<Value> values) const override;
  std::size_t Fill(Positions columns, std::span<const sql::Type> types, std::span<const Slot> slots) const override;
  void Reset() override;
  std::int64_t RowsWritten() const override { return rows_written_; }
  std::optional<Value> RowId() const override { return row_id_; }

 private:
  void Start();
  bool ColumnsHaveChanged() const;
  void ReadPortion();
  void TakeRest();
  void Take(ResultHandle result);
  const sql::LaterColumn* FindLater(int column) const;
  void ReadLater(const sql::LaterColumn& later, Value& value) const;
  void FetchPieces(const std::string& text, const std::string& place, Bytes& value) const;
  void TakeEnd(const PGresult* result);
  const PGresult* Row() const { return portion_[at_].get(); }

  ServerConnection& connection_;
  const sql::CompiledStatement& compiled_;
  const std::string name_;
  const std::string check_;
  WireParameters parameters_;
  bool prepared_ = false;
  bool started_ = false;
  bool delivering_ = false;  ///< more rows may come behind the portion
  std::vector<ResultHandle> portion_;
  std::size_t bytes_ = 0;  ///< of the portion
  std::size_t at_ = 0;     ///< of the current row in the portion
  std::int64_t rows_written_ = 0;
  std::optional<Value> row_id_;
};

}  // namespace zef
