#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/slot.h"
#include "platform/sql/compile.h"
#include "platform/value.h"

/// The seam between the library and a database. An engine is one open database for one thread; nothing above it can
/// tell which one it is on.
namespace zef {

struct ConnectionString;

using ColumnNames = std::span<const std::string_view>;
/// Positions of columns in a row, from 0; a negative one stands for a column that is not there.
using Positions = std::span<const int>;

/// What all rows of a result have in common.
class RowShape {
 public:
  explicit RowShape(sql::CompiledStatement statement);

  const std::vector<sql::ResultColumn>& columns() const { return statement_.columns; }
  const sql::CompiledStatement& statement() const { return statement_; }
  /// Position of the column of that name, letter case ignored, or -1.
  int Position(std::string_view name) const;
  /// Positions of many columns, worked out once for a list of names that lives as long as the program: the list's
  /// address is remembered.
  zef::Positions Positions(ColumnNames names) const;
  /// The statement that writes these columns of a row through placeholders, those of its key last; rows with a hidden
  /// identifier are found by the command's option. The text that was made last is kept. Only for a select whose rows
  /// have an identity.
  const std::string& UpdateText(zef::Positions written) const;
  /// Positions of the columns that identify a row: a hidden row identifier, or the key.
  zef::Positions Identity() const { return identity_; }
  /// All positions, that of a hidden row identifier included.
  zef::Positions EveryColumn() const { return every_column_; }
  /// Their types.
  std::span<const sql::Type> types() const { return types_; }

 private:
  sql::CompiledStatement statement_;
  std::vector<sql::Type> types_;
  std::vector<int> every_column_;
  std::vector<int> identity_;
  mutable std::vector<std::pair<const void*, std::vector<int>>> positions_;  ///< of the few lists that were asked for
  mutable std::vector<int> updated_;                                         ///< the columns that `update_text_` writes
  mutable std::string update_text_;
};

/// The rows of a select, walked forward. A cursor stands before the first row at first.
class Cursor {
 public:
  virtual ~Cursor() = default;
  virtual const RowShape& shape() const = 0;
  /// Moves to the next row; false behind the last one.
  virtual bool Next() = 0;
  /// Reads values of the current row, one for each position, none of which is negative. A hidden row identifier follows
  /// behind the last column.
  virtual void Read(Positions columns, std::span<Value> values) const = 0;
  /// Reads values of the current row into where they belong, as `Store` puts them there, from the first one on; stops
  /// at a column that is not there, a slot without a variable and whatever takes a conversion, which the caller reads
  /// as a value. Gives how many were read. There is one slot for each position.
  virtual std::size_t Fill(Positions columns, std::span<const Slot> slots) const = 0;
  /// Takes the remaining rows into memory, so that writing on the same engine cannot change what is still to come.
  /// Engines do so by themselves before they write.
  virtual void Detach() = 0;
  /// Forgets a value of the current row, which nobody will ask for again, so that a large one need not be kept.
  virtual void Drop(int column) = 0;
  /// Lets go of the remaining rows, the current one too.
  virtual void GiveUp() = 0;
  /// Number of all rows, the passed ones included.
  virtual std::int64_t CountRows() = 0;
};

/// How a record set was asked for, in the numbers of `Recordset::Open`; -1 for what `Connection::Execute` runs. An
/// engine may give more than was asked for.
struct RowRequest {
  std::int32_t cursor_type = -1;
  std::int32_t lock_type = -1;
  std::int32_t options = -1;
};

/// A statement of the dialect as the classes send it.
struct Command {
  std::string_view text;
  std::span<const Value> parameters = {};  ///< for `?` placeholders, which only the library itself uses
  sql::CompileOptions options = {};
  RowRequest request = {};
  /// What the statement looks for and does not find must stay so until the transaction ends: other transactions that
  /// take the same turn wait until then. Empty for none. An engine with one writer at a time has no need of it.
  std::string_view turn = {};
};

struct Result {
  std::unique_ptr<Cursor> cursor;  ///< of a select; else null
  std::int64_t rows = 0;           ///< rows that were written
  /// Of an UPDATE that found its row by a hidden row identifier: the new one, if the engine changes it by writing.
  std::optional<Value> row_id;
};

class Engine {
 public:
  virtual ~Engine() = default;
  /// Runs one statement. A statement that fails changes nothing and leaves a running transaction usable. Outside a
  /// transaction a writing statement is its own, committed durably.
  virtual Result Execute(const Command& command) = 0;
  /// The names of the relationships by which a table refers to others, in the order of their making; nothing if there
  /// is no such table. Unnamed ones are left out.
  virtual std::optional<std::vector<std::string>> Relationships(std::string_view table) = 0;
  /// Opens a transaction, or a nested one. Until the outermost ends, a row that it reads by its key or writes is nobody
  /// else's to write or to read by its key in a transaction; whoever wants to waits up to 5 s. An engine may keep all
  /// other writers out instead.
  virtual void BeginTrans() = 0;
  /// Ends the innermost transaction; the outermost commit is durable. Both raise -2147168242 with none open.
  virtual void CommitTrans() = 0;
  virtual void RollbackTrans() = 0;
  /// Open transactions, nested ones counted.
  virtual int TransactionDepth() const = 0;
};

/// Opens the database that a connection string names. Raises 3706 for an unknown provider, -2147217843 for a wrong or
/// missing password, -2147467259 for a file that is missing, locked, damaged or no database, -2147217900 for a key or
/// value that the provider does not know.
std::unique_ptr<Engine> OpenEngine(const ConnectionString& connection);

/// Makes the new, empty database that a connection string names; a file is private to the user (0600) and encrypted if
/// a password is given. Raises 75 if something of that name exists or the file cannot be made; a link in its place is
/// not followed. Raises 3706 and -2147217900 as `OpenEngine` does.
void CreateDatabase(const std::string& connection_string);

/// Gives back what the engines keep for the whole process. No connection may be open; the next one begins anew.
void ReleaseEngines();

}  // namespace zef
