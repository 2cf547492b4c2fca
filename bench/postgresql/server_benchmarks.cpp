#include <memory>
#include <stdexcept>
#include <string>

#include "bench/benchmarks.h"
#include "bench/contact_contests.h"
#include "bench/peak_memory.h"
#include "bench/postgresql/server_side.h"
#include "bench/reading_kinds.h"
#include "bench/saving_contests.h"

namespace zef::bench {
namespace {

constexpr double kReadTarget = 1.3;
constexpr double kLoadTarget = 1.4;
constexpr double kSaveTarget = 1.5;

/// `saves` of one transaction, of which the second half counts.
template <class Saving, class... More>
void RegisterSave(World& world, const std::string& name, int saves, double target, More... more) {
  Register(
      {.name = fmt::format("Server: Save of {}, {} in one transaction", name, saves),
       .target = target,
       .operations = saves / 2,
       .rounds = world.Rounds(4000 / saves),
       .make = [&world, more...](int operations) { return std::make_unique<Saving>(world, more..., operations); }});
}

/// What a load takes at its most beside the records that it gives.
template <class Load>
double BesideTheRecords(Load load) {
  load();
  decltype(load()) kept;
  const Memory memory = MemoryOf([&] { kept = load(); });
  return memory.peak - memory.kept;
}

Amounts MemoryOfLoads(World& world) {
  using Kind = ContactReading<ServerSide>;
  const Readers<Kind> readers(world);
  return {.ours = BesideTheRecords([&] {
            auto contacts = MakeRef<CContacts>();
            if (!Kind::Load(*readers.session, contacts)) throw std::runtime_error("a load failed");
            return contacts;
          }),
          .by_hand = BesideTheRecords([&] { return Kind::Load(readers.reader); })};
}

}  // namespace

void RegisterServer(World& world) {
  if (ServerFolder().empty()) return;
  RegisterPicks<FolderReading<ServerSide>>(world, "Server: GetFolder", kReadTarget);
  RegisterPicks<EventReading<ServerSide>>(world, "Server: GetEvent with two children", kReadTarget);
  RegisterPicks<ContactReading<ServerSide>>(world, "Server: GetContact", kReadTarget);
  RegisterLoad<ContactReading<ServerSide>>(world, "Server: LoadContactsWithCriteria, a row", kLoadTarget);
  RegisterLoad<TagReading<ServerSide>>(world, "Server: LoadContactTagsWithCriteria, a row", kLoadTarget);
  RegisterAmounts("Server: memory of a load of contacts, beside them", 16 << 20, [&] { return MemoryOfLoads(world); });
  RegisterSave<EventContest<ServerSide>>(world, "a changed event", 20, kSaveTarget, Transaction::Clients);
  RegisterSave<TaskContest<ServerSide>>(world, "a new task with a due date", 20, kSaveTarget, Transaction::Clients);
  RegisterSave<TaskContest<ServerSide>>(world, "a new task with a due date", 200, 0, Transaction::Clients);
  RegisterSave<ChangedContacts<ServerSide>>(world, "a changed contact", 20, kSaveTarget);
  RegisterSave<NewContacts<ServerSide>>(world, "a new contact with its identifier", 20, kSaveTarget);
}

}  // namespace zef::bench
