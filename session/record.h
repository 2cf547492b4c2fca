#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/recordset.h"
#include "platform/reference.h"
#include "session/bas_global.h"
#include "session/columns.h"
#include "session/executing.h"
#include "session/property.h"
#include "session/session.h"
#include "session/statements.h"
#include "session/trap.h"

namespace zef {

/// Whom a `Save` serves: every session, or only those that may write.
enum class MaySave { Anyone, Writers };

/// What every record class has: an identifier, its session and the two flags. The rest of the contract is the functions
/// below, which each class calls with its own table; a class that departs from a step writes that step itself.
template <class Derived>
class Record : public RefCounted<Derived>, public RecordFlags {
 public:
  Record(const Record&) = delete;
  Record& operator=(const Record&) = delete;

  /// Assigning it never marks the record as modified.
  std::int32_t ID = 0;

  const Ref<CSession>& Session() const { return session_; }
  void SetSession(const Ref<CSession>& session) { session_ = session; }

  bool IsModified() const { return OwnModified(); }
  /// Writes M into the modified flag and N into the new flag.
  void ResetFlagsX(bool M, bool N) { SetFlags(M, N); }
  /// Sets both flags, so that the next `Save` inserts the record as a new row.
  void ResetFlags() { ResetFlagsX(true, true); }

 protected:
  Record() = default;

  /// `Save` of a class with rights and a transaction of its own, around the class's own `steps`, which are given the
  /// session. Afterwards the own flags are clear and `DateLastUpdate` reads date value 0.
  template <class Steps>
  bool SaveInTransaction(std::string_view procedure, Steps&& steps) {
    CSession& session = Deref(session_);
    session.ClearError();
    if (Refused(session, procedure)) return false;
    if (!InTransaction(session, procedure, [&] { return steps(session); })) return false;
    static_cast<Derived&>(*this).DateLastUpdate.Load(Date());
    SetFlags(false, false);
    return true;
  }

  /// `Save` of a class without a transaction of its own, around the class's own `write`, which is given the session and
  /// runs only if something changed. Afterwards the own flags are clear.
  template <class Write>
  bool SaveAlone(std::string_view procedure, MaySave who, Write&& write) {
    CSession& session = Deref(session_);
    return Trapped(session, procedure, false, [&] {
      session.ClearError();
      if (who == MaySave::Writers && Refused(session, procedure)) return false;
      const Outcome outcome = OwnModified() ? write(session) : Outcome::Done;
      if (outcome == Outcome::Failed) RecordCallee(session, procedure);
      if (outcome == Outcome::Done) SetFlags(false, false);
      return outcome == Outcome::Done;
    });
  }
  /// The same for a class with a fields array that draws its identifier at its first row. Without an identifier the
  /// error record names this `Save`, which is what the client called, with the sequence's own reason.
  template <std::size_t N>
  bool SaveDrawingID(const Table<Derived, N>& table, std::string_view procedure, std::string_view array_procedure,
                     std::int32_t sequence) {
    return SaveAlone(procedure, MaySave::Anyone, [&](CSession&) {
      Derived& record = static_cast<Derived&>(*this);
      const std::optional<FieldRows> rows = TrappedRows(record, table, array_procedure);
      if (!rows) return Outcome::Quiet;
      return WriteUnderDrawnID(record, table, sequence, *rows) ? Outcome::Done : Outcome::Failed;
    });
  }

