#include <benchmark/benchmark.h>

#include "bench/benchmarks.h"
#include "bench/contest.h"
#include "bench/digest.h"
#include "bench/picks.h"
#include "bench/test_data.h"
#include "session/collections.h"

namespace zef::bench {
namespace {

constexpr std::size_t kCompared = 16;  ///< records of a round that are compared value by value

struct FolderReading {
  using Records = CFolders;
  static constexpr std::int32_t kFirst = kSystemFolders + 1;

  static auto Get(CSession& session, std::int32_t id) { return session.GetFolder(id); }
  static auto Get(const HandReader& reader, std::int32_t id) { return reader.GetFolder(id); }
  static bool Load(CSession& session, const Ref<CFolders>& folders) {
    return session.LoadFoldersWithCriteria(folders, "FLD_Protected=0");
  }
  static auto Load(const HandReader& reader) { return reader.LoadFolders(); }
};

struct EventReading {
  using Records = CEvents;
  static constexpr std::int32_t kFirst = 1;

  static auto Get(CSession& session, std::int32_t id) { return session.GetEvent(id); }
  static auto Get(const HandReader& reader, std::int32_t id) { return reader.GetEvent(id); }
  static bool Load(CSession& session, const Ref<CEvents>& events) {
    return session.LoadEventsWithCriteria(events, "EVE_Reminder>=15");
  }
  static auto Load(const HandReader& reader) { return reader.LoadEvents(15); }
};

/// What both sides read with, on one database.
struct Readers {
  explicit Readers(const std::string& path) : session(OpenSession(path)), db(path), reader(db) {}

  Ref<CSession> session;
  HandDatabase db;
  HandReader reader;
};

/// The allocator merges the many small blocks that were let go when the next large one is asked for; so that is done
/// before the clock runs.
void SettleHeap() { benchmark::DoNotOptimize(std::make_unique<char[]>(std::size_t{1} << 16)); }

/// Reads single rows by their identifiers.
template <class Kind>
class PickContest final : public Contest {
 public:
  PickContest(World& world, int picks) : readers_(world.Reading()), picks_(picks), rows_(world.LoadedRows()) {}

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

  Readers readers_;
  int picks_;
  std::int32_t rows_;
};

/// Reads many rows at once; letting go of them is not timed. The digest takes all of them, so that order and number
/// count.
template <class Kind>
class LoadContest final : public Contest {
 public:
  explicit LoadContest(World& world) : readers_(world.Reading()), rows_(static_cast<std::size_t>(world.LoadedRows())) {}

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

  Readers readers_;
  std::size_t rows_;
};

template <class Kind>
void RegisterPicks(World& world, const std::string& name) {
  Register({.name = name, .target = 1.6, .operations = 400, .rounds = world.Rounds(200), .make = [&](int operations) {
              return std::make_unique<PickContest<Kind>>(world, operations);
            }});
}

template <class Kind>
void RegisterLoad(World& world, const std::string& name) {
  const int rows = world.LoadedRows();
  Register({.name = name + " of " + std::to_string(rows),
            .target = 1.5,
            .operations = rows,
            .rounds = world.Rounds(12),
            .make = [&](int /*operations*/) { return std::make_unique<LoadContest<Kind>>(world); }});
}

}  // namespace

void RegisterReading(World& world) {
  RegisterPicks<FolderReading>(world, "GetFolder");
  RegisterPicks<EventReading>(world, "GetEvent with two children");
  RegisterLoad<FolderReading>(world, "LoadFoldersWithCriteria, a row");
  RegisterLoad<EventReading>(world, "LoadEventsWithCriteria, a row");
}

}  // namespace zef::bench
