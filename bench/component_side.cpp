#include "bench/component_side.h"

#include <ZEFComponents.hpp>
#include <stdexcept>

namespace zef::bench {
namespace {

CSession Connected(const Library& library, const std::string& database) {
  auto session = library.Create<CSession>();
  if (!session.Connect2Database(database, "", "")) throw std::runtime_error("the component did not connect");
  return session;
}

}  // namespace

struct ComponentSide::Objects {
  explicit Objects(const std::string& database) : session(Connected(library, database)) {}

  Library library{ZEF_LIBRARY};
  CSession session;
  CContact contact = session.GetContact(1);
};

ComponentSide::ComponentSide(const std::string& database) : objects_(std::make_unique<Objects>(database)) {}
ComponentSide::~ComponentSide() = default;

std::uint64_t ComponentSide::ReadNumber(int times) const {
  std::uint64_t sum = 0;
  for (int i = 0; i < times; ++i) sum += static_cast<std::uint64_t>(objects_->contact.FolderID.get());
  return sum;
}

std::uint64_t ComponentSide::ReadText(int times) const {
  std::uint64_t sum = 0;
  for (int i = 0; i < times; ++i) sum += objects_->contact.LastName.get().size();
  return sum;
}

std::uint64_t ComponentSide::LoadAndRead() const {
  const auto contacts = objects_->library.Create<CContacts>();
  objects_->session.LoadContactsWithCriteria(contacts, "");
  std::uint64_t sum = 0;
  for (auto contact : contacts) sum += static_cast<std::uint64_t>(contact.ID.get());
  return sum;
}

std::uint64_t ComponentSide::LoadAndReadByName() const {
  const Object contacts(objects_->library.Create<CContacts>());
  Object(objects_->session).Call("LoadContactsWithCriteria", contacts, "");
  std::uint64_t sum = 0;
  for (const Object& contact : contacts) sum += static_cast<std::uint64_t>(contact.Get<std::int32_t>("ID"));
  return sum;
}

}  // namespace zef::bench
