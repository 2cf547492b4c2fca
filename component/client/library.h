#pragma once

#include <dlfcn.h>

#include <fstream>
#include <string>
#include <string_view>

#include "ZEFComponents/automation.h"
#include "ZEFComponents/carried.h"
#include "ZEFComponents/failure.h"
#include "ZEFComponents/registry.h"

/// Finding and loading the library.
namespace zef {
inline namespace automation {

/// A loaded library of components. It stays loaded.
class Library {
 public:
  /// Raises 53 with the system's own reason if the file cannot be loaded or is no library of components.
  explicit Library(const std::string& path) {
    void* const handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (handle == nullptr) throw Failure(kFileNotFound, std::string("The library cannot be loaded: ") + dlerror());
    get_class_object_ = reinterpret_cast<GetClassObjectFunction*>(dlsym(handle, "DllGetClassObject"));
    if (get_class_object_ != nullptr) return;
    dlclose(handle);
    throw Failure(kFileNotFound, path + " is no library of components.");
  }

  /// A new object of a class, as its automation interface with a reference.
  IDispatch* Create(REFCLSID identifier) const {
    void* made = nullptr;
    HRESULT outcome = get_class_object_(identifier, IID_IClassFactory, &made);
    if (SUCCEEDED(outcome)) {
      auto* const factory = static_cast<IClassFactory*>(made);
      outcome = factory->CreateInstance(nullptr, IID_IDispatch, &made);
      factory->Release();
    }
    if (FAILED(outcome)) Raise(outcome);
    return static_cast<IDispatch*>(made);
  }
  template <class C>
  C Create() const {
    return C(Create(C::kClassIdentifier));
  }

 private:
  GetClassObjectFunction* get_class_object_;
};

/// Where a class is registered; empty without a folder of components.
inline std::string EntryPath(std::string_view name) {
  const std::string folder = ComponentsFolder();
  return folder.empty() ? folder : folder + "/" + std::string(name);
}

/// The path of the library that a class is registered for. Raises 429 if it is not registered.
inline std::string RegisteredLibrary(std::string_view name) {
  std::ifstream entry(EntryPath(name));
  constexpr std::string_view kKey = "InprocServer32=";
  for (std::string line; std::getline(entry, line);) {
    if (line.starts_with(kKey) && line[kKey.size()] == '/') return line.substr(kKey.size());
  }
  throw Failure(kCannotCreateObject,
                std::string(name) + " is not registered; register its library first, as in \"zef register\".");
}

/// Loads the library that a class is registered for. Raises 429 if it is not registered; 53, with the paths of the
/// entry and of the library, if that is gone or cannot be loaded.
inline Library LoadRegistered(std::string_view name) {
  const std::string path = RegisteredLibrary(name);
  try {
    return Library(path);
  } catch (const Failure& failure) {
    throw Failure(failure.number(), "The entry " + EntryPath(name) + " names the library " + path +
                                        ", which cannot be used; register it from where it is now. " + failure.what());
  }
}

/// A new object of a registered class, as in `CreateObject<CSession>()`. The registry is read at the first object of
/// each class. Raises 429 if the class is not registered, 53 if its library is gone or cannot be loaded.
template <class C>
C CreateObject() {
  static const Library library = LoadRegistered(C::kProgrammaticName);
  return library.Create<C>();
}

}  // namespace automation
}  // namespace zef
