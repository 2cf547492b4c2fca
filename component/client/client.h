#pragma once

/// What the typed classes of ZEFComponents.hpp stand on: references to objects, failures as exceptions, values on their
/// way into variants and back, and finding the library. Needs nothing but the system.

#include <dlfcn.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <new>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include "automation.h"
#include "date.h"
#include "date_text.h"
#include "failure.h"

namespace zef {
inline namespace automation {

struct Null {
  friend bool operator==(Null, Null) = default;
};
using Bytes = std::vector<std::byte>;
/// A value of a database column. Texts are UTF-8, here and everywhere in this header.
using Value = std::variant<Null, std::int32_t, std::uint8_t, double, bool, Date, std::string, Bytes>;
/// A table of texts, row by row.
using Rows = std::vector<std::vector<std::string>>;

// Texts between UTF-8 and UTF-16; what is malformed becomes U+FFFD.

inline void AppendUtf8(std::string& text, char32_t point) {
  const auto add = [&](char32_t bits) { text += static_cast<char>(bits); };
  if (point < 0x80) {
    add(point);
  } else if (point < 0x800) {
    add(0xC0 | point >> 6);
    add(0x80 | (point & 0x3F));
  } else if (point < 0x10000) {
    add(0xE0 | point >> 12);
    add(0x80 | (point >> 6 & 0x3F));
    add(0x80 | (point & 0x3F));
  } else {
    add(0xF0 | point >> 18);
    add(0x80 | (point >> 12 & 0x3F));
    add(0x80 | (point >> 6 & 0x3F));
    add(0x80 | (point & 0x3F));
  }
}

inline std::string ToUtf8(std::u16string_view units) {
  std::string text;
  text.reserve(units.size());
  for (std::size_t i = 0; i < units.size(); ++i) {
    const char16_t unit = units[i];
    const bool pair =
        unit >= 0xD800 && unit < 0xDC00 && i + 1 < units.size() && units[i + 1] >= 0xDC00 && units[i + 1] < 0xE000;
    if (pair) {
      AppendUtf8(text, 0x10000 + ((unit & 0x3FFu) << 10 | (units[++i] & 0x3FFu)));
    } else {
      AppendUtf8(text, unit >= 0xD800 && unit < 0xE000 ? U'\uFFFD' : unit);
    }
  }
  return text;
}

/// The code point at a place, which moves on behind it.
inline char32_t NextPoint(std::string_view text, std::size_t& at) {
  const auto byte = [&](std::size_t i) { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0u; };
  const unsigned first = byte(at++);
  if (first < 0x80) return first;
  const int more = first >= 0xF0 && first < 0xF5   ? 3
                   : first >= 0xE0 && first < 0xF0 ? 2
                   : first >= 0xC2 && first < 0xE0 ? 1
                                                   : 0;
  if (more == 0) return U'\uFFFD';
  char32_t point = first & (0x3Fu >> more);
  for (int i = 0; i < more; ++i) {
    const unsigned next = byte(at + static_cast<std::size_t>(i));
    if ((next & 0xC0) != 0x80) return U'\uFFFD';
    point = point << 6 | (next & 0x3F);
  }
  constexpr char32_t kLeast[] = {0, 0x80, 0x800, 0x10000};
  if (point < kLeast[more] || point > 0x10FFFF || (point >= 0xD800 && point < 0xE000)) return U'\uFFFD';
  at += static_cast<std::size_t>(more);
  return point;
}

inline std::u16string ToUtf16(std::string_view text) {
  std::u16string units;
  units.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const char32_t point = NextPoint(text, at);
    if (point < 0x10000) {
      units += static_cast<char16_t>(point);
    } else {
      units += static_cast<char16_t>(0xD800 + ((point - 0x10000) >> 10));
      units += static_cast<char16_t>(0xDC00 + ((point - 0x10000) & 0x3FF));
    }
  }
  return units;
}

inline std::string TextOf(BSTR text) { return text == nullptr ? std::string() : ToUtf8({text, SysStringLen(text)}); }

inline BSTR NewText(std::string_view text) {
  const std::u16string units = ToUtf16(text);
  BSTR const made = SysAllocStringLen(units.data(), static_cast<UINT>(units.size()));
  if (made == nullptr) throw std::bad_alloc();
  return made;
}

/// A variant that owns its value.
struct OwnedVariant : VARIANT {
  OwnedVariant() { VariantInit(this); }
  ~OwnedVariant() { VariantClear(this); }
  OwnedVariant(const OwnedVariant&) = delete;
  OwnedVariant& operator=(const OwnedVariant&) = delete;
};

[[noreturn]] inline void Raise(HRESULT result, EXCEPINFO& told) {
  const std::string sentence = TextOf(told.bstrDescription);
  for (BSTR text : {told.bstrSource, told.bstrDescription, told.bstrHelpFile}) SysFreeString(text);
  if (result == E_OUTOFMEMORY) throw std::bad_alloc();
  if (result != DISP_E_EXCEPTION) {
    char code[32];
    std::snprintf(code, sizeof code, "%08X", static_cast<unsigned>(result));
    throw Failure(result, std::string("The call was refused with result ") + code);
  }
  constexpr std::uint32_t kRunTime = 0x800A0000;
  const auto bits = static_cast<std::uint32_t>(told.scode);
  const bool is_run_time = (bits & 0xFFFF0000) == kRunTime;
  throw Failure(is_run_time ? static_cast<std::int32_t>(bits & 0xFFFF) : told.scode, sentence);
}

/// One call of a member, arguments from last to first.
inline void InvokeMember(IDispatch* object, DISPID member, WORD flags, VARIANT* arguments, UINT count,
                         VARIANT* result) {
  constexpr std::int32_t kObjectNotSet = 91;
  if (object == nullptr) throw Failure(kObjectNotSet, "Object variable or With block variable not set");
  DISPID assigned = DISPID_PROPERTYPUT;
  const bool puts = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
  DISPPARAMS parameters{arguments, puts ? &assigned : nullptr, count, puts ? 1u : 0u};
  EXCEPINFO failure{};
  const HRESULT outcome = object->Invoke(member, IID_NULL, 0, flags, &parameters, result, &failure, nullptr);
  if (FAILED(outcome)) Raise(outcome, failure);
}

// How each type of the interface goes into a variant and comes out of one. `Borrow` gives a variant that owns what has
// to be freed but for objects, which the caller keeps.

template <class T>
struct Carried;

template <>
struct Carried<std::int32_t> {
  using Raw = LONG;
  static constexpr VARTYPE kKind = VT_I4;
  static void Borrow(VARIANT& variant, std::int32_t value) { variant.lVal = value; }
  static std::int32_t Take(VARIANT& variant) { return variant.lVal; }
};
template <class E>
requires std::is_enum_v<E>
struct Carried<E> : Carried<std::int32_t> {
  static E Take(VARIANT& variant) { return static_cast<E>(variant.lVal); }
};
template <>
struct Carried<bool> {
  using Raw = VARIANT_BOOL;
  static constexpr VARTYPE kKind = VT_BOOL;
  static void Borrow(VARIANT& variant, bool value) { variant.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE; }
  static bool Take(VARIANT& variant) { return variant.boolVal != VARIANT_FALSE; }
};
template <>
struct Carried<Date> {
  using Raw = DATE;
  static constexpr VARTYPE kKind = VT_DATE;
  static void Borrow(VARIANT& variant, Date value) { variant.date = value.value; }
  static Date Take(VARIANT& variant) { return Date{variant.date}; }
};
template <>
struct Carried<std::string> {
  using Raw = BSTR;
  static constexpr VARTYPE kKind = VT_BSTR;
  static void Borrow(VARIANT& variant, std::string_view value) { variant.bstrVal = NewText(value); }
  static std::string Take(VARIANT& variant) { return TextOf(variant.bstrVal); }
};
template <>
struct Carried<Rows> {
  using Raw = SAFEARRAY*;
  static constexpr VARTYPE kKind = VT_ARRAY | VT_BSTR;
  static void Borrow(VARIANT& variant, const Rows&) { variant.parray = nullptr; }  // members make it anew
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
template <>
struct Carried<Value> {
  static constexpr VARTYPE kKind = VT_VARIANT;
  static void Borrow(VARIANT& variant, const Value& value) {
    std::visit([&](const auto& held) { BorrowHeld(variant, held); }, value);
  }
  static Value Take(VARIANT& variant) {
    switch (variant.vt) {
      case VT_I4: return variant.lVal;
      case VT_UI1: return variant.bVal;
      case VT_R8: return variant.dblVal;
      case VT_BOOL: return variant.boolVal != VARIANT_FALSE;
      case VT_DATE: return Date{variant.date};
      case VT_BSTR: return TextOf(variant.bstrVal);
      case VT_ARRAY | VT_UI1: {
        const auto* const first = static_cast<const std::byte*>(variant.parray->pvData);
        return Bytes(first, first + variant.parray->rgsabound[0].cElements);
      }
      default: return Null{};
    }
  }

