#pragma once

#include <string>

namespace zef::client {

/// Names the file of the library, a path from the working folder, for all objects that are made from now on. It counts
/// only before the first one.
void UseLibrary(std::string file);

/// The file of the library: the one that was named, else the one beside the program, in the folder of libraries
/// that it is installed with, or the registered one, in this order. Raises a `Failure` if there is none, or if the one
/// that was named or registered is not there; it says where that was looked for.
std::string LibraryFile();

}  // namespace zef::client
