#pragma once

#include <filesystem>
#include <string>
#include <vector>

/// The running program as the system knows it.
namespace zef::client {

/// The name of the library's file on this system.
extern const char kLibraryFileName[];
/// The file of this program, without links; empty if that cannot be found out.
std::filesystem::path ProgramFile();
/// The words behind the program's name, in UTF-8, out of what `main` was given. What is printed is UTF-8 from here on.
std::vector<std::string> ProgramWords(int count, char** words);

}  // namespace zef::client
