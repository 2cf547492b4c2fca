#pragma once

#include <compare>
#include <concepts>
#include <ostream>
#include <string>
#include <string_view>
#include <type_traits>

#include "ZEFComponents/automation.h"
#include "ZEFComponents/call.h"

/// Properties as data members of the typed classes: reading one converts to its type, assigning sets it.
namespace zef {
inline namespace automation {

/// The reference that every typed class is: its only content.
struct Reference {
  IDispatch* object;
};

/// A property that is only read, in the place of its object's reference. It cannot be copied, since it does not keep
/// its object: take the value, as in `std::string name = folder.Name;`.
template <class T, DISPID Id>
struct ReadOnlyProperty {
  IDispatch* object;

  ReadOnlyProperty(const ReadOnlyProperty&) = delete;
  ReadOnlyProperty& operator=(const ReadOnlyProperty&) = delete;

  T get() const { return Call<T>(object, Id, DISPATCH_PROPERTYGET); }
  operator T() const { return get(); }
  /// False for Nothing.
  template <class C = T>
  requires requires(const C& value) { value.get(); }
  explicit operator bool() const { return get().get() != nullptr; }
  /// To the members of an object that the property is.
  T operator->() const { return get(); }

  friend bool operator==(const ReadOnlyProperty& property, const T& value) { return property.get() == value; }
  template <DISPID Other>
  friend bool operator==(const ReadOnlyProperty& property, const ReadOnlyProperty<T, Other>& other) {
    return property.get() == other.get();
  }
  /// Numbers compare by themselves.
  template <std::three_way_comparable V = T>
  requires std::is_class_v<V>
  friend auto operator<=>(const ReadOnlyProperty& property, const std::type_identity_t<V>& value) {
    return property.get() <=> value;
  }
  template <class V = T>
  requires requires(std::ostream& out, const V& value) { out << value; }
  friend std::ostream& operator<<(std::ostream& out, const ReadOnlyProperty& property) { return out << property.get(); }
};

/// A text as an argument: of any type of text, or a property. Lives as long as what it is made of.
class Text {
 public:
  Text() = default;
  template <class Given>
  requires std::convertible_to<const Given&, std::string_view> Text(const Given& text) : view_(text) {}
  /// A null pointer is the empty text, as it is inside the library.
  Text(const char* text) : view_(text == nullptr ? std::string_view() : text) {}
  template <DISPID Id>
  Text(const ReadOnlyProperty<std::string, Id>& property) : read_(property.get()), view_(read_) {}
  Text(const Text&) = delete;
  Text& operator=(const Text&) = delete;

  operator std::string_view() const { return view_; }

 private:
  std::string read_;
  std::string_view view_;
};

/// What a property or an argument of a type may be given as.
template <class T>
struct GivenAs {
  using Type = const T&;
};
template <>
struct GivenAs<std::string> {
  using Type = const Text&;
};

/// A property with get and let, or set.
template <class T, DISPID Id>
struct Property : ReadOnlyProperty<T, Id> {
  Property& operator=(typename GivenAs<T>::Type value) {
    Call<void>(this->object, Id, DISPATCH_PROPERTYPUT, In<T>(value));
    return *this;
  }
  Property& operator=(const Property& other) { return *this = other.get(); }
  template <DISPID Other>
  Property& operator=(const ReadOnlyProperty<T, Other>& other) {
    return *this = other.get();
  }
};

}  // namespace automation
}  // namespace zef
