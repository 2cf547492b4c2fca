#include "client/program.h"

#include <ZEFComponents.hpp>
// Behind the system's other headers.
#include <shellapi.h>

namespace zef::client {

const char kLibraryFileName[] = "ZEFComponents.dll";

std::filesystem::path ProgramFile() {
  std::wstring path(0x8000, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return path;
}

/// The words that `main` is given are in the encoding of the user's country.
std::vector<std::string> ProgramWords(int, char**) {
  SetConsoleOutputCP(CP_UTF8);
  int count = 0;
  LPWSTR* const wide = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> words;
  for (int i = 1; i < count; ++i) words.push_back(ToUtf8(wide[i]));
  LocalFree(wide);
  return words;
}

}  // namespace zef::client
