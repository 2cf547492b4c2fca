#include "component/describe/interface_text.h"

#include <fmt/format.h>

#include "component/identifiers.h"

namespace zef::component {
namespace {

void AddSide(std::string& text, DISPID number, std::string_view side, std::string_view type, std::string_view name,
             std::string_view arguments) {
  text += fmt::format("{} {} {}({});\n", HeadText(number, side), type, name, arguments);
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

}  // namespace

const IdlForm kIdlForm{"", "dispinterface", "enum ", true};

std::string InterfaceText(const Class& described) {
  std::string text =
      fmt::format("    [{}, nonextensible]\n    dispinterface _{} {{\n        properties:\n        methods:\n",
                  Uuid(InterfaceOf(described)), described.name);
  for (std::size_t i = 0; i < described.members.size(); ++i) text += MemberText(described.members[i], i);
  return text + "    };\n\n";
}

}  // namespace zef::component