 private:
  template <class T>
  static void BorrowHeld(VARIANT& variant, const T& held) {
    if constexpr (std::is_same_v<T, Null>) {
      variant.vt = VT_NULL;
    } else if constexpr (std::is_same_v<T, std::uint8_t>) {
      variant.vt = VT_UI1;
      variant.bVal = held;
    } else if constexpr (std::is_same_v<T, double>) {
      variant.vt = VT_R8;
      variant.dblVal = held;
    } else if constexpr (std::is_same_v<T, Bytes>) {
      const SAFEARRAYBOUND bound{static_cast<ULONG>(held.size()), 0};
      variant.parray = SafeArrayCreate(VT_UI1, 1, &bound);
      if (variant.parray == nullptr) throw std::bad_alloc();
      variant.vt = VT_ARRAY | VT_UI1;
      if (!held.empty()) std::memcpy(variant.parray->pvData, held.data(), held.size());
    } else {
      variant.vt = Carried<T>::kKind;
      Carried<T>::Borrow(variant, held);
    }
  }
};

/// The reference that every typed class is: its only content.
struct Reference {
  IDispatch* object;
};

template <class C>
requires requires { C::kProgrammaticName; }
struct Carried<C> {
  using Raw = IDispatch*;
  static constexpr VARTYPE kKind = VT_DISPATCH;
  static void Borrow(VARIANT& variant, const C& value) {
    variant.pdispVal = value.get();
    if (variant.pdispVal != nullptr) variant.pdispVal->AddRef();
  }
  static C Take(VARIANT& variant) { return C(std::exchange(variant.pdispVal, nullptr)); }
};

/// An argument by value; freed behind the call.
template <class T>
class In {
 public:
  explicit In(const T& value) {
    if constexpr (!std::is_same_v<T, Value>) variant_.vt = Carried<T>::kKind;
    Carried<T>::Borrow(variant_, value);
  }
  void Place(VARIANT& argument) const { argument = variant_; }
  void GiveBack() {}

