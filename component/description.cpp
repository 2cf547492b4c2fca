#include "component/description.h"

#include <algorithm>

namespace zef::component {
namespace {

constexpr DISPID kPlaceMask = 0xFFFF;

char16_t Lower(char16_t unit) { return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit; }

/// Names of members and arguments are ASCII.
bool SameName(std::string_view name, std::u16string_view asked) {
  return std::ranges::equal(
      name, asked, {}, [](char c) { return Lower(static_cast<char16_t>(c)); }, Lower);
}

template <class Named>
DISPID PlaceOf(std::span<const Named> named, std::u16string_view name) {
  const auto found = std::ranges::find_if(named, [&](const Named& one) { return SameName(one.name, name); });
  return found == named.end() ? DISPID_UNKNOWN : static_cast<DISPID>(found - named.begin());
}

}  // namespace

const Member* FindMember(const Class& described, DISPID number) {
  if (number == DISPID_NEWENUM) {
    const auto found = std::ranges::find(described.members, Kind::Enumerator, &Member::kind);
    return found == described.members.end() ? nullptr : &*found;
  }
  const auto place = static_cast<std::size_t>(number & kPlaceMask);
  if (place >= described.members.size()) return nullptr;
  const Member& member = described.members[place];
  return MemberNumber(member, place) == number ? &member : nullptr;
}

DISPID FindNumber(const Class& described, std::u16string_view name) {
  const DISPID place = PlaceOf(described.members, name);
  if (place == DISPID_UNKNOWN) return place;
  return MemberNumber(described.members[static_cast<std::size_t>(place)], static_cast<std::size_t>(place));
}

DISPID FindArgument(const Member& member, std::u16string_view name) { return PlaceOf(member.Arguments(), name); }

}  // namespace zef::component
