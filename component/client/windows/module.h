#pragma once

#include <string>

#include "ZEFComponents/automation.h"
#include "ZEFComponents/text.h"

/// Files of code that are loaded while a program runs.
namespace zef {
inline namespace automation {

using Module = HMODULE;

/// Null if it cannot be loaded. What it needs itself is looked for beside it.
inline Module LoadModule(const std::string& path) {
  std::wstring wide = ToUtf16(path);
  for (wchar_t& unit : wide) unit = unit == L'/' ? L'\\' : unit;
  return LoadLibraryExW(wide.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
}
/// Why the last one could not be.
inline std::string ModuleFailure() {
  const DWORD error = GetLastError();
  wchar_t sentence[512] = L"";
  constexpr DWORD kFlags = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
  DWORD length = FormatMessageW(kFlags, nullptr, error, 0, sentence, 512, nullptr);
  while (length > 0 && sentence[length - 1] <= L' ') --length;
  return length > 0 ? ToUtf8({sentence, length}) : "error " + std::to_string(error);
}
inline void UnloadModule(Module loaded) { FreeLibrary(loaded); }

/// Null if the module exports none of the name.
template <class Function>
Function* FunctionIn(Module loaded, const char* name) {
  return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(loaded, name)));
}

}  // namespace automation
}  // namespace zef
