#include "tests/component/library.h"

#include <dlfcn.h>

#include <algorithm>
#include <stdexcept>

#include "component/classes.h"
#include "component/identifiers.h"

namespace zef::test {

CLSID IdentifierOf(std::string_view class_name) {
  const auto classes = component::PublicClasses();
  const auto found = std::ranges::find(classes, class_name, &component::Class::name);
  if (found == classes.end()) throw std::invalid_argument("no such class");
  return component::ClassIdentifier(**found);
}

std::string LibraryPath() { return ZEF_LIBRARY; }

Library::Library(const std::string& path) : handle_(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL)) {
  if (handle_ == nullptr) throw std::runtime_error(dlerror());
}

Library::~Library() { dlclose(handle_); }

const Library& Library::Shared() {
  static const Library library(LibraryPath());
  return library;
}

template <class Function>
Function* Library::Find(const char* name) const {
  return reinterpret_cast<Function*>(dlsym(handle_, name));
}

GetClassObjectFunction* Library::ClassObjects() const { return Find<GetClassObjectFunction>("DllGetClassObject"); }
HRESULT Library::GetClassObject(REFCLSID identifier, REFIID riid, void** object) const {
  return ClassObjects()(identifier, riid, object);
}
HRESULT Library::CanUnloadNow() const { return Find<LibraryFunction>("DllCanUnloadNow")(); }
HRESULT Library::RegisterServer() const { return Find<LibraryFunction>("DllRegisterServer")(); }
HRESULT Library::UnregisterServer() const { return Find<LibraryFunction>("DllUnregisterServer")(); }

IClassFactory* Library::Factory(std::string_view class_name) const {
  void* factory = nullptr;
  EXPECT_EQ(GetClassObject(IdentifierOf(class_name), IID_IClassFactory, &factory), S_OK);
  return static_cast<IClassFactory*>(factory);
}

Object Library::Create(std::string_view class_name) const {
  IClassFactory* const factory = Factory(class_name);
  void* object = nullptr;
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IDispatch, &object), S_OK);
  factory->Release();
  return Object(static_cast<IDispatch*>(object));
}

Object ConnectedTest::Saved(std::string_view create, std::string_view property, std::string_view text) const {
  const Object record = session.Call(create).value.object();
  EXPECT_EQ(record.Put(property, text).result, S_OK);
  EXPECT_TRUE(record.Call("Save").value.truth());
  return record;
}

Object ConnectedTest::Loaded(std::string_view class_name, std::string_view load) const {
  Object collection = Create(class_name);
  EXPECT_TRUE(session.Call(load, collection, "").value.truth());
  return collection;
}

}  // namespace zef::test
