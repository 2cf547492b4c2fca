#pragma once

#include <atomic>
#include <memory>

namespace zef {

/// Something that the process has once, made by the thread that first needs it. For constinit variables: nothing of it
/// runs when the library is loaded, and it does not end by itself, so that what outlives the library's use must be
/// released by `Release`. Neither takes a lock.
template <class T>
class MadeOnce {
 public:
  constexpr MadeOnce() = default;
  MadeOnce(const MadeOnce&) = delete;
  MadeOnce& operator=(const MadeOnce&) = delete;

  /// Raises what making it raises; the next call tries again.
  T& Get() {
    T* const made = made_.load(std::memory_order_acquire);
    return made != nullptr ? *made : Make();
  }
  /// Null if nobody has needed it yet.
  T* IfMade() { return made_.load(std::memory_order_acquire); }
  /// Ends it. No thread may be using it; the next call of `Get` makes it anew.
  void Release() { delete made_.exchange(nullptr, std::memory_order_acq_rel); }

 private:
  /// Threads that come at once each make one, and the first one stays.
  T& Make() {
    auto mine = std::make_unique<T>();
    T* first = nullptr;
    return made_.compare_exchange_strong(first, mine.get(), std::memory_order_acq_rel) ? *mine.release() : *first;
  }

  std::atomic<T*> made_ = nullptr;
};

}  // namespace zef
