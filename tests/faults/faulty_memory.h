#pragma once

#include "tests/faults/sweep.h"

namespace zef::test {

/// The memory that C++ code on this thread asks for.
class FaultyMemory final : public Faults {
 public:
  void Arm(int number) override;
  int Disarm() override;
};

}  // namespace zef::test
