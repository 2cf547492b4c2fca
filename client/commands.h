#pragma once

#include <memory>
#include <string>

#include "client/arguments.h"
#include "client/store.h"
#include "client/style.h"

namespace zef::client {

/// Does what the arguments ask for and gives what is to be printed. Raises a `Failure` otherwise.
std::string Run(const Arguments& arguments, const Screen& screen);

/// Opens the database for a command that works on the present tables.
std::unique_ptr<Store> Open(const Arguments& arguments);

}  // namespace zef::client
