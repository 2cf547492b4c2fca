#pragma once

#include <cstdint>
#include <string>

namespace zef::bench {

/// The folders that a new database has already; made ones are numbered from the next.
inline constexpr std::int32_t kSystemFolders = 12;

/// Makes a database file with so many folders of the user's and so many events, numbered from 1, each with a rule and a
/// notification of its own.
void MakeDatabase(const std::string& path, std::int32_t folders, std::int32_t events);

}  // namespace zef::bench
