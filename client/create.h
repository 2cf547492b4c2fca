#pragma once

#include <string>

namespace zef::client {

/// The version of the tables of a database.
inline constexpr char kCurrentSchema[] = "9.2.4";
inline constexpr char kOlderSchema[] = "9.1";

/// Makes a new database with the tables and first rows of a schema version, encrypted if a password is given. It takes
/// its name whole and only if nothing has that name; on any failure, Ctrl-C among them, nothing is left behind and a
/// `Failure` is raised. Names and passwords that `Connect2Database` could not open again are refused.
void CreateDatabase(const std::string& file, const std::string& password, const std::string& schema);

/// The same with statements as `schema::Statements` reads them.
void CreateDatabaseFrom(const std::string& statements, const std::string& file, const std::string& password);

}  // namespace zef::client
