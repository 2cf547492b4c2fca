#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/engine.h"
#include "platform/errors.h"
#include "platform/reference.h"

namespace zef {

class Recordset;

/// A connection to one database. What needs an open one raises 3704 on a closed connection. Failures of the provider
/// enter `Errors` before they are raised; failures of the objects themselves do not.
class Connection : public RefCounted<Connection> {
 public:
  Connection() = default;
  /// Rolls back what is open.
  ~Connection() = default;
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  /// Access asked for: 1 read, 2 write, 3 both. Every database is opened for both; the value is kept for clients.
  std::int32_t Mode = 0;

  /// Opens the database that the connection string names; a password given here counts if the string has none. Raises
  /// what `OpenEngine` does, and 3705 if the connection is open already.
  void Open(const std::string& connection_string, const std::string& user = {}, const std::string& password = {},
            std::int32_t options = -1);
  /// Rolls back what is open and closes the record sets of this connection.
  void Close();
  bool IsOpen() const { return engine_ != nullptr; }
  /// Number of the running opening, from 1; 0 while closed. What belongs to an earlier one stays closed.
  std::int32_t Opening() const { return engine_ ? openings_ : 0; }

  /// Opens a transaction, or a nested one, and returns the new depth.
  std::int32_t BeginTrans();
  void CommitTrans();
  void RollbackTrans();
  /// Number of the newest outermost transaction, from 1; 0 before the first. Tells one that is open from one that has
  /// taken its place.
  std::int64_t NewestTransaction() const { return transactions_; }

  /// Runs one statement of the dialect. A select gives its record set at the first row; anything else a closed one.
  Ref<Recordset> Execute(const std::string& text, std::int32_t options = -1);
  /// The same in a transaction that takes a turn for it, see `Command::turn`.
  Ref<Recordset> ExecuteInTurn(const std::string& text, std::string_view turn);

  zef::Errors& Errors() { return errors_; }

  /// For record sets: runs one command and gives its result.
  Result Run(const Command& command);
  /// Runs `call` and enters a failure of the provider into the list before it goes on.
  template <class Call>
  auto Guarded(Call&& call) -> decltype(call());
  /// The engine; raises 3704 when closed.
  Engine& OpenedEngine();

  /// Puts a wrapper around the engine, for tests that record statements or make them fail.
  void WrapEngine(const std::function<std::unique_ptr<Engine>(std::unique_ptr<Engine>)>& wrap);

 private:
  Ref<Recordset> RowsOf(const Command& command);

  std::unique_ptr<Engine> engine_;
  std::int32_t openings_ = 0;      ///< so far
  std::int64_t transactions_ = 0;  ///< so far, nested ones left out
  zef::Errors errors_;
};

template <class Call>
auto Connection::Guarded(Call&& call) -> decltype(call()) {
  try {
    return call();
  } catch (const RunTimeError& failure) {
    if (failure.from_provider()) errors_.Replace(failure);
    throw;
  }
}

}  // namespace zef
