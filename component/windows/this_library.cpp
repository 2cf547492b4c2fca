#include "component/windows/this_library.h"

#include <array>

#include "component/automation.h"
#include "platform/run_time_error.h"
#include "platform/windows/wide_text.h"

namespace zef::component {

std::string LibraryPath() {
  static const wchar_t anchor = 0;
  constexpr DWORD kHolder = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  HMODULE module = nullptr;
  std::array<wchar_t, 0x8000> path;  // the longest that the system has
  if (GetModuleHandleExW(kHolder, &anchor, &module) == 0) throw RunTimeError(FailureNumber::FileNotFound);
  const DWORD length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
  if (length == 0) throw RunTimeError(FailureNumber::FileNotFound);
  return FromWide({path.data(), length});
}

}  // namespace zef::component
