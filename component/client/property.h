#pragma once

#include <compare>
#include <concepts>
#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <type_traits>

#include "ZEFComponents/automation.h"
#include "ZEFComponents/call.h"
#include "ZEFComponents/given.h"

/// Properties as data members of the typed classes: reading one converts to its type, assigning sets it.
namespace zef {
inline namespace automation {

/// The reference that every typed class is: its only content.
struct Reference {
  IDispatch* object;
};

/// A value that was read, for one use of its members.
template <class T>
struct Pointed {
  T value;
  const T* operator->() const { return &value; }
};

/// A property that is only read, in the place of its object's reference. It cannot be copied, since it does not keep
/// its object: take the value, as in `std::string name = folder.Name;`.
template <class T, DISPID Id>
struct ReadOnlyProperty {
  using PropertyOf = T;
  using Given = typename GivenAs<T>::Type;
  using Seen = typename GivenAs<T>::Seen;

  IDispatch* object;

  ReadOnlyProperty(const ReadOnlyProperty&) = delete;
  ReadOnlyProperty& operator=(const ReadOnlyProperty&) = delete;

  T get() const { return Call<T>(object, Id, DISPATCH_PROPERTYGET); }
  operator T() const { return get(); }
  /// False for Nothing.
  template <class C = T>
  requires AnyObject<C>
  explicit operator bool() const { return get().get() != nullptr; }
  /// To the members of the object or of the value that the property is.
  auto operator->() const {
    if constexpr (AnyObject<T>) {
      return get();
    } else {
      return Pointed<T>{get()};
    }
  }
  /// To walk over a collection write `.get()`, as in `for (auto error : connection.Errors.get())`: `for` does not keep
  /// what the property belongs to, so the property itself might be gone before the walk begins.
  void begin() const = delete;
  void end() const = delete;

  // Numbers compare by themselves.

  friend bool operator==(const ReadOnlyProperty& property, Given value) requires std::is_class_v<T> {
    return static_cast<Seen>(property.get()) == static_cast<Seen>(value);
  }
  template <DISPID Other>
  requires std::is_class_v<T>
  friend bool operator==(const ReadOnlyProperty& property, const ReadOnlyProperty<T, Other>& other) {
    return property.get() == other.get();
  }
  friend auto operator<=>(const ReadOnlyProperty& property,
                          Given value) requires(std::is_class_v<T>&& std::three_way_comparable<T>) {
    return static_cast<Seen>(property.get()) <=> static_cast<Seen>(value);
  }
  template <DISPID Other, std::three_way_comparable V = T>
  requires std::is_class_v<V>
  friend auto operator<=>(const ReadOnlyProperty& property, const ReadOnlyProperty<V, Other>& other) {
    return property.get() <=> other.get();
  }
  template <class V = T>
  requires requires(std::ostream& out, const V& value) { out << value; }
  friend std::ostream& operator<<(std::ostream& out, const ReadOnlyProperty& property) { return out << property.get(); }
};

// Texts are joined.

inline std::string Joined(std::string_view first, std::string_view second) { return std::string(first).append(second); }
template <DISPID Id>
std::string operator+(const ReadOnlyProperty<std::string, Id>& property, const Text& text) {
  return Joined(property.get(), text);
}
template <DISPID Id>
std::string operator+(const Text& text, const ReadOnlyProperty<std::string, Id>& property) {
  return Joined(text, property.get());
}
template <DISPID Id, DISPID Other>
std::string operator+(const ReadOnlyProperty<std::string, Id>& property,
                      const ReadOnlyProperty<std::string, Other>& other) {
  return Joined(property.get(), other.get());
}

/// A property with get and let, or set.
template <class T, DISPID Id>
struct Property : ReadOnlyProperty<T, Id> {
  using typename ReadOnlyProperty<T, Id>::Given;

  Property& operator=(Given value) {
    Call<void>(this->object, Id, DISPATCH_PROPERTYPUT, In<T>(value));
    return *this;
  }
  Property& operator=(const Property& other) { return *this = other.get(); }
  template <DISPID Other>
  Property& operator=(const ReadOnlyProperty<T, Other>& other) {
    return *this = other.get();
  }

  // Of texts and integers, as a read and a let. A sum that does not fit raises DISP_E_OVERFLOW.

  template <std::same_as<std::string> V = T>
  Property& operator+=(Given text) {
    return *this = *this + text;
  }
  template <std::same_as<std::int32_t> V = T>
  Property& operator+=(Given value) {
    return *this = Wide() + value;
  }
  template <std::same_as<std::int32_t> V = T>
  Property& operator-=(Given value) {
    return *this = Wide() - value;
  }
  template <std::same_as<std::int32_t> V = T>
  Property& operator|=(Given bits) {
    return *this = *this | bits;
  }
  template <std::same_as<std::int32_t> V = T>
  Property& operator&=(Given bits) {
    return *this = *this & bits;
  }

 private:
  std::int64_t Wide() const { return this->get(); }
};

// The typed classes read the reference through any member of a union, which this allows.
static_assert(std::is_standard_layout_v<Reference> && std::is_standard_layout_v<Property<std::string, 0>>);

}  // namespace automation
}  // namespace zef
