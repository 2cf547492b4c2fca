#pragma once

#include <cstdint>
#include <stdexcept>
#include <vector>

#include "bench/contest.h"

namespace zef::bench {

/// Identifiers from `first` to `first + count - 1`, spread over all of them, others in each round.
inline std::vector<std::int32_t> Picks(int round, int picks, std::int32_t first, std::int32_t count) {
  std::vector<std::int32_t> ids;
  std::uint64_t state = static_cast<std::uint64_t>(round) + 1;
  for (int i = 0; i < picks; ++i) {
    state = state * 6364136223846793005U + 1442695040888963407U;
    ids.push_back(first + static_cast<std::int32_t>((state >> 33) % static_cast<std::uint64_t>(count)));
  }
  return ids;
}

/// Fetches all and drops them at once. A fetch that finds nothing is a failure.
template <class Fetch>
void TimePicks(const std::vector<std::int32_t>& ids, Stopwatch& watch, Fetch fetch) {
  watch.Start();
  for (const std::int32_t id : ids) {
    if (const auto record = fetch(id); !record) throw std::runtime_error("a row was not found");
  }
  watch.Stop();
}

}  // namespace zef::bench
