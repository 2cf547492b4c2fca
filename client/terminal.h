#pragma once

#include <cstddef>

/// What the system knows of the terminal that the program runs in.
namespace zef::client {

bool OutputIsTerminal();
bool ErrorsAreTerminal();
/// True for a terminal that understands no codes.
bool TerminalIsPlain();
/// Characters in a line of the terminal behind standard output; 0 if that is not known.
std::size_t TerminalWidth();

}  // namespace zef::client
