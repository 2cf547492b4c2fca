#include <cstdlib>

#include "platform/file.h"

namespace zef {

std::string TemporaryFolder() {
  const char* const named = std::getenv("TMPDIR");
  return named == nullptr || *named == '\0' ? "/tmp" : named;
}

}  // namespace zef
