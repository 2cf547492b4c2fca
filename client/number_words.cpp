#include "client/number_words.h"

#include <fmt/format.h>

#include <algorithm>

#include "client/choice.h"
#include "client/failure.h"
#include "client/store.h"
#include "client/text.h"

namespace zef::client {
namespace {

constexpr NumberWord kFolderKinds[] = {
    {kContacts, "contacts"}, {kTasks, "tasks"}, {kNotes, "notes"}, {kEvents, "events"}, {kAlarms, "alarms"},
};
constexpr NumberWord kDirections[] = {{0, "incoming"}, {1, "outgoing"}};
constexpr NumberWord kRights[] = {
    {kAdministrator, "administrator"}, {kEditor, "editor"}, {kViewer, "viewer"}, {0, "none"}};

constexpr NumberWords kDirectionWords{kDirections};
constexpr NumberWords kRightsWords{kRights, true};

struct WordedProperty {
  RecordType type;
  std::string_view property;
  const NumberWords& words;
};

constexpr WordedProperty kProperties[] = {
    {RecordType::Folder, "ItemsType", kFolderKindWords},
    {RecordType::Call, "Direction", kDirectionWords},
    {RecordType::User, "Rights", kRightsWords},
};

std::optional<std::int32_t> NumberOfWord(const NumberWords& known, std::string_view text) {
  const auto found = std::find_if(known.words.begin(), known.words.end(),
                                  [&](const NumberWord& word) { return EqualNames(word.word, text); });
  if (found == known.words.end()) return std::nullopt;
  return found->number;
}

}  // namespace

constexpr NumberWords kFolderKindWords{kFolderKinds};

const NumberWords* WordsOf(RecordType type, std::string_view property) {
  const auto* const found =
      std::find_if(std::begin(kProperties), std::end(kProperties),
                   [&](const WordedProperty& known) { return known.type == type && known.property == property; });
  return found == std::end(kProperties) ? nullptr : &found->words;
}

std::optional<std::string> WordsFor(const NumberWords& known, std::int32_t number) {
  std::string text;
  std::int32_t covered = 0;
  for (const auto& [value, word] : known.words) {
    if (value == number) return word;
    if (!known.combined || (number & value) == 0) continue;
    text += (text.empty() ? "" : ", ") + std::string(word);
    covered |= value;
  }
  if (text.empty() || covered != number) return std::nullopt;
  return text;
}

std::optional<std::int32_t> NumberFor(const NumberWords& known, std::string_view text) {
  if (!known.combined) return NumberOfWord(known, text);
  std::int32_t number = 0;
  for (std::size_t at = 0; at <= text.size();) {
    const std::size_t end = std::min(text.find(',', at), text.size());
    const std::optional<std::int32_t> part = NumberOfWord(known, Trim(text.substr(at, end - at)));
    if (!part) return std::nullopt;
    number |= *part;
    at = end + 1;
  }
  return number;
}

std::string AllWords(const NumberWords& known) {
  std::string words;
  for (const NumberWord& word : known.words) words += (words.empty() ? "" : ", ") + std::string(word.word);
  return words;
}

std::int32_t ReadWords(std::string_view option, const NumberWords& known, std::string_view text) {
  if (const auto number = NumberFor(known, text)) return *number;
  const std::optional<std::int32_t> digits = IdentifierIn(text);
  if (digits && WordsFor(known, *digits)) return *digits;
  throw Failure(kWrongUse, fmt::format("{}: '{}' is none of {}{}.", option, text, AllWords(known),
                                       known.combined ? ", nor several of them with commas between" : ""));
}

}  // namespace zef::client
