#pragma once

#include <benchmark/benchmark.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/contest.h"
#include "bench/digest.h"
#include "bench/picks.h"
#include "bench/world.h"

/// Reading the records of a kind one by one and all at once. A kind names its `Side`, its collection
/// `Records`, its `Reader` by hand and the `kFirst` identifier, and reads with `Get` and `Load` on either side.
namespace zef::bench {

inline constexpr std::size_t kCompared = 16;  ///< records of a round that are compared value by value

/// What both sides read with, on one database.
template <class Kind>
struct Readers {
  explicit Readers(World& world)
      : session(OpenSession(Kind::Side::Reading(world))), db(Kind::Side::Reading(world)), reader(db) {}

  Ref<CSession> session;
  typename Kind::Side::Database db;
  typename Kind::Reader reader;
};

/// The allocator merges the many small blocks that were let go when the next large one is asked for; so that is done
/// before the clock runs.
inline void SettleHeap() { benchmark::DoNotOptimize(std::make_unique<char[]>(std::size_t{1} << 16)); }

/// Reads single rows by their identifiers.
template <class Kind>
class PickContest final : public Contest {
 public:
  PickContest(World& world, int picks) : readers_(world), picks_(picks), rows_(world.LoadedRows()) {}

  std::uint64_t Ours(int round, Stopwatch& watch) override { return Run(*readers_.session, round, watch); }
  std::uint64_t ByHand(int round, Stopwatch& watch) override { return Run(readers_.reader, round, watch); }

 private:
  template <class Source>
  std::uint64_t Run(Source& source, int round, Stopwatch& watch) const {
    const std::vector<std::int32_t> ids = Picks(round, picks_, Kind::kFirst, rows_);
    TimePicks(ids, watch, [&](std::int32_t id) { return Kind::Get(source, id); });
    Digest digest;
    for (std::size_t i = 0; i < kCompared; ++i) digest.Add(DigestOf(*Kind::Get(source, ids[i])));
    return digest.value();
  }

  Readers<Kind> readers_;
  int picks_;
  std::int32_t rows_;
};

/// Reads many rows at once; letting go of them is not timed. The digest takes all of them, so that order and number
/// count.
template <class Kind>
class LoadContest final : public Contest {
 public:
  explicit LoadContest(World& world) : readers_(world), rows_(static_cast<std::size_t>(world.LoadedRows())) {}

  std::uint64_t Ours(int /*round*/, Stopwatch& watch) override {
    SettleHeap();
    const auto records = MakeRef<typename Kind::Records>();
    watch.Start();
    const bool loaded = Kind::Load(*readers_.session, records);
    watch.Stop();
    Require(loaded && static_cast<std::size_t>(records->Count()) == rows_);
    return DigestOfAll(*records);
  }
  std::uint64_t ByHand(int /*round*/, Stopwatch& watch) override {
    SettleHeap();
    watch.Start();
    const auto records = Kind::Load(readers_.reader);
    watch.Stop();
    Require(records.size() == rows_);
    return DigestOfAll(records);
  }

 private:
  static void Require(bool complete) {
    if (!complete) throw std::runtime_error("a load did not give the rows that there are");
  }

  Readers<Kind> readers_;
  std::size_t rows_;
};

template <class Kind>
void RegisterPicks(World& world, const std::string& name, double target = 1.6) {
  Register(
      {.name = name, .target = target, .operations = 400, .rounds = world.Rounds(200), .make = [&](int operations) {
         return std::make_unique<PickContest<Kind>>(world, operations);
       }});
}

template <class Kind>
void RegisterLoad(World& world, const std::string& name, double target = 1.5) {
  const int rows = world.LoadedRows();
  Register({.name = name + " of " + std::to_string(rows),
            .target = target,
            .operations = rows,
            .rounds = world.Rounds(12),
            .make = [&](int /*operations*/) { return std::make_unique<LoadContest<Kind>>(world); }});
}

}  // namespace zef::bench
