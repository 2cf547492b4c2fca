#include <windows.h>

#include <array>

#include "platform/file.h"
#include "platform/windows/wide_text.h"

namespace zef {

std::string TemporaryFolder() {
  std::array<wchar_t, MAX_PATH + 1> folder{};
  const DWORD length = GetTempPathW(static_cast<DWORD>(folder.size()), folder.data());
  return FromWide({folder.data(), length});
}

}  // namespace zef
