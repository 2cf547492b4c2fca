#pragma once

#include <string>

#include "client/arguments.h"
#include "client/style.h"

namespace zef::client {

/// The commands that add something; each gives what is to be printed.
std::string AddFolder(const Arguments& arguments, const Screen& screen);
std::string AddTask(const Arguments& arguments, const Screen& screen);
std::string AddEvent(const Arguments& arguments, const Screen& screen);

}  // namespace zef::client
