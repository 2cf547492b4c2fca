#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <type_traits>

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

/// An integer as an argument: of any integer type, an enumeration that stands for integers, or a property of either.
/// One that does not fit into 32 bits raises DISP_E_OVERFLOW; fractions, characters and Booleans are none.
class Number {
 public:
  Number() = default;
  Number(std::int32_t value) : value_(value) {}
  template <class Given>
  requires(OtherInteger<Given> || std::same_as<Given, std::uint8_t>) Number(Given value) : Number(Fitting(value)) {}
  template <class Given>
  requires(std::is_enum_v<Given>&& std::convertible_to<Given, std::int32_t>) Number(Given value)
      : Number(static_cast<std::underlying_type_t<Given>>(value)) {}
  template <AnyProperty Given>
  requires(std::same_as<typename Given::PropertyOf, std::int32_t> || std::is_enum_v<typename Given::PropertyOf>)
      Number(const Given& property)
      : Number(property.get()) {}
  template <class Given>
  requires(std::floating_point<Given> || AnyCharacter<Given> || std::same_as<Given, bool>) Number(Given)
  = delete;

  operator std::int32_t() const { return value_; }

 private:
  static std::int32_t Fitting(std::uint8_t value) { return value; }
  template <OtherInteger Given>
  static std::int32_t Fitting(Given value) {
    return FittingLong(value);
  }

  std::int32_t value_ = 0;
};

/// A Boolean as an argument: a `bool` or a property of that type, and nothing that only converts to one, as the text
/// "False" would.
class Truth {
 public:
  Truth() = default;
  template <std::same_as<bool> Given>
  Truth(Given value) : value_(value) {}
  template <AnyProperty Given>
  requires std::same_as<typename Given::PropertyOf, bool> Truth(const Given& property) : value_(property.get()) {}

  operator bool() const { return value_; }

 private:
  bool value_ = false;
};

/// A text as an argument: of any type of text, a path, or a property. Lives as long as what it is made of.
class Text {
 public:
  Text() = default;
  template <class Given>
  requires std::convertible_to<const Given&, std::string_view> Text(const Given& text) : view_(text) {}
  /// A null pointer is the empty text, as it is inside the library.
  Text(const char* text) : view_(text == nullptr ? std::string_view() : text) {}
  Text(std::nullptr_t) {}
  template <std::same_as<std::filesystem::path> Path>
  Text(const Path& path) : read_(path.string()), view_(read_) {}
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
/// does not fit into 32 bits raises DISP_E_OVERFLOW; a character is no value.
class AnyValue {
 public:
  AnyValue() = default;
  template <class Given>
  requires(OtherInteger<Given> || AnyProperty<Given> || std::convertible_to<const Given&, std::string_view> ||
           (std::convertible_to<const Given&, Value> && !AnyCharacter<Given>)) AnyValue(const Given& given)
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
struct GivenAs<std::int32_t> {
  using Type = Number;
  using Seen = std::int32_t;
};
template <>
struct GivenAs<bool> {
  using Type = Truth;
  using Seen = bool;
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
