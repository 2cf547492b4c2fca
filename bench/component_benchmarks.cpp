#include <benchmark/benchmark.h>

#include <cstdio>
#include <stdexcept>

#include "addressbook/contact.h"
#include "bench/benchmarks.h"
#include "bench/component_side.h"
#include "bench/contest.h"
#include "session/collections.h"

namespace zef::bench {
namespace {

/// The component in the place of the library, the same in plain C++ in the place of the work by hand.
class ComponentContest : public Contest {
 protected:
  explicit ComponentContest(const std::string& database) : outside_(database), session_(OpenSession(database)) {}

  /// Runs a piece of work between `Start` and `Stop`; what it delivered.
  template <class Work>
  static std::uint64_t Timed(Stopwatch& watch, Work&& work) {
    watch.Start();
    const std::uint64_t sum = work();
    watch.Stop();
    return sum;
  }

  ComponentSide outside_;
  Ref<CSession> session_;
};

/// Reads one property of a contact many times. A property names its reading outside and adds up one reading inside.
template <class Property>
class ReadContest final : public ComponentContest {
 public:
  ReadContest(World& world, int reads) : ComponentContest(world.Reading()), reads_(reads) {}

  std::uint64_t Ours(int /*round*/, Stopwatch& watch) override {
    return Timed(watch, [&] { return (outside_.*Property::kOutside)(reads_); });
  }
  std::uint64_t ByHand(int /*round*/, Stopwatch& watch) override {
    return Timed(watch, [&] {
      std::uint64_t sum = 0;
      for (int i = 0; i < reads_; ++i) {
        CContact* contact = contact_.get();
        benchmark::DoNotOptimize(contact);
        sum += Property::Read(*contact);
      }
      return sum;
    });
  }

 private:
  int reads_;
  Ref<CContact> contact_ = session_->GetContact(1);
};

struct NumberProperty {
  static constexpr auto kOutside = &ComponentSide::ReadNumber;
  static std::uint64_t Read(const CContact& contact) {
    const std::int32_t read = contact.FolderID;
    return static_cast<std::uint64_t>(read);
  }
};
struct TextProperty {
  static constexpr auto kOutside = &ComponentSide::ReadText;
  static std::uint64_t Read(const CContact& contact) {
    std::string read = contact.LastName;
    benchmark::DoNotOptimize(read);
    return read.size();
  }
};

/// Loads all contacts and reads one property of each, outside in one of two ways.
class LoadAndReadContest final : public ComponentContest {
 public:
  using Way = std::uint64_t (ComponentSide::*)() const;

  LoadAndReadContest(World& world, Way way) : ComponentContest(world.Reading()), way_(way) {}

  std::uint64_t Ours(int /*round*/, Stopwatch& watch) override {
    return Timed(watch, [&] { return (outside_.*way_)(); });
  }
  std::uint64_t ByHand(int /*round*/, Stopwatch& watch) override {
    return Timed(watch, [&] {
      const auto contacts = MakeRef<CContacts>();
      session_->LoadContactsWithCriteria(contacts, "");
      std::uint64_t sum = 0;
      for (std::int32_t i = 1; i <= contacts->Count(); ++i) {
        const std::int32_t id = contacts->ItemByIdx(i)->ID;
        sum += static_cast<std::uint64_t>(id);
      }
      return sum;
    });
  }

 private:
  Way way_;
};

/// Of a new process that loads the library against one that has it linked in.
class ComeAndGoContest final : public Contest {
 public:
  ComeAndGoContest(World& world, int times) : database_(world.Small()), times_(times) {}

  std::uint64_t Ours(int /*round*/, Stopwatch& watch) override {
    for (int i = 0; i < times_; ++i) watch.Add(SecondsOfOneClient());
    return 0;
  }
  std::uint64_t ByHand(int /*round*/, Stopwatch& watch) override {
    watch.Start();
    for (int i = 0; i < times_; ++i) OpenSession(database_)->DisconnectFromDatabase();
    watch.Stop();
    return 0;
  }

 private:
  double SecondsOfOneClient() const {
    std::FILE* const client = popen((ZEF_COME_AND_GO " '" + database_ + "'").c_str(), "r");
    double seconds = 0;
    const bool told = client != nullptr && std::fscanf(client, "%lf", &seconds) == 1;
    const bool ended = client != nullptr && pclose(client) == 0;
    if (!told || !ended) throw std::runtime_error("the client that comes and goes has failed");
    return seconds;
  }

  std::string database_;
  int times_;
};

template <class Property>
void RegisterReads(World& world, const char* name) {
  constexpr double kTarget = 12;
  Register(
      {.name = name, .target = kTarget, .operations = 100'000, .rounds = world.Rounds(20), .make = [&world](int reads) {
         return std::make_unique<ReadContest<Property>>(world, reads);
       }});
}

void RegisterLoads(World& world, const char* name, LoadAndReadContest::Way way) {
  constexpr double kTarget = 1.25;
  Register({.name = name,
            .target = kTarget,
            .operations = world.LoadedRows(),
            .rounds = world.Rounds(8),
            .make = [&world, way](int) { return std::make_unique<LoadAndReadContest>(world, way); }});
}

}  // namespace

void RegisterComponent(World& world) {
  RegisterReads<NumberProperty>(world, "Component: a number read, to plain C++");
  RegisterReads<TextProperty>(world, "Component: a text read, to plain C++");
  RegisterLoads(world, "Component: contacts loaded and read, to plain C++", &ComponentSide::LoadAndRead);
  RegisterLoads(world, "Component: the same by names", &ComponentSide::LoadAndReadByName);
  constexpr double kLongest = 0.005;
  Register({.name = "Component: loaded, connected and let go, to linked in",
            .longest = kLongest,
            .operations = 10,
            .rounds = world.Rounds(20),
            .make = [&world](int times) { return std::make_unique<ComeAndGoContest>(world, times); }});
}

}  // namespace zef::bench
