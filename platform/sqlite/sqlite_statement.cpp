#include "platform/sqlite/sqlite_statement.h"

#include <algorithm>
#include <utility>

#include "platform/sqlite/sqlite_error.h"

namespace zef {
namespace {

struct Binder {
  sqlite3_stmt* statement;
  int number;
  sqlite3_destructor_type keep;

  int operator()(Null) const { return sqlite3_bind_null(statement, number); }
  int operator()(std::int32_t value) const { return sqlite3_bind_int(statement, number, value); }
  int operator()(std::uint8_t value) const { return sqlite3_bind_int(statement, number, value); }
  int operator()(double value) const { return sqlite3_bind_double(statement, number, value); }
  int operator()(bool value) const { return sqlite3_bind_int(statement, number, value ? -1 : 0); }
  int operator()(Date value) const { return sqlite3_bind_double(statement, number, value.value()); }
  int operator()(const std::string& value) const {
    return sqlite3_bind_text64(statement, number, value.data(), value.size(), keep, SQLITE_UTF8);
  }
  int operator()(const Bytes& value) const {
    // A null pointer would bind Null in place of bytes of length 0.
    const void* data = value.empty() ? static_cast<const void*>("") : value.data();
    return sqlite3_bind_blob64(statement, number, data, value.size(), keep);
  }
};

void ReadText(sqlite3_value* from, Value& value) {
  const auto* data = reinterpret_cast<const char*>(sqlite3_value_text(from));
  value.emplace<std::string>(data == nullptr ? "" : data, static_cast<std::size_t>(sqlite3_value_bytes(from)));
}

void ReadBytes(sqlite3_value* from, Value& value) {
  const auto* data = static_cast<const std::byte*>(sqlite3_value_blob(from));
  auto& bytes = value.emplace<Bytes>();
  if (data != nullptr) bytes.assign(data, data + sqlite3_value_bytes(from));
}

void ReadInteger(sqlite3_int64 number, sql::Type type, Value& value) {
  switch (type) {
    case sql::Type::Boolean: value.emplace<bool>(number != 0); return;
    case sql::Type::Date: value.emplace<Date>(static_cast<double>(number)); return;
    case sql::Type::Double: value.emplace<double>(static_cast<double>(number)); return;
    case sql::Type::Byte:
      if (!std::in_range<std::uint8_t>(number)) break;
      value.emplace<std::uint8_t>(static_cast<std::uint8_t>(number));
      return;
    default: break;
  }
  if (std::in_range<std::int32_t>(number)) {
    value.emplace<std::int32_t>(static_cast<std::int32_t>(number));
  } else {
    value.emplace<double>(static_cast<double>(number));
  }
}

void ReadDouble(double number, sql::Type type, Value& value) {
  switch (type) {
    case sql::Type::Boolean: value.emplace<bool>(number != 0); return;
    case sql::Type::Date: value.emplace<Date>(number); return;
    default: value.emplace<double>(number);
  }
}

/// A number comes as the type of its column tells; what another program stored there against the type stays what it is.
void ReadValue(sqlite3_value* from, sql::Type type, Value& value) {
  switch (sqlite3_value_type(from)) {
    case SQLITE_NULL: value.emplace<Null>(); return;
    case SQLITE_INTEGER: return ReadInteger(sqlite3_value_int64(from), type, value);
    case SQLITE_FLOAT: return ReadDouble(sqlite3_value_double(from), type, value);
    case SQLITE_TEXT: return ReadText(from, value);
    default: return ReadBytes(from, value);
  }
}

/// Puts a value into a variable if it comes as the variable's type; false for all that takes a conversion.
struct Filler {
  sqlite3_value* from;
  int stored;
  sql::Type type;

