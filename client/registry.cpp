#include "client/registry.h"

#include <fmt/format.h>

#include <ZEFComponents.hpp>
#include <algorithm>
#include <cstdint>
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
  const Module loaded = OpenLibrary(library);
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

/// Why a step of the library failed, by the number in its result.
struct Reason {
  std::uint32_t number;
  const char* sentence;
};
constexpr Reason kReasons[] = {
    {53, "The file of the library is gone"},
    {61, "The disk is full"},
    {70, "Permission denied"},
    {75, "It is no regular file, or the system refuses it"},
    {76, "There can be no such folder"},
};
constexpr std::uint32_t kUnnameable = 5;

std::string ReasonOf(HRESULT result) {
  const auto bits = static_cast<std::uint32_t>(result);
  for (const Reason& reason : kReasons) {
    if (bits == 0x800A0000 + reason.number) return reason.sentence;
  }
  return fmt::format("The library failed with result {:08X}", bits);
}

/// Tells what the library failed at. `undone` are the classes whose entries are not as they should be.
[[noreturn]] void TellUndone(const char* what, HRESULT result, const std::vector<std::string>& undone) {
  const std::string entries = undone.size() == 1 ? fmt::format("entry '{}'", EntryPath(undone.front()))
                                                 : fmt::format("entries in '{}'", EntriesPlace());
  throw Failure(kRefused, fmt::format("The {} cannot be {}: {}.", entries, what, ReasonOf(result)));
}

[[noreturn]] void TellUnnameable(const std::string& library) {
  throw Failure(kRefused, fmt::format("No entry can hold the path of the library, since it has a line break or a word "
                                      "that the system replaces: '{}'.",
                                      library));
}

}  // namespace

RegistryChange EnterClasses() {
  const std::string library = LibraryPath();
  RegistryChange change{library, EntriesPlace(), {}};
  const HRESULT result = CallLibrary(library, "DllRegisterServer");
  if (result == static_cast<HRESULT>(0x800A0000 + kUnnameable)) TellUnnameable(library);
  if (FAILED(result)) {
    TellUndone("written", result, EntriesThat([&](const std::string& name) { return !Names(name, library); }));
  }
  change.classes = EntriesThat([&](const std::string& name) { return Names(name, library); });
  return change;
}

RegistryChange RemoveClasses() {
  const std::string library = LibraryPath();
  RegistryChange change{library, EntriesPlace(), {}};
  const std::vector<std::string> before = EntriesThat(IsEntered);
  const HRESULT result = CallLibrary(library, "DllUnregisterServer");
  if (FAILED(result)) TellUndone("removed", result, EntriesThat(IsEntered));
  const std::vector<std::string> after = EntriesThat(IsEntered);
  std::set_difference(before.begin(), before.end(), after.begin(), after.end(), std::back_inserter(change.classes));
  return change;
}

}  // namespace zef::client
