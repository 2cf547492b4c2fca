#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "client/record_values.h"

namespace zef::client {

struct NumberWord {
  std::int32_t number;
  const char* word;
};

/// The words that people use for the numbers of a property.
struct NumberWords {
  std::span<const NumberWord> words;
  bool combined = false;  ///< the numbers are bits, of which a value may have several
};

extern const NumberWords kFolderKindWords;

/// The words for a property's numbers; null if they stand for themselves.
const NumberWords* WordsOf(RecordType type, std::string_view property);

/// "outgoing", or "editor, viewer" of combined words; nothing if the words do not make up the number.
std::optional<std::string> WordsFor(const NumberWords& known, std::int32_t number);
/// The number of such a text, in any letter case; nothing for another text.
std::optional<std::int32_t> NumberFor(const NumberWords& known, std::string_view text);

/// All of them, as in "incoming, outgoing".
std::string AllWords(const NumberWords& known);

/// The number that a text gives as words or as digits. One that the words do not make up is wrong use; `option` names
/// what was given.
std::int32_t ReadWords(std::string_view option, const NumberWords& known, std::string_view text);

}  // namespace zef::client
