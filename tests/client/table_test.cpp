#include "client/table.h"

#include <gtest/gtest.h>

namespace zef::client {
namespace {

TEST(Table, ColumnsAreAsWideAsTheirWidestCell) {
  Table table({{"A"}, {"B"}});
  table.Add({"long", "x"});
  table.Add({"l", "y"});
  EXPECT_EQ(table.Text(false), "A     B\nlong  x\nl     y\n");
}

TEST(Table, HeadingCanBeTheWidestCell) {
  Table table({{"HEADING"}, {"B"}});
  table.Add({"a", "b"});
  EXPECT_EQ(table.Text(false), "HEADING  B\na        b\n");
}

TEST(Table, RightColumnIsAlignedAtItsEnd) {
  Table table({{"ID", Table::Align::Right}});
  table.Add({"7"});
  table.Add({"100"});
  EXPECT_EQ(table.Text(false), " ID\n  7\n100\n");
}

TEST(Table, WidthCountsCodePoints) {
  Table table({{""}, {""}});
  table.Add({"Café", "x"});
  table.Add({"Cafe", "y"});
  EXPECT_EQ(table.Text(false), "Café  x\nCafe  y\n");
}

TEST(Table, LineHasNoBlanksAtItsEnd) {
  Table table({{"A"}, {"B"}});
  table.Add({"a", ""});
  table.Add({"aa", "b"});
  EXPECT_EQ(table.Text(false), "A   B\na\naa  b\n");
}

TEST(Table, WithoutHeadingsHasNoLineForThem) {
  Table table({{""}});
  table.Add({"a"});
  EXPECT_EQ(table.Text(false), "a\n");
}

TEST(Table, CellIsMadePrintable) {
  Table table({{""}});
  table.Add({"a\x1b\nb"});
  EXPECT_EQ(table.Text(false), "a\uFFFD b\n");
}

TEST(Table, HeadingsStandOutInColour) {
  Table table({{"A"}});
  table.Add({"a"});
  EXPECT_EQ(table.Text(true), "\x1b[1mA\x1b[0m\na\n");
}

}  // namespace
}  // namespace zef::client