 private:
  Ref<CSession> session_;
};

inline std::int32_t* VariableOf(std::int32_t& number) { return &number; }
template <class T>
T* VariableOf(Property<T>& property) {
  return &property.Loaded();
}

/// The variable that a column is read into; none for one that comes in portions.
template <class R>
Slot SlotOf(R& record, const Column<R>& column) {
  if (column.in_portions) return {};
  return {std::visit([&](auto member) -> Slot::Target { return VariableOf(record.*member); }, column.member),
          &column.null};
}

/// Adds the long text of a field at the end of a property, in portions; Null adds nothing, and an empty text is not
/// fetched at all.
template <class R, class LongField>
void ReadPortions(R& record, const Column<R>& column, LongField&& field) {
  constexpr std::int32_t kPortion = 128;  // characters
  auto& text = record.*std::get<Property<std::string> R::*>(column.member);
  const std::int64_t size = field.ActualSize();
  for (std::int64_t at = 0; at < size; at += kPortion) {
    const Value portion = field.GetChunk(kPortion);
    if (!IsNull(portion)) text.Loaded() += ToText(portion);
  }
}

/// Reads a column that `Recordset::Fill` has left over.
template <class R>
void ReadLeftOver(R& record, const Column<R>& column, const Slot& slot, Recordset& rs, int position) {
  if (position < 0) throw RunTimeError(FailureNumber::ItemNotFound);
  if (column.in_portions) return ReadPortions(record, column, Field(rs, position));
  Store(rs.ValueAt(position), slot);
}

/// Copies the columns of the current row into the record, in the table's order, and leaves its flags alone. Raises 94
/// for a Null where none may be and 3265 for a missing column; the columns before it have been copied then.
template <class R, std::size_t N>
void ReadColumns(R& record, const Table<R, N>& table, Recordset& rs) {
  const Positions positions = rs.Positions(table.names);
  std::array<Slot, N> slots;
  for (std::size_t i = 0; i < N; ++i) slots[i] = SlotOf(record, *table.columns[i]);
  std::size_t i = 0;
  try {
    while ((i += rs.Fill(positions.subspan(i), std::span(slots).subspan(i))) < N) {
      ReadLeftOver(record, *table.columns[i], slots[i], rs, positions[i]);
      ++i;
    }
  } catch (const RunTimeError& failure) {
    throw InColumn(failure, table.names[i]);
  }
}

/// The value of a column as it stands in a statement; a failure names the column.
template <class R>
std::string WrittenValue(const R& record, const Column<R>& column) {
  try {
    return SqlValue(record, column);
  } catch (const RunTimeError& failure) {
    throw InColumn(failure, column.name);
  }
}

/// Calls `take(name, value)` for each row of a statement, in the table's writing order.
template <class R, std::size_t N, class Take>
void EachRow(const R& record, const Table<R, N>& table, Take&& take) {
  for (const Column<R>* column : table.written) {
    if (column == nullptr) continue;
    take(column->spelled.empty() ? column->name : column->spelled, WrittenValue(record, *column));
  }
}

/// The rows of a statement.
template <class R, std::size_t N>
FieldRows DatabaseRows(const R& record, const Table<R, N>& table) {
  FieldRows rows;
  rows.reserve(N);
  EachRow(record, table, [&](std::string_view name, std::string value) { rows.push_back({name, std::move(value)}); });
  return rows;
}

/// Runs the INSERT of a new record or the UPDATE of another one.
template <class R, std::size_t N>
void WriteRow(const R& record, const Table<R, N>& table, const FieldRows& rows) {
  const std::string text = record.IsNew() ? InsertText(table.name, table.key(), record.ID, rows)
                                          : UpdateText(table.name, table.key(), record.ID, rows);
  Execute(Deref(record.Session()), text);
}

/// The rows of a statement as `GetFieldsArray` gives them to `Save`; nothing if a value has no SQL form, which is
/// recorded under `procedure` then.
template <class R, std::size_t N>
std::optional<FieldRows> TrappedRows(const R& record, const Table<R, N>& table, std::string_view procedure) {
  return Trapped(record.Session(), procedure, std::optional<FieldRows>(),
                 [&] { return std::optional(DatabaseRows(record, table)); });
}

/// Makes the rows as `GetFieldsArray` does and writes them. Quiet if they could not be made.
template <class R, std::size_t N>
Outcome SaveRow(const R& record, const Table<R, N>& table, std::string_view array_procedure) {
  const std::optional<FieldRows> rows = TrappedRows(record, table, array_procedure);
  if (!rows) return Outcome::Quiet;
  WriteRow(record, table, *rows);
  return Outcome::Done;
}

/// Writes the made rows of a class that draws its identifier at its first one; false if none could be drawn, and why
/// stands in the name of the sequence.
template <class R, std::size_t N>
bool WriteUnderDrawnID(R& record, const Table<R, N>& table, std::int32_t sequence, const FieldRows& rows) {
  if (record.IsNew() && Deref(record.Session()).GetUniqueIDFromSeq(sequence, record.ID, 1) < 1) return false;
  WriteRow(record, table, rows);
  return true;
}

/// The member `GetFieldsArray` of a class: clears the array to the class's size and fills the rows that are asked for;
/// those of `FN_SERIALIZE` come from the class's `FillLabels`. A failure is recorded under `procedure`, and the rows
/// filled until then stay.
template <class R, std::size_t N>
bool FillFieldsArray(const R& record, const Table<R, N>& table, std::string_view procedure, FieldType enmType,
                     FieldsArray& strFields, std::int32_t& lngFieldsCount) {
  return Trapped(record.Session(), procedure, false, [&] {
    lngFieldsCount = table.rows;
    strFields = FieldsArray(table.rows, table.last_column);
    if (enmType == FN_SERIALIZE) FillLabels(record, strFields);
    if (enmType != FN_DATABASE) return true;
    int row = 0;
    EachRow(record, table, [&](std::string_view name, std::string value) {
      strFields(row, 0) = name;
      strFields(row++, 1) = std::move(value);
    });
    return true;
  });
}

}  // namespace zef