  bool operator()(std::monostate) const { return false; }
  bool operator()(std::int32_t* number) const {
    const bool plain = stored == SQLITE_INTEGER && type != sql::Type::Boolean && type != sql::Type::Date;
    if (!plain) return false;
    const sqlite3_int64 whole = sqlite3_value_int64(from);
    if (!std::in_range<std::int32_t>(whole)) return false;
    *number = static_cast<std::int32_t>(whole);
    return true;
  }
  bool operator()(std::string* text) const {
    if (stored != SQLITE_TEXT) return false;
    const auto* data = reinterpret_cast<const char*>(sqlite3_value_text(from));
    if (data != nullptr) text->assign(data, static_cast<std::size_t>(sqlite3_value_bytes(from)));
    return data != nullptr;
  }
  bool operator()(Date* date) const {
    const bool number = stored == SQLITE_FLOAT || stored == SQLITE_INTEGER;
    if (!number || type != sql::Type::Date) return false;
    *date = Date(sqlite3_value_double(from));
    return true;
  }
  bool operator()(bool* flag) const {
    if (stored != SQLITE_INTEGER || type != sql::Type::Byte) return false;
    const sqlite3_int64 byte = sqlite3_value_int64(from);
    if (!std::in_range<std::uint8_t>(byte)) return false;
    *flag = byte == 1;
    return true;
  }
};

bool FillSlot(sqlite3_value* from, sql::Type type, const Slot& slot) {
  const int stored = sqlite3_value_type(from);
  return stored == SQLITE_NULL ? StoreNull(slot) : std::visit(Filler{from, stored, type}, slot.target);
}

}  // namespace

StatementHandle PrepareForClient(sqlite3* db, std::string_view text) {
  sqlite3_stmt* statement = nullptr;
  CheckSqlite(db, sqlite3_prepare(db, text.data(), static_cast<int>(text.size()), &statement, nullptr));
  return StatementHandle(statement);
}

StatementHandle PrepareOwn(sqlite3* db, std::string_view text) {
  sqlite3_stmt* statement = nullptr;
  CheckSqlite(db, sqlite3_prepare_v2(db, text.data(), static_cast<int>(text.size()), &statement, nullptr));
  return StatementHandle(statement);
}

SqliteStatement::SqliteStatement(sqlite3* db, const sql::CompiledStatement& compiled,
                                 std::optional<RunTimeError>& failure)
    : db_(db), handle_(PrepareForClient(db, compiled.text)), failure_(failure) {
  later_.reserve(compiled.later.size());
  for (const sql::LaterColumn& column : compiled.later) later_.push_back({column, nullptr});
}

void SqliteStatement::Bind(int number, const Value& value, bool lasting) {
  const sqlite3_destructor_type keep = lasting ? SQLITE_TRANSIENT : SQLITE_STATIC;
  CheckSqlite(db_, std::visit(Binder{handle_.get(), number, keep}, value));
}

PreparedStatement::Step SqliteStatement::Next() {
  failure_.reset();
  running_ = sqlite3_step(handle_.get()) == SQLITE_ROW;
  if (running_) return Step::Row;
  const int code = sqlite3_reset(handle_.get());  // only the reset tells why a statement ended
  if (code == SQLITE_SCHEMA) return Step::SchemaChanged;
  if (code != SQLITE_OK && failure_) throw *failure_;
  CheckSqlite(db_, code);
  rows_written_ = sqlite3_changes64(db_);
  return Step::Done;
}

const SqliteStatement::Later* SqliteStatement::FindLater(int column) const {
  const auto found = std::find_if(later_.begin(), later_.end(),
                                  [column](const Later& later) { return later.column.position == column; });
  return found == later_.end() ? nullptr : &*found;
}

/// The running statement keeps the database as it was when the row was reached, so the value is the row's own.
void SqliteStatement::Fetch(const Later& later, Value& value) const {
  if (!later.handle) later.handle = PrepareOwn(db_, later.column.text);
  sqlite3_stmt* const statement = later.handle.get();
  sqlite3_bind_int64(statement, 1, sqlite3_column_int64(handle_.get(), later.column.position));
  const bool found = sqlite3_step(statement) == SQLITE_ROW;
  if (found) ReadValue(sqlite3_column_value(statement, 0), sql::Type::Binary, value);
  CheckSqlite(db_, sqlite3_reset(statement));
  if (!found) value = Null{};
}

void SqliteStatement::Read(Positions columns, std::span<const sql::Type> types, std::span<Value> values) const {
  // The engine runs without mutexes, so a value of a row may be read like any other; that is quicker than asking the
  // statement again and again.
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (const Later* const later = FindLater(columns[i])) {
      Fetch(*later, values[i]);
      continue;
    }
    ReadValue(sqlite3_column_value(handle_.get(), columns[i]), types[static_cast<std::size_t>(columns[i])], values[i]);
  }
}

std::size_t SqliteStatement::Fill(Positions columns, std::span<const sql::Type> types,
                                  std::span<const Slot> slots) const {
  std::size_t done = 0;
  for (; done < columns.size() && columns[done] >= 0; ++done) {
    const sql::Type type = types[static_cast<std::size_t>(columns[done])];
    if (FindLater(columns[done]) != nullptr) break;
    if (!FillSlot(sqlite3_column_value(handle_.get(), columns[done]), type, slots[done])) break;
  }
  return done;
}

void SqliteStatement::Reset() {
  if (running_) sqlite3_reset(handle_.get());
  running_ = false;
}

}  // namespace zef
