#pragma once

#include <string>

#include "platform/connection.h"

namespace zef::test {

/// What holds for every sound database and what does not hold in this one, a line each; nothing if all holds.
std::string BrokenInvariants(Connection& connection);

}  // namespace zef::test
