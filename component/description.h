#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "component/automation.h"

/// What a class looks like from outside: the one description that late binding, the type library's text, registration
/// and the typed client header are made from.
namespace zef::component {

struct Call;
class Face;

/// How a value crosses the boundary.
struct Type {
  VARTYPE kind = VT_EMPTY;  ///< VT_EMPTY for no value
  /// Name of an enumeration or a class; empty for the automation types.
  std::string_view name;
  bool by_reference = false;
};

struct Argument {
  std::string_view name;
  Type type{};
  bool optional = false;
  bool given_back = false;          ///< the member may change it
  std::int32_t default_number = 0;  ///< of an optional integer
};

enum class Kind : std::uint8_t { Field, Property, Function, Enumerator };

/// One member of a class. Get and let of one property are one member.
struct Member {
  static constexpr std::size_t kMostArguments = 5;

  std::string_view name;
  Kind kind = Kind::Function;
  Type type{};  ///< of the value, the result or the elements
  std::array<Argument, kMostArguments> arguments{};
  std::uint8_t argument_count = 0;
  void (*get)(const Call&) = nullptr;  ///< reads the property or calls the function
  void (*put)(const Call&) = nullptr;  ///< none for what is only read

  std::span<const Argument> Arguments() const { return {arguments.data(), argument_count}; }
};

/// An object of this library without its type.
struct Object {
  void* address = nullptr;
  std::int32_t part = 0;  ///< tells sides of one object apart, as the fields of a record set
};

struct Class {
  std::string_view name;
  /// Place among the public classes, from 1, which its identifiers end in; higher numbers are not creatable.
  std::uint16_t number = 0;
  std::span<const Member> members;
  /// A new object with one reference.
  void* (*create)() = nullptr;
  void (*add_reference)(void*) = nullptr;
  void (*release)(void*) = nullptr;
  /// Where the object keeps what shows it to the outside.
  void*& (*outside)(void*) = nullptr;
};

inline constexpr std::int32_t kFirstOfKind[] = {0x40030000, 0x68030000, 0x60030000};

/// A member's number: its place among all members of its class on top of a base for its kind.
inline constexpr DISPID MemberNumber(const Member& member, std::size_t place) {
  if (member.kind == Kind::Enumerator) return DISPID_NEWENUM;
  return kFirstOfKind[static_cast<int>(member.kind)] + static_cast<DISPID>(place);
}

/// The member of a number, or null.
const Member* FindMember(const Class& described, DISPID number);
/// The number of a name, letter case ignored, or DISPID_UNKNOWN.
DISPID FindNumber(const Class& described, std::u16string_view name);
/// The place of an argument's name in a member's order, letter case ignored, or DISPID_UNKNOWN.
DISPID FindArgument(const Member& member, std::u16string_view name);

}  // namespace zef::component
