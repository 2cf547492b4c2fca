#pragma once

#include <memory>

namespace zef::client {

/// Holds back the signals by which people end a program (Ctrl-C and its kin) while something is half made. One that
/// came meanwhile takes effect when this goes away; until then the program can tidy up.
class HeldSignals {
 public:
  HeldSignals();
  ~HeldSignals();
  HeldSignals(const HeldSignals&) = delete;
  HeldSignals& operator=(const HeldSignals&) = delete;

  /// Raises a `Failure` if one has come.
  void StopIfAsked() const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace zef::client
