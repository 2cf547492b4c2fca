#include "client/registry.h"

#include <fmt/format.h>

#include <ZEFComponents.hpp>
#include <algorithm>
#include <filesystem>
#include <iterator>

#include "client/entries.h"
#include "client/failure.h"
#include "client/library.h"

namespace zef::client {
namespace {

namespace fs = std::filesystem;

/// Calls one of the library's functions.
HRESULT CallLibrary(const std::string& library, const char* function) {
  const Module loaded = LoadModule(library);
  if (loaded == nullptr) {
    throw Failure(kRefused, fmt::format("The library cannot be loaded: {}", ModuleFailure()));
  }
  auto* const call = FunctionIn<LibraryFunction>(loaded, function);
  const bool known = call != nullptr && FunctionIn<GetClassObjectFunction>(loaded, "DllGetClassObject") != nullptr;
  const HRESULT result = known ? call() : S_OK;
  UnloadModule(loaded);
  if (!known) throw Failure(kRefused, fmt::format("'{}' is no library of components.", library));
  return result;
}

/// Without links.
std::string LibraryPath() { return fs::canonical(LibraryFile()).string(); }

bool Names(const std::string& entry, const std::string& library) {
  try {
    return RegisteredLibrary(entry) == library;
  } catch (const zef::Failure&) {
    return false;
  }
}

/// The entries that are to be told, by name and in order.
template <class Keep>
std::vector<std::string> EntriesThat(Keep&& keep) {
  std::vector<std::string> names;
  std::copy_if(std::begin(kCreatableClasses), std::end(kCreatableClasses), std::back_inserter(names), keep);
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace

RegistryChange EnterClasses() {
  const std::string library = LibraryPath();
  RequireNameable(library);
  RegistryChange change{library, EntriesPlace(), {}};
  if (FAILED(CallLibrary(library, "DllRegisterServer"))) TellObstacle("written");
  change.classes = EntriesThat([&](const std::string& name) { return Names(name, library); });
  return change;
}

RegistryChange RemoveClasses() {
  const std::string library = LibraryPath();
  RegistryChange change{library, EntriesPlace(), {}};
  const std::vector<std::string> before = EntriesThat(IsEntered);
  if (FAILED(CallLibrary(library, "DllUnregisterServer"))) TellObstacle("removed");
  const std::vector<std::string> after = EntriesThat(IsEntered);
  std::set_difference(before.begin(), before.end(), after.begin(), after.end(), std::back_inserter(change.classes));
  return change;
}

}  // namespace zef::client
