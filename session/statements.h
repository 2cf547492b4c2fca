#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/run_time_error.h"
#include "platform/value.h"
#include "session/columns.h"
#include "session/fields_array.h"

namespace zef {

/// One row of a statement: a column and its value in SQL form.
struct FieldRow {
  std::string_view name;
  std::string value;
};
using FieldRows = std::vector<FieldRow>;

/// Values in SQL form. Doubling the quote is the only escaping there is.
std::string SqlNumber(std::int32_t number);
/// A statement that ends in a number: the text before it and the number.
std::string WithNumber(std::string_view head, std::int32_t number);
/// In quotes, even when empty.
std::string SqlQuoted(std::string_view text);
/// In quotes; nothing for the empty text.
std::string SqlText(std::string_view text);
/// The default text form in quotes, date value 0 as well. Raises 5 for a date out of range.
std::string SqlDate(Date date);
std::string SqlBoolean(bool value);

/// "INSERT INTO table (key,columns) VALUES (id,values)"; a row with an empty value is left out.
std::string InsertText(std::string_view table, std::string_view key, std::int32_t id, const FieldRows& rows);
/// "UPDATE table SET key=id,column=value... WHERE key=id"; an empty value is written as ''.
std::string UpdateText(std::string_view table, std::string_view key, std::int32_t id, const FieldRows& rows);

/// The value of a column as it stands in a statement.
template <class R>
std::string SqlValue(const R& record, const Column<R>& column) {
  if (column.form == Form::Stamp) return SqlDate(Now());
  struct Writer {
    const R& record;
    Form form;
    std::string operator()(std::int32_t R::*member) const { return SqlNumber(record.*member); }
    std::string operator()(Property<std::int32_t> R::*member) const { return SqlNumber((record.*member).get()); }
    std::string operator()(Property<Date> R::*member) const { return SqlDate((record.*member).get()); }
    std::string operator()(Property<bool> R::*member) const { return SqlBoolean((record.*member).get()); }
    std::string operator()(Property<std::string> R::*member) const {
      const std::string& text = (record.*member).get();
      return form == Form::AlwaysQuoted ? SqlQuoted(text) : SqlText(std::string_view(text));
    }
  };
  return std::visit(Writer{record, column.form}, column.member);
}

/// A failure met while a row was read or its values were put into a statement, with the column named in its sentence.
RunTimeError InColumn(const RunTimeError& failure, std::string_view column);

}  // namespace zef
