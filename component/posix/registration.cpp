#include "component/registration.h"

#include <fmt/format.h>
#include <filesystem>
#include <string>
#include <string_view>

#include "component/client/posix/registry.h"
#include "component/identifiers.h"
#include "component/invocation.h"
#include "component/posix/library_path.h"
#include "platform/file.h"
#include "platform/run_time_error.h"

namespace zef::component {
namespace {

constexpr char kVersion[] = "9.2";

/// False if the loader would look for another path, since it replaces these words.
bool IsLoadable(std::string_view path) {
  for (const char* word : {"ORIGIN", "LIB", "PLATFORM"}) {
    for (const char* before : {"$", "${"}) {
      if (path.find(std::string(before) + word) != std::string_view::npos) return false;
    }
  }
  return true;
}

/// Raises if there is none that an entry, which is made of lines, can name for a client to load.
std::string NameableLibraryPath() {
  std::string path = LibraryPath();
  if (path.empty()) throw RunTimeError(FailureNumber::FileNotFound);
  const bool is_one_line = path.find_first_of("\r\n") == std::string::npos;
  if (!is_one_line || !IsLoadable(path)) throw RunTimeError(FailureNumber::InvalidCall);
  return path;
}

std::string ProgrammaticName(const Class& described) { return fmt::format("{}.{}", kLibraryName, described.name); }

std::string Identification(const Class& described) {
  return fmt::format("CLSID={}\n", IdentifierText(ClassIdentifier(described)));
}

std::string Entry(const Class& described, const std::string& library) {
  return fmt::format("{}InprocServer32={}\nThreadingModel=Apartment\nProgID={}\nTypeLib={}\nVersion={}\n",
                     Identification(described), library, ProgrammaticName(described), IdentifierText(kTypeLibrary),
                     kVersion);
}

/// True if there is an entry of the class. What can be none is a failure, and however long it is, its head is enough.
bool IsEntryOf(const Class& described, const std::string& path) {
  if (!PathExists(path)) return false;
  const std::string head = Identification(described);
  std::string text(head.size(), '\0');
  InputFile file(path);
  text.resize(file.Read(std::as_writable_bytes(std::span(text))));
  return text == head;
}

void RemoveEntry(const Class& described, const std::filesystem::path& path) {
  if (!IsEntryOf(described, path)) return;
  RemoveFile(path);
}

template <class Step>
HRESULT Attempt(Step&& step) noexcept {
  try {
    step();
    return S_OK;
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return FailureCode(FailureAtHand().number());
  }
}

/// Takes the step for each class; one that fails does not keep the others from theirs.
template <class Step>
HRESULT ForEachEntry(std::span<const Class* const> classes, Step&& step) noexcept {
  HRESULT result = S_OK;
  for (const Class* described : classes) {
    const HRESULT outcome = Attempt([&] {
      const std::filesystem::path folder = ComponentsFolder();
      if (folder.empty()) throw RunTimeError(FailureNumber::PathNotFound);
      step(*described, folder / ProgrammaticName(*described));
    });
    if (SUCCEEDED(result)) result = outcome;
  }
  return result;
}

}  // namespace

HRESULT Register(std::span<const Class* const> classes) noexcept {
  return ForEachEntry(classes,
                      [library = std::string()](const Class& described, const std::filesystem::path& path) mutable {
                        if (library.empty()) library = NameableLibraryPath();
                        MakeFolder(path.parent_path());
                        const std::string entry = Entry(described, library);
                        WriteWholeFile(path, std::as_bytes(std::span(entry)));
                      });
}

HRESULT Unregister(std::span<const Class* const> classes) noexcept { return ForEachEntry(classes, RemoveEntry); }

}  // namespace zef::component
