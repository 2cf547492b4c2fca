#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "platform/slot.h"
#include "session/property.h"

namespace zef {

/// How a value stands in a statement.
enum class Form : std::uint8_t {
  NotWritten,
  Plain,  ///< a number in decimal, a date in quotes, a Boolean as 1 or 0, a text in quotes or nothing if it is empty
  AlwaysQuoted,  ///< a text in quotes even when empty
  Stamp,         ///< the current date and time, whatever the property holds
};

/// One column of a record class: its name, the member that it feeds, and its place among the rows of a statement.
template <class Record>
struct Column {
  using Member = std::variant<std::int32_t Record::*, Property<std::int32_t> Record::*, Property<std::string> Record::*,
                              Property<Date> Record::*, Property<bool> Record::*>;
  std::string_view name;
  Member member;
  int row = -1;
  Form form = Form::NotWritten;
  NullRule null = {};             ///< what Null reads as
  std::string_view spelled = {};  ///< how statements spell the name, if not as it is read
  bool in_portions = false;       ///< a long text, added portion by portion to what the property holds
};

/// The key of a table; it feeds `ID` and is never Null.
template <class Record>
constexpr Column<Record> Key(std::string_view name) {
  return {.name = name, .member = &Record::ID, .null = {.refused = true}};
}

/// A column that is read into a member and written as row number `row` of a statement.
template <class Record, class Pointer>
constexpr Column<Record> Stored(std::string_view name, Pointer member, int row, Form form = Form::Plain) {
  return {.name = name, .member = member, .row = row, .form = form};
}

/// A record class's table: its columns in the order in which they are read. The rows of a statement follow the columns'
/// `row`.
template <class Record, std::size_t N>
struct Table {
  constexpr Table(std::string_view table, const Column<Record> (&list)[N], int row_count = 0, int array_columns = 2)
      : name(table), last_column(array_columns), rows(row_count) {
    for (std::size_t i = 0; i < N; ++i) {
      columns[i] = &list[i];
      names[i] = list[i].name;
    }
    for (std::size_t i = 0; i < N; ++i) {
      if (list[i].row >= 0) written[static_cast<std::size_t>(list[i].row)] = &list[i];
    }
  }

  std::string_view name;
  int last_column;  ///< bound of the second index of its fields array
  int rows;         ///< fixed number of rows of its fields array, the empty ones included; 0 without one
  std::array<const Column<Record>*, N> columns{};
  std::array<std::string_view, N> names{};
  std::array<const Column<Record>*, N> written{};  ///< by row; null behind the last one

  constexpr std::string_view key() const { return names[0]; }
};

}  // namespace zef
