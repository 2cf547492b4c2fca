#include "bench/benchmarks.h"
#include "bench/by_hand.h"
#include "bench/contest.h"

namespace zef::bench {
namespace {

constexpr std::int32_t kSequence = 9;  ///< numbers nothing that the other benchmarks make

/// Draws identifiers in one transaction, or each in its own.
class SequenceContest final : public Contest {
 public:
  SequenceContest(World& world, bool alone, int operations)
      : session_(OpenSession(world.Writing())),
        db_(world.Writing()),
        writer_(db_),
        alone_(alone),
        operations_(operations) {}

  std::uint64_t Ours(int /*round*/, Stopwatch& watch) override {
    db_.Checkpoint();
    if (!alone_) session_->BeginTransaction();
    const std::uint64_t drawn = Drawn(watch, [&] {
      std::int32_t id = 0;
      return session_->GetUniqueIDFromSeq(kSequence, id) == 1 ? id : 0;
    });
    if (!alone_) session_->CommitTransaction();
    return drawn;
  }

  std::uint64_t ByHand(int /*round*/, Stopwatch& watch) override {
    db_.Checkpoint();
    if (!alone_) writer_.Begin();
    const std::uint64_t drawn =
        Drawn(watch, [&] { return alone_ ? writer_.DrawAlone(kSequence) : writer_.Draw(kSequence); });
    if (!alone_) writer_.Commit();
    return drawn;
  }

 private:
  /// Number of identifiers that were each one more than the one before. The first draw, not timed, takes in what the
  /// other side has written meanwhile.
  template <class Draw>
  std::uint64_t Drawn(Stopwatch& watch, Draw draw) const {
    std::int32_t previous = draw();
    std::uint64_t in_order = 0;
    watch.Start();
    for (int i = 0; i < operations_; ++i) {
      const std::int32_t id = draw();
      in_order += id == previous + 1 ? 1 : 0;
      previous = id;
    }
    watch.Stop();
    return in_order == static_cast<std::uint64_t>(operations_) ? in_order : static_cast<std::uint64_t>(previous);
  }

  Ref<CSession> session_;
  HandDatabase db_;
  HandWriter writer_;
  bool alone_;
  int operations_;
};

}  // namespace

void RegisterSequences(World& world) {
  Register({.name = "GetUniqueIDFromSeq, in one transaction",
            .target = 2.0,
            .operations = 300,
            .rounds = world.Rounds(100),
            .make = [&](int operations) { return std::make_unique<SequenceContest>(world, false, operations); }});
  Register({.name = "GetUniqueIDFromSeq, alone",
            .target = 1.2,
            .operations = 2,
            .rounds = world.Rounds(240),
            .make = [&](int operations) { return std::make_unique<SequenceContest>(world, true, operations); }});
}

}  // namespace zef::bench
