#pragma once

#include <string>

#include "tests/support/random/choices.h"

namespace zef::fuzz {

/// A statement of the dialect about the tables Folders, Events and Seen, drawn by the bytes: mostly one that can be
/// run, now and then with a word too much.
std::string DrawnStatement(test::Choices& choices);

}  // namespace zef::fuzz
