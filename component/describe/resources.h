#pragma once

#include <string>

namespace zef::component {

/// An assembler file with the sections by which a host looks at the library without running it: "TYPELIB", the text in
/// the file `type_library`; "_IID_CSESSION" to "_IID_CUSERS", 16 bytes each; "VERSION".
std::string ResourcesText(const std::string& type_library);

}  // namespace zef::component
