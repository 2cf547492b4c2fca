#include "client/month.h"

#include <fmt/format.h>

#include <utility>

#include "client/calendar_names.h"
#include "client/style.h"

namespace zef::client {
namespace {

constexpr unsigned kDaysPerWeek = 7;
constexpr std::size_t kCellWidth = 4;  ///< the sign of today, two digits, the star

unsigned LengthOf(std::chrono::year_month month) { return static_cast<unsigned>((month / std::chrono::last).day()); }

/// 0 for a month that begins on a Monday.
unsigned BlankCells(std::chrono::year_month month) {
  return std::chrono::weekday(std::chrono::sys_days(month / 1)).iso_encoding() - 1;
}

std::string Title(std::chrono::year_month month) {
  const std::string name =
      fmt::format("{} {:04}", kMonths[static_cast<unsigned>(month.month()) - 1], static_cast<int>(month.year()));
  return std::string((kDaysPerWeek * kCellWidth - name.size()) / 2, ' ') + name;
}

std::string WeekdayLine() {
  std::string line;
  for (const std::string_view name : kWeekdays) line += fmt::format(" {} ", name.substr(0, 2));
  return line;
}

std::string Cell(unsigned day, bool marked, bool today, bool colour) {
  const std::string number = (today ? ">" : "") + std::to_string(day);
  const std::string text = fmt::format("{:>3}{}", number, marked ? '*' : ' ');
  return Styled(text, today ? Emphasis::Today : marked ? Emphasis::Marked : Emphasis::None, colour);
}

/// The line without the blanks at its end.
std::string Trimmed(std::string line) {
  line.erase(line.find_last_not_of(' ') + 1);
  return line + '\n';
}

}  // namespace

std::string MonthPicture(std::chrono::year_month month, const std::set<unsigned>& marked, std::optional<unsigned> today,
                         bool colour) {
  std::string picture = Styled(Title(month), Emphasis::Heading, colour) + '\n';
  picture += Styled(Trimmed(WeekdayLine()), Emphasis::None, colour);
  const unsigned blank = BlankCells(month);
  std::string line(blank * kCellWidth, ' ');
  for (unsigned day = 1; day <= LengthOf(month); ++day) {
    line += Cell(day, marked.contains(day), today == day, colour);
    const bool week_ends = (blank + day) % kDaysPerWeek == 0;
    if (week_ends || day == LengthOf(month)) picture += Trimmed(std::exchange(line, ""));
  }
  return picture;
}

}  // namespace zef::client
