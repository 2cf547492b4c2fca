#pragma once

#include <string>
#include <vector>

#include "platform/connection.h"

namespace zef::test {

/// The names of all tables of the current schema version, in the order in which it makes them.
std::vector<std::string> TableNames();

/// Every row of a select as text, one a line.
std::string DumpRows(Connection& connection, const std::string& select);

/// Every row of the tables as text, sorted by the first column: two dumps are equal if the tables hold the same.
/// Numbers and dates stand with all their digits, bytes in hexadecimal digits.
std::string Dump(Connection& connection, const std::vector<std::string>& tables = TableNames());

}  // namespace zef::test
