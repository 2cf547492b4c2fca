#include "bench/table_reporter.h"

#include <fmt/format.h>

#include <ostream>
#include <string_view>

#include "bench/counters.h"

namespace zef::bench {
namespace {

constexpr char kColumns[] = "{:<56} {:>11} {:>11} {:>7} {:>7}  {}\n";

std::string TimeText(double seconds) {
  if (seconds < 1e-6) return fmt::format("{:.1f} ns", seconds * 1e9);
  if (seconds < 1e-3) return fmt::format("{:.2f} us", seconds * 1e6);
  if (seconds < 1) return fmt::format("{:.2f} ms", seconds * 1e3);
  return fmt::format("{:.2f} s", seconds);
}

std::string RatioText(double ratio) { return fmt::format("{:.{}f}", ratio, ratio < 0.1 ? 3 : 2); }

std::string Line(const benchmark::BenchmarkReporter::Run& run) {
  const auto counter = [&](const char* name) { return run.counters.at(name).value; };
  const bool bytes = run.report_label == kBytes;
  const bool absolute = bytes || run.report_label == kSeconds;
  const double measured = counter(absolute ? kOurs : kRatio);
  const double target = counter(kTarget);
  const auto amount = [&](double value) { return bytes ? fmt::format("{:.0f} B", value) : TimeText(value); };
  const std::string allowed = target == 0 ? "-" : absolute ? amount(target) : fmt::format("{:.2f}", target);
  const std::string_view verdict = target == 0 ? "" : measured <= target ? "ok" : "missed";
  return fmt::format(kColumns, run.run_name.function_name, amount(counter(kOurs)), amount(counter(kByHand)),
                     RatioText(counter(kRatio)), allowed, verdict);
}

}  // namespace

bool TableReporter::ReportContext(const Context& /*context*/) { return true; }

void TableReporter::ReportRuns(const std::vector<Run>& runs) {
  for (const Run& run : runs) {
    const std::string& name = run.run_name.function_name;
    GetErrorStream() << name << std::endl;
    failed_ = failed_ || run.error_occurred;
    lines_.push_back(run.error_occurred ? fmt::format("{:<56} failed: {}\n", name, run.error_message) : Line(run));
  }
}

void TableReporter::Finalize() {
  GetOutputStream() << fmt::format(kColumns, "", "ours", "by hand", "ratio", "target", "");
  for (const std::string& line : lines_) GetOutputStream() << line;
  GetOutputStream().flush();
}

}  // namespace zef::bench
