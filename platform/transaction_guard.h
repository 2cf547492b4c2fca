#pragma once

#include <utility>

#include "platform/connection.h"
#include "platform/ignoring_failures.h"

namespace zef {

/// A transaction for the time of a block: rolled back at its end unless it was committed or kept. Without `wanted` it
/// does nothing.
template <class Owner>
class TransactionGuard {
 public:
  explicit TransactionGuard(Owner& owner, bool wanted = true) : owner_(owner), open_(wanted) {
    if (open_) owner_.BeginTrans();
  }
  ~TransactionGuard() {
    if (open_) IgnoringFailures([&] { owner_.RollbackTrans(); });
  }
  TransactionGuard(const TransactionGuard&) = delete;
  TransactionGuard& operator=(const TransactionGuard&) = delete;

  void Commit() {
    if (!open_) return;
    owner_.CommitTrans();
    open_ = false;
  }
  /// Leaves the transaction open; true if there is one.
  bool Keep() { return std::exchange(open_, false); }

 private:
  Owner& owner_;
  bool open_;
};

}  // namespace zef