 private:
  OwnedVariant variant_;
};

/// An argument that the member may change.
template <class T>
class InOut {
 public:
  explicit InOut(T& variable) : variable_(variable) {
    variant_.vt = Carried<T>::kKind;
    Carried<T>::Borrow(variant_, variable);
  }
  void Place(VARIANT& argument) {
    VariantInit(&argument);
    argument.vt = static_cast<VARTYPE>(VT_BYREF | Carried<T>::kKind);
    argument.byref = &variant_.llVal;
  }
  void GiveBack() { variable_ = Carried<T>::Take(variant_); }

 private:
  T& variable_;
  OwnedVariant variant_;
};

/// Calls a member and takes its result.
template <class Result, class... Arguments>
Result Call(IDispatch* object, DISPID member, WORD flags, Arguments&&... arguments) {
  OwnedVariant result;
  constexpr std::size_t kCount = sizeof...(Arguments);
  VARIANT placed[kCount + 1];
  std::size_t at = kCount;
  (arguments.Place(placed[--at]), ...);
  InvokeMember(object, member, flags, placed, kCount, std::is_void_v<Result> ? nullptr : &result);
  (arguments.GiveBack(), ...);
  if constexpr (!std::is_void_v<Result>) return Carried<Result>::Take(result);
}

/// A property that is only read, in the place of its object's reference.
template <class T, DISPID Id>
struct ReadOnlyProperty {
  IDispatch* object;

  T get() const { return Call<T>(object, Id, DISPATCH_PROPERTYGET); }
  operator T() const { return get(); }
  /// To the members of an object that the property is.
  T operator->() const { return get(); }
  friend bool operator==(const ReadOnlyProperty& property, const T& value) { return property.get() == value; }
};

/// A property with get and let, or set.
template <class T, DISPID Id>
struct Property : ReadOnlyProperty<T, Id> {
  Property& operator=(const T& value) {
    Call<void>(this->object, Id, DISPATCH_PROPERTYPUT, In<T>(value));
    return *this;
  }
  Property& operator=(const Property& other) { return *this = other.get(); }
};

/// The elements of a collection, for `for`.
template <class Element>
class Elements {
 public:
  using value_type = Element;
  using difference_type = std::ptrdiff_t;

