#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/file.h"

namespace zef {

/// A text file in the single-byte encoding Windows-1252, read from its beginning to its end. Every byte is a character,
/// line ends too; no byte ends the file early.
class TextReader {
 public:
  /// Reading needs a number too, see below, though nobody sees which: raises 67 if all are taken, and what `InputFile`
  /// does.
  explicit TextReader(const std::string& path);

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

// Files open for sequential output, by number from 1 to 511, in the same encoding. A number stays taken until its file
// is closed. Each thread has numbers of its own, so sessions on different threads do not meet; what a thread leaves
// open is closed with it. A number without a file raises 52.

/// The lowest number that is not taken. Raises 67 if all are.
std::int32_t FreeFile();
/// Opens a file under a free number, in place of what stands there. Raises what `OutputFile` does, 55 for a number that
/// is taken, and 52 for one out of range.
void OpenForOutput(const std::string& path, std::int32_t number);
/// Writes a text as it stands, without a line end of its own.
void Print(std::int32_t number, std::string_view text);
/// Frees the number whether or not the file could be completed.
void CloseFile(std::int32_t number);
/// Gives back what numbers take of the whole process, and closes what the calling thread has left open. No other thread
/// may be using them; the next use begins anew.
void ReleaseFileNumbers();

}  // namespace zef
