#pragma once

#include <concepts>
#include <cstddef>
#include <string>
#include <string_view>

#include "ZEFComponents/automation.h"
#include "ZEFComponents/carried.h"

/// What arguments and values to assign may be given as.
namespace zef {
inline namespace automation {

template <class T, DISPID Id>
struct ReadOnlyProperty;

template <class T>
concept AnyProperty = requires {
  typename T::PropertyOf;
};

/// A text as an argument: of any type of text, or a property. Lives as long as what it is made of.
class Text {
 public:
  Text() = default;
  template <class Given>
  requires std::convertible_to<const Given&, std::string_view> Text(const Given& text) : view_(text) {}
  /// A null pointer is the empty text, as it is inside the library.
  Text(const char* text) : view_(text == nullptr ? std::string_view() : text) {}
  Text(std::nullptr_t) {}
  template <DISPID Id>
  Text(const ReadOnlyProperty<std::string, Id>& property) : read_(property.get()), view_(read_) {}
  Text(const Text&) = delete;
  Text& operator=(const Text&) = delete;

  operator std::string_view() const { return view_; }

 private:
  std::string read_;
  std::string_view view_;
};

/// A value of a column as an argument: of any type that columns hold, any type of text, or a property. An integer that
/// does not fit into 32 bits raises DISP_E_OVERFLOW.
class AnyValue {
 public:
  AnyValue() = default;
  template <class Given>
  requires(OtherInteger<Given> || AnyProperty<Given> || std::convertible_to<const Given&, std::string_view> ||
           std::convertible_to<const Given&, Value>) AnyValue(const Given& given)
      : value_(Made(given)) {}
  AnyValue(const AnyValue&) = delete;
  AnyValue& operator=(const AnyValue&) = delete;

  operator const Value&() const { return value_; }

 private:
  template <class Given>
  static Value Made(const Given& given) {
    if constexpr (AnyProperty<Given>) {
      return Made(given.get());
    } else if constexpr (OtherInteger<Given>) {
      return FittingLong(given);
    } else if constexpr (std::convertible_to<const Given&, std::string_view>) {
      return std::string(std::string_view(Text(given)));
    } else {
      return given;
    }
  }

  Value value_;
};

/// What a property or an argument of a type may be given as, and as what that is then seen.
template <class T>
struct GivenAs {
  using Type = const T&;
  using Seen = const T&;
};
template <>
struct GivenAs<std::string> {
  using Type = const Text&;
  using Seen = std::string_view;
};
template <>
struct GivenAs<Value> {
  using Type = const AnyValue&;
  using Seen = const Value&;
};

}  // namespace automation
}  // namespace zef
