#include <fmt/format.h>

#include "addressbook/contact.h"
#include "bench/benchmarks.h"
#include "bench/contact_contests.h"
#include "bench/file_side.h"
#include "bench/reading_kinds.h"
#include "bench/test_data.h"

namespace zef::bench {
namespace {

struct LibraryPhones {
  explicit LibraryPhones(const std::string& path) : session(OpenSession(path)) {}
  std::int32_t Find(const std::string& number) const { return session->GetContactIDByPhoneNumber(number); }

  Ref<CSession> session;
};

struct HandPhones {
  explicit HandPhones(const std::string& path) : db(path), reader(db) {}
  std::int32_t Find(const std::string& number) const { return reader.FindPhone(number); }

  HandDatabase db;
  HandContactReader reader;
};

/// The same search in a large address book, in the place of the library, and in a small one, in the place of the work
/// by hand. The numbers are spread over all contacts.
template <class Phones>
class PhoneGrowth final : public Contest {
 public:
  PhoneGrowth(World& world, int searches)
      : large_(world.LargeAddressBook()),
        small_(world.SmallAddressBook()),
        many_(world.ManyContacts()),
        searches_(searches) {}

  std::uint64_t Ours(int round, Stopwatch& watch) override { return Run(large_, many_, round, watch); }
  std::uint64_t ByHand(int round, Stopwatch& watch) override { return Run(small_, World::kFewContacts, round, watch); }

 private:
  /// The number of contacts that were found under their own numbers.
  std::uint64_t Run(const Phones& phones, std::int32_t contacts, int round, Stopwatch& watch) const {
    const std::vector<std::int32_t> ids = Picks(round, searches_, 1, contacts);
    std::vector<std::string> numbers;
    for (const std::int32_t id : ids) numbers.push_back(MobilePhone(id));
    std::uint64_t found = 0;
    watch.Start();
    for (std::size_t i = 0; i < ids.size(); ++i) found += phones.Find(numbers[i]) == ids[i] ? 1 : 0;
    watch.Stop();
    return found;
  }

  Phones large_;
  Phones small_;
  std::int32_t many_;
  int searches_;
};

template <class Kind>
void RegisterSave(World& world, const std::string& name, double target) {
  Register({.name = name + ", in one transaction",
            .target = target,
            .operations = 100,
            .rounds = world.Rounds(100),
            .make = [&](int operations) { return std::make_unique<Kind>(world, operations); }});
}

template <class Phones>
void RegisterPhones(World& world, const std::string& name, double target) {
  Register({.name = name, .target = target, .operations = 400, .rounds = world.Rounds(100), .make = [&](int searches) {
              return std::make_unique<PhoneGrowth<Phones>>(world, searches);
            }});
}

}  // namespace

void RegisterContacts(World& world) {
  RegisterPicks<ContactReading<FileSide>>(world, "GetContact");
  RegisterLoad<ContactReading<FileSide>>(world, "LoadContactsWithCriteria, a row");
  RegisterLoad<TagReading<FileSide>>(world, "LoadContactTagsWithCriteria, a row");
  RegisterSave<ChangedContacts<FileSide>>(world, "Save of a changed contact", 2.0);
  RegisterSave<NewContacts<FileSide>>(world, "Save of a new contact with its identifier", 2.5);
  const std::string sizes = fmt::format("{} contacts against {}", world.ManyContacts(), World::kFewContacts);
  RegisterPhones<LibraryPhones>(world, "Phone number, " + sizes, 2.0);
  RegisterPhones<HandPhones>(world, "  both by hand, phone number", 0);
}

}  // namespace zef::bench
