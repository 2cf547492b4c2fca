#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace zef::client {

/// What is wrong with a command line, as a sentence that ends with where to find help.
std::string WrongUse(const CLI::App& app, const CLI::ParseError& error);

}  // namespace zef::client
