#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "platform/recordset.h"
#include "session/fields_array.h"
#include "tests/support/raised.h"

namespace zef::test {

/// What a test knows about one column of a record class. The cases of a class stand in the order in which its columns
/// must be read.
template <class R>
struct ColumnCase {
  std::string column;
  std::string literal;  ///< a value that no other column has, as a statement writes it
  std::string text;     ///< that value as the property shows it
  std::string null;     ///< what Null reads as
  std::function<std::string(const R&)> property;
};

inline std::string Shown(std::int32_t value) { return std::to_string(value); }
inline std::string Shown(Date value) { return ToText(value); }
inline std::string Shown(const std::string& value) { return value; }

template <class R>
using ColumnCases = std::vector<ColumnCase<R>>;

/// The columns of all cases, or of all but one, with commas between them.
template <class R>
std::string ColumnList(const ColumnCases<R>& cases, std::string_view without = {}) {
  std::string list;
  for (const ColumnCase<R>& one : cases) {
    if (one.column == without) continue;
    list += (list.empty() ? "" : ",") + one.column;
  }
  return list;
}

/// An INSERT of one row that has each column's own value.
template <class R>
std::string InsertOfAll(const std::string& table, const ColumnCases<R>& cases) {
  std::string values;
  for (const ColumnCase<R>& one : cases) values += (values.empty() ? "" : ",") + one.literal;
  return "INSERT INTO " + table + " (" + ColumnList(cases) + ") VALUES (" + values + ")";
}

template <class R>
void ExpectAllValues(const R& record, const ColumnCases<R>& cases) {
  for (const ColumnCase<R>& one : cases) EXPECT_EQ(one.property(record), one.text) << one.column;
}

/// Of all columns but the key, which is never Null.
template <class R>
void ExpectAllNullValues(const R& record, const ColumnCases<R>& cases) {
  for (std::size_t i = 1; i < cases.size(); ++i) {
    EXPECT_EQ(cases[i].property(record), cases[i].null) << cases[i].column;
  }
}

/// Reads a row with one column after another left out: reading must fail, with the columns before it read, and those
/// behind it and the flags untouched.
template <class R, class Make>
void ExpectReadInOrder(Connection& connection, const std::string& table, const ColumnCases<R>& cases, Make&& make) {
  for (const ColumnCase<R>& missing : cases) {
    SCOPED_TRACE("without " + missing.column);
    const Ref<Recordset> rs = connection.Execute("SELECT " + ColumnList(cases, missing.column) + " FROM " + table);
    const Ref<R> record = make();
    const Ref<R> untouched = make();
    EXPECT_EQ(NumberRaised([&] { record->GetValuesFromRS(rs); }), 3265);
    EXPECT_EQ(record->IsNew(), untouched->IsNew());
    EXPECT_EQ(record->IsModified(), untouched->IsModified());
    const auto at = &missing - cases.data();
    for (std::ptrdiff_t i = 0; i < std::ssize(cases); ++i) {
      const ColumnCase<R>& one = cases[static_cast<std::size_t>(i)];
      EXPECT_EQ(one.property(*record), i < at ? one.text : one.property(*untouched)) << one.column;
    }
  }
}

/// The columns of a table as the database has them.
inline std::vector<std::string> ColumnsOf(Connection& connection, const std::string& table) {
  const Ref<Recordset> rs = connection.Execute("SELECT * FROM " + table);
  std::vector<std::string> names;
  for (std::int32_t i = 0; i < rs->Fields().Count(); ++i) names.push_back(rs->Fields().Item(i).Name());
  return names;
}

template <class R>
std::vector<std::string> ColumnsRead(const ColumnCases<R>& cases) {
  std::vector<std::string> names;
  for (const ColumnCase<R>& one : cases) names.push_back(one.column);
  return names;
}

/// The key and the columns that the class writes.
template <class R>
std::vector<std::string> ColumnsWritten(const R& record, const std::string& key) {
  FieldsArray fields;
  std::int32_t count = 0;
  EXPECT_TRUE(record.GetFieldsArray(FN_DATABASE, fields, count));
  std::vector<std::string> names{key};
  for (std::int32_t row = 0; row < count; ++row) {
    if (!fields(row, 0).empty()) names.push_back(fields(row, 0));
  }
  return names;
}

/// A property by its name, and how to give it two different values, neither of which a new record has.
template <class R>
struct Setter {
  const char* name;
  std::function<void(R&)> set_first;
  std::function<void(R&)> set_second;
};

/// Expects that a setter marks the record only if it brings another value.
template <class R>
void ExpectMarksOnlyChanges(R& record, const Setter<R>& setter) {
  SCOPED_TRACE(setter.name);
  record.ResetFlagsX(false, false);
  setter.set_first(record);
  EXPECT_TRUE(record.IsModified()) << "set to another value";
  EXPECT_FALSE(record.IsNew());
  record.ResetFlagsX(false, false);
  setter.set_first(record);
  EXPECT_FALSE(record.IsModified()) << "set to the same value";
  setter.set_second(record);
  EXPECT_TRUE(record.IsModified()) << "set to a second value";
}

}  // namespace zef::test
