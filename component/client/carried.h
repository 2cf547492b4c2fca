#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <new>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include "ZEFComponents/automation.h"
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

inline void PutBytes(VARIANT& variant, const Bytes& bytes) {
  if (bytes.size() > 0x7FFFFFFF) throw std::bad_alloc();
  SAFEARRAYBOUND bound{static_cast<ULONG>(bytes.size()), 0};
  variant.parray = SafeArrayCreate(VT_UI1, 1, &bound);
  if (variant.parray == nullptr) throw std::bad_alloc();
  if (!bytes.empty()) std::memcpy(variant.parray->pvData, bytes.data(), bytes.size());
}
inline Bytes TakeBytes(const VARIANT& variant) {
  if (variant.parray == nullptr) return {};
  const auto* const first = static_cast<const std::byte*>(variant.parray->pvData);
  return Bytes(first, first + variant.parray->rgsabound[0].cElements);
}

template <>
struct Carried<Value> {
  static constexpr VARTYPE kKind = VT_VARIANT;
  /// Sets the kind too.
  static void Put(VARIANT& variant, const Value& value) {
    constexpr VARTYPE kKinds[] = {VT_NULL, VT_I4, VT_UI1, VT_R8, VT_BOOL, VT_DATE, VT_BSTR, VT_ARRAY | VT_UI1};
    static_assert(std::size(kKinds) == std::variant_size_v<Value>);
    std::visit([&](const auto& held) { PutHeld(variant, held); }, value);
    variant.vt = kKinds[value.index()];
  }
  static Value Take(VARIANT& variant) {
    switch (variant.vt) {
      case VT_I4: return variant.lVal;
      case VT_UI1: return variant.bVal;
      case VT_R8: return variant.dblVal;
      case VT_BOOL: return variant.boolVal != VARIANT_FALSE;
      case VT_DATE: return Date{variant.date};
      case VT_BSTR: return TextOf(variant.bstrVal);
      case VT_ARRAY | VT_UI1: return TakeBytes(variant);
      default: return Null{};
    }
  }

 private:
  static void PutHeld(VARIANT&, Null) {}
  static void PutHeld(VARIANT& variant, std::uint8_t byte) { variant.bVal = byte; }
  static void PutHeld(VARIANT& variant, double number) { variant.dblVal = number; }
  static void PutHeld(VARIANT& variant, const Bytes& bytes) { PutBytes(variant, bytes); }
  template <class T>
  static void PutHeld(VARIANT& variant, const T& held) {
    Carried<T>::Put(variant, held);
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
