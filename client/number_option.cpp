#include "client/number_option.h"

#include <fmt/format.h>

#include <charconv>

#include "client/failure.h"

namespace zef::client {

std::int32_t ReadNumber(std::string_view option, std::string_view text, std::int32_t least, std::int32_t most) {
  std::int32_t number = 0;
  const char* const end = text.data() + text.size();
  const auto [stopped, error] = std::from_chars(text.data(), end, number);
  if (error == std::errc::invalid_argument || stopped != end) {
    throw Failure(kWrongUse, fmt::format("{}: '{}' is no whole number.", option, text));
  }
  if (error == std::errc() && number >= least && number <= most) return number;
  throw Failure(kWrongUse, fmt::format("{}: {} is not between {} and {}.", option, text, least, most));
}

}  // namespace zef::client
