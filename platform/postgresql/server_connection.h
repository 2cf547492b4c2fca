#pragma once

#include <libpq-fe.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/postgresql/server_options.h"
#include "platform/postgresql/wire_values.h"

namespace zef {

struct ClearResult {
  void operator()(PGresult* result) const { PQclear(result); }
};
using ResultHandle = std::unique_ptr<PGresult, ClearResult>;

using Commands = std::vector<std::string>;

/// Begins a transaction.
inline constexpr const char* kBegin = "BEGIN ISOLATION LEVEL READ COMMITTED";

/// A conversation with the server. Commands that deliver nothing wait for the next statement and go with it, so that
/// each statement takes one round trip. At most one statement delivers its rows at a time.
class ServerConnection {
 public:
  /// `make_room` is called before anything is sent while a statement still delivers rows, and takes those elsewhere.
  /// `for_each_transaction` goes with the first statement of every transaction; empty for none.
  ServerConnection(ConnectionHandle connection, std::function<void()> make_room, std::string for_each_transaction);

  /// Lets a command go with the next statement.
  void Defer(std::string command);
  /// Takes the command that was deferred last back; false if it is another one, or was sent already.
  bool TakeBack(std::string_view command);
  /// While a statement still delivers rows: what is sent before all that waits should one of these rows fail.
  void UndoLateFailureBy(Commands commands);
  /// Forgets a prepared statement once it can be done in passing.
  void Deallocate(const std::string& name);

  enum class Form { Text = 0, Binary = 1 };
  /// Runs a statement of the engine's own with texts as parameters and gives its whole result.
  ResultHandle Query(const std::string& text, const std::vector<std::string>& parameters = {}, Form form = Form::Text);
  /// Runs several statements that are one text, outside of a transaction.
  void RunScript(const std::string& text);

  /// A prepared statement to be run; with a text it is prepared first. The empty name is that of a statement that the
  /// server forgets with the next one.
  struct Run {
    const std::string& name;
    const std::string* text;
    const WireParameters& parameters;
    bool row_by_row;
  };
  /// Starts a statement: its results come by `Next`.
  void Start(const Run& run);
  /// The next result of the started statement; null at its end. Raises its failure.
  ResultHandle Next();
  /// Passes over what the started statement still delivers.
  void Skip();
  bool delivering() const { return delivering_; }

  bool lost() const { return !connection_ || PQstatus(connection_.get()) == CONNECTION_BAD; }
  /// Closes the connection; the server undoes what is open.
  void Close() { connection_.reset(); }
  /// Round trips so far, for tests that count them.
  std::int64_t round_trips() const { return round_trips_; }
  /// A setting that the server has told, or the empty text.
  std::string_view Setting(const char* name) const;

 private:
  void Open();
  void SendAhead(const std::string& command);
  void Sent(int code) const;
  void Sync();
  void PassOver(int results);
  void End();
  [[noreturn]] void Fail(const PGresult* result);

  ConnectionHandle connection_;
  std::function<void()> make_room_;
  std::string for_each_transaction_;
  Commands deferred_;
  Commands deallocated_;
  Commands undo_late_failure_;
  int ahead_ = 0;  ///< results before those of the statement itself
  bool delivering_ = false;
  std::int64_t round_trips_ = 0;
};

}  // namespace zef
