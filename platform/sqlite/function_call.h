#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/value.h"

namespace zef {

/// One running call of a function: its arguments, counted from 0, and its result. Reading an argument converts it and
/// raises 13 or 6 where that fails.
class FunctionCall {
 public:
  FunctionCall(sqlite3_context* context, std::span<sqlite3_value*> arguments)
      : context_(context), arguments_(arguments) {}

  std::size_t count() const { return arguments_.size(); }
  bool IsNull(std::size_t i) const { return KindOf(i) == SQLITE_NULL; }
  bool IsText(std::size_t i) const { return KindOf(i) == SQLITE_TEXT; }
  bool IsWhole(std::size_t i) const { return KindOf(i) == SQLITE_INTEGER; }
  bool IsBytes(std::size_t i) const { return KindOf(i) == SQLITE_BLOB; }

  zef::Value Value(std::size_t i) const;
  /// The text, good until the call ends; `kept` holds it if the argument is a number.
  std::string_view Text(std::size_t i, std::string& kept) const;
  std::int64_t Bytes(std::size_t i) const;
  double Number(std::size_t i) const;
  /// Rounded half to even, in 64 bits.
  std::int64_t Whole(std::size_t i) const;
  std::int32_t Long(std::size_t i) const { return ToLong(Value(i)); }
  /// In whole seconds.
  Date Moment(std::size_t i) const;

  void ReturnArgument(std::size_t i) { sqlite3_result_value(context_, arguments_[i]); }
  void ReturnWhole(std::int64_t number) { sqlite3_result_int64(context_, number); }
  /// Raises 6 for what is no finite number.
  void ReturnNumber(double number);
  void ReturnText(std::string_view text);
  void ReturnBoolean(bool truth) { sqlite3_result_int(context_, truth ? -1 : 0); }
  void ReturnDate(Date date) { sqlite3_result_double(context_, date.value()); }
  void ReturnValue(const zef::Value& value);

 private:
  int KindOf(std::size_t i) const { return sqlite3_value_type(arguments_[i]); }

  sqlite3_context* context_;
  std::span<sqlite3_value*> arguments_;
};

struct SqliteFunction {
  const char* name;  ///< without the zef_ before it
  int least;         ///< fewest and most arguments; -1 and -1 for any number
  int most;
  bool takes_null;  ///< else the result is Null as soon as one argument is
  void (*run)(FunctionCall&);
};

std::span<const SqliteFunction> TextFunctions();
std::span<const SqliteFunction> DateFunctions();
std::span<const SqliteFunction> NumberFunctions();
/// What a value goes through on its way into a column.
std::span<const SqliteFunction> StorageFunctions();

}  // namespace zef
