#include "client/terminal.h"

#include <windows.h>

namespace zef::client {
namespace {

/// False for a file or a pipe.
bool IsTerminal(DWORD stream) {
  DWORD mode = 0;
  return GetConsoleMode(GetStdHandle(stream), &mode) != 0;
}

/// Terminals of older systems show the codes as they are, others once they are asked to understand them.
bool Understands(DWORD stream) {
  const HANDLE terminal = GetStdHandle(stream);
  DWORD mode = 0;
  if (GetConsoleMode(terminal, &mode) == 0) return false;
  return SetConsoleMode(terminal, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

}  // namespace

bool OutputIsTerminal() { return IsTerminal(STD_OUTPUT_HANDLE); }
bool ErrorsAreTerminal() { return IsTerminal(STD_ERROR_HANDLE); }
bool TerminalIsPlain() { return !Understands(STD_OUTPUT_HANDLE) && !Understands(STD_ERROR_HANDLE); }

std::size_t TerminalWidth() {
  CONSOLE_SCREEN_BUFFER_INFO screen{};
  if (GetConsoleScreenBufferInfo(GetStdHandle(STD_OUTPUT_HANDLE), &screen) == 0) return 0;
  return static_cast<std::size_t>(screen.srWindow.Right - screen.srWindow.Left + 1);
}

}  // namespace zef::client
