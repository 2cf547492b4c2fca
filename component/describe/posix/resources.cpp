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
  return fmt::format("  .byte {}\n", fmt::join(bytes, ", "));
}

std::string SectionText(std::string_view name) { return fmt::format("\n  .section {},\"a\",%progbits\n", name); }

/// The version block: its language, then a line for each of its values.
std::string VersionText() {
  return fmt::format(
      "  .ascii \"Language=040904B0\\nFileVersion={0}\\nProductVersion={0}\\nProductName={1}\\n\"\n"
      "  .ascii \"InternalName={1}\\nOriginalFilename=lib{1}.so\\nOLESelfRegister=\\n\"\n",
      kFileVersion, kLibraryName);
}

}  // namespace

std::string ResourcesText(const std::string& type_library) {
  std::string text = SectionText("TYPELIB") + fmt::format("  .incbin \"{}\"\n", type_library);
  for (const Class* described : PublicClasses()) {
    text += SectionText(fmt::format("_IID_{}", text::UpperCase(described->name)));
    text += BytesText(InterfaceOf(*described));
  }
  text += SectionText("VERSION") + VersionText();
  return text + "\n  .section .note.GNU-stack,\"\",%progbits\n";
}

}  // namespace zef::component
