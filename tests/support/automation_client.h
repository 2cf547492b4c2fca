#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "component/automation.h"

/// A client of automation that hides nothing: every value, flag and outcome can be seen, also those that no sane client
/// would use.
namespace zef::test {

class Object;

/// A variant that owns its value, unless it is a reference to one.
class Variant {
 public:
  Variant() { VariantInit(&raw_); }
  Variant(std::int32_t number) : Variant(Of(VT_I4, number)) {}
  Variant(bool truth) : Variant(Of(VT_BOOL, truth ? VARIANT_TRUE : VARIANT_FALSE)) {}
  Variant(double number) : Variant(Of(VT_R8, number)) {}
  Variant(std::string_view text);
  Variant(const char* text) : Variant(std::string_view(text)) {}
  Variant(const std::string& text) : Variant(std::string_view(text)) {}
  Variant(std::u16string_view units);
  Variant(const char16_t* units) : Variant(std::u16string_view(units)) {}
  Variant(const Object& object);
  Variant(Variant&& other) noexcept : raw_(other.raw_) { VariantInit(&other.raw_); }
  Variant& operator=(Variant&& other) noexcept {
    std::swap(raw_, other.raw_);
    return *this;
  }
  ~Variant() { VariantClear(&raw_); }

  /// A value of any kind, as its bytes stand in a variant.
  template <class T>
  static Variant Of(VARTYPE kind, T value) {
    static_assert(sizeof(T) <= sizeof(raw_) - 8);
    Variant made;
    made.raw_.vt = kind;
    std::memcpy(&made.raw_.llVal, &value, sizeof value);
    return made;
  }
  static Variant Date(double date) { return Of(VT_DATE, date); }
  static Variant Null() { return Of(VT_NULL, LONGLONG{0}); }
  /// An argument that is left out.
  static Variant Missing() { return Of(VT_ERROR, DISP_E_PARAMNOTFOUND); }
  static Variant Nothing() { return Of(VT_DISPATCH, static_cast<IDispatch*>(nullptr)); }
  /// A reference to a variable of a kind.
  static Variant Ref(VARTYPE kind, void* variable) { return Of(static_cast<VARTYPE>(VT_BYREF | kind), variable); }
  static Variant Ref(Variant& variable) { return Ref(VT_VARIANT, &variable.raw_); }
  /// One of 96 bits and a scale.
  static Variant Decimal(std::uint32_t high, std::uint64_t low, unsigned char scale, bool negative);

  VARTYPE kind() const { return raw_.vt; }
  VARIANT& raw() { return raw_; }
  const VARIANT& raw() const { return raw_; }

  // The value. Each raises std::logic_error if it is of another kind, which fails a test.
  std::int32_t number() const;
  bool truth() const;
  double date() const;
  std::string text() const;
  std::u16string units() const;
  Object object() const;

 private:
  void Require(VARTYPE kind) const;

  VARIANT raw_;
};

/// What came of one call.
struct Outcome {
  HRESULT result = S_OK;
  Variant value;
  std::string source;
  std::string description;
  SCODE scode = 0;
  UINT argument = 0xFFFF;  ///< which argument was wrong; 0xFFFF if that was not told
};

/// The flags of a call, and arguments from first to last; the last ones are named.
struct Request {
  WORD flags = DISPATCH_METHOD;
  std::vector<DISPID> named{};
};

/// A counted reference to an object.
class Object {
 public:
  Object() = default;
  explicit Object(IDispatch* owned) : object_(owned) {}
  Object(const Object& other) : object_(other.object_) {
    if (object_ != nullptr) object_->AddRef();
  }
  Object(Object&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  Object& operator=(Object other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~Object() {
    if (object_ != nullptr) object_->Release();
  }

  IDispatch* get() const { return object_; }
  IDispatch* operator->() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }
  friend bool operator==(const Object& a, const Object& b) { return a.object_ == b.object_; }
  /// How many references there are.
  ULONG References() const;

  /// The number of a member; DISPID_UNKNOWN for an unknown name.
  DISPID Number(std::string_view name) const;
  /// A call by number that passes on what it is given.
  Outcome Invoke(DISPID member, WORD flags, DISPPARAMS* parameters) const;
  template <class... Arguments>
  Outcome Invoke(DISPID member, const Request& request, Arguments&&... arguments) const;

  template <class... Arguments>
  Outcome Call(std::string_view name, Arguments&&... arguments) const {
    return Invoke(Number(name), Request{DISPATCH_METHOD}, std::forward<Arguments>(arguments)...);
  }
  template <class... Arguments>
  Outcome Get(std::string_view name, Arguments&&... arguments) const {
    return Invoke(Number(name), Request{DISPATCH_PROPERTYGET}, std::forward<Arguments>(arguments)...);
  }
  template <class Value>
  Outcome Put(std::string_view name, Value&& value, WORD flags = DISPATCH_PROPERTYPUT) const {
    return Invoke(Number(name), Request{flags, {DISPID_PROPERTYPUT}}, std::forward<Value>(value));
  }

 private:
  IDispatch* object_ = nullptr;
};

template <class... Arguments>
Outcome Object::Invoke(DISPID member, const Request& request, Arguments&&... arguments) const {
  constexpr std::size_t kCount = sizeof...(Arguments);
  std::array<Variant, kCount> given{Variant(std::forward<Arguments>(arguments))...};
  std::array<VARIANT, kCount + 1> reversed{};
  for (std::size_t i = 0; i < kCount; ++i) reversed[kCount - 1 - i] = given[i].raw();
  std::vector<DISPID> named(request.named.rbegin(), request.named.rend());
  DISPPARAMS parameters{reversed.data(), named.data(), kCount, static_cast<UINT>(named.size())};
  return Invoke(member, request.flags, &parameters);
}

/// A variable of text that a reference can point at.
class TextVariable {
 public:
  explicit TextVariable(std::string_view text);
  ~TextVariable() { SysFreeString(text_); }
  TextVariable(const TextVariable&) = delete;
  TextVariable& operator=(const TextVariable&) = delete;

  Variant Ref() { return Variant::Ref(VT_BSTR, &text_); }
  std::string text() const;

 private:
  BSTR text_;
};

}  // namespace zef::test
