#pragma once

#include <cstdint>
#include <string>

namespace zef::bench {

/// Makes a database file of version 9.1 with so many contacts and tasks and twice as many events. Their references to
/// states, countries and priorities are identifiers of the lists; some are Null and some dangle.
void MakeOlderDatabase(const std::string& path, std::int32_t contacts);

}  // namespace zef::bench
