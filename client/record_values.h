#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "client/date.h"
#include "client/rule.h"

namespace zef::client {

/// The types of record that a user works with.
enum class RecordType { Folder, Task, Event, Contact, Note, Alarm, Call, Category, User };

/// What a property holds. Its alternatives stand in the order of `PropertyType`.
using PropertyValue = std::variant<std::int32_t, bool, Date, std::string, RuleSpec>;
enum class PropertyType { Number, Flag, Date, Text, Rule };

struct NumberWords;

/// A property of a type of record, under the library's own name.
struct PropertyInfo {
  std::string_view name;
  PropertyType type;
  bool read_only;
  const NumberWords* words = nullptr;  ///< what its numbers are called; null if they stand for themselves
};

/// A value for the property of a name.
using Assignment = std::pair<std::string_view, PropertyValue>;

/// A record as it is stored: all of its properties but secrets, in the order in which they are shown.
struct RecordValues {
  RecordType type{};
  std::vector<Assignment> properties;

  /// The record must have a property of that name.
  const PropertyValue& operator[](std::string_view name) const;
  std::int32_t Number(std::string_view name) const { return std::get<std::int32_t>((*this)[name]); }
  std::int32_t id() const { return Number("ID"); }
};

/// The properties of a type of record, in the order in which they are shown.
std::vector<PropertyInfo> PropertiesOf(RecordType type);

}  // namespace zef::client
