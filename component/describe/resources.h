#pragma once

#include <string>

namespace zef::component {

/// A source with what a host reads of the library without running it: "TYPELIB", the content of the file
/// `type_library`; "_IID_CSESSION" to "_IID_CUSERS", 16 bytes each; the version block. On Linux an assembler file, made
/// of sections, on Windows a resource script.
std::string ResourcesText(const std::string& type_library);

}  // namespace zef::component
