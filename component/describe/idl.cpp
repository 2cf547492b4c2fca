#include "component/describe/idl.h"

#include <fmt/format.h>

#include <string_view>

#include "component/classes.h"
#include "component/identifiers.h"
#include "component/registration.h"

namespace zef::component {
namespace {

std::string Uuid(REFGUID identifier) {
  const std::string braced = IdentifierText(identifier);
  return fmt::format("uuid({})", std::string_view(braced).substr(1, braced.size() - 2));
}

std::string TypeText(const Type& type) {
  const std::string_view reference = type.by_reference ? "*" : "";
  if (type.kind == VT_DISPATCH) return fmt::format("_{}*{}", type.name, reference);
  if (type.kind == VT_UNKNOWN) return "IUnknown*";
  if (!type.name.empty()) return fmt::format("enum {}{}", type.name, reference);
  switch (type.kind) {
    case VT_EMPTY: return "void";
    case VT_I4: return fmt::format("long{}", reference);
    case VT_BOOL: return fmt::format("VARIANT_BOOL{}", reference);
    case VT_DATE: return fmt::format("DATE{}", reference);
    case VT_BSTR: return fmt::format("BSTR{}", reference);
    case VT_ARRAY | VT_BSTR: return fmt::format("SAFEARRAY(BSTR){}", reference);
    default: return fmt::format("VARIANT{}", reference);
  }
}

std::string DefaultText(const Argument& argument) {
  switch (argument.type.kind) {
    case VT_I4: return fmt::format(", defaultvalue({})", argument.default_number);
    case VT_BSTR: return ", defaultvalue(\"\")";
    default: return ", defaultvalue(0)";
  }
}

std::string ArgumentText(const Argument& argument) {
  const std::string optional = argument.optional ? ", optional" + DefaultText(argument) : "";
  return fmt::format("[in{}{}] {} {}", argument.type.by_reference ? ", out" : "", optional, TypeText(argument.type),
                     argument.name);
}

std::string ArgumentsText(const Member& member) {
  std::string text;
  for (const Argument& argument : member.Arguments()) text += (text.empty() ? "" : ", ") + ArgumentText(argument);
  return text;
}

void AddSide(std::string& text, DISPID number, std::string_view side, std::string_view type, std::string_view name,
             std::string_view arguments) {
  text += fmt::format("        [id({:#010x}){}] {} {}({});\n", static_cast<std::uint32_t>(number), side, type, name,
                      arguments);
}

std::string MemberText(const Member& member, std::size_t place) {
  const DISPID number = MemberNumber(member, place);
  const std::string type = TypeText(member.type);
  std::string text;
  if (member.kind == Kind::Function) {
    AddSide(text, number, "", type, member.name, ArgumentsText(member));
    return text;
  }
  AddSide(text, number, member.kind == Kind::Enumerator ? ", propget, restricted" : ", propget", type, member.name,
          ArgumentsText(member));
  if (member.put == nullptr) return text;
  const bool is_object = member.type.kind == VT_DISPATCH;
  AddSide(text, number, is_object ? ", propputref" : ", propput", "void", member.name,
          fmt::format("[in] {} {}", type, "Value"));
  return text;
}

std::string InterfaceText(const Class& described) {
  std::string text =
      fmt::format("    [{}, nonextensible]\n    dispinterface _{} {{\n        properties:\n        methods:\n",
                  Uuid(InterfaceOf(described)), described.name);
  for (std::size_t i = 0; i < described.members.size(); ++i) text += MemberText(described.members[i], i);
  return text + "    };\n\n";
}

std::string ClassText(const Class& described) {
  return fmt::format("    [{}{}]\n    coclass {} {{\n        [default] dispinterface _{};\n    }};\n\n",
                     Uuid(ClassIdentifier(described)), described.create == nullptr ? ", noncreatable" : "",
                     described.name, described.name);
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
  std::string text = fmt::format("[{}, version(9.2), helpstring(\"{}\")]\nlibrary {} {{\n", Uuid(kTypeLibrary),
                                 kLibraryName, kLibraryName);
  text += "    importlib(\"stdole2.tlb\");\n\n";
  std::uint16_t number = 0;
  for (const Enumeration& enumeration : PublicEnumerations()) text += EnumerationText(enumeration, ++number);
  const std::span<const Class* const> lists[] = {PublicClasses(), ReachedClasses()};
  for (const auto& list : lists) {
    for (const Class* described : list) text += fmt::format("    dispinterface _{};\n", described->name);
  }
  text += "\n";
  for (const auto& list : lists) {
    for (const Class* described : list) text += InterfaceText(*described) + ClassText(*described);
  }
  return text + "};\n";
}

}  // namespace zef::component
