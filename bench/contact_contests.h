#pragma once

#include <fmt/format.h>

#include <memory>
#include <string>
#include <vector>

#include "addressbook/contact.h"
#include "bench/by_hand_contact.h"
#include "bench/digest.h"
#include "bench/writing_contest.h"

/// Saves of contacts, on either engine: `Side` names the work by hand.
namespace zef::bench {

/// Saves contacts in a running transaction and compares what was written.
template <class Side>
class ContactSaving : public Contest {
 public:
  ContactSaving(World& world, int operations)
      : writers_(world), reader_(writers_.onlooker), writer_(writers_.db), operations_(operations) {}

 protected:
  static std::string City(int round, int pass, int i) { return fmt::format("City {} of {}", i, 2 * round + pass); }

  Writers<Side> writers_;
  typename Side::ContactReader reader_;
  typename Side::ContactWriter writer_;
  int operations_;
};

/// Gives loaded contacts another city. The contacts of the two sides lie side by side.
template <class Side>
class ChangedContacts final : public ContactSaving<Side> {
 public:
  ChangedContacts(World& world, int operations) : ContactSaving<Side>(world, operations) {
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
  using Base = ContactSaving<Side>;
  using Base::City, Base::operations_, Base::reader_, Base::writer_, Base::writers_;

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
template <class Side>
class NewContacts final : public ContactSaving<Side> {
 public:
  using ContactSaving<Side>::ContactSaving;

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
  using Base = ContactSaving<Side>;
  using Base::City, Base::operations_, Base::reader_, Base::writer_, Base::writers_;

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

}  // namespace zef::bench
