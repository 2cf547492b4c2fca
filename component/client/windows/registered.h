#pragma once

#include <string>
#include <string_view>

#include "ZEFComponents/automation.h"
#include "ZEFComponents/failure.h"
#include "ZEFComponents/text.h"

/// Finding the library through the system's registry.
namespace zef {
inline namespace automation {

[[noreturn]] inline void RaiseNotRegistered(std::string_view name) {
  throw Failure(kCannotCreateObject,
                std::string(name) + " is not registered; register its library first, as in \"zef register\".");
}

/// The identifier of a registered class. Raises 429 if it is not registered.
inline GUID RegisteredIdentifier(std::string_view name) {
  GUID identifier{};
  if (FAILED(CLSIDFromProgID(ToUtf16(name).c_str(), &identifier))) RaiseNotRegistered(name);
  return identifier;
}

/// Where a class is registered; empty if it is not.
inline std::string EntryPath(std::string_view name) {
  GUID identifier{};
  wchar_t braced[40] = L"";
  if (FAILED(CLSIDFromProgID(ToUtf16(name).c_str(), &identifier))) return {};
  StringFromGUID2(identifier, braced, 40);
  return "CLSID\\" + ToUtf8(braced);
}

/// The path of the library that a class is registered for. Raises 429 if it is not registered.
inline std::string RegisteredLibrary(std::string_view name) {
  const std::string entry = EntryPath(name);
  Units path(0x8000, L'\0');
  auto bytes = static_cast<DWORD>(path.size() * sizeof path[0]);
  const LSTATUS status = RegGetValueW(HKEY_CLASSES_ROOT, ToUtf16(entry + "\\InprocServer32").c_str(), nullptr,
                                      RRF_RT_REG_SZ, nullptr, path.data(), &bytes);
  if (entry.empty() || status != ERROR_SUCCESS) RaiseNotRegistered(name);
  return ToUtf8(path.c_str());
}

/// A new object of a class through the system, which is made ready for it on a thread that has not done so.
inline IDispatch* CreateThroughSystem(REFCLSID identifier, std::string_view name) {
  void* made = nullptr;
  const auto create = [&] { return CoCreateInstance(identifier, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, &made); };
  HRESULT outcome = create();
  if (outcome == CO_E_NOTINITIALIZED && SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {
    outcome = create();
  }
  if (outcome == REGDB_E_CLASSNOTREG) RaiseNotRegistered(name);
  if (FAILED(outcome)) {
    throw Failure(kFileNotFound, "The entry of " + std::string(name) + " names a library that cannot be used; " +
                                     "register it from where it is now. " + RefusalText(outcome));
  }
  return static_cast<IDispatch*>(made);
}

/// A new object of a registered class, as in `CreateObject<CSession>()`. Raises 429 if the class is not registered, 53
/// if its library is gone or cannot be loaded.
template <class C>
C CreateObject() {
  return C(CreateThroughSystem(C::kClassIdentifier, C::kProgrammaticName));
}

/// The same by name.
inline IDispatch* CreateNamed(std::string_view name) { return CreateThroughSystem(RegisteredIdentifier(name), name); }

}  // namespace automation
}  // namespace zef
