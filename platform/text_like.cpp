#include <optional>

#include "platform/text.h"
#include "platform/text_decoding.h"

namespace zef::text {
namespace {

/// True if a folded character is one of the set: single characters and ranges with a hyphen between two of them.
bool InSet(std::string_view set, UChar32 c) {
  bool found = false;
  for (std::size_t at = 0; at < set.size() && !found;) {
    const UChar32 first = NextFolded(set, at);
    UChar32 last = first;
    if (at + 1 < set.size() && set[at] == '-') last = NextFolded(set, ++at);
    found = first <= c && c <= last;
  }
  return found;
}

/// A pattern that is matched from left to right. When something does not match, only the last run of any
/// characters needs to grow: whatever an earlier run could take in, it can take in as well.
class Pattern {
 public:
  explicit Pattern(std::string_view pattern) : pattern_(pattern), last_bracket_(pattern.rfind(']')) {}

  bool Matches(std::string_view text) const {
    std::size_t at = 0;
    std::size_t element = 0;
    std::optional<std::size_t> run;  // the element behind the last run
    std::size_t run_end = 0;
    while (true) {
      if (element < pattern_.size() && pattern_[element] == '%') {
        if (++element == pattern_.size()) return true;
        run = element;
        run_end = at;
      } else if (at == text.size() && element == pattern_.size()) {
        return true;
      } else if (at == text.size() || !Step(text, at, element)) {
        if (!run || run_end == text.size()) return false;
        NextCodePoint(text, run_end);
        at = run_end;
        element = *run;
      }
    }
  }

 private:
  /// Matches one character with one element and moves behind both if they agree.
  bool Step(std::string_view text, std::size_t& at, std::size_t& element) const {
    if (element == pattern_.size()) return false;
    const UChar32 c = NextFolded(text, at);
    if (pattern_[element] == '_') return ++element, true;
    if (IsSet(element)) return StepSet(c, element);
    return NextFolded(pattern_, element) == c;
  }

  bool IsSet(std::size_t element) const {
    return pattern_[element] == '[' && last_bracket_ != std::string_view::npos && element < last_bracket_;
  }

  bool StepSet(UChar32 c, std::size_t& element) const {
    const std::size_t end = pattern_.find(']', element);
    std::string_view set = pattern_.substr(element + 1, end - element - 1);
    element = end + 1;
    const bool outside = set.size() > 1 && set.front() == '!';
    if (outside) set.remove_prefix(1);
    return InSet(set, c) != outside;
  }

  std::string_view pattern_;
  std::size_t last_bracket_;
};

}  // namespace

bool Like(std::string_view text, std::string_view pattern) { return Pattern(pattern).Matches(text); }

}  // namespace zef::text
