#pragma once

#include "tests/faults/sweep.h"

namespace zef::test {

/// The file system under the embedded engine, once it is installed: a layer below the encryption that passes
/// everything on to the system's own.
class FaultyFiles final : public Faults {
 public:
  enum class Kind {
    Read,        ///< a read fails
    ShortRead,   ///< the system gives less than was asked for, as it may
    Write,       ///< a write fails
    ShortWrite,  ///< half of what is to be written gets there before the write fails
    Full,        ///< the disk is full: a write fails, and all that follow
    Sync         ///< a sync fails
  };

  /// For all databases that this program opens from now on.
  static void Install();

  explicit FaultyFiles(Kind kind) : kind_(kind) {}
  void Arm(int number) override;
  int Disarm() override;

 private:
  Kind kind_;
};

}  // namespace zef::test
