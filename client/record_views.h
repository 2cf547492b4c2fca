#pragma once

#include <string>
#include <vector>

#include "client/json.h"
#include "client/record_kinds.h"
#include "client/style.h"

namespace zef::client {

/// A value for people: dates as `DateText` gives them, rules in words, flags as yes or no.
std::string ValueText(const PropertyValue& value);

/// All properties of a record; see `JsonName` for their names.
Json::Object JsonOf(const RecordValues& record);

/// A list of records in the columns of their kind.
std::string RecordTable(const RecordKind& kind, const std::vector<RecordValues>& records, const Screen& screen);
/// The properties of a record that hold something, one in a line, numbers in words where they have some; a text of
/// several lines takes as many.
std::string RecordText(const RecordValues& record, const Screen& screen);

}  // namespace zef::client
