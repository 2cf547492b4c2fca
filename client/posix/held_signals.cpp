#include "client/held_signals.h"

#include <csignal>

#include "client/failure.h"

namespace zef::client {
namespace {

constexpr int kEnding[] = {SIGINT, SIGTERM, SIGHUP, SIGQUIT};

}  // namespace

struct HeldSignals::State {
  sigset_t held;
  sigset_t before;
};

HeldSignals::HeldSignals() : state_(std::make_unique<State>()) {
  sigemptyset(&state_->held);
  for (const int signal : kEnding) sigaddset(&state_->held, signal);
  sigprocmask(SIG_BLOCK, &state_->held, &state_->before);
}

HeldSignals::~HeldSignals() { sigprocmask(SIG_SETMASK, &state_->before, nullptr); }

void HeldSignals::StopIfAsked() const {
  sigset_t pending;
  sigpending(&pending);
  for (const int signal : kEnding) {
    if (sigismember(&pending, signal) == 1) throw Failure(kRefused, "Interrupted; nothing was made.");
  }
}

}  // namespace zef::client
