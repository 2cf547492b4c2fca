#include "component/describe/idl.h"

#include <fmt/format.h>

#include <string_view>

#include "component/classes.h"
#include "component/describe/interface_text.h"
#include "component/identifiers.h"
#include "component/registration.h"

namespace zef::component {
namespace {

std::string ClassText(const Class& described) {
  return fmt::format("    [{}{}]\n    coclass {} {{\n        [default] {} _{};\n    }};\n\n",
                     Uuid(ClassIdentifier(described)), described.create == nullptr ? ", noncreatable" : "",
                     described.name, kIdlForm.interface_, described.name);
}

std::string EnumerationText(const Enumeration& enumeration, std::uint16_t number) {
  std::string text =
      fmt::format("    typedef [{}] enum {} {{\n", Uuid(EnumerationIdentifier(number)), enumeration.name);
  for (const EnumerationMember& member : enumeration.members) {
    text += fmt::format("        {} = {}{}\n", member.name, member.value,
                        &member == &enumeration.members.back() ? "" : ",");
  }
  return text + fmt::format("    }} {};\n\n", enumeration.name);
}

}  // namespace

std::string TypeLibraryText() {
  std::string text = fmt::format("{}[{}, version(9.2), helpstring(\"{}\")]\nlibrary {} {{\n", kIdlForm.imports,
                                 Uuid(kTypeLibrary), kLibraryName, kLibraryName);
  text += "    importlib(\"stdole2.tlb\");\n\n";
  std::uint16_t number = 0;
  for (const Enumeration& enumeration : PublicEnumerations()) text += EnumerationText(enumeration, ++number);
  const std::span<const Class* const> lists[] = {PublicClasses(), ReachedClasses()};
  for (const auto& list : lists) {
    for (const Class* described : list) text += fmt::format("    {} _{};\n", kIdlForm.interface_, described->name);
  }
  text += "\n";
  for (const auto& list : lists) {
    for (const Class* described : list) text += InterfaceText(*described) + ClassText(*described);
  }
  return text + "};\n";
}

}  // namespace zef::component
