#include "component/describe/interface_text.h"

#include <fmt/format.h>

#include "component/identifiers.h"

namespace zef::component {
namespace {

std::string DefaultText(const Argument& argument) {
  if (argument.type.by_reference && !kIdlForm.references_have_defaults) return "";
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

}  // namespace

std::string Uuid(REFGUID identifier) {
  const std::string braced = IdentifierText(identifier);
  return fmt::format("uuid({})", std::string_view(braced).substr(1, braced.size() - 2));
}

std::string HeadText(DISPID number, std::string_view side) {
  return fmt::format("        [id({:#010x}){}]", static_cast<std::uint32_t>(number), side);
}

std::string TypeText(const Type& type) {
  const std::string_view reference = type.by_reference ? "*" : "";
  if (type.kind == VT_DISPATCH) return fmt::format("_{}*{}", type.name, reference);
  if (type.kind == VT_UNKNOWN) return "IUnknown*";
  if (!type.name.empty()) return fmt::format("{}{}{}", kIdlForm.enumeration, type.name, reference);
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

std::string ArgumentsText(const Member& member) {
  std::string text;
  for (const Argument& argument : member.Arguments()) text += (text.empty() ? "" : ", ") + ArgumentText(argument);
  return text;
}

}  // namespace zef::component
