#pragma once

#include <string>
#include <vector>

#include "client/style.h"

namespace zef::client {

/// Rows of text in aligned columns. Cells are made printable; widths count code points.
class Table {
 public:
  enum class Align { Left, Right };
  struct Column {
    std::string heading;
    Align align = Align::Left;
    bool may_be_cut = false;  ///< a long text whose beginning tells enough
  };

  explicit Table(std::vector<Column> columns);

  /// A row has as many cells as the table has columns.
  void Add(const std::vector<std::string>& cells);
  /// Two blanks stand between columns and none at the end of a line; every line ends with a line break. The line of
  /// headings is left out if all of them are empty. If the table is wider than the screen, the widest of the
  /// columns that may be cut are, with an ellipsis at the ends of their cells, but not below 8 characters.
  std::string Text(const Screen& screen) const;

 private:
  using Row = std::vector<std::string>;
  using Widths = std::vector<std::size_t>;
  Widths WidthsFor(const Row& headings, std::size_t screen) const;
  std::size_t* WidestToCut(Widths& widths) const;
  std::string Line(const Row& row, const Widths& widths) const;

  std::vector<Column> columns_;
  std::vector<Row> rows_;
};

}  // namespace zef::client
