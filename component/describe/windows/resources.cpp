#include "component/describe/resources.h"

#include <fmt/format.h>

#include <cstring>

#include "component/classes.h"
#include "component/identifiers.h"
#include "component/registration.h"
#include "platform/text.h"
#include "version.h"

namespace zef::component {
namespace {

std::string BytesText(REFGUID identifier) {
  unsigned char bytes[sizeof identifier];
  std::memcpy(bytes, &identifier, sizeof bytes);
  std::string text;
  for (const unsigned char byte : bytes) text += fmt::format("\\x{:02x}", byte);
  return text;
}

/// Strings in a language of the version block are for people; the numbers are for programs that compare.
std::string VersionText() {
  return fmt::format(
      "1 VERSIONINFO FILEVERSION {2} PRODUCTVERSION {2} FILEOS 0x40004 FILETYPE 2\n"
      "BEGIN\n"
      "  BLOCK \"StringFileInfo\" BEGIN BLOCK \"040904B0\" BEGIN\n"
      "    VALUE \"FileVersion\", \"{0}\"\n    VALUE \"ProductVersion\", \"{0}\"\n"
      "    VALUE \"ProductName\", \"{1}\"\n    VALUE \"InternalName\", \"{1}\"\n"
      "    VALUE \"OriginalFilename\", \"{1}.dll\"\n    VALUE \"OLESelfRegister\", \"\"\n"
      "  END END\n"
      "  BLOCK \"VarFileInfo\" BEGIN VALUE \"Translation\", 0x0409, 1200 END\n"
      "END\n",
      kFileVersion, kLibraryName, kFileVersionNumbers);
}

}  // namespace

std::string ResourcesText(const std::string& type_library) {
  std::string text = fmt::format("1 TYPELIB \"{}\"\n", type_library);
  for (const Class* described : PublicClasses()) {
    text += fmt::format("_IID_{} RCDATA BEGIN \"{}\" END\n", text::UpperCase(described->name),
                        BytesText(InterfaceOf(*described)));
  }
  return text + VersionText();
}

}  // namespace zef::component
