#include "tests/support/random/objects.h"

#include <stdexcept>

#include "component/identifiers.h"

namespace zef::test {
namespace {

using component::Class;

constexpr std::size_t kMost = 64;

/// The class of an object of the library, or null.
const Class* ClassOf(const Object& object) {
  for (const auto& list : {component::PublicClasses(), component::ReachedClasses()}) {
    for (const Class* described : list) {
      void* same = nullptr;
      if (object->QueryInterface(component::InterfaceOf(*described), &same) != S_OK) continue;
      static_cast<IUnknown*>(same)->Release();
      return described;
    }
  }
  return nullptr;
}

}  // namespace

Object CreateObject(GetClassObjectFunction* get_class_object, const Class& described) {
  void* made = nullptr;
  if (get_class_object(component::ClassIdentifier(described), IID_IClassFactory, &made) != S_OK) {
    throw std::logic_error("a class without a factory");
  }
  auto* const factory = static_cast<IClassFactory*>(made);
  const HRESULT result = factory->CreateInstance(nullptr, IID_IDispatch, &made);
  factory->Release();
  if (result != S_OK) throw std::logic_error("a class without objects");
  return Object(static_cast<IDispatch*>(made));
}

RandomObjects::RandomObjects(GetClassObjectFunction* get_class_object, Choices& choices)
    : get_class_object_(get_class_object), choices_(choices) {
  known_.reserve(kMost);
  for (const Class* described : component::PublicClasses()) {
    known_.push_back({CreateObject(get_class_object, *described), described});
  }
}

void RandomObjects::Connect(const std::string& connection_string) {
  const Object session = known_.front().object;
  if (!session.Call("Connect2DatabaseCS", connection_string).value.truth()) throw std::logic_error("no connection");
  for (const Known& known : known_) known.object.Put("Session", session);
  const Object connection = session.Get("conDBConnection").value.object();
  const Object rows = connection.Call("Execute", "SELECT * FROM Folders").value.object();
  for (const Object& reached : {connection, rows, rows.Get("Fields").value.object()}) Take(reached);
}

bool RandomObjects::Take(const Object& object) {
  const Class* const described = ClassOf(object);
  if (described == nullptr) return false;
  if (known_.size() < kMost) {
    known_.push_back({object, described});
  } else {
    const std::size_t first_result = component::PublicClasses().size();
    known_[first_result + choices_.Below(kMost - first_result)] = {object, described};
  }
  return true;
}

void RandomObjects::Drop() {
  const std::size_t place = choices_.Below(known_.size());
  if (place < component::PublicClasses().size()) {
    known_[place].object = CreateObject(get_class_object_, *known_[place].described);
  } else {
    known_.erase(known_.begin() + static_cast<std::ptrdiff_t>(place));
  }
}

const Object& RandomObjects::AnyOf(std::string_view class_name) {
  const std::size_t start = choices_.Below(known_.size());
  for (std::size_t i = 0; i < known_.size(); ++i) {
    const Known& known = known_[(start + i) % known_.size()];
    if (known.described->name == class_name) return known.object;
  }
  return known_[start].object;
}

}  // namespace zef::test
