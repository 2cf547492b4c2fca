#include "client/registry.h"

#include <ZEFComponents/library.h>
#include <dlfcn.h>
#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <iterator>

#include "client/failure.h"
#include "client/library.h"

namespace zef::client {
namespace {

namespace fs = std::filesystem;

constexpr char kPrefix[] = "ZEFComponents.";

/// The names of the entries that there are.
std::vector<std::string> Entries(const fs::path& folder) {
  std::vector<std::string> names;
  std::error_code missing;
  for (const auto& entry : fs::directory_iterator(folder, missing)) {
    std::string name = entry.path().filename().string();
    if (name.starts_with(kPrefix)) names.push_back(std::move(name));
  }
  std::sort(names.begin(), names.end());
  return names;
}

/// Calls one of the library's functions.
HRESULT CallLibrary(const std::string& library, const char* function) {
  void* const handle = dlopen(library.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (handle == nullptr) {
    throw Failure(kRefused, fmt::format("The library cannot be loaded: {}", dlerror()));
  }
  auto* const call = reinterpret_cast<LibraryFunction*>(dlsym(handle, function));
  const bool known = call != nullptr && dlsym(handle, "DllGetClassObject") != nullptr;
  const HRESULT result = known ? call() : S_OK;
  dlclose(handle);
  if (!known) throw Failure(kRefused, fmt::format("'{}' is no library of components.", library));
  return result;
}

fs::path RegistryFolder() {
  const fs::path folder = ComponentsFolder();
  if (folder.empty()) throw Failure(kRefused, "HOME names no folder for the entries.");
  return folder;
}

/// The path that the entries name.
std::string AbsoluteLibraryFile() {
  const std::string library = LibraryFile();
  std::error_code missing;
  const fs::path path = fs::canonical(library, missing);
  if (missing) throw Failure(kRefused, fmt::format("There is no library '{}'.", library));
  return path.string();
}

bool Names(const std::string& entry, const std::string& library) {
  try {
    return RegisteredLibrary(entry) == library;
  } catch (const zef::Failure&) {
    return false;
  }
}

}  // namespace

RegistryChange EnterClasses() {
  const std::string library = AbsoluteLibraryFile();
  RegistryChange change{library, RegistryFolder().string(), {}};
  if (FAILED(CallLibrary(library, "DllRegisterServer"))) {
    throw Failure(kRefused, fmt::format("The entries cannot be written to '{}'.", change.folder));
  }
  const std::vector<std::string> names = Entries(change.folder);
  std::copy_if(names.begin(), names.end(), std::back_inserter(change.classes),
               [&](const std::string& name) { return Names(name, library); });
  return change;
}

RegistryChange RemoveClasses() {
  const std::string library = AbsoluteLibraryFile();
  RegistryChange change{library, RegistryFolder().string(), {}};
  const std::vector<std::string> before = Entries(change.folder);
  if (FAILED(CallLibrary(library, "DllUnregisterServer"))) {
    throw Failure(kRefused, fmt::format("The entries cannot be removed from '{}'.", change.folder));
  }
  const std::vector<std::string> after = Entries(change.folder);
  std::set_difference(before.begin(), before.end(), after.begin(), after.end(), std::back_inserter(change.classes));
  return change;
}

}  // namespace zef::client
