#include "bench/component_side.h"

#include <dlfcn.h>

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

void ComeAndGo(const std::string& database) {
  void* const handle = dlopen(ZEF_LIBRARY, RTLD_NOW | RTLD_LOCAL);
  if (handle == nullptr) throw std::runtime_error(dlerror());
  {
    auto* const get = reinterpret_cast<GetClassObjectFunction*>(dlsym(handle, "DllGetClassObject"));
    void* factory = nullptr;
    void* session = nullptr;
    get(CSession::kClassIdentifier, IID_IClassFactory, &factory);
    static_cast<IClassFactory*>(factory)->CreateInstance(nullptr, IID_IDispatch, &session);
    static_cast<IClassFactory*>(factory)->Release();
    const CSession owned(static_cast<IDispatch*>(session));
    owned.Connect2Database(database, "", "");
    owned.DisconnectFromDatabase();
  }
  dlclose(handle);
}

}  // namespace zef::bench
