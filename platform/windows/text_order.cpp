#include "platform/text_order.h"

#include <windows.h>

#include <limits>
#include <string>

#include "platform/run_time_error.h"
#include "platform/text.h"
#include "platform/windows/wide_text.h"

namespace zef::text {
namespace {

/// Punctuation counts as it stands, forms of one character for other scripts' widths do not.
constexpr DWORD kLettersAndAccents = NORM_IGNORECASE | NORM_IGNOREKANATYPE | NORM_IGNOREWIDTH | SORT_STRINGSORT;

int Size(const std::wstring& text) {
  if (text.size() > std::numeric_limits<int>::max()) throw RunTimeError(FailureNumber::OutOfMemory);
  return static_cast<int>(text.size());
}

}  // namespace

int CompareByCollation(std::string_view a, std::string_view b) {
  const std::wstring wide_a = ToWide(a);
  const std::wstring wide_b = ToWide(b);
  const int order = CompareStringEx(LOCALE_NAME_INVARIANT, kLettersAndAccents, wide_a.data(), Size(wide_a),
                                    wide_b.data(), Size(wide_b), nullptr, nullptr, 0);
  if (order == 0) throw RunTimeError(FailureNumber::InvalidCall, "The order of texts is not available.");
  return order - CSTR_EQUAL;
}

void ReleaseOrder() {}

}  // namespace zef::text
