#include <malloc.h>

#include <stdexcept>

#include "addressbook/contact.h"
#include "bench/benchmarks.h"
#include "bench/by_hand.h"
#include "bench/by_hand_contact.h"
#include "bench/contact_texts.h"
#include "bench/contest.h"
#include "calendar/event.h"
#include "session/collections.h"

namespace zef::bench {
namespace {

std::size_t HeapInUse() {
  const struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

constexpr std::int32_t kRows = World::kFewEvents;
static_assert(kRows == World::kFewContacts);

/// What a text takes on the heap by itself; a short one lies within its record.
std::size_t TextBytes(const std::string& text) { return text.size() > std::string().capacity() ? text.size() : 0; }

std::size_t TextBytes(const CEvent& event) {
  const CNotification& n = *event.Notification;
  std::size_t bytes = 0;
  for (const auto* text : {&event.Text, &event.Location, &event.EType}) bytes += TextBytes(text->get());
  for (const auto* text : {&n.Subject, &n.Message, &n.Email, &n.CC, &n.BCC}) bytes += TextBytes(text->get());
  return bytes;
}

std::size_t TextBytes(const HandEvent& event) {
  const HandNotification& n = *event.notification;
  std::size_t bytes = 0;
  for (const auto* text : {&event.text, &event.location, &event.type}) bytes += TextBytes(*text);
  for (const auto* text : {&n.subject, &n.message, &n.email, &n.cc, &n.bcc}) bytes += TextBytes(*text);
  return bytes;
}

std::size_t TextBytes(const CContact& contact) {
  std::size_t bytes = 0;
  for (const auto text : kContactTexts) bytes += TextBytes((contact.*text).get());
  return bytes;
}

std::size_t TextBytes(const HandContact& contact) {
  std::size_t bytes = 0;
  for (const std::string& text : contact.texts) bytes += TextBytes(text);
  return bytes;
}

/// Heap bytes of a record, its children and its place in the list, without the bytes of its texts. A first load fills
/// the engine's own memory.
template <class Load>
double BytesBesideTexts(Load load) {
  load();
  const std::size_t before = HeapInUse();
  const auto records = load();
  const std::size_t held = HeapInUse() - before;
  std::size_t texts = 0;
  std::size_t count = 0;
  for (const auto& record : *records) {
    texts += TextBytes(*record);
    ++count;
  }
  if (count != kRows) throw std::runtime_error("a load did not give the rows that there are");
  return static_cast<double>(held - texts) / static_cast<double>(count);
}

Amounts MeasureEvents(World& world) {
  const Ref<CSession> session = OpenSession(world.Small());
  const HandDatabase db(world.Small());
  const HandReader reader(db);
  Amounts amounts;
  amounts.ours = BytesBesideTexts([&] {
    auto events = MakeRef<CEvents>();
    session->LoadEventsWithCriteria(events, "");
    return events;
  });
  amounts.by_hand = BytesBesideTexts([&] { return std::make_unique<HandEvents>(reader.LoadEvents(0)); });
  return amounts;
}

Amounts MeasureContacts(World& world) {
  const Ref<CSession> session = OpenSession(world.SmallAddressBook());
  const HandDatabase db(world.SmallAddressBook());
  const HandContactReader reader(db);
  Amounts amounts;
  amounts.ours = BytesBesideTexts([&] {
    auto contacts = MakeRef<CContacts>();
    session->LoadContactsWithCriteria(contacts, "");
    return contacts;
  });
  amounts.by_hand = BytesBesideTexts([&] { return std::make_unique<HandContacts>(reader.Load(0)); });
  return amounts;
}

}  // namespace

void RegisterMemory(World& world) {
  RegisterAmounts("memory of a loaded event with two children, no texts", 1024, [&] { return MeasureEvents(world); });
  RegisterAmounts("memory of a loaded contact, no texts", 2048, [&] { return MeasureContacts(world); });
}

}  // namespace zef::bench
