#include "fuzz/support/input.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <thread>

#include "platform/date.h"
#include "tests/support/database.h"

namespace zef::fuzz {
namespace {

namespace fs = std::filesystem;

/// The folder that inputs work in.
class Workplace {
 public:
  Workplace() { setenv("TMPDIR", folder_.path().c_str(), 1); }

  void Enter() const { fs::current_path(folder_.path()); }
  void Empty() const {
    for (const fs::directory_entry& left : fs::directory_iterator(folder_.path())) fs::remove_all(left.path());
  }

 private:
  test::TemporaryFolder folder_;
};

}  // namespace

void RunApart(const std::function<void()>& work) {
  static const Workplace workplace;
  const fs::path before = fs::current_path();
  workplace.Enter();
  std::thread([&] {
    const ClockOverride clock(Date(45413.375));
    work();
  }).join();
  fs::current_path(before);
  workplace.Empty();
}

void Report(const std::string& finding) {
  std::fprintf(stderr, "finding: %s\n", finding.c_str());
  std::abort();
}

}  // namespace zef::fuzz
