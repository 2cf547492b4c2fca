#include "platform/sqlite/sqlite_statement.h"

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

Value TextOf(sqlite3_value* value) {
  const auto* data = reinterpret_cast<const char*>(sqlite3_value_text(value));
  return std::string(data == nullptr ? "" : data, static_cast<std::size_t>(sqlite3_value_bytes(value)));
}

Value BytesOf(sqlite3_value* value) {
  const auto* data = static_cast<const std::byte*>(sqlite3_value_blob(value));
  return data == nullptr ? Bytes() : Bytes(data, data + sqlite3_value_bytes(value));
}

Value IntegerOf(sqlite3_value* value) {
  const sqlite3_int64 number = sqlite3_value_int64(value);
  if (std::in_range<std::int32_t>(number)) return static_cast<std::int32_t>(number);
  return static_cast<double>(number);
}

/// A value by the kind that the row itself holds.
Value StoredValue(sqlite3_value* value, int stored) {
  switch (stored) {
    case SQLITE_NULL: return Null{};
    case SQLITE_INTEGER: return IntegerOf(value);
    case SQLITE_FLOAT: return sqlite3_value_double(value);
    case SQLITE_TEXT: return TextOf(value);
    default: return BytesOf(value);
  }
}

/// A number as the type of its column tells; what another program stored there against the type stays what it is.
Value NumberOf(sqlite3_value* value, int stored, sql::Type type) {
  const sqlite3_int64 whole = stored == SQLITE_INTEGER ? sqlite3_value_int64(value) : -1;
  if (type == sql::Type::Byte && whole >= 0 && whole <= 255) return static_cast<std::uint8_t>(whole);
  if (type == sql::Type::Boolean) return sqlite3_value_double(value) != 0;
  if (type == sql::Type::Date) return Date(sqlite3_value_double(value));
  if (type == sql::Type::Double) return sqlite3_value_double(value);
  return StoredValue(value, stored);
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

SqliteStatement::SqliteStatement(sqlite3* db, std::string_view text, std::optional<RunTimeError>& failure)
    : db_(db), handle_(PrepareForClient(db, text)), failure_(failure) {}

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

Value SqliteStatement::Get(int column, sql::Type type) const {
  // The engine runs without mutexes, so a value of a row may be read like any other; that is quicker than asking the
  // statement again and again.
  sqlite3_value* value = sqlite3_column_value(handle_.get(), column);
  const int stored = sqlite3_value_type(value);
  const bool number = stored == SQLITE_INTEGER || stored == SQLITE_FLOAT;
  if (number && type != sql::Type::Unknown && type != sql::Type::Long) return NumberOf(value, stored, type);
  return StoredValue(value, stored);
}

void SqliteStatement::Reset() {
  if (running_) sqlite3_reset(handle_.get());
  running_ = false;
}

}  // namespace zef
