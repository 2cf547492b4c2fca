#pragma once

#include <cstdint>
#include <string>

namespace zef::bench {

/// The folders that a new database has already; made ones are numbered from the next.
inline constexpr std::int32_t kSystemFolders = 12;

/// How many rows of each kind a database gets.
struct Sizes {
  std::int32_t folders = 0;  ///< of the user's
  std::int32_t events = 0;
  std::int32_t contacts = 0;
};

/// The mobile phone number of a contact, which no other has.
std::string MobilePhone(std::int32_t contact);

/// Makes a database file with rows of the three kinds: events and contacts numbered from 1, each event with a rule and
/// a notification of its own, contacts without yearly dates, so that nothing of them stands in the calendar.
void MakeDatabase(const std::string& path, const Sizes& sizes);

}  // namespace zef::bench
