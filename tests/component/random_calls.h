#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "tests/component/automation_client.h"

namespace zef::test {

/// Calls random members of random objects with random flags and arguments, all of them chosen by the bytes, until these
/// are used up. Begins with an object of every class and, if `connection_string` is not empty, with a session that is
/// connected by it; what calls return joins in. Arguments name files in the working folder. Gives what went against the
/// rules of the boundary; empty if nothing did.
std::string DriveRandomCalls(const std::function<Object(std::string_view class_name)>& create,
                             const std::string& connection_string, std::span<const std::uint8_t> choices);

}  // namespace zef::test
