#include <fmt/format.h>

#include "bench/benchmarks.h"
#include "bench/contest.h"
#include "bench/digest.h"
#include "bench/picks.h"

namespace zef::bench {
namespace {

struct LibrarySource {
  explicit LibrarySource(const std::string& path) : session(OpenSession(path)) {}
  Ref<CEvent> Get(std::int32_t id) const { return session->GetEvent(id); }

  Ref<CSession> session;
};

struct HandSource {
  explicit HandSource(const std::string& path) : db(path), reader(db) {}
  std::unique_ptr<HandEvent> Get(std::int32_t id) const { return reader.GetEvent(id); }

  HandDatabase db;
  HandReader reader;
};

/// Which events of the large database are read: as many neighbours as the small one holds, as people do who look at
/// some months of a long life, or any.
enum class Reach { Neighbours, All };

/// The same code on a large database, in the place of the library, and on a small one, in the place of the work by
/// hand. Of the small one all events are read.
template <class Source>
class GrowthContest final : public Contest {
 public:
  GrowthContest(World& world, Reach reach, int picks)
      : large_(world.Large()), small_(world.Small()), many_(world.ManyEvents()), reach_(reach), picks_(picks) {}

  std::uint64_t Ours(int round, Stopwatch& watch) override {
    return reach_ == Reach::All ? Run(large_, 1, many_, round, watch)
                                : Run(large_, many_ / 2, World::kFewEvents, round, watch);
  }
  std::uint64_t ByHand(int round, Stopwatch& watch) override { return Run(small_, 1, World::kFewEvents, round, watch); }

 private:
  /// The digest is of an event that both databases hold.
  std::uint64_t Run(const Source& source, std::int32_t first, std::int32_t count, int round, Stopwatch& watch) const {
    TimePicks(Picks(round, picks_, first, count), watch, [&](std::int32_t id) { return source.Get(id); });
    return DigestOf(*source.Get(1 + round % World::kFewEvents));
  }

  Source large_;
  Source small_;
  std::int32_t many_;
  Reach reach_;
  int picks_;
};

template <class Source>
void RegisterSource(World& world, const std::string& name, Reach reach, double target) {
  Register({.name = name,
            .target = target,
            .operations = 400,
            .rounds = world.Rounds(200),
            .make = [&world, reach](int operations) {
              return std::make_unique<GrowthContest<Source>>(world, reach, operations);
            }});
}

}  // namespace

void RegisterGrowth(World& world) {
  const std::string sizes = fmt::format("{} events against {}", world.ManyEvents(), World::kFewEvents);
  RegisterSource<LibrarySource>(world, "GetEvent, " + sizes + ", near", Reach::Neighbours, 1.3);
  RegisterSource<HandSource>(world, "  both by hand", Reach::Neighbours, 0);
  RegisterSource<LibrarySource>(world, "GetEvent, " + sizes + ", all over", Reach::All, 1.3);
  RegisterSource<HandSource>(world, "  both by hand, all over", Reach::All, 0);
}

}  // namespace zef::bench
