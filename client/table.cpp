#include "client/table.h"

#include <algorithm>

#include "client/printable.h"
#include "client/style.h"

namespace zef::client {

Table::Table(std::vector<Column> columns) : columns_(std::move(columns)) {}

void Table::Add(const std::vector<std::string>& cells) {
  Row& row = rows_.emplace_back();
  for (const std::string& cell : cells) row.push_back(Printable(cell));
}

std::string Table::Line(const Row& row, const std::vector<std::size_t>& widths) const {
  std::string line;
  for (std::size_t i = 0; i < row.size(); ++i) {
    const std::string padding(widths[i] - Width(row[i]), ' ');
    if (i > 0) line += "  ";
    line += columns_[i].align == Align::Right ? padding + row[i] : row[i] + padding;
  }
  line.erase(line.find_last_not_of(' ') + 1);
  return line;
}

std::string Table::Text(bool colour) const {
  Row headings;
  for (const Column& column : columns_) headings.push_back(column.heading);
  std::vector<std::size_t> widths(columns_.size());
  const auto widen = [&](const Row& row) {
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], Width(row[i]));
  };
  widen(headings);
  std::for_each(rows_.begin(), rows_.end(), widen);

  std::string text = Line(headings, widths);
  if (!text.empty()) text = Styled(text, Emphasis::Heading, colour) + '\n';
  for (const Row& row : rows_) text += Line(row, widths) + '\n';
  return text;
}

}  // namespace zef::client
