#include "client/held_signals.h"

#include <windows.h>

#include <atomic>

#include "client/failure.h"

namespace zef::client {
namespace {

/// The system calls on a thread of its own.
std::atomic<bool> asked = false;

BOOL WINAPI Hold(DWORD) {
  asked = true;
  return TRUE;
}

}  // namespace

struct HeldSignals::State {};

HeldSignals::HeldSignals() {
  asked = false;
  SetConsoleCtrlHandler(&Hold, TRUE);
}

HeldSignals::~HeldSignals() {
  SetConsoleCtrlHandler(&Hold, FALSE);
  if (asked) ExitProcess(static_cast<UINT>(STATUS_CONTROL_C_EXIT));
}

void HeldSignals::StopIfAsked() const {
  if (asked) throw Failure(kRefused, "Interrupted; nothing was made.");
}

}  // namespace zef::client
