#pragma once

#include <string_view>

#include "client/record_kinds.h"

namespace zef::client {

/// The value that a text means for a property; `option` names what was given in complaints. Dates are those of
/// `ReadDate`, an empty text is no date; flags are yes, no, true, false, 1 and 0; numbers may be given by their words.
/// Anything else is wrong use.
PropertyValue ReadValue(std::string_view option, const PropertyInfo& property, std::string_view text);

/// What "Property=value" asks for, the property's name in any letter case. A word of another form and a property that
/// records of this kind lack are wrong use; one that cannot be set is refused.
Assignment ReadAssignment(const RecordKind& kind, std::string_view word);

/// The property of a record's type by its exact name.
PropertyInfo PropertyNamed(RecordType type, std::string_view name);

}  // namespace zef::client
