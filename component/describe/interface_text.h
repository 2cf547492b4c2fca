#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "component/description.h"

/// What the description's text is made of. Systems differ in how a default interface is declared.
namespace zef::component {

/// What differs around the interfaces.
struct IdlForm {
  std::string_view imports;       ///< at the beginning
  std::string_view interface_;    ///< what a default interface is called
  std::string_view enumeration;   ///< in front of the name of one
  bool references_have_defaults;  ///< what is left out and may be changed has a value that stands for it
};
extern const IdlForm kIdlForm;

/// The default interface of a class.
std::string InterfaceText(const Class& described);

std::string Uuid(REFGUID identifier);
/// "[id(0x60030001)", with what else stands in these brackets.
std::string HeadText(DISPID number, std::string_view side);
std::string TypeText(const Type& type);
std::string ArgumentsText(const Member& member);

}  // namespace zef::component
