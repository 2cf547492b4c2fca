#pragma once

#include <cstddef>
#include <type_traits>

#include "component/call.h"
#include "component/crossing.h"

/// How the arguments of a member are passed: what a description states of each, and each in a running call.
namespace zef::component {

// Ways of passing an argument, around its type.

template <class T>
struct ByRef {};
template <class T, Long Default = 0>
struct Optional {};

template <class T>
struct Passing {
  using Held = T;
  static constexpr bool kByReference = false;
  static constexpr bool kOptional = false;
  static constexpr Long kDefault = 0;
};
template <class T>
struct Passing<ByRef<T>> : Passing<T> {
  static constexpr bool kByReference = true;
};
template <class T, Long Default>
struct Passing<Optional<T, Default>> : Passing<T> {
  static constexpr bool kOptional = true;
  static constexpr Long kDefault = Default;
};

/// True if a C++ type is the one that a description states. Stored enumerations are plain integers in the records.
template <class Stated, class Actual>
inline constexpr bool kSame = std::is_same_v<Stated, Actual> ||
                              (std::is_enum_v<Stated> && std::is_same_v<Actual, Long>);

template <class Stated>
constexpr Type TypeOf() {
  if constexpr (std::is_void_v<Stated>) {
    return {};
  } else {
    return Crossing<Stated>::kType;
  }
}

/// One argument of a running call: converted at its beginning, given back at its end if the member may change it.
template <class Stated, class Parameter>
class Passed {
  using How = Passing<Stated>;
  using Held = typename How::Held;
  using Kept = std::remove_cvref_t<Parameter>;

 public:
  static constexpr bool kGivenBack =
      std::is_lvalue_reference_v<Parameter> && !std::is_const_v<std::remove_reference_t<Parameter>>;

 private:
  static_assert(kSame<Held, Kept>, "the description states another type of argument");
  static_assert(How::kByReference || !kGivenBack, "the member changes an argument that is described as a value");
  static constexpr bool kReferenceIsExact = How::kByReference && Crossing<Held>::kType.kind != VT_VARIANT;
  static_assert(kReferenceIsExact || !kGivenBack, "a variable of any kind cannot be written back");

 public:
  Passed(const Call& call, std::size_t place) : variant_(call.arguments[place]), value_(In(place)) {}

  Parameter Pass() { return static_cast<Parameter>(value_); }
  void GiveBack() const {
    if constexpr (kGivenBack) {
      if (variant_ == nullptr) return;
      VARIANT value{};
      Crossing<Held>::Out(value, value_);
      StoreThrough(*variant_, value);
    }
  }

 private:
  Kept In(std::size_t place) const {
    if (variant_ == nullptr) return Default();
    try {
      if constexpr (kReferenceIsExact) CheckReference(*variant_, Crossing<Held>::kType.kind);
      return static_cast<Kept>(Crossing<Held>::In(*variant_));
    } catch (const ConversionFailure& failure) {
      throw ArgumentFailure(failure.result, place);
    }
  }
  static Kept Default() {
    if constexpr (std::is_same_v<Kept, Long>) {
      return How::kDefault;
    } else {
      static_assert(How::kDefault == 0, "only an integer has a default of its own");
      return Kept();
    }
  }
  const VARIANT* variant_;
  Kept value_;
};

}  // namespace zef::component
