#pragma once

#include <string>

namespace zef::client {

/// Names the file of the library, for all objects that are made from now on. It counts only before the first one.
void UseLibrary(std::string file);

/// The file of the library: the one that was named, else the one beside the program, in the folder of libraries
/// that it is installed with, or the registered one, in this order. Raises a `Failure` if there is none.
std::string LibraryFile();

}  // namespace zef::client
