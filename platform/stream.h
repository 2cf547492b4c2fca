#pragma once

#include <cstdint>
#include <string>

#include "platform/value.h"

namespace zef {

enum StreamType : std::int32_t { adTypeBinary = 1 };
enum SaveOption : std::int32_t { adSaveCreateOverWrite = 2 };

/// Bytes on their way between a file and a column. They stand in memory whole, but once: `Read` hands them over and
/// `Write` takes them. Members other than `Open` raise 3704 when it is closed.
class Stream {
 public:
  StreamType Type = adTypeBinary;

  /// Empty. Raises 3705 if it is open already, 3001 for any other type than binary.
  void Open();
  void Close();

  /// Replaces the bytes by those of a file. Raises 3002 if it cannot be opened, 3003 if it cannot be read or has more
  /// bytes than a 32-bit size can tell.
  void LoadFromFile(const std::string& path);
  /// Makes the bytes those of a file that is private to the user, which takes the place of what stood there. Raises
  /// 3004 and leaves that as it was if it cannot be written, 3001 for any other option than to overwrite.
  void SaveToFile(const std::string& path, SaveOption option);

  /// Hands over all bytes and leaves none.
  Value Read();
  /// Takes the bytes of a binary value in the place of those that are there. Raises 3001 for any other, Null too.
  void Write(Value&& content);

 private:
  void RequireOpen() const;

  Bytes bytes_;
  bool open_ = false;
};

}  // namespace zef
