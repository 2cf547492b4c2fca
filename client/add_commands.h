#pragma once

#include <string>

#include "client/arguments.h"

namespace zef::client {

/// The commands that add something; each gives what is to be printed.
std::string AddFolder(const Arguments& arguments, bool colour);
std::string AddTask(const Arguments& arguments, bool colour);
std::string AddEvent(const Arguments& arguments, bool colour);

}  // namespace zef::client
