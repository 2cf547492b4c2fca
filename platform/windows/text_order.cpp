#include "platform/text_order.h"

#include <windows.h>

#include <limits>
#include <string>
#include <string_view>

#include "platform/run_time_error.h"
#include "platform/text.h"
#include "platform/text_decoding.h"
#include "platform/windows/wide_text.h"

namespace zef::text {
namespace {

/// Punctuation counts as it stands, forms of one character for other scripts' widths do not.
constexpr DWORD kLettersAndAccents = NORM_IGNORECASE | NORM_IGNOREKANATYPE | NORM_IGNOREWIDTH | SORT_STRINGSORT;

int Size(const std::wstring& text) {
  if (text.size() > std::numeric_limits<int>::max()) throw RunTimeError(FailureNumber::OutOfMemory);
  return static_cast<int>(text.size());
}

/// The letters of a text that the system takes for two others, to which they are near but not equal.
std::u32string LettersForTwo(std::string_view text) {
  constexpr std::u32string_view kLetters = U"\u00DF\u00E6\u00FE\u0153";
  std::u32string found;
  for (std::size_t at = 0; at < text.size();) {
    const auto c = static_cast<char32_t>(NextFolded(text, at));
    if (kLetters.find(c) != kLetters.npos) found += c;
  }
  return found;
}

}  // namespace

int CompareByCollation(std::string_view a, std::string_view b) {
  const std::wstring wide_a = ToWide(a);
  const std::wstring wide_b = ToWide(b);
  const int order = CompareStringEx(LOCALE_NAME_INVARIANT, kLettersAndAccents, wide_a.data(), Size(wide_a),
                                    wide_b.data(), Size(wide_b), nullptr, nullptr, 0);
  if (order == 0) throw RunTimeError(FailureNumber::InvalidCall, "The order of texts is not available.");
  return order == CSTR_EQUAL ? LettersForTwo(a).compare(LettersForTwo(b)) : order - CSTR_EQUAL;
}

void ReleaseOrder() {}

}  // namespace zef::text
