#include "client/assignment.h"

#include <fmt/format.h>

#include <algorithm>

#include "client/date_option.h"
#include "client/failure.h"
#include "client/number_option.h"
#include "client/number_words.h"
#include "client/text.h"

namespace zef::client {
namespace {

struct FlagWord {
  std::string_view word;
  bool value;
};

constexpr FlagWord kFlagWords[] = {{"yes", true}, {"true", true},   {"1", true},
                                   {"no", false}, {"false", false}, {"0", false}};

bool ReadFlag(std::string_view option, std::string_view text) {
  const auto* const found = std::find_if(std::begin(kFlagWords), std::end(kFlagWords),
                                         [&](const FlagWord& known) { return EqualNames(known.word, text); });
  if (found != std::end(kFlagWords)) return found->value;
  throw Failure(kWrongUse, fmt::format("{}: '{}' is neither yes nor no.", option, text));
}

[[noreturn]] void RefuseUnknown(const RecordKind& kind, const std::vector<PropertyInfo>& known, std::string_view name) {
  std::vector<std::string_view> names;
  for (const PropertyInfo& property : known) {
    if (!property.read_only) names.push_back(property.name);
  }
  throw Failure(kWrongUse, fmt::format("No {} has a property '{}' to set; there are {}.", kind.name, name,
                                       fmt::join(names, ", ")));
}

}  // namespace

PropertyValue ReadValue(std::string_view option, const PropertyInfo& property, std::string_view text) {
  switch (property.type) {
    case PropertyType::Number:
      return property.words == nullptr ? ReadNumber(option, text) : ReadWords(option, *property.words, text);
    case PropertyType::Flag: return ReadFlag(option, text);
    case PropertyType::Date: return text.empty() ? Date() : ReadDate(option, text);
    default: return std::string(text);
  }
}

Assignment ReadAssignment(const RecordKind& kind, std::string_view word) {
  const std::size_t sign = word.find('=');
  if (sign == std::string_view::npos || sign == 0) {
    throw Failure(kWrongUse, fmt::format("'{}' does not say what to set; write Property=value.", word));
  }
  const std::string_view name = word.substr(0, sign);
  const std::vector<PropertyInfo> known = PropertiesOf(kind.type);
  const auto found = std::find_if(known.begin(), known.end(),
                                  [&](const PropertyInfo& property) { return EqualNames(property.name, name); });
  if (found == known.end()) RefuseUnknown(kind, known, name);
  if (found->read_only) throw Failure(kRefused, fmt::format("The property {} cannot be set.", found->name));
  return {found->name, ReadValue(found->name, *found, word.substr(sign + 1))};
}

PropertyInfo PropertyNamed(RecordType type, std::string_view name) {
  const std::vector<PropertyInfo> known = PropertiesOf(type);
  return *std::find_if(known.begin(), known.end(), [&](const PropertyInfo& property) { return property.name == name; });
}

}  // namespace zef::client
