#pragma once

#include <dlfcn.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

#include "ZEFComponents/automation.h"
#include "ZEFComponents/carried.h"
#include "ZEFComponents/entry.h"
#include "ZEFComponents/failure.h"

/// Loading the library, and creating objects.
namespace zef {
inline namespace automation {

/// Loads a library, whose handle the caller closes. Raises 53 with the system's own reason if it cannot be loaded.
inline void* OpenLibrary(const std::string& path) {
  if (path.empty()) throw Failure(kFileNotFound, "No library is named.");  // else it would be the program itself
  std::error_code unknown;
  const std::filesystem::file_status status = std::filesystem::status(path, unknown);
  if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {  // a pipe would hold us up
    throw Failure(kFileNotFound, "The library cannot be loaded: " + path + " is no regular file");
  }
  void* const handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (handle == nullptr) throw Failure(kFileNotFound, std::string("The library cannot be loaded: ") + dlerror());
  return handle;
}

/// A loaded library of components. It stays loaded.
class Library {
 public:
  /// Raises 53 with the system's own reason if the file cannot be loaded or is no library of components.
  explicit Library(const std::string& path) {
    void* const handle = OpenLibrary(path);
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
