#pragma once

#include <functional>
#include <memory>

#include "tests/faults/operations.h"
#include "tests/support/database.h"

namespace zef::test {

/// Something that can be made to fail. It counts what could fail while it is armed.
class Faults {
 public:
  virtual ~Faults() = default;
  /// From now on the n-th call fails; none for 0.
  virtual void Arm(int number) = 0;
  /// Nothing fails any more. Gives the number of calls since.
  virtual int Disarm() = 0;
};

/// Runs an operation again and again, each time on a session and a database of its own whose k-th call fails. Expects
/// of a run that did not succeed that it told so by its result and the error record or by raising, that no transaction
/// is open, that the database is sound and holds what it held, and that the same operation succeeds when it is
/// repeated. Unless all tests are asked for by ZEF_LONG, some of the calls only.
void FailEachCallOf(const Operation& operation, Faults& faults);

}  // namespace zef::test
