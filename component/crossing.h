#pragma once

#include <cstdint>
#include <string>
#include <type_traits>
#include <variant>

#include "component/description.h"
#include "component/face.h"
#include "component/names.h"
#include "component/variant.h"
#include "platform/reference.h"

namespace zef::component {

// The types of a description, under short names. An enumeration and a reference to an object stand for themselves.
using Long = std::int32_t;
using Boolean = bool;
using Text = std::string;

/// How one type of a description crosses the boundary: what it is called out there, and the way in and out.
template <class T>
struct Crossing;

template <class T, VARTYPE Kind, T (*Read)(const VARIANT&)>
struct PlainCrossing {
  static constexpr Type kType{Kind, {}, false};
  static T In(const VARIANT& variant) { return Read(variant); }
  static void Out(VARIANT& variant, const T& value) { Give(variant, value); }
};
template <>
struct Crossing<Long> : PlainCrossing<Long, VT_I4, LongIn> {};
template <>
struct Crossing<Boolean> : PlainCrossing<Boolean, VT_BOOL, BooleanIn> {};
template <>
struct Crossing<Text> : PlainCrossing<Text, VT_BSTR, TextIn> {};
template <>
struct Crossing<Date> : PlainCrossing<Date, VT_DATE, DateIn> {};
template <>
struct Crossing<Value> : PlainCrossing<Value, VT_VARIANT, ValueIn> {};

template <class T>
requires std::is_enum_v<T>
struct Crossing<T> {
  static constexpr Type kType{VT_I4, kNameOf<T>, false};
  static T In(const VARIANT& variant) { return static_cast<T>(LongIn(variant)); }
  static void Out(VARIANT& variant, std::int32_t value) { Give(variant, value); }
};

template <class C>
struct Crossing<Ref<C>> {
  static constexpr Type kType{VT_DISPATCH, kNameOf<C>, false};
  static Ref<C> In(const VARIANT& variant) {
    IUnknown* const unknown = ObjectIn(variant);
    if (unknown == nullptr) return nullptr;
    const Face* const face = Face::Behind(unknown);
    if (face == nullptr || &face->Described() != &ClassOf<C>()) throw ConversionFailure(DISP_E_TYPEMISMATCH);
    return Ref<C>(static_cast<C*>(face->Shown().address));
  }
  static void Out(VARIANT& variant, const Ref<C>& object) {
    variant.vt = VT_DISPATCH;
    variant.pdispVal = object ? Face::Of(ClassOf<C>(), {object.get(), 0}) : nullptr;
  }
};

/// A position or a name.
using PositionOrKey = std::variant<std::int32_t, std::string>;
template <>
struct Crossing<PositionOrKey> {
  static constexpr Type kType{VT_VARIANT, {}, false};
  static PositionOrKey In(const VARIANT& variant) {
    if (Locate(variant).kind == VT_BSTR) return TextIn(variant);
    return LongIn(variant);
  }
};

/// Its content goes out only: every member that takes one makes it anew.
template <>
struct Crossing<FieldsArray> {
  static constexpr Type kType{VT_ARRAY | VT_BSTR, {}, false};
  static FieldsArray In(const VARIANT& variant) {
    const VARTYPE kind = Locate(variant).kind;
    if (kind != VT_EMPTY && (kind & VT_ARRAY) == 0) throw ConversionFailure(DISP_E_TYPEMISMATCH);
    return {};
  }
  static void Out(VARIANT& variant, const FieldsArray& value) { Give(variant, value); }
};

}  // namespace zef::component
