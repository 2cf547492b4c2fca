#include "platform/text_file.h"

#include "platform/windows_1252.h"

namespace zef {

const std::string& TextReader::Next() {
  portion_.clear();
  AppendFromWindows1252(portion_, std::span(bytes_.data(), file_.Read(bytes_)));
  return portion_;
}

}  // namespace zef
