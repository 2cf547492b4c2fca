#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "client/date.h"

namespace zef::client {

inline constexpr int kLastSecondOfDay = 86399;

/// The date given with an option or argument, as 2024-05-17, "2024-05-17 09:00" or 5/17/2024. Anything else, a time of
/// day alone, and day zero are wrong use.
Date ReadDate(std::string_view option, std::string_view text);

/// A month given as 2024-05; anything else is wrong use.
std::chrono::year_month ReadMonth(std::string_view option, std::string_view text);

/// "2024-05-17", with a time of day "2024-05-17 09:00", with seconds if it has some; empty for the empty date, "?" for
/// one that no calendar knows.
std::string DateText(Date date);
/// The day alone and the time of day alone; the latter is empty at midnight.
std::string DayText(Date date);
std::string TimeText(Date date);

/// True if the date is one of the calendar's: not empty, and from 1 January 100 to 31 December 9999.
bool IsCalendarDate(Date date);

}  // namespace zef::client
