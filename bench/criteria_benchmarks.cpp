#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <stdexcept>

#include "bench/benchmarks.h"
#include "bench/contest.h"
#include "bench/digest.h"
#include "session/collections.h"

namespace zef::bench {
namespace {

/// A condition in the library's dialect and in the engine's language.
struct Condition {
  const char* ours;
  const char* by_hand;
};

constexpr std::array<Condition, 14> kConditions = {{
    {"EVE_FolderID=1", "EVE_FolderID=1"},
    {"EVE_CategoryID<>3", "EVE_CategoryID<>3"},
    {"EVE_Text='Meeting 0000017 with the team'", "EVE_Text='Meeting 0000017 with the team' COLLATE NOCASE"},
    {"EVE_Location<>'Room 5'", "EVE_Location<>'Room 5' COLLATE NOCASE"},
    {"EVE_StartDate>#3/15/2023#", "EVE_StartDate>45000"},
    {"EVE_EndDate<=#12/10/2025#", "EVE_EndDate<=46001"},
    {"EVE_Reminder BETWEEN 5 AND 30", "EVE_Reminder BETWEEN 5 AND 30"},
    {"EVE_ContactID IN (1,2,3)", "EVE_ContactID IN (1,2,3)"},
    {"EVE_Type='E'", "EVE_Type='E' COLLATE NOCASE"},
    {"EVE_LinkID IS NULL", "EVE_LinkID IS NULL"},
    {"EVE_Text LIKE 'Meet%'", "EVE_Text LIKE 'Meet%'"},
    {"Year(EVE_StartDate)=2024", "CAST(strftime('%Y', EVE_StartDate+2415018.5) AS INTEGER)=2024"},
    {"EVE_RecurrenceID>0", "EVE_RecurrenceID>0"},
    {"NOT EVE_NotificationID=0", "NOT EVE_NotificationID=0"},
}};

struct Criterion {
  std::string ours;
  std::string by_hand;
};

/// Criterion number `n`: one event by its key, and three different conditions, whose choice and order no other number
/// has. The key keeps the work of the search itself small.
Criterion MakeCriterion(int n) {
  constexpr int kCount = static_cast<int>(kConditions.size());
  const int first = n % kCount;
  const int second = (first + 1 + n / kCount % (kCount - 1)) % kCount;
  int third = n / kCount / (kCount - 1) % (kCount - 2);
  for (const int taken : {std::min(first, second), std::max(first, second)}) third += third >= taken ? 1 : 0;
  const auto text = [&](const char* Condition::*side) {
    const auto condition = [&](int i) { return kConditions[static_cast<std::size_t>(i)].*side; };
    return fmt::format("EVE_ID={} AND ({} OR {} AND {})", 1 + n * 7, condition(first), condition(second),
                       condition(third));
  };
  return {text(&Condition::ours), text(&Condition::by_hand)};
}

/// Criteria each of another shape, more than any cache of statements holds.
class CriteriaContest final : public Contest {
 public:
  CriteriaContest(World& world, int count) : session_(OpenSession(world.Small())), db_(world.Small()), reader_(db_) {
    for (int n = 0; n < count; ++n) criteria_.push_back(MakeCriterion(n));
  }

  std::uint64_t Ours(int /*round*/, Stopwatch& watch) override {
    return Run(watch, [&](const Criterion& criterion) {
      auto events = MakeRef<CEvents>();
      if (!session_->LoadEventsWithCriteria(events, criterion.ours)) {
        throw std::runtime_error(criterion.ours + ": " + session_->GetErrorDescription());
      }
      return events;
    });
  }
  std::uint64_t ByHand(int /*round*/, Stopwatch& watch) override {
    return Run(watch, [&](const Criterion& criterion) {
      return std::make_unique<HandEvents>(reader_.LoadEventsWhere(criterion.by_hand));
    });
  }

 private:
  template <class Load>
  std::uint64_t Run(Stopwatch& watch, Load load) const {
    Digest digest;
    for (const Criterion& criterion : criteria_) {
      watch.Start();
      const auto events = load(criterion);
      watch.Stop();
      digest.Add(DigestOfAll(*events));
    }
    return digest.value();
  }

  Ref<CSession> session_;
  HandDatabase db_;
  HandReader reader_;
  std::vector<Criterion> criteria_;
};

}  // namespace

void RegisterCriteria(World& world) {
  Register({.name = "a criterion of a new shape, of 1000",
            .target = 2.0,
            .operations = 1000,
            .rounds = world.Rounds(20),
            .make = [&](int operations) { return std::make_unique<CriteriaContest>(world, operations); }});
}

}  // namespace zef::bench
