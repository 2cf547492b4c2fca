#include "client/program.h"

namespace zef::client {

const char kLibraryFileName[] = "libZEFComponents.so";

std::filesystem::path ProgramFile() {
  std::error_code unknown;
  return std::filesystem::read_symlink("/proc/self/exe", unknown);
}

std::vector<std::string> ProgramWords(int count, char** words) { return {words + (count > 0 ? 1 : 0), words + count}; }

}  // namespace zef::client
