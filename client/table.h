#pragma once

#include <string>
#include <vector>

namespace zef::client {

/// Rows of text in aligned columns. Cells are made printable; widths count code points.
class Table {
 public:
  enum class Align { Left, Right };
  struct Column {
    std::string heading;
    Align align = Align::Left;
  };

  explicit Table(std::vector<Column> columns);

  /// A row has as many cells as the table has columns.
  void Add(const std::vector<std::string>& cells);
  /// Two blanks stand between columns and none at the end of a line; every line ends with a line break. The line of
  /// headings is left out if all of them are empty.
  std::string Text(bool colour) const;

 private:
  using Row = std::vector<std::string>;
  std::string Line(const Row& row, const std::vector<std::size_t>& widths) const;

  std::vector<Column> columns_;
  std::vector<Row> rows_;
};

}  // namespace zef::client
