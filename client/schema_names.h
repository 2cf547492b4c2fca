#pragma once

#include <string>
#include <vector>

namespace zef::client {

/// The version of the tables of a database.
inline constexpr char kCurrentSchema[] = "9.2.4";
inline constexpr char kOlderSchema[] = "9.1";

inline constexpr char kCreateTable[] = "CREATE TABLE ";
inline constexpr char kCreateIndex[] = "CREATE INDEX ";

/// The name behind the beginning of a statement, as in "CREATE INDEX name ON ..."; empty for any other statement.
std::string NameBehind(const char* beginning, const std::string& statement);

/// The tables of a version in the order in which they are made.
std::vector<std::string> TablesOf(const std::string& schema);

}  // namespace zef::client
