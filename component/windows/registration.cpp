#include "component/registration.h"

#include <fmt/format.h>

#include <array>
#include <new>
#include <string>

#include "component/identifiers.h"
#include "component/windows/this_library.h"
#include "platform/run_time_error.h"
#include "platform/windows/wide_text.h"

// The compiler's headers lack these two of the system.
extern "C" HRESULT WINAPI RegisterTypeLibForUser(ITypeLib* types, OLECHAR* path, OLECHAR* help_folder);
extern "C" HRESULT WINAPI UnRegisterTypeLibForUser(REFGUID types, WORD major, WORD minor, LCID locale, SYSKIND system);

namespace zef::component {
namespace {

constexpr char kClassesFolder[] = "Software\\Classes\\";
constexpr WORD kMajorVersion = 9;
constexpr WORD kMinorVersion = 2;

std::string ProgrammaticName(const Class& described) { return fmt::format("{}.{}", kLibraryName, described.name); }

/// The part of the registry that is for all users, or for this one, and how the type library goes there.
struct Part {
  HKEY key;
  HRESULT(WINAPI* enter_types)(ITypeLib*, OLECHAR*, OLECHAR*);
  HRESULT(WINAPI* remove_types)(REFGUID, WORD, WORD, LCID, SYSKIND);
};
Part ForAll() { return {HKEY_LOCAL_MACHINE, &RegisterTypeLib, &UnRegisterTypeLib}; }
Part ForUser() { return {HKEY_CURRENT_USER, &RegisterTypeLibForUser, &UnRegisterTypeLibForUser}; }

void Require(LSTATUS status) {
  if (status != ERROR_SUCCESS) throw RunTimeError(FailureNumber::PathFileAccess);
}

/// One value of a key of classes, which is made if it is not there; without a name the key's own.
void Enter(const Part& part, const std::string& key, const wchar_t* name, const std::string& value) {
  const std::wstring wide = ToWide(value);
  const auto bytes = static_cast<DWORD>((wide.size() + 1) * sizeof(wchar_t));
  Require(RegSetKeyValueW(part.key, ToWide(kClassesFolder + key).c_str(), name, REG_SZ, wide.c_str(), bytes));
}

std::string ValueOf(const Part& part, const std::string& key) {
  std::array<wchar_t, 64> value{};
  auto bytes = static_cast<DWORD>(sizeof value);
  const LSTATUS status = RegGetValueW(part.key, ToWide(kClassesFolder + key).c_str(), nullptr, RRF_RT_REG_SZ, nullptr,
                                      value.data(), &bytes);
  return status == ERROR_SUCCESS ? FromWide(value.data()) : std::string();
}

void Remove(const Part& part, const std::string& key) {
  const LSTATUS status = RegDeleteTreeW(part.key, ToWide(kClassesFolder + key).c_str());
  if (status != ERROR_FILE_NOT_FOUND) Require(status);
}

void EnterClass(const Part& part, const Class& described, const std::string& library) {
  const std::string identifier = IdentifierText(ClassIdentifier(described));
  const std::string name = ProgrammaticName(described);
  const std::string key = "CLSID\\" + identifier;
  Enter(part, key, nullptr, name);
  Enter(part, key + "\\InprocServer32", nullptr, library);
  Enter(part, key + "\\InprocServer32", L"ThreadingModel", "Apartment");
  Enter(part, key + "\\ProgID", nullptr, name);
  Enter(part, key + "\\TypeLib", nullptr, IdentifierText(kTypeLibrary));
  Enter(part, key + "\\Version", nullptr, fmt::format("{}.{}", kMajorVersion, kMinorVersion));
  Enter(part, name, nullptr, name);
  Enter(part, name + "\\CLSID", nullptr, identifier);
}

void RemoveClass(const Part& part, const Class& described) {
  const std::string identifier = IdentifierText(ClassIdentifier(described));
  const std::string name = ProgrammaticName(described);
  Remove(part, "CLSID\\" + identifier);
  if (ValueOf(part, name + "\\CLSID") == identifier) Remove(part, name);
}

void EnterTypes(const Part& part, const std::string& library) {
  std::wstring path = ToWide(library);
  ITypeLib* types = nullptr;
  if (FAILED(LoadTypeLibEx(path.c_str(), REGKIND_NONE, &types))) throw RunTimeError(FailureNumber::FileNotFound);
  const HRESULT entered = part.enter_types(types, path.data(), nullptr);
  types->Release();
  if (FAILED(entered)) throw RunTimeError(FailureNumber::PathFileAccess);
}

template <class Step>
HRESULT Attempt(Step&& step) noexcept {
  try {
    step();
    return S_OK;
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return SELFREG_E_CLASS;
  }
}

/// True if the key is there and open to this user.
bool Opens(HKEY part, const std::string& key, REGSAM rights) {
  HKEY opened = nullptr;
  if (RegOpenKeyExW(part, ToWide(kClassesFolder + key).c_str(), 0, rights, &opened) != ERROR_SUCCESS) return false;
  RegCloseKey(opened);
  return true;
}

/// True if this user may change the entries for all.
bool MayWriteForAll() { return Opens(HKEY_LOCAL_MACHINE, "", KEY_WRITE); }

void RemoveTypes(const Part& part) {
  if (!Opens(part.key, "TypeLib\\" + IdentifierText(kTypeLibrary), KEY_READ)) return;
  const HRESULT removed = part.remove_types(kTypeLibrary, kMajorVersion, kMinorVersion, LOCALE_NEUTRAL, SYS_WIN64);
  if (FAILED(removed)) throw RunTimeError(FailureNumber::PathFileAccess);
}

HRESULT RemoveFrom(const Part& part, std::span<const Class* const> classes) noexcept {
  HRESULT result = Attempt([&] { RemoveTypes(part); });
  for (const Class* described : classes) {
    const HRESULT outcome = Attempt([&] { RemoveClass(part, *described); });
    if (FAILED(outcome)) result = outcome;
  }
  return result;
}

}  // namespace

HRESULT Register(std::span<const Class* const> classes) noexcept {
  return Attempt([&] {
    const Part part = MayWriteForAll() ? ForAll() : ForUser();
    const std::string library = LibraryPath();
    for (const Class* described : classes) EnterClass(part, *described, library);
    EnterTypes(part, library);
  });
}

HRESULT Unregister(std::span<const Class* const> classes) noexcept {
  const HRESULT for_user = RemoveFrom(ForUser(), classes);
  const HRESULT for_all = MayWriteForAll() ? RemoveFrom(ForAll(), classes) : S_OK;
  return FAILED(for_all) ? for_all : for_user;
}

}  // namespace zef::component
