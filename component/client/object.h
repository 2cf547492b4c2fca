#pragma once

#include <concepts>
#include <cstddef>
#include <functional>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

#include "ZEFComponents/call.h"
#include "ZEFComponents/elements.h"
#include "ZEFComponents/given.h"
#include "ZEFComponents/registered.h"

/// Objects whose class is not known before the program runs: members by name.
namespace zef {
inline namespace automation {

struct Nothing {
  IDispatch* get() const { return nullptr; }
};

/// The argument as it goes over: texts, integers, Booleans, enumerations, dates, rows and objects as what they are,
/// a property as its value, anything else as a `Value`. A variable in `std::ref` is one that the member may change.
template <class T>
auto Passed(std::reference_wrapper<T> variable) {
  return InOut<T>(variable.get());
}
template <class T>
auto Passed(const T& value) {
  constexpr bool kIsItself =
      OtherInteger<T> || kIsOneOf<T, std::int32_t, bool, Date, Rows> || std::is_enum_v<T> || AnyObject<T>;
  if constexpr (AnyProperty<T>) {
    return Passed(value.get());
  } else if constexpr (std::is_null_pointer_v<T>) {
    return In<Nothing>(Nothing());
  } else if constexpr (kIsItself) {
    return In<T>(value);
  } else if constexpr (std::convertible_to<const T&, std::string_view>) {
    return In<std::string>(std::string_view(Text(value)));
  } else {
    return In<Value>(AnyValue(value));
  }
}

/// A counted reference to an object of any class. Names of members are looked up at each call, in any letter case; the
/// caller says which type it expects, and another one raises 13. Raises what the members of typed classes raise, and a
/// failure of number DISP_E_UNKNOWNNAME for a name that the object does not know.
class Object {
 public:
  Object() = default;
  Object(std::nullptr_t) {}
  /// Takes over a reference.
  explicit Object(IDispatch* owned) : object_(owned, Release) {}
  /// The object behind a typed class, or one without a type.
  template <class C>
  requires AnyObject<C>
  explicit Object(const C& typed) : Object(typed.get()) {
    if (typed) typed.get()->AddRef();
  }

  IDispatch* get() const noexcept { return object_.get(); }
  explicit operator bool() const noexcept { return get() != nullptr; }
  friend bool operator==(const Object& a, const Object& b) noexcept { return a.get() == b.get(); }

  /// Reads a property, which may have arguments.
  template <class T = Value, class... Arguments>
  T Get(std::string_view name, const Arguments&... arguments) const {
    return Use<T>(name, DISPATCH_PROPERTYGET, arguments...);
  }
  /// Assigns a value.
  template <class T>
  void Let(std::string_view name, const T& value) const {
    Use<void>(name, DISPATCH_PROPERTYPUT, value);
  }
  /// Assigns an object.
  template <class C>
  void Set(std::string_view name, const C& object) const {
    Use<void>(name, DISPATCH_PROPERTYPUTREF, object);
  }
  /// Calls a method.
  template <class T = void, class... Arguments>
  T Call(std::string_view name, const Arguments&... arguments) const {
    return Use<T>(name, DISPATCH_METHOD, arguments...);
  }

  /// The elements of a collection.
  Elements<Object> begin() const { return Elements<Object>(get()); }
  std::default_sentinel_t end() const { return {}; }

 private:
  static void Release(IDispatch* object) {
    if (object != nullptr) object->Release();
  }
  /// A call whose refusal names the member.
  template <class T, class... Arguments>
  T Use(std::string_view name, WORD flags, const Arguments&... arguments) const {
    const DISPID number = NumberOf(name);
    try {
      return automation::Call<T>(get(), number, flags, Passed(arguments)...);
    } catch (const Failure& failure) {
      if (!IsRefusal(failure.number())) throw;
      throw Failure(failure.number(), std::string(name) + ": " + failure.what());
    }
  }
  DISPID NumberOf(std::string_view name) const {
    RequireObject(get());
    Units units = ToUtf16(name);
    LPOLESTR text = units.data();
    DISPID number = DISPID_UNKNOWN;
    const HRESULT outcome = get()->GetIDsOfNames(IID_NULL, &text, 1, 0, &number);
    if (outcome == DISP_E_UNKNOWNNAME) throw Failure(outcome, "The object has no member '" + std::string(name) + "'");
    if (FAILED(outcome)) Raise(outcome);
    return number;
  }

  std::shared_ptr<IDispatch> object_;
};

/// A new object of a registered class by its name, as in `CreateObject("ZEFComponents.CSession")`. The registry is read
/// at each call. Raises 429 if the class is not registered, 53 if its library is gone or cannot be loaded.
inline Object CreateObject(std::string_view name) { return Object(CreateNamed(name)); }

}  // namespace automation
}  // namespace zef
