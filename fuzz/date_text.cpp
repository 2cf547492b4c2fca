/// Texts of dates: what is read has a text that is read as the same moment, and so has every moment of the calendar.

#include <cstring>
#include <string>
#include <string_view>

#include "fuzz/support/input.h"
#include "platform/date.h"
#include "platform/run_time_error.h"

namespace zef::fuzz {
namespace {

void RequireSame(Date date, const std::string& text) {
  const std::optional<Date> read = ParseDate(text);
  if (read != date) Report("\"" + text + "\" is not read as " + std::to_string(date.value()));
}

void Read(std::string_view text) {
  const std::optional<Date> date = ParseDate(text);
  if (!date) return;
  if (*date != date->RoundedToSeconds()) Report("\"" + std::string(text) + "\" is read with parts of a second");
  RequireSame(*date, ToText(*date));
  RequireSame(date->WithoutTime(), ShortDateText(*date));
}

void Write(Date date) {
  std::string text;
  try {
    text = ToText(date);
  } catch (const RunTimeError&) {
    return;
  }
  RequireSame(date.RoundedToSeconds(), text);
}

}  // namespace
}  // namespace zef::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  zef::fuzz::Read({reinterpret_cast<const char*>(data), size});
  double number = 0;
  if (size >= sizeof number) {
    std::memcpy(&number, data, sizeof number);
    zef::fuzz::Write(zef::Date(number));
  }
  return 0;
}
