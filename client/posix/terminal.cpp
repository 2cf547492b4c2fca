#include "client/terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdlib>
#include <string_view>

namespace zef::client {

bool OutputIsTerminal() { return isatty(STDOUT_FILENO) == 1; }
bool ErrorsAreTerminal() { return isatty(STDERR_FILENO) == 1; }

bool TerminalIsPlain() {
  const char* const terminal = std::getenv("TERM");
  return terminal == nullptr || std::string_view(terminal) == "dumb";
}

std::size_t TerminalWidth() {
  winsize size{};
  return ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 ? size.ws_col : std::size_t{0};
}

}  // namespace zef::client
