#include "client/table.h"

#include <algorithm>
#include <numeric>
#include <string_view>

#include "client/printable.h"
#include "client/text.h"

namespace zef::client {
namespace {

constexpr std::string_view kGap = "  ";
constexpr std::size_t kLeastWidth = 8;

/// The text, or its beginning with an ellipsis behind it.
std::string Cut(const std::string& text, std::size_t width) {
  if (Width(text) <= width) return text;
  return std::string(Left(text, width - 1)) + "…";
}

}  // namespace

Table::Table(std::vector<Column> columns) : columns_(std::move(columns)) {}

void Table::Add(const std::vector<std::string>& cells) {
  Row& row = rows_.emplace_back();
  for (const std::string& cell : cells) row.push_back(Printable(cell));
}

std::string Table::Line(const Row& row, const Widths& widths) const {
  std::string line;
  for (std::size_t i = 0; i < row.size(); ++i) {
    const std::string cell = Cut(row[i], widths[i]);
    const std::string padding(widths[i] - Width(cell), ' ');
    if (i > 0) line += kGap;
    line += columns_[i].align == Align::Right ? padding + cell : cell + padding;
  }
  line.erase(line.find_last_not_of(' ') + 1);
  return line;
}

/// The widest column that may still be cut; null if there is none.
std::size_t* Table::WidestToCut(Widths& widths) const {
  std::size_t* widest = nullptr;
  for (std::size_t i = 0; i < widths.size(); ++i) {
    const bool cuttable = columns_[i].may_be_cut && widths[i] > kLeastWidth;
    if (cuttable && (widest == nullptr || widths[i] > *widest)) widest = &widths[i];
  }
  return widest;
}

Table::Widths Table::WidthsFor(const Row& headings, std::size_t screen) const {
  Widths widths(columns_.size());
  const auto widen = [&](const Row& row) {
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], Width(row[i]));
  };
  widen(headings);
  std::for_each(rows_.begin(), rows_.end(), widen);
  std::size_t total = std::accumulate(widths.begin(), widths.end(), kGap.size() * (widths.size() - 1));
  for (; screen > 0 && total > screen; --total) {
    std::size_t* const widest = WidestToCut(widths);
    if (widest == nullptr) break;
    --*widest;
  }
  return widths;
}

std::string Table::Text(const Screen& screen) const {
  Row headings;
  for (const Column& column : columns_) headings.push_back(column.heading);
  const Widths widths = WidthsFor(headings, screen.width);
  std::string text = Line(headings, widths);
  if (!text.empty()) text = Styled(text, Emphasis::Heading, screen.colour) + '\n';
  for (const Row& row : rows_) text += Line(row, widths) + '\n';
  return text;
}

}  // namespace zef::client
