#pragma once

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

namespace zef::bench {

/// Collects the rows and prints them as one table when all have run. The name of each finished row goes to the error
/// stream meanwhile.
class TableReporter final : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context& context) override;
  void ReportRuns(const std::vector<Run>& runs) override;
  void Finalize() override;

  /// True if a row could not be measured, as when its sides delivered different things.
  bool failed() const { return failed_; }

 private:
  std::vector<std::string> lines_;
  bool failed_ = false;
};

}  // namespace zef::bench
