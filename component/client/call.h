#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>

#include "ZEFComponents/automation.h"
#include "ZEFComponents/carried.h"
#include "ZEFComponents/failure.h"

/// Calls of members.
namespace zef {
inline namespace automation {

/// An argument by value; freed behind the call.
template <class T>
class In {
 public:
  template <class Given>
  explicit In(const Given& value) {
    Fill<T>(variant_, value);
  }
  void Place(VARIANT& argument) const { argument = variant_; }
  void GiveBack() {}

 private:
  OwnedVariant variant_;
};

/// An argument that the member may change; what it has written stays written, even if it fails.
template <class T>
class InOut {
 public:
  explicit InOut(T& variable) : variable_(variable) {
    Fill<T>(variant_, variable);
    if (kWhole && variant_.vt == VT_NULL) variant_.vt = VT_EMPTY;  // nothing was put there yet
  }
  void Place(VARIANT& argument) {
    VariantInit(&argument);
    argument.vt = static_cast<VARTYPE>(VT_BYREF | Carried<T>::kKind);
    argument.byref = kWhole ? static_cast<void*>(static_cast<VARIANT*>(&variant_)) : &variant_.llVal;
  }
  void GiveBack() { variable_ = Carried<T>::Take(variant_); }

 private:
  static constexpr bool kWhole = std::is_same_v<T, Value>;

  T& variable_;
  OwnedVariant variant_;
};

inline void RequireObject(IDispatch* object) {
  if (object == nullptr) throw Failure(kObjectNotSet, "Object variable or With block variable not set");
}

constexpr bool IsPut(WORD flags) { return (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0; }

/// One call of a member, arguments from last to first. Raises 91 for Nothing. `at_fault` becomes the index of an
/// argument that was refused.
inline HRESULT InvokeMember(IDispatch* object, DISPID member, WORD flags, VARIANT* arguments, UINT count,
                            VARIANT* result, EXCEPINFO& told, UINT* at_fault = nullptr) {
  RequireObject(object);
  DISPID assigned = DISPID_PROPERTYPUT;
  DISPPARAMS parameters{arguments, IsPut(flags) ? &assigned : nullptr, count, IsPut(flags) ? 1u : 0u};
  return object->Invoke(member, IID_NULL, 0, flags, &parameters, result, &told, at_fault);
}

/// Raises the failure of a call. An argument at fault is told by its place from 1; `at_fault` counts them from the
/// last.
[[noreturn]] inline void RaiseOfCall(HRESULT outcome, const EXCEPINFO& told, WORD flags, UINT count, UINT at_fault) {
  const std::string given = IsPut(flags)       ? "The value"
                            : at_fault < count ? "Argument " + std::to_string(count - at_fault)
                                               : "An argument";
  Raise(outcome, told, given);
}

/// Raises 13 for a result that is not of the kind. As a `Value` it may be anything but an object or a table.
inline void RequireKind(const VARIANT& result, VARTYPE kind) {
  const bool is_value = result.vt != VT_DISPATCH && result.vt != VT_UNKNOWN && result.vt != (VT_ARRAY | VT_BSTR);
  if (kind == VT_VARIANT ? !is_value : result.vt != kind) throw Failure(kTypeMismatch, "Type mismatch");
}

/// After a failure, which is what the caller is to be told: a value that its variable cannot hold stays behind.
template <class Argument>
void GiveBackIfFitting(Argument& argument) {
  try {
    argument.GiveBack();
  } catch (const Failure&) {
  }
}

/// Calls a member with `In` and `InOut` arguments and takes its result.
template <class Result, class... Arguments>
Result Call(IDispatch* object, DISPID member, WORD flags, Arguments&&... arguments) {
  OwnedVariant result;
  OwnedExcepinfo told;
  constexpr std::size_t kCount = sizeof...(Arguments);
  VARIANT placed[kCount + 1];
  [[maybe_unused]] std::size_t at = kCount;
  (arguments.Place(placed[--at]), ...);
  UINT at_fault = kCount;
  const HRESULT outcome =
      InvokeMember(object, member, flags, placed, kCount, std::is_void_v<Result> ? nullptr : &result, told, &at_fault);
  if (FAILED(outcome)) {
    (GiveBackIfFitting(arguments), ...);
    RaiseOfCall(outcome, told, flags, kCount, at_fault);
  }
  (arguments.GiveBack(), ...);
  if constexpr (!std::is_void_v<Result>) {
    RequireKind(result, Carried<Result>::kKind);
    return Carried<Result>::Take(result);
  }
}

}  // namespace automation
}  // namespace zef
