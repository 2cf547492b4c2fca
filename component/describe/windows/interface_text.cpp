#include "component/describe/interface_text.h"

#include <fmt/format.h>

#include "component/identifiers.h"

namespace zef::component {
namespace {

/// One entry of the table. Its result comes behind the arguments, since what it returns tells whether it has failed.
std::string EntryText(DISPID number, std::string_view side, std::string_view name, std::string arguments,
                      const Type& result) {
  if (result.kind != VT_EMPTY) {
    arguments += fmt::format("{}[out, retval] {}* Result", arguments.empty() ? "" : ", ", TypeText(result));
  }
  return fmt::format("{} HRESULT {}({});\n", HeadText(number, side), name, arguments);
}

std::string ReadingSide(const Member& member) {
  switch (member.kind) {
    case Kind::Function: return "";
    case Kind::Enumerator: return ", propget, restricted";
    default: return ", propget";
  }
}

std::string MemberText(const Member& member, std::size_t place) {
  const DISPID number = MemberNumber(member, place);
  const Type result = member.kind == Kind::Enumerator ? Type{VT_UNKNOWN, {}, false} : member.type;
  std::string text = EntryText(number, ReadingSide(member), member.name, ArgumentsText(member), result);
  if (member.put == nullptr) return text;
  const std::string_view side = member.type.kind == VT_DISPATCH ? ", propputref" : ", propput";
  return text + EntryText(number, side, member.name, fmt::format("[in] {} Value", TypeText(member.type)), {});
}

}  // namespace

const IdlForm kIdlForm{"import \"oaidl.idl\";\n", "interface", "", false};

std::string InterfaceText(const Class& described) {
  std::string text =
      fmt::format("    [odl, {}, dual, nonextensible, oleautomation]\n    interface _{} : IDispatch {{\n",
                  Uuid(InterfaceOf(described)), described.name);
  for (std::size_t i = 0; i < described.members.size(); ++i) text += MemberText(described.members[i], i);
  return text + "    };\n\n";
}

}  // namespace zef::component
