#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "platform/connection.h"
#include "platform/engine.h"
#include "platform/reference.h"

namespace zef {

enum CursorType : std::int32_t { adOpenForwardOnly = 0, adOpenKeyset = 1, adOpenDynamic = 2, adOpenStatic = 3 };
enum LockType : std::int32_t { adLockReadOnly = 1, adLockPessimistic = 2, adLockOptimistic = 3 };
/// Options of Open and Execute; values may be combined.
enum CommandOption : std::int32_t { adCmdUnspecified = -1, adCmdText = 1, adCmdTable = 2, adAsyncFetch = 32 };

class Recordset;

/// One column of the current row. A light handle: it is good as long as its record set.
class Field {
 public:
  Field(Recordset& recordset, int position) : recordset_(&recordset), position_(position) {}

  const std::string& Name() const;
  /// Place among the columns, from 0.
  std::int32_t Position() const { return position_; }
  /// Raises 3021 with no current row.
  zef::Value Value() const;
  /// Sets the value for the next `Update`; it is read back at once.
  void SetValue(zef::Value value);
  /// Length of the value: bytes of binary values, characters of texts; 0 for Null.
  std::int32_t ActualSize() const;
  /// The next portion of a long value, at most `length` characters or bytes, each call going on where the last one
  /// stopped; Null behind the end.
  zef::Value GetChunk(std::int32_t length);

 private:
  Recordset* recordset_;
  int position_;
};

/// The columns of a record set.
class Fields {
 public:
  explicit Fields(Recordset& recordset) : recordset_(&recordset) {}

  std::int32_t Count() const;
  /// By name, letter case ignored, or by position from 0; raises 3265 for what is not there.
  Field Item(std::string_view name) const;
  Field Item(std::int32_t index) const;

 private:
  Recordset* recordset_;
};

/// The rows of a select or table, read strictly forward, and written one row at a time by setting fields and calling
/// `Update`. What it delivers is what its opening saw, whatever the same connection writes meanwhile. Members other
/// than `Open` raise 3704 when it is closed.
class Recordset : public RefCounted<Recordset> {
 public:
  Recordset() = default;
  ~Recordset();
  Recordset(const Recordset&) = delete;
  Recordset& operator=(const Recordset&) = delete;

  /// Opens a select, or a whole table by name with option adCmdTable, at its first row. A pessimistic one holds the
  /// right to write from here until its `Update` or `Close`. The cursor type plays no part: every record set reads
  /// forward what its opening saw. Raises 91 for a connection that is Nothing.
  void Open(const std::string& source, const Ref<Connection>& connection, std::int32_t cursor_type = adOpenForwardOnly,
            std::int32_t lock_type = adLockReadOnly, std::int32_t options = adCmdUnspecified);
  void Close();
  /// False for good once the connection is closed, even if that is opened again.
  bool IsOpen() const { return cursor_ && IsConnected(); }

  /// True behind the last row (ADO's EOF, a name that the C library takes).
  bool EndOfFile() const;
  /// Raises 3021 behind the last row.
  void MoveNext();
  zef::Fields Fields() { return zef::Fields(*this); }
  /// Number of all rows.
  std::int32_t RecordCount();

  /// Begins a new row; its fields are Null until they are set. The rows still ahead are given up, neither delivered nor
  /// counted any more: the new one is the last.
  void AddNew();
  /// Writes the fields set since `AddNew`, or since the current row was reached, in one statement. Raises -2147217887
  /// for a value that does not fit its column, -2147217900 for a text that is not UTF-8, -2147217864 if the row is
  /// gone, -2147467259 if the record set was not opened for writing or its rows have no identity.
  void Update();

  /// Positions of many columns at once, see `RowShape::Positions`.
  zef::Positions Positions(ColumnNames names) const;
  /// Reads what it can of the current row into where it belongs, see `Cursor::Fill`.
  std::size_t Fill(zef::Positions columns, std::span<const Slot> slots) const;
  /// The value at a position from 0.
  Value ValueAt(int position) const;

  /// Takes over a running select; for `Connection`.
  void Attach(const Ref<Connection>& connection, std::unique_ptr<Cursor> cursor);

 private:
  friend class Field;
  friend class Fields;

  /// A value that is fetched portion by portion.
  struct Portioned {
    int position = 0;
    Value value;
    std::size_t fetched = 0;  ///< bytes
  };

  /// True while its connection is still in the opening that it was opened in.
  bool IsConnected() const { return connection_->Opening() == opening_; }
  const RowShape& OpenShape() const;
  Portioned& Portions(int position);
  void RequireRow() const;
  /// True while the current row is one of the cursor's, as it came.
  bool IsUntouched() const { return cursor_ && pending_.empty() && written_.empty() && !adding_; }
  Value StoredValue(int position) const;
  void Set(int position, Value value);
  void InsertRow();
  void UpdateRow();
  void LeaveRow();
  /// Ends the own transaction, unless the client has opened one inside it, has ended it or put another in its place.
  void ReleaseLock(bool keep);

  Ref<Connection> connection_;
  std::int32_t opening_ = 0;  ///< of the connection
  std::unique_ptr<Cursor> cursor_;
  using SetFields = std::vector<std::pair<int, Value>>;
  SetFields pending_;                 ///< fields set and not yet written
  SetFields written_;                 ///< fields of the current row that `Update` has written over
  std::vector<Portioned> portioned_;  ///< long values of the current row that are being fetched
  bool at_end_ = true;
  bool adding_ = false;    ///< the current row is one from `AddNew`
  bool inserted_ = false;  ///< and `Update` has written it
  bool writable_ = false;
  std::int64_t lock_ = 0;  ///< number of a pessimistic record set's own transaction, 0 for none
};

}  // namespace zef
