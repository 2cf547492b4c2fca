#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "component/description.h"
#include "component/names.h"
#include "platform/reference.h"

namespace zef::component {

/// What objects of a C++ class need beside their members to be shown.
template <class T>
struct Lifetime {
  static void* Create() {
    T* const object = new T();
    intrusive_ptr_add_ref(object);
    return object;
  }
  static void AddReference(void* object) { intrusive_ptr_add_ref(static_cast<T*>(object)); }
  static void Release(void* object) { intrusive_ptr_release(static_cast<T*>(object)); }
  static void*& Outside(void* object) { return static_cast<T*>(object)->Outside(); }
};

template <class Piece>
inline constexpr std::size_t kRowsOf = 1;
template <std::size_t Count>
inline constexpr std::size_t kRowsOf<std::array<Member, Count>> = Count;

/// The rows of a class from single members and from runs of members that several classes share.
template <std::size_t Count>
struct Rows : std::array<Member, Count> {
  template <class... Pieces>
  constexpr explicit Rows(const Pieces&... pieces) : std::array<Member, Count>{} {
    auto end = this->begin();
    ((end = Append(end, pieces)), ...);
  }

 private:
  static constexpr Member* Append(Member* end, const Member& member) {
    *end = member;
    return end + 1;
  }
  template <std::size_t Run>
  static constexpr Member* Append(Member* end, const std::array<Member, Run>& run) {
    return std::copy(run.begin(), run.end(), end);
  }
};
template <class... Pieces>
Rows(const Pieces&...) -> Rows<(kRowsOf<Pieces> + ...)>;

/// A class that clients can create.
template <class T>
constexpr Class Creatable(std::span<const Member> members) {
  using Life = Lifetime<T>;
  return {kNameOf<T>,          PlaceIn<T>(kPublicNames), members,       &Life::Create,
          &Life::AddReference, &Life::Release,           &Life::Outside};
}

/// A class that clients only reach, whose objects live as long as their `Owner`, of which each is a side or a part.
template <class T, class Owner = T>
constexpr Class Reachable(std::span<const Member> members) {
  constexpr std::uint16_t kFirst = 100;
  using Life = Lifetime<Owner>;
  return {kNameOf<T>,    kFirst + PlaceIn<T>(kReachedNames), members, nullptr, &Life::AddReference, &Life::Release,
          &Life::Outside};
}

}  // namespace zef::component
