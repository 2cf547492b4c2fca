#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include "ZEFComponents/automation.h"
#include "ZEFComponents/failure.h"
#include "ZEFComponents/text.h"
#include "ZEFComponents/values.h"

/// How each type of the interface goes into a variant and comes out of one.
namespace zef {
inline namespace automation {

/// A variant that owns its value.
struct OwnedVariant : VARIANT {
  OwnedVariant() { VariantInit(this); }
  ~OwnedVariant() { VariantClear(this); }
  OwnedVariant(const OwnedVariant&) = delete;
  OwnedVariant& operator=(const OwnedVariant&) = delete;
};

/// A reference to an object, typed or not.
template <class C>
concept AnyObject = requires(const C& object) {
  object.get()->Release();
};

/// `Put` fills an empty variant, which then owns what has to be freed; `Take` reads one of the type, and moves an
/// object out of it. What is not specialised is a typed class. No constraint says so, for those classes mention one
/// another before they are complete.
template <class C>
struct Carried {
  static constexpr VARTYPE kKind = VT_DISPATCH;
  static void Put(VARIANT& variant, const C& value) {
    variant.pdispVal = value.get();
    if (variant.pdispVal != nullptr) variant.pdispVal->AddRef();
  }
  static C Take(VARIANT& variant) { return C(std::exchange(variant.pdispVal, nullptr)); }
};

template <>
struct Carried<std::int32_t> {
  static constexpr VARTYPE kKind = VT_I4;
  static void Put(VARIANT& variant, std::int32_t value) { variant.lVal = value; }
  static std::int32_t Take(VARIANT& variant) { return variant.lVal; }
};

template <class T, class... Others>
inline constexpr bool kIsOneOf = (std::is_same_v<T, Others> || ...);
template <class T>
concept AnyCharacter = kIsOneOf<T, char, wchar_t, char8_t, char16_t, char32_t>;
/// An integer of another type than the library's own. Characters are none, and a byte is a value of its own.
template <class T>
concept OtherInteger = std::integral<T> && !AnyCharacter<T> && !kIsOneOf<T, std::int32_t, std::uint8_t, bool>;
/// Raises DISP_E_OVERFLOW if the integer does not fit.
template <OtherInteger I>
std::int32_t FittingLong(I value) {
  if (!std::in_range<std::int32_t>(value)) Raise(DISP_E_OVERFLOW);
  return static_cast<std::int32_t>(value);
}
template <OtherInteger I>
struct Carried<I> {
  static constexpr VARTYPE kKind = VT_I4;
  static void Put(VARIANT& variant, I value) { variant.lVal = FittingLong(value); }
  static I Take(VARIANT& variant) {
    if (!std::in_range<I>(variant.lVal)) throw Failure(kOverflow, "Overflow");
    return static_cast<I>(variant.lVal);
  }
};

template <class E>
requires std::is_enum_v<E>
struct Carried<E> {
  static constexpr VARTYPE kKind = VT_I4;
  static void Put(VARIANT& variant, E value) { variant.lVal = static_cast<LONG>(value); }
  static E Take(VARIANT& variant) { return static_cast<E>(variant.lVal); }
};
template <>
struct Carried<bool> {
  static constexpr VARTYPE kKind = VT_BOOL;
  static void Put(VARIANT& variant, bool value) { variant.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE; }
  static bool Take(VARIANT& variant) { return variant.boolVal != VARIANT_FALSE; }
};
template <>
struct Carried<Date> {
  static constexpr VARTYPE kKind = VT_DATE;
  static void Put(VARIANT& variant, Date value) { variant.date = value.value; }
  static Date Take(VARIANT& variant) { return Date{variant.date}; }
};
template <>
struct Carried<std::string> {
  static constexpr VARTYPE kKind = VT_BSTR;
  static void Put(VARIANT& variant, std::string_view value) { variant.bstrVal = NewText(value); }
  static std::string Take(VARIANT& variant) { return TextOf(variant.bstrVal); }
};
template <>
struct Carried<Rows> {
  static constexpr VARTYPE kKind = VT_ARRAY | VT_BSTR;
  static void Put(VARIANT& variant, const Rows&) { variant.parray = nullptr; }  // members make it anew
  static Rows Take(VARIANT& variant) {
    const SAFEARRAY* const array = variant.parray;
    if (array == nullptr || array->cDims != 2) return {};
    const std::size_t rows = array->rgsabound[1].cElements;
    const std::size_t columns = array->rgsabound[0].cElements;
    const auto* const cells = static_cast<const BSTR*>(array->pvData);
    Rows table(rows, std::vector<std::string>(columns));
    for (std::size_t i = 0; i < rows * columns; ++i) table[i % rows][i / rows] = TextOf(cells[i]);
    return table;
  }
};

// What only columns hold.

template <>
struct Carried<Null> {
  static constexpr VARTYPE kKind = VT_NULL;
  static void Put(VARIANT&, Null) {}
  static Null Take(VARIANT&) { return {}; }
};
template <>
struct Carried<std::uint8_t> {
  static constexpr VARTYPE kKind = VT_UI1;
  static void Put(VARIANT& variant, std::uint8_t value) { variant.bVal = value; }
  static std::uint8_t Take(VARIANT& variant) { return variant.bVal; }
};
template <>
struct Carried<double> {
  static constexpr VARTYPE kKind = VT_R8;
  static void Put(VARIANT& variant, double value) { variant.dblVal = value; }
  static double Take(VARIANT& variant) { return variant.dblVal; }
};
template <>
struct Carried<Bytes> {
  static constexpr VARTYPE kKind = VT_ARRAY | VT_UI1;
  static void Put(VARIANT& variant, const Bytes& bytes) {
    if (bytes.size() > 0x7FFFFFFF) throw std::bad_alloc();
    SAFEARRAYBOUND bound{static_cast<ULONG>(bytes.size()), 0};
    variant.parray = SafeArrayCreate(VT_UI1, 1, &bound);
    if (variant.parray == nullptr) throw std::bad_alloc();
    if (!bytes.empty()) std::memcpy(variant.parray->pvData, bytes.data(), bytes.size());
  }
  static Bytes Take(VARIANT& variant) {
    if (variant.parray == nullptr) return {};
    const auto* const first = static_cast<const std::byte*>(variant.parray->pvData);
    return Bytes(first, first + variant.parray->rgsabound[0].cElements);
  }
};

template <>
struct Carried<Value> {
  static constexpr VARTYPE kKind = VT_VARIANT;
  /// Sets the kind too.
  static void Put(VARIANT& variant, const Value& value) {
    std::visit([&]<class Held>(const Held& held) { PutHeld(variant, held); }, value);
  }
  static Value Take(VARIANT& variant) { return TakeAny(variant, static_cast<const Value*>(nullptr)); }

 private:
  template <class Held>
  static void PutHeld(VARIANT& variant, const Held& held) {
    Carried<Held>::Put(variant, held);
    variant.vt = Carried<Held>::kKind;
  }
  /// As the type that is carried in the variant's kind, else Null.
  template <class... Held>
  static Value TakeAny(VARIANT& variant, const std::variant<Held...>*) {
    Value value;
    const auto take = [&]<class One>(const One*) {
      if (variant.vt == Carried<One>::kKind) value = Carried<One>::Take(variant);
    };
    (take(static_cast<const Held*>(nullptr)), ...);
    return value;
  }
};

/// Puts a value into an empty variant with its kind, which comes last: a failure leaves the variant empty.
template <class T, class Given>
void Fill(VARIANT& variant, const Given& value) {
  Carried<T>::Put(variant, value);
  if constexpr (!std::is_same_v<T, Value>) variant.vt = Carried<T>::kKind;
}

}  // namespace automation
}  // namespace zef
