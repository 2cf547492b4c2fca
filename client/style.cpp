#include "client/style.h"

#include <fmt/format.h>

#include <array>
#include <cstdlib>

#include "client/terminal.h"

namespace zef::client {
namespace {

// In the order of Emphasis.
constexpr std::array<std::string_view, 5> kCodes{"", "1", "1;33", "7", "2"};

}  // namespace

std::string Styled(std::string_view text, Emphasis emphasis, bool colour) {
  if (!colour || emphasis == Emphasis::None) return std::string(text);
  return fmt::format("\x1b[{}m{}\x1b[0m", kCodes[static_cast<std::size_t>(emphasis)], text);
}

Screen TerminalScreen() {
  if (!OutputIsTerminal()) return {};
  return {!TerminalIsPlain() && std::getenv("NO_COLOR") == nullptr, TerminalWidth()};
}

}  // namespace zef::client
