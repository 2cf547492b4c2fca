#include "client/record_values.h"

#include <algorithm>

namespace zef::client {

const PropertyValue& RecordValues::operator[](std::string_view name) const {
  return std::find_if(properties.begin(), properties.end(),
                      [&](const Assignment& known) { return known.first == name; })
      ->second;
}

}  // namespace zef::client
