#include "session/fields_array.h"

#include <gtest/gtest.h>

#include "tests/support/raised.h"

namespace zef::test {
namespace {

/// What reaching into an array raises; 0 for nothing.
std::int32_t Raises(const FieldsArray& fields, std::int32_t row, std::int32_t column) {
  return NumberRaised([&] { fields(row, column); });
}

TEST(FieldsArray, IsMadeWithoutATextAtAll) { EXPECT_EQ(Raises(FieldsArray(), 0, 0), 9); }

TEST(FieldsArray, HoldsEmptyTextsUpToItsBounds) {
  const FieldsArray fields(15, 2);
  EXPECT_EQ(fields(0, 0) + fields(15, 2), "");
}

TEST(FieldsArray, RaisesBehindItsBounds) {
  const FieldsArray fields(15, 2);
  EXPECT_EQ(Raises(fields, 16, 0), 9);
  EXPECT_EQ(Raises(fields, 0, 3), 9);
}

TEST(FieldsArray, RaisesBeforeItsBounds) {
  const FieldsArray fields(15, 2);
  EXPECT_EQ(Raises(fields, -1, 2), 9);
  EXPECT_EQ(Raises(fields, 1, -1), 9);
}

TEST(FieldsArray, KeepsEachTextInItsPlace) {
  FieldsArray fields(1, 1);
  fields(0, 0) = "a";
  fields(0, 1) = "b";
  fields(1, 0) = "c";
  fields(1, 1) = "d";
  EXPECT_EQ(fields(0, 0) + fields(0, 1) + fields(1, 0) + fields(1, 1), "abcd");
}

TEST(FieldsArray, TellsItsBounds) {
  const FieldsArray fields(10, 10);
  EXPECT_EQ(fields.LastRow(), 10);
  EXPECT_EQ(fields.LastColumn(), 10);
}

}  // namespace
}  // namespace zef::test
