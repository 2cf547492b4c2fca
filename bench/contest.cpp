#include "bench/contest.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <stdexcept>
#include <utility>
#include <vector>

#include "bench/counters.h"

namespace zef::bench {
namespace {

struct Times {
  std::vector<double> ours;
  std::vector<double> by_hand;
  std::vector<double> ratios;
};

double Median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

using Member = std::uint64_t (Contest::*)(int, Stopwatch&);

struct Half {
  Member member;
  Stopwatch watch = {};
  std::uint64_t digest = 0;

  void Run(Contest& contest, int round) { digest = (contest.*member)(round, watch); }
};

/// One round of both sides; false if they delivered different things.
bool RunRound(Contest& contest, int round, int operations, Times& times) {
  Half ours{&Contest::Ours};
  Half by_hand{&Contest::ByHand};
  const bool ours_first = round % 2 == 0;
  (ours_first ? ours : by_hand).Run(contest, round);
  (ours_first ? by_hand : ours).Run(contest, round);
  times.ours.push_back(ours.watch.Seconds() / operations);
  times.by_hand.push_back(by_hand.watch.Seconds() / operations);
  times.ratios.push_back(ours.watch.Seconds() / by_hand.watch.Seconds());
  return ours.digest == by_hand.digest;
}

void SetCounters(benchmark::State& state, double ours, double by_hand, double ratio, double target) {
  state.counters[kOurs] = ours;
  state.counters[kByHand] = by_hand;
  state.counters[kRatio] = ratio;
  state.counters[kTarget] = target;
}

/// Runs the rounds of a row behind one that warms up; false if the sides ever delivered different things.
bool RunRounds(const Row& row, benchmark::State& state, Times& times) {
  const std::unique_ptr<Contest> contest = row.make(row.operations);
  Times warm_up;
  bool equal = RunRound(*contest, 0, row.operations, warm_up);
  int round = 1;
  for ([[maybe_unused]] auto _ : state) {
    equal = RunRound(*contest, round++, row.operations, times) && equal;
    state.SetIterationTime(times.ours.back());
  }
  return equal;
}

/// Runs `measure`; a failure spoils its row only.
template <class Measure>
void Guarded(benchmark::State& state, Measure measure) {
  try {
    measure();
  } catch (const std::exception& failure) {
    state.SkipWithError(failure.what());
  }
}

void RunRow(const Row& row, benchmark::State& state) {
  Times times;
  if (!RunRounds(row, state, times)) throw std::runtime_error("the two sides delivered different results");
  const bool absolute = row.longest > 0;
  SetCounters(state, Median(times.ours), Median(times.by_hand), Median(times.ratios),
              absolute ? row.longest : row.target);
  if (absolute) state.SetLabel(kSeconds);
}

}  // namespace

void Register(Row row) {
  const std::string name = row.name;
  const int rounds = row.rounds;
  benchmark::RegisterBenchmark(
      name.c_str(), [row = std::move(row)](benchmark::State& state) { Guarded(state, [&] { RunRow(row, state); }); })
      ->Iterations(rounds)
      ->UseManualTime();
}

void RegisterAmounts(const std::string& name, double target, std::function<Amounts()> measure) {
  benchmark::RegisterBenchmark(name.c_str(), [target, measure = std::move(measure)](benchmark::State& state) {
    Guarded(state, [&] {
      Amounts amounts;
      for ([[maybe_unused]] auto _ : state) amounts = measure();
      SetCounters(state, amounts.ours, amounts.by_hand, amounts.ours / amounts.by_hand, target);
      state.SetLabel(kBytes);
    });
  })->Iterations(1);
}

}  // namespace zef::bench
