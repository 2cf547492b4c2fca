#pragma once

#include <CLI/CLI.hpp>

#include "client/arguments.h"

namespace zef::client {

/// Adds the commands that work on records of any kind, and to `add` those that add the kinds that `add` lacks.
void AddRecordCommands(CLI::App& app, CLI::App& add, Arguments& arguments);

}  // namespace zef::client
