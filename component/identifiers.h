#pragma once

#include <string>

#include "component/automation.h"
#include "component/description.h"

/// The identifiers of this library: one series that ends in the number of the class.
namespace zef::component {

constexpr GUID Numbered(std::uint32_t series, std::uint16_t number) {
  return {
      series,
      0x5a1e,
      0x4d3b,
      {0x9c, 0x42, 0x7e, 0x15, 0xb0, 0x6f, static_cast<std::uint8_t>(number >> 8), static_cast<std::uint8_t>(number)}};
}

inline constexpr GUID kTypeLibrary = Numbered(0x2b7c9e40, 0);
inline constexpr GUID ClassIdentifier(const Class& described) { return Numbered(0x2b7c9e41, described.number); }
/// The default interface.
inline constexpr IID InterfaceOf(const Class& described) { return Numbered(0x2b7c9e42, described.number); }
inline constexpr GUID EnumerationIdentifier(std::uint16_t number) { return Numbered(0x2b7c9e43, number); }

/// As in "{2B7C9E41-5A1E-4D3B-9C42-7E15B06F0001}".
std::string IdentifierText(REFGUID identifier);

}  // namespace zef::component
