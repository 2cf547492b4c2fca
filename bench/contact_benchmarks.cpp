#include <fmt/format.h>

#include "addressbook/contact.h"
#include "bench/benchmarks.h"
#include "bench/by_hand_contact.h"
#include "bench/reading_contest.h"
#include "bench/test_data.h"
#include "bench/writing_contest.h"

namespace zef::bench {
namespace {

struct ContactReading {
  using Records = CContacts;
  using Reader = HandContactReader;
  static constexpr std::int32_t kFirst = 1;

  static auto Get(CSession& session, std::int32_t id) { return session.GetContact(id); }
  static auto Get(const HandContactReader& reader, std::int32_t id) { return reader.Get(id); }
  static bool Load(CSession& session, const Ref<CContacts>& contacts) {
    return session.LoadContactsWithCriteria(contacts, "CNT_ID>=1");
  }
  static auto Load(const HandContactReader& reader) { return reader.Load(1); }
};

struct TagReading {
  using Records = CTags;
  using Reader = HandContactReader;

  static bool Load(CSession& session, const Ref<CTags>& tags) {
    return session.LoadContactTagsWithCriteria(tags, "CNT_ID>=1");
  }
  static auto Load(const HandContactReader& reader) { return reader.LoadTags(1); }
};

/// Saves contacts in a running transaction and compares what was written.
class ContactSaving : public Contest {
 public:
  ContactSaving(World& world, int operations)
      : writers_(world), reader_(writers_.onlooker), writer_(writers_.db), operations_(operations) {}

 protected:
  static std::string City(int round, int pass, int i) { return fmt::format("City {} of {}", i, 2 * round + pass); }

  Writers writers_;
  HandContactReader reader_;
  HandContactWriter writer_;
  int operations_;
};

/// Gives loaded contacts another city. The contacts of the two sides lie side by side.
class ChangedContacts final : public ContactSaving {
 public:
  ChangedContacts(World& world, int operations) : ContactSaving(world, operations) {
    for (int i = 0; i < operations; ++i) {
      ours_.push_back(writers_.session->GetContact(2 * i + 1));
      by_hand_.push_back(reader_.Get(2 * i + 2));
    }
  }

  std::uint64_t Ours(int round, Stopwatch& watch) override {
    TimeOurs(writers_, Transaction::Clients, operations_, watch, [&](int i, int pass) {
      CContact& contact = *ours_[static_cast<std::size_t>(i)];
      contact.City = City(round, pass, i);
      Require(contact.Save());
    });
    return Written(1);
  }

  std::uint64_t ByHand(int round, Stopwatch& watch) override {
    TimeByHand(writers_, Transaction::Clients, operations_, watch, [&](int i, int pass) {
      HandContact& contact = *by_hand_[static_cast<std::size_t>(i)];
      contact.texts[kCity] = City(round, pass, i);
      writer_.Update(contact);
    });
    return Written(2);
  }

 private:
  static constexpr std::size_t kCity = 6;

  std::uint64_t Written(int first) const {
    Digest digest;
    for (int i = 0; i < operations_; ++i) digest.Add(std::string_view(reader_.Get(2 * i + first)->texts[kCity]));
    return digest.value();
  }

  std::vector<Ref<CContact>> ours_;
  HandContacts by_hand_;
};

/// Makes contacts, from drawing the identifier on.
class NewContacts final : public ContactSaving {
 public:
  using ContactSaving::ContactSaving;

  std::uint64_t Ours(int round, Stopwatch& watch) override {
    std::int32_t last = 0;
    TimeOurs(writers_, Transaction::Clients, operations_, watch, [&](int i, int pass) {
      const Ref<CContact> contact = writers_.session->CreateContact();
      contact->FolderID = 2;
      contact->FirstName = "Ann";
      contact->LastName = "Lee of the Valley";
      contact->City = City(round, pass, i);
      contact->Phone = "555-70000001";
      contact->MobilePhone = "555-70000002";
      contact->Email = "ann.lee@example.org";
      contact->Company = "Lee and Daughters";
      contact->Notes = kNotes;
      Require(contact->Save());
      last = contact->ID;
    });
    return Written(last);
  }

  std::uint64_t ByHand(int round, Stopwatch& watch) override {
    std::int32_t last = 0;
    TimeByHand(writers_, Transaction::Clients, operations_, watch, [&](int i, int pass) {
      HandContact contact;
      contact.id = last = writers_.writer.Draw(kContactSequence);
      contact.folder_id = 2;
      contact.texts[0] = "Ann";
      contact.texts[1] = "Lee of the Valley";
      contact.texts[6] = City(round, pass, i);
      contact.texts[11] = "555-70000001";
      contact.texts[12] = "555-70000002";
      contact.texts[13] = "ann.lee@example.org";
      contact.texts[16] = "Lee and Daughters";
      contact.texts[33] = kNotes;
      writer_.Insert(contact);
    });
    return Written(last);
  }

 private:
  static constexpr std::int32_t kContactSequence = 1;
  static constexpr char kNotes[] = "Met at the fair of the year before the last.";

  /// The contacts that were made last, without their numbers and the moments of their saves.
  std::uint64_t Written(std::int32_t last) const {
    Digest digest;
    for (std::int32_t id = last - 2 * operations_ + 1; id <= last; ++id) {
      const std::unique_ptr<HandContact> contact = reader_.Get(id);
      contact->id = 0;
      contact->date_last_update = 0;
      digest.Add(DigestOf(*contact));
    }
    return digest.value();
  }
};

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
  RegisterPicks<ContactReading>(world, "GetContact");
  RegisterLoad<ContactReading>(world, "LoadContactsWithCriteria, a row");
  RegisterLoad<TagReading>(world, "LoadContactTagsWithCriteria, a row");
  RegisterSave<ChangedContacts>(world, "Save of a changed contact", 2.0);
  RegisterSave<NewContacts>(world, "Save of a new contact with its identifier", 2.5);
  const std::string sizes = fmt::format("{} contacts against {}", world.ManyContacts(), World::kFewContacts);
  RegisterPhones<LibraryPhones>(world, "Phone number, " + sizes, 2.0);
  RegisterPhones<HandPhones>(world, "  both by hand, phone number", 0);
}

}  // namespace zef::bench
