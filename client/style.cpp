#include "client/style.h"

#include <fmt/format.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <array>
#include <cstdlib>

namespace zef::client {
namespace {

// In the order of Emphasis.
constexpr std::array<std::string_view, 5> kCodes{"", "1", "1;33", "7", "2"};

}  // namespace

std::string Styled(std::string_view text, Emphasis emphasis, bool colour) {
  if (!colour || emphasis == Emphasis::None) return std::string(text);
  return fmt::format("\x1b[{}m{}\x1b[0m", kCodes[static_cast<std::size_t>(emphasis)], text);
}

bool TerminalIsPlain() {
  const char* const terminal = std::getenv("TERM");
  return terminal == nullptr || std::string_view(terminal) == "dumb";
}

Screen TerminalScreen() {
  if (isatty(STDOUT_FILENO) != 1) return {};
  winsize size{};
  const bool known = ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0;
  return {!TerminalIsPlain() && std::getenv("NO_COLOR") == nullptr, known ? size.ws_col : std::size_t{0}};
}

}  // namespace zef::client
