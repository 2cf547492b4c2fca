#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "platform/file.h"

namespace zef {

/// A text file in the single-byte encoding Windows-1252, read from its beginning to its end. Every byte is a character,
/// line ends too; no byte ends the file early.
class TextReader {
 public:
  /// Raises what `InputFile` does.
  explicit TextReader(const std::string& path) : file_(path) {}

  /// The next portion in UTF-8, good until the next call; empty at the end. Raises 75 behind a thousand million
  /// characters, more than a column holds.
  const std::string& Next();

 private:
  static constexpr std::size_t kPortion = 1 << 16;
  static constexpr std::size_t kMost = 1'000'000'000;

  InputFile file_;
  std::array<std::byte, kPortion> bytes_;
  std::string portion_;
  std::size_t read_ = 0;
};

}  // namespace zef
