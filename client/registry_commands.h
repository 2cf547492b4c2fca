#pragma once

#include <string>

#include "client/arguments.h"
#include "client/style.h"

namespace zef::client {

/// Enters the classes of the library into the user's registry of components; tells where.
std::string Register(const Arguments& arguments, const Screen& screen);
/// Removes what `Register` writes.
std::string Unregister(const Arguments& arguments, const Screen& screen);

}  // namespace zef::client
