#pragma once

#include <filesystem>
#include <string>
#include <system_error>

#include "ZEFComponents/automation.h"
#include "ZEFComponents/failure.h"
#include "ZEFComponents/module.h"

/// Loading the library.
namespace zef {
inline namespace automation {

/// Loads a library, which the caller unloads. Raises 53 with the system's own reason if it cannot be loaded.
inline Module OpenLibrary(const std::string& path) {
  if (path.empty()) throw Failure(kFileNotFound, "No library is named.");  // else it would be the program itself
  std::error_code unknown;
  const std::filesystem::file_status status = std::filesystem::status(path, unknown);
  if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {  // a pipe would hold us up
    throw Failure(kFileNotFound, "The library cannot be loaded: " + path + " is no regular file");
  }
  const Module loaded = LoadModule(path);
  if (loaded == nullptr) throw Failure(kFileNotFound, "The library cannot be loaded: " + ModuleFailure());
  return loaded;
}

/// A loaded library of components. It stays loaded.
class Library {
 public:
  /// Raises 53 with the system's own reason if the file cannot be loaded or is no library of components.
  explicit Library(const std::string& path) {
    const Module loaded = OpenLibrary(path);
    get_class_object_ = FunctionIn<GetClassObjectFunction>(loaded, "DllGetClassObject");
    if (get_class_object_ != nullptr) return;
    UnloadModule(loaded);
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

}  // namespace automation
}  // namespace zef
