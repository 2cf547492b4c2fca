#pragma once

#include <cstdint>
#include <string>

#include "platform/text_file.h"

namespace zef::test {

/// Opens a file, again and again, until no number is left.
inline void TakeAllFileNumbers(const std::string& path) {
  for (std::int32_t number = 1; number <= 511; ++number) OpenForOutput(path, number);
}

/// Closes at its end what a test has left open, so that the next one finds all numbers free.
class FreeFileNumbers {
 public:
  FreeFileNumbers() = default;
  ~FreeFileNumbers() { ReleaseFileNumbers(); }
  FreeFileNumbers(const FreeFileNumbers&) = delete;
  FreeFileNumbers& operator=(const FreeFileNumbers&) = delete;
};

}  // namespace zef::test
