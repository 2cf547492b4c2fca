#include "client/date_option.h"

#include <fmt/format.h>

#include <charconv>
#include <optional>

#include "ZEFComponents/date_text.h"
#include "client/failure.h"

namespace zef::client {
namespace {

[[noreturn]] void WrongDate(std::string_view option, std::string_view text) {
  throw Failure(kWrongUse,
                fmt::format("{}: '{}' is no date. Write a day as 2024-05-17 or 5/17/2024, with a time of day as "
                            "\"2024-05-17 09:00\".",
                            option, text));
}

/// The number that fills a text of digits, or -1.
int NumberOf(std::string_view text) {
  int number = -1;
  const char* const end = text.data() + text.size();
  const auto [stopped, error] = std::from_chars(text.data(), end, number);
  return error == std::errc() && stopped == end ? number : -1;
}

}  // namespace

Date ReadDate(std::string_view option, std::string_view text) {
  const std::optional<Date> date = ParseDate(text);
  if (!date) WrongDate(option, text);
  if (date->DayNumber() != 0) return *date;
  if (text.find_first_of("-/") == std::string_view::npos) WrongDate(option, text);  // a time of day alone
  throw Failure(kWrongUse, fmt::format("{}: '{}' cannot be given; that day stands for \"no date\".", option, text));
}

std::chrono::year_month ReadMonth(std::string_view option, std::string_view text) {
  const std::size_t hyphen = text.find('-');
  const bool shaped = hyphen == 4 && text.size() >= 6 && text.size() <= 7;
  const int year = shaped ? NumberOf(text.substr(0, hyphen)) : -1;
  const int month = shaped ? NumberOf(text.substr(hyphen + 1)) : -1;
  if (year < 100 || month < 1 || month > 12) {
    throw Failure(kWrongUse, fmt::format("{}: '{}' is no month. Write it as 2024-05.", option, text));
  }
  return std::chrono::year(year) / month;
}

std::string DateText(Date date) {
  if (date.IsZero()) return "";
  if (!IsCalendarDate(date)) return "?";
  const std::string time = TimeText(date);
  return DayText(date) + (time.empty() ? "" : " " + time);
}

std::string DayText(Date date) {
  const std::chrono::year_month_day day = date.YearMonthDay();
  return fmt::format("{:04}-{:02}-{:02}", static_cast<int>(day.year()), static_cast<unsigned>(day.month()),
                     static_cast<unsigned>(day.day()));
}

std::string TimeText(Date date) {
  const int seconds = date.SecondsOfDay();
  if (seconds == 0) return "";
  const std::string text = fmt::format("{:02}:{:02}", seconds / 3600, seconds / 60 % 60);
  return seconds % 60 == 0 ? text : fmt::format("{}:{:02}", text, seconds % 60);
}

bool IsCalendarDate(Date date) { return !date.IsZero() && date.IsInRange(); }

}  // namespace zef::client
