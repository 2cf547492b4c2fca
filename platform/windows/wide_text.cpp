#include "platform/windows/wide_text.h"

#include "platform/text.h"

namespace zef {

std::wstring ToWide(std::string_view text) {
  const std::u16string units = text::ToUtf16(text);
  return {units.begin(), units.end()};
}

std::string FromWide(std::wstring_view text) { return text::ToUtf8(std::u16string(text.begin(), text.end())); }

}  // namespace zef
