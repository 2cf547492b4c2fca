#include "component/describe/client_header.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <vector>

#include "component/classes.h"
#include "component/identifiers.h"
#include "component/registration.h"

namespace zef::component {
namespace {

constexpr char kHead[] =
    "// Made from the library's own description of its classes. Do not edit.\n"
    "#pragma once\n\n#include <cstddef>\n#include <iterator>\n#include <utility>\n\n"
    "#include \"ZEFComponents/client.h\"\n\n"
    "namespace zef {\n"
    "inline namespace automation {\n\n";
constexpr char kTail[] =
    "}  // namespace automation\n"
    "}  // namespace zef\n";

/// A type by its full name, which a member of the same name does not hide.
std::string FullName(std::string_view name) { return fmt::format("zef::automation::{}", name); }

std::string TypeName(const Type& type) {
  if (!type.name.empty()) return FullName(type.name);
  switch (type.kind) {
    case VT_EMPTY: return "void";
    case VT_I4: return "std::int32_t";
    case VT_BOOL: return "bool";
    case VT_DATE: return FullName("Date");
    case VT_BSTR: return "std::string";
    case VT_ARRAY | VT_BSTR: return FullName("Rows");
    default: return FullName("Value");
  }
}

/// A name that the C library takes gets another one.
std::string_view MemberName(std::string_view name) { return name == "EOF" ? "EndOfFile" : name; }

std::string GuidText(REFGUID identifier) {
  return fmt::format("{{{:#010x}, {:#06x}, {:#06x}, {{{:#04x}}}}}", identifier.Data1, identifier.Data2,
                     identifier.Data3, fmt::join(identifier.Data4, ", "));
}

/// The type of a parameter whose argument stays as it is.
std::string GivenTypeName(const Type& type) {
  switch (type.kind) {
    case VT_BSTR: return fmt::format("const {}&", FullName("Text"));
    case VT_VARIANT: return fmt::format("const {}&", FullName("AnyValue"));
    case VT_I4: return type.name.empty() ? FullName("Number") : TypeName(type);
    case VT_BOOL: return FullName("Truth");
    case VT_DATE: return TypeName(type);
    default: return fmt::format("const {}&", TypeName(type));
  }
}

/// The parameter in a body has a name that no member of the class bears.
std::string ParameterText(const Argument& argument, bool declares) {
  const std::string type = TypeName(argument.type);
  const std::string name = fmt::format("{}{}", argument.name, declares ? "" : "_");
  if (argument.given_back) return fmt::format("{}& {}", type, name);
  std::string value;
  if (argument.optional && declares) {
    value = argument.type.kind == VT_I4 ? fmt::format(" = {}", argument.default_number) : " = {}";
  }
  return fmt::format("{} {}{}", GivenTypeName(argument.type), name, value);
}

std::string ParametersText(const Member& member, bool declares) {
  std::vector<std::string> parameters;
  for (const Argument& argument : member.Arguments()) parameters.push_back(ParameterText(argument, declares));
  return fmt::format("{}", fmt::join(parameters, ", "));
}

/// A member that is called: a function, or a property with arguments.
bool IsCalled(const Member& member) { return member.kind == Kind::Function || member.argument_count > 0; }

std::string PropertyText(const Member& member, DISPID number) {
  return fmt::format("    {}<{}, {:#x}> {};\n", member.put == nullptr ? "ReadOnlyProperty" : "Property",
                     TypeName(member.type), number, MemberName(member.name));
}

/// What a class is beside its members: a counted reference.
std::string ReferenceText(const Class& described) {
  return fmt::format(
      "  static constexpr char kProgrammaticName[] = \"{1}.{0}\";\n"
      "  static constexpr GUID kClassIdentifier{2};\n\n"
      "  {0}() noexcept : reference_{{nullptr}} {{}}\n"
      "  {0}(std::nullptr_t) noexcept : {0}() {{}}\n"
      "  explicit {0}(IDispatch* owned) noexcept : reference_{{owned}} {{}}\n"
      "  {0}(const {0}& other) noexcept : reference_{{other.get()}} {{\n"
      "    if (get() != nullptr) get()->AddRef();\n"
      "  }}\n"
      "  {0}({0}&& other) noexcept : reference_{{std::exchange(other.reference_.object, nullptr)}} {{}}\n"
      "  {0}& operator=({0} other) noexcept {{\n"
      "    std::swap(reference_.object, other.reference_.object);\n"
      "    return *this;\n"
      "  }}\n"
      "  ~{0}() {{\n"
      "    if (get() != nullptr) get()->Release();\n"
      "  }}\n\n"
      "  IDispatch* get() const noexcept {{ return reference_.object; }}\n"
      "  explicit operator bool() const noexcept {{ return get() != nullptr; }}\n"
      "  {0}* operator->() noexcept {{ return this; }}\n"
      "  const {0}* operator->() const noexcept {{ return this; }}\n"
      "  friend bool operator==(const {0}& a, const {0}& b) noexcept {{ return a.get() == b.get(); }}\n\n",
      described.name, kLibraryName, GuidText(ClassIdentifier(described)));
}

std::string ClassText(const Class& described) {
  std::string text = fmt::format("class {} {{\n public:\n", described.name) + ReferenceText(described);
  std::string properties;
  std::string functions;
  for (std::size_t i = 0; i < described.members.size(); ++i) {
    const Member& member = described.members[i];
    const DISPID number = MemberNumber(member, i);
    if (member.kind == Kind::Enumerator) {
      functions +=
          fmt::format("  Elements<{0}> begin() const;\n  std::default_sentinel_t end() const {{ return {{}}; }}\n",
                      FullName(member.type.name));
    } else if (IsCalled(member)) {
      functions +=
          fmt::format("  {} {}({}) const;\n", TypeName(member.type), member.name, ParametersText(member, true));
    } else {
      properties += PropertyText(member, number);
    }
  }
  return text + "  union {\n    Reference reference_;\n" + properties + "  };\n\n" + functions + "};\n\n";
}

std::string BodyText(const Class& described, const Member& member, DISPID number) {
  if (member.kind == Kind::Enumerator) {
    return fmt::format("inline Elements<{1}> {0}::begin() const {{ return Elements<{1}>(get()); }}\n", described.name,
                       FullName(member.type.name));
  }
  std::string arguments;
  for (const Argument& argument : member.Arguments()) {
    arguments +=
        fmt::format(", {}<{}>({}_)", argument.given_back ? "InOut" : "In", TypeName(argument.type), argument.name);
  }
  const std::string result = TypeName(member.type);
  const std::string_view flag = member.kind == Kind::Function ? "DISPATCH_METHOD" : "DISPATCH_PROPERTYGET";
  return fmt::format("inline {0} {1}::{2}({3}) const {{\n  return Call<{0}>(get(), {4:#x}, {5}{6});\n}}\n", result,
                     described.name, member.name, ParametersText(member, false), number, flag, arguments);
}

std::string BodiesText(const Class& described) {
  std::string text;
  for (std::size_t i = 0; i < described.members.size(); ++i) {
    const Member& member = described.members[i];
    if (member.kind != Kind::Enumerator && !IsCalled(member)) continue;
    text += BodyText(described, member, MemberNumber(member, i));
  }
  return text + "\n";
}

std::string EnumerationText(const Enumeration& enumeration) {
  std::vector<std::string> members;
  for (const EnumerationMember& member : enumeration.members) {
    members.push_back(fmt::format("{} = {}", member.name, member.value));
  }
  return fmt::format("enum {} : std::int32_t {{ {} }};\n", enumeration.name, fmt::join(members, ", "));
}

template <class Make>
std::string OfAllClasses(Make&& make) {
  std::string text;
  for (const Class* described : PublicClasses()) text += make(*described);
  for (const Class* described : ReachedClasses()) text += make(*described);
  return text;
}

/// The names by which objects can be created.
std::string CreatableText() {
  std::vector<std::string> names;
  for (const Class* described : PublicClasses())
    names.push_back(fmt::format("    {}::kProgrammaticName,\n", described->name));
  return fmt::format(
      "/// The names of the classes that can be created.\n"
      "inline constexpr const char* kCreatableClasses[] = {{\n{}}};\n\n",
      fmt::join(names, ""));
}

}  // namespace

std::string ClientHeaderText() {
  std::string text = kHead;
  for (const Enumeration& enumeration : PublicEnumerations()) text += EnumerationText(enumeration);
  text += "\n" + OfAllClasses([](const Class& described) { return fmt::format("class {};\n", described.name); }) + "\n";
  return text + OfAllClasses(ClassText) + CreatableText() + OfAllClasses(BodiesText) + kTail;
}

}  // namespace zef::component
