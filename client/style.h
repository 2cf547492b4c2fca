#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zef::client {

/// How a text stands out on a terminal that shows colour.
enum class Emphasis { None, Heading, Marked, Today, Faint };

/// The text with the terminal's codes for an emphasis around it, or as it is without colour.
std::string Styled(std::string_view text, Emphasis emphasis, bool colour);

/// Where an answer is shown.
struct Screen {
  bool colour = false;
  std::size_t width = 0;  ///< characters in a line; 0 if it is not known, and then nothing is cut
};

/// The screen behind standard output. One that is no terminal has no colour and no width; NO_COLOR in the environment
/// asks for no colour.
Screen TerminalScreen();

}  // namespace zef::client
