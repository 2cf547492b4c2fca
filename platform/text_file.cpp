#include "platform/text_file.h"

#include "platform/run_time_error.h"
#include "platform/windows_1252.h"

namespace zef {

const std::string& TextReader::Next() {
  portion_.clear();
  const std::size_t count = file_.Read(bytes_);
  read_ += count;
  if (read_ > kMost) throw RunTimeError(FailureNumber::PathFileAccess, "The text file is too long.");
  AppendFromWindows1252(portion_, std::span(bytes_.data(), count));
  return portion_;
}

}  // namespace zef
