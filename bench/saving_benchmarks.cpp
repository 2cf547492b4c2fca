#include "bench/benchmarks.h"
#include "bench/file_side.h"
#include "bench/saving_contests.h"

namespace zef::bench {
namespace {

/// A commit waits for the disk, whose times differ widely: many short rounds tell more than few long ones.
template <class Kind>
void RegisterBoth(World& world, const std::string& name) {
  Register({.name = name + ", in one transaction",
            .target = 2.0,
            .operations = 100,
            .rounds = world.Rounds(100),
            .make = [&](int operations) { return std::make_unique<Kind>(world, Transaction::Clients, operations); }});
  Register({.name = name + ", in its own",
            .target = 1.2,
            .operations = 2,
            .rounds = world.Rounds(240),
            .make = [&](int operations) { return std::make_unique<Kind>(world, Transaction::Own, operations); }});
}

}  // namespace

void RegisterSaving(World& world) {
  RegisterBoth<EventContest<FileSide>>(world, "Save of a changed event");
  RegisterBoth<TaskContest<FileSide>>(world, "Save of a new task with a due date");
}

}  // namespace zef::bench
