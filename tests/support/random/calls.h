#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "component/automation.h"

namespace zef::test {

/// Does with random objects of a library what a client may do, wrongly as well as rightly: calls members with random
/// flags and arguments, asks for names and interfaces, uses factories, walks over elements and lets go of objects. The
/// bytes choose all of it, until they are used up. Begins with an object of every class and, if `connection_string` is
/// not empty, with a session that is connected by it; what calls return joins in. Makes files in the working folder
/// only. Gives what went against the rules of the boundary; empty if nothing did.
std::string DriveRandomCalls(GetClassObjectFunction* get_class_object, const std::string& connection_string,
                             std::span<const std::uint8_t> bytes);

}  // namespace zef::test