  explicit Elements(IDispatch* collection) {
    OwnedVariant enumerator;
    InvokeMember(collection, DISPID_NEWENUM, DISPATCH_PROPERTYGET, nullptr, 0, &enumerator);
    void* walk = nullptr;
    const HRESULT outcome = enumerator.punkVal->QueryInterface(IID_IEnumVARIANT, &walk);
    EXCEPINFO none{};
    if (FAILED(outcome)) Raise(outcome, none);
    walk_ = static_cast<IEnumVARIANT*>(walk);
    ++*this;
  }
  Elements(Elements&& other) noexcept
      : walk_(std::exchange(other.walk_, nullptr)), element_(std::move(other.element_)) {}
  Elements& operator=(Elements&& other) noexcept {
    std::swap(walk_, other.walk_);
    std::swap(element_, other.element_);
    return *this;
  }
  ~Elements() {
    if (walk_ != nullptr) walk_->Release();
  }

  Elements& operator++() {
    OwnedVariant next;
    EXCEPINFO none{};
    const HRESULT outcome = walk_->Next(1, &next, nullptr);
    if (FAILED(outcome)) Raise(outcome, none);
    element_ = outcome == S_OK ? Carried<Element>::Take(next) : Element();
    return *this;
  }
  void operator++(int) { ++*this; }
  const Element& operator*() const { return element_; }
  friend bool operator==(const Elements& at, std::default_sentinel_t) { return !at.element_; }

 private:
  IEnumVARIANT* walk_ = nullptr;
  Element element_;
};

// Finding the library.

/// A loaded library of components. It stays loaded.
class Library {
 public:
  /// Raises 53 with the system's own reason if the file cannot be loaded or is no library of components.
  explicit Library(const std::string& path) {
    constexpr std::int32_t kFileNotFound = 53;
    void* const handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (handle == nullptr) throw Failure(kFileNotFound, std::string("The library cannot be loaded: ") + dlerror());
    get_class_object_ = reinterpret_cast<GetClassObjectFunction*>(dlsym(handle, "DllGetClassObject"));
    if (get_class_object_ == nullptr) throw Failure(kFileNotFound, path + " is no library of components.");
  }

  /// A new object of a class, as its automation interface with a reference.
  IDispatch* Create(REFCLSID identifier) const {
    void* made = nullptr;
    HRESULT outcome = get_class_object_(identifier, IID_IClassFactory, &made);
    if (SUCCEEDED(outcome)) {
      auto* const factory = static_cast<IClassFactory*>(made);
      outcome = factory->CreateInstance(nullptr, IID_IDispatch, &made);
      factory->Release();
    }
    EXCEPINFO none{};
    if (FAILED(outcome)) Raise(outcome, none);
    return static_cast<IDispatch*>(made);
  }
  template <class C>
  C Create() const {
    return C(Create(C::kClassIdentifier));
  }

 private:
  GetClassObjectFunction* get_class_object_;
};

/// Where a class is registered: the user's folder of components.
inline std::string EntryPath(std::string_view name) {
  const char* const data = std::getenv("XDG_DATA_HOME");
  const char* const home = std::getenv("HOME");
  std::string folder =
      data != nullptr && data[0] == '/' ? data : std::string(home == nullptr ? "" : home) + "/.local/share";
  return folder.append("/components/").append(name);
}

/// The path of the library that a class is registered for. Raises 429 if it is not registered.
inline std::string RegisteredLibrary(std::string_view name) {
  constexpr std::int32_t kCannotCreate = 429;
  std::ifstream entry(EntryPath(name));
  constexpr std::string_view kKey = "InprocServer32=";
  for (std::string line; std::getline(entry, line);) {
    if (line.starts_with(kKey)) return line.substr(kKey.size());
  }
  throw Failure(kCannotCreate,
                std::string(name) + " is not registered; register its library first, as in \"zef register\".");
}

/// A new object of a registered class. Raises 429 if it is not registered, 53 if its library is gone or cannot be
/// loaded.
template <class C>
C CreateObject() {
  static const Library library(RegisteredLibrary(C::kProgrammaticName));
  return library.Create<C>();
}

}  // namespace automation
}  // namespace zef
