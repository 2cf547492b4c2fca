#pragma once

#include <string>
#include <string_view>

namespace zef::client {

/// How a text stands out on a terminal that shows colour.
enum class Emphasis { None, Heading, Marked, Today, Faint };

/// The text with the terminal's codes for an emphasis around it, or as it is without colour.
std::string Styled(std::string_view text, Emphasis emphasis, bool colour);

/// True if standard output is a terminal that can show colour and the environment does not ask for none (NO_COLOR).
bool TerminalShowsColour();

}  // namespace zef::client
