#include "client/table.h"

#include <gmock/gmock.h>

namespace zef::client {
namespace {

TEST(Table, ColumnsAreAsWideAsTheirWidestCell) {
  Table table({{"A"}, {"B"}});
  table.Add({"long", "x"});
  table.Add({"l", "y"});
  EXPECT_EQ(table.Text({}), "A     B\nlong  x\nl     y\n");
}

TEST(Table, HeadingCanBeTheWidestCell) {
  Table table({{"HEADING"}, {"B"}});
  table.Add({"a", "b"});
  EXPECT_EQ(table.Text({}), "HEADING  B\na        b\n");
}

TEST(Table, RightColumnIsAlignedAtItsEnd) {
  Table table({{"ID", Table::Align::Right}});
  table.Add({"7"});
  table.Add({"100"});
  EXPECT_EQ(table.Text({}), " ID\n  7\n100\n");
}

TEST(Table, WidthCountsCodePoints) {
  Table table({{""}, {""}});
  table.Add({"Café", "x"});
  table.Add({"Cafe", "y"});
  EXPECT_EQ(table.Text({}), "Café  x\nCafe  y\n");
}

TEST(Table, LineHasNoBlanksAtItsEnd) {
  Table table({{"A"}, {"B"}});
  table.Add({"a", ""});
  table.Add({"aa", "b"});
  EXPECT_EQ(table.Text({}), "A   B\na\naa  b\n");
}

TEST(Table, WithoutHeadingsHasNoLineForThem) {
  Table table({{""}});
  table.Add({"a"});
  EXPECT_EQ(table.Text({}), "a\n");
}

TEST(Table, CellIsMadePrintable) {
  Table table({{""}});
  table.Add({"a\x1b\nb"});
  EXPECT_EQ(table.Text({}), "a\uFFFD b\n");
}

TEST(Table, HeadingsStandOutInColour) {
  Table table({{"A"}});
  table.Add({"a"});
  EXPECT_EQ(table.Text({.colour = true}), "\x1b[1mA\x1b[0m\na\n");
}

// ---- narrow screens

Table Wide() {
  Table table({{"ID", Table::Align::Right}, {"NAME", Table::Align::Left, true}, {"WHERE"}});
  table.Add({"7", "A name of twenty-two c", "short"});
  return table;
}

TEST(NarrowTable, IsNotCutWithoutAKnownWidth) { EXPECT_THAT(Wide().Text({}), testing::HasSubstr("twenty-two c")); }

TEST(NarrowTable, ThatJustFitsIsNotCut) { EXPECT_EQ(Wide().Text({.width = 33}), Wide().Text({})); }

TEST(NarrowTable, WidestColumnIsCutWithAnEllipsis) {
  EXPECT_EQ(Wide().Text({.width = 23}), "ID  NAME          WHERE\n 7  A name of t…  short\n");
}

TEST(NarrowTable, CharactersOfSeveralBytesAreNotCutApart) {
  Table table({{"", Table::Align::Left, true}});
  table.Add({"üüüüüüüüüüüüüüü"});
  EXPECT_EQ(table.Text({.width = 10}), "üüüüüüüüü…\n");
}

TEST(NarrowTable, ColumnsKeepEightCharacters) {
  EXPECT_EQ(Wide().Text({.width = 5}), "ID  NAME      WHERE\n 7  A name …  short\n");
}

TEST(NarrowTable, ColumnThatMayNotBeCutIsKeptWhole) {
  Table table({{"DAY"}});
  table.Add({"2024-05-17"});
  EXPECT_EQ(table.Text({.width = 9}), "DAY\n2024-05-17\n");
}

}  // namespace
}  // namespace zef::client
