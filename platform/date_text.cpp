#include "platform/date.h"
#include "platform/date_parts.h"
#include "platform/moment_text.h"

namespace zef {

using date_parts::SplitSeconds;

void AppendText(std::string& text, Date date) {
  const auto [day, seconds] = SplitSeconds(date);
  moment_text::Writer writer;
  writer.Whole({day, seconds});
  text += writer.text();
}

std::string ToText(Date date) {
  std::string text;
  AppendText(text, date);
  return text;
}

std::string ShortDateText(Date date) {
  moment_text::Writer writer;
  writer.Day(date_parts::CalendarDay(SplitSeconds(date).day));
  return std::string(writer.text());
}

std::optional<Date> ParseDate(std::string_view text) {
  const std::optional<moment_text::Moment> moment = moment_text::Read(text);
  if (!moment) return std::nullopt;
  return date_parts::Join({moment->day, moment->seconds});
}

}  // namespace zef
