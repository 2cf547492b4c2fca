#include <signal.h>
#include <sys/resource.h>

#include "tests/platform/conformance/backend.h"

namespace zef::test {
namespace {

using UndoneTransactions = Conformance;
INSTANTIATE_TEST_SUITE_P(Engines, UndoneTransactions, testing::ValuesIn(Backends()), BackendName);

/// Files cannot grow beyond some bytes for as long as it lives: what a full disk is like.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) : old_signal_(signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &old_);
    const rlimit limit{bytes, old_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &old_);
    signal(SIGXFSZ, old_signal_);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  rlimit old_{};
  void (*old_signal_)(int);
};

TEST_P(UndoneTransactions, NothingIsWrittenOutsideAfterTheDiskWasFull) {
  Execute("CREATE TABLE Numbers (N Long NOT NULL PRIMARY KEY, Filler Memo)");
  const std::string filler(20000, 'x');
  connection_->BeginTrans();
  int written = 0;
  {
    const FullDisk full(1 << 20);
    while (written < 2000 &&
           FailureOf("INSERT INTO Numbers (N,Filler) VALUES (" + std::to_string(written) + ",'" + filler + "')") == 0) {
      ++written;
    }
  }
  FailureOf("INSERT INTO Numbers (N,Filler) VALUES (100000,'small')");
  connection_->RollbackTrans();
  EXPECT_EQ(Count(*connection_, "Numbers"), 0);
  EXPECT_EQ(connection_->BeginTrans(), 1);
}

}  // namespace
}  // namespace zef::test
