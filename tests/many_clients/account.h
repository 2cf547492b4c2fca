#pragma once

#include <sys/mman.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <new>

#include "platform/run_time_error.h"

namespace zef::test {

/// What one client has done so far.
struct Account {
  std::atomic<std::int64_t> operations = 0;
  std::atomic<std::int64_t> refused = 0;
  /// Raises of the shared number of which the commit was begun, and those of which it came back. While a commit is
  /// under way they differ by one.
  std::atomic<std::int64_t> raises_begun = 0;
  std::atomic<std::int64_t> raises_done = 0;
  /// True once the client has come to an end of itself: told to, or by what it has found.
  std::atomic<bool> ended = false;
};

/// Accounts in memory that processes share, so that one that dies leaves its account behind.
class Accounts {
 public:
  static constexpr std::size_t kMost = 1000;

  Accounts() {
    void* const place = mmap(nullptr, sizeof(Content), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (place == MAP_FAILED) throw RunTimeError(FailureNumber::OutOfMemory);
    content_ = new (place) Content;
  }
  ~Accounts() { munmap(content_, sizeof(Content)); }
  Accounts(const Accounts&) = delete;
  Accounts& operator=(const Accounts&) = delete;

  Account& operator[](std::size_t client) { return content_->accounts[client]; }
  /// True once the clients are to end.
  std::atomic<bool>& closing() { return content_->closing; }

 private:
  struct Content {
    std::atomic<bool> closing = false;
    Account accounts[kMost];
  };
  Content* content_;
};

}  // namespace zef::test
