#include "client/held_signals.h"

#include "client/failure.h"

namespace zef::client {
namespace {

constexpr int kEnding[] = {SIGINT, SIGTERM, SIGHUP, SIGQUIT};

}  // namespace

HeldSignals::HeldSignals() {
  sigemptyset(&held_);
  for (const int signal : kEnding) sigaddset(&held_, signal);
  sigprocmask(SIG_BLOCK, &held_, &before_);
}

HeldSignals::~HeldSignals() { sigprocmask(SIG_SETMASK, &before_, nullptr); }

void HeldSignals::StopIfAsked() const {
  sigset_t pending;
  sigpending(&pending);
  for (const int signal : kEnding) {
    if (sigismember(&pending, signal) == 1) throw Failure(kRefused, "Interrupted; nothing was made.");
  }
}

}  // namespace zef::client
