#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "platform/keyed_list.h"
#include "platform/reference.h"
#include "session/record_classes.h"
#include "session/statements.h"

namespace zef {

/// An identifier with a text: the light record of some lists.
class CTag : public RefCounted<CTag> {
 public:
  std::int32_t ID = 0;
  std::string Text;
};

/// True if the key "-1", the reference of a record that has none, stands for no element.
template <class Element>
inline constexpr bool kMinusOneIsNothing = false;
template <>
inline constexpr bool kMinusOneIsNothing<CCategory> = true;

/// An ordered list of elements under the decimal text of the `ID` that they had when they were added. Belongs to the
/// client; elements do not know their collection.
template <class Element>
class Collection : public RefCounted<Collection<Element>> {
 public:
  /// A position from 1, or a key.
  using IndexOrKey = std::variant<std::int32_t, std::string>;

  /// Adds at the end. False, and nothing is recorded anywhere, if an element with that `ID` is present or there is no
  /// element.
  bool Add(const Ref<Element>& element) { return element && elements_.TryAdd(SqlNumber(element->ID), element); }
  /// Raises 9 for a position outside 1 to `Count`.
  Ref<Element> ItemByIdx(std::int32_t Index) const { return elements_.Item(Index); }
  /// Raises 5 for an unknown key; of categories, "-1" is Nothing.
  Ref<Element> ItemByKey(const std::string& Key) const {
    if (kMinusOneIsNothing<Element> && Key == "-1") return nullptr;
    return elements_.Item(std::string_view(Key));
  }
  std::int32_t Count() const { return elements_.Count(); }
  /// Removes by position or key; raises as the two look-ups do.
  void Remove(const IndexOrKey& vntIndexKey) {
    std::visit([&](const auto& which) { elements_.Remove(which); }, vntIndexKey);
  }
  void Clear() { elements_.Clear(); }

  /// The elements in the order in which they were added. A walk goes by position: one that removes elements skips those
  /// that move up.
  auto begin() const { return elements_.begin(); }
  auto end() const { return elements_.end(); }

 private:
  KeyedList<Ref<Element>> elements_;
};

}  // namespace zef
