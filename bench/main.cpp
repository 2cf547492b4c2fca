#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <string_view>

#include "bench/benchmarks.h"
#include "bench/table_reporter.h"

namespace {

/// Takes `--quick` out of the arguments; true if it was there.
bool TakeQuick(int& argc, char** argv) {
  char** const end = std::remove_if(argv + 1, argv + argc, [](std::string_view arg) { return arg == "--quick"; });
  const bool quick = end != argv + argc;
  argc = static_cast<int>(end - argv);
  return quick;
}

int Run(int argc, char** argv) {
  zef::bench::World world(TakeQuick(argc, argv));
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  for (const auto register_rows :
       {zef::bench::RegisterReading, zef::bench::RegisterSaving, zef::bench::RegisterSequences,
        zef::bench::RegisterCriteria, zef::bench::RegisterRules, zef::bench::RegisterContacts,
        zef::bench::RegisterNotes, zef::bench::RegisterGrowth, zef::bench::RegisterMemory, zef::bench::RegisterTrees,
        zef::bench::RegisterUpgrades, zef::bench::RegisterComponent}) {
    register_rows(world);
  }
#ifdef ZEF_BENCH_SERVER
  zef::bench::RegisterServer(world);
#endif
  zef::bench::TableReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  return reporter.failed() ? 1 : 0;
}

}  // namespace

/// Takes `--quick` for small databases and few rounds, and the options of the benchmark library. Ends with 1 if a row
/// could not be measured; a missed target is no failure.
int main(int argc, char** argv) {
  try {
    return Run(argc, argv);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 1;
  }
}
