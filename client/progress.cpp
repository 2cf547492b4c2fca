#include "client/progress.h"

#include <fmt/core.h>

#include <cstdio>

#include "client/terminal.h"

namespace zef::client {
namespace {

constexpr char kClearLine[] = "\r\x1b[K";

}  // namespace

Progress::Progress() : on_terminal_(ErrorsAreTerminal() && !TerminalIsPlain()) {}

Progress::~Progress() {
  if (!shown_.empty()) fmt::print(stderr, "{}", kClearLine);
}

void Progress::Tell(const std::string& text) {
  if (!on_terminal_ || text == shown_) return;
  fmt::print(stderr, "{}{}", kClearLine, text);
  std::fflush(stderr);
  shown_ = text;
}

}  // namespace zef::client
