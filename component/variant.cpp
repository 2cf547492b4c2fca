#include "component/variant.h"

#include <cmath>
#include <cstring>
#include <limits>
#include <new>
#include <type_traits>

#include "platform/text.h"

namespace zef::component {
namespace {

template <class T>
T ReadAt(const void* at) {
  T value;
  std::memcpy(&value, at, sizeof value);
  return value;
}

/// A 32-bit integer where it fits, else a double.
template <class Integer>
Value Whole(Integer number) {
  if (number > std::numeric_limits<std::int32_t>::max()) return static_cast<double>(number);
  if constexpr (std::is_signed_v<Integer>) {
    if (number < std::numeric_limits<std::int32_t>::min()) return static_cast<double>(number);
  }
  return static_cast<std::int32_t>(number);
}

/// The published layout: scale and sign behind the kind, then 96 bits of which the highest 32 stand first.
Value Decimal(const void* at) {
  const auto* const bytes = static_cast<const unsigned char*>(at);
  const double high = ReadAt<std::uint32_t>(bytes + 4);
  const auto low = static_cast<double>(ReadAt<std::uint64_t>(bytes + 8));
  const double size = (high * 18446744073709551616.0 + low) / std::pow(10.0, bytes[2]);
  return (bytes[3] & 0x80) != 0 ? -size : size;
}

std::u16string_view UnitsOf(BSTR text) { return {text == nullptr ? u"" : text, SysStringLen(text)}; }

std::string Utf8Of(BSTR text) {
  const std::u16string_view units = UnitsOf(text);
  std::string ascii(units.size(), '\0');
  for (std::size_t i = 0; i < units.size(); ++i) {
    if (units[i] >= 0x80) return text::ToUtf8(units);
    ascii[i] = static_cast<char>(units[i]);
  }
  return ascii;
}

Value BytesOf(const SAFEARRAY* array) {
  if (array == nullptr) return Null{};
  if (array->cDims != 1 || array->cbElements != 1) throw ConversionFailure(DISP_E_TYPEMISMATCH);
  const auto* const first = static_cast<const std::byte*>(array->pvData);
  return Bytes(first, first + array->rgsabound[0].cElements);
}

Value ValueAt(Located located) {
  const void* const at = located.at;
  switch (located.kind) {
    case VT_EMPTY:
    case VT_NULL: return Null{};
    case VT_I1: return Whole(ReadAt<signed char>(at));
    case VT_UI1: return ReadAt<std::uint8_t>(at);
    case VT_I2: return Whole(ReadAt<SHORT>(at));
    case VT_UI2: return Whole(ReadAt<USHORT>(at));
    case VT_I4:
    case VT_INT: return Whole(ReadAt<std::int32_t>(at));
    case VT_UI4:
    case VT_UINT: return Whole(ReadAt<std::uint32_t>(at));
    case VT_I8: return Whole(ReadAt<std::int64_t>(at));
    case VT_UI8: return Whole(ReadAt<std::uint64_t>(at));
    case VT_R4: return static_cast<double>(ReadAt<float>(at));
    case VT_R8: return ReadAt<double>(at);
    case VT_CY: return static_cast<double>(ReadAt<std::int64_t>(at)) / 10000;
    case VT_DECIMAL: return Decimal(at);
    case VT_BOOL: return ReadAt<VARIANT_BOOL>(at) != VARIANT_FALSE;
    case VT_DATE: return Date(ReadAt<double>(at));
    case VT_BSTR: return Utf8Of(ReadAt<BSTR>(at));
    case VT_ARRAY | VT_UI1: return BytesOf(ReadAt<const SAFEARRAY*>(at));
    default: throw ConversionFailure(DISP_E_TYPEMISMATCH);
  }
}

template <class T>
T Converted(Located located, T (*convert)(const Value&)) {
  if (located.kind == VT_EMPTY) return T();
  try {
    return convert(ValueAt(located));
  } catch (const RunTimeError& failure) {
    throw ConversionFailure(failure.code() == FailureNumber::Overflow ? DISP_E_OVERFLOW : DISP_E_TYPEMISMATCH);
  }
}

std::string TextOfValue(const Value& value) { return ToText(value); }

/// The variant at the end of a chain of references to variants.
const VARIANT& Innermost(const VARIANT& variant) {
  constexpr int kMostReferences = 8;  // nobody nests them; a ring of them must not hang
  const VARIANT* at = &variant;
  for (int i = 0; i < kMostReferences && at->vt == (VT_BYREF | VT_VARIANT); ++i) {
    if (at->pvarVal == nullptr) break;
    at = at->pvarVal;
  }
  return *at;
}

std::size_t SizeOf(VARTYPE kind) {
  switch (kind) {
    case VT_BOOL: return sizeof(VARIANT_BOOL);
    case VT_I4: return sizeof(LONG);
    default: return sizeof(LONGLONG);
  }
}

SAFEARRAY* NewArray(VARTYPE kind, UINT dimensions, SAFEARRAYBOUND* bounds) {
  SAFEARRAY* const array = SafeArrayCreate(kind, dimensions, bounds);
  if (array == nullptr) throw std::bad_alloc();
  return array;
}

void GiveArray(VARIANT& variant, VARTYPE kind, SAFEARRAY* array) {
  variant.vt = static_cast<VARTYPE>(VT_ARRAY | kind);
  variant.parray = array;
}

void GiveBytes(VARIANT& variant, const Bytes& bytes) {
  SAFEARRAYBOUND bound{static_cast<ULONG>(bytes.size()), 0};
  SAFEARRAY* const array = NewArray(VT_UI1, 1, &bound);
  if (!bytes.empty()) std::memcpy(array->pvData, bytes.data(), bytes.size());
  GiveArray(variant, VT_UI1, array);
}

}  // namespace

Located Locate(const VARIANT& variant) {
  const VARIANT& inner = Innermost(variant);
  if ((inner.vt & VT_BYREF) == 0) {
    const bool whole = inner.vt == VT_DECIMAL;
    return {inner.vt, whole ? static_cast<const void*>(&inner) : &inner.llVal};
  }
  if (inner.byref == nullptr || inner.vt == (VT_BYREF | VT_VARIANT)) throw ConversionFailure(DISP_E_TYPEMISMATCH);
  return {static_cast<VARTYPE>(inner.vt & ~VT_BYREF), inner.byref};
}

std::int32_t LongIn(const VARIANT& variant) {
  if (variant.vt == VT_I4) return variant.lVal;
  return Converted(Locate(variant), ToLong);
}

bool BooleanIn(const VARIANT& variant) {
  if (variant.vt == VT_BOOL) return variant.boolVal != VARIANT_FALSE;
  return Converted(Locate(variant), ToBoolean);
}

std::string TextIn(const VARIANT& variant) {
  if (variant.vt == VT_BSTR) return Utf8Of(variant.bstrVal);
  return Converted(Locate(variant), TextOfValue);
}

Date DateIn(const VARIANT& variant) {
  if (variant.vt == VT_DATE) return Date(variant.date);
  return Converted(Locate(variant), ToDate);
}

Value ValueIn(const VARIANT& variant) { return ValueAt(Locate(variant)); }

IUnknown* ObjectIn(const VARIANT& variant) {
  const Located located = Locate(variant);
  if (located.kind == VT_EMPTY) return nullptr;
  if (located.kind != VT_DISPATCH && located.kind != VT_UNKNOWN) throw ConversionFailure(DISP_E_TYPEMISMATCH);
  return ReadAt<IUnknown*>(located.at);
}

void Give(VARIANT& variant, std::int32_t number) {
  variant.vt = VT_I4;
  variant.lVal = number;
}

void Give(VARIANT& variant, bool truth) {
  variant.vt = VT_BOOL;
  variant.boolVal = truth ? VARIANT_TRUE : VARIANT_FALSE;
}

void Give(VARIANT& variant, Date date) {
  variant.vt = VT_DATE;
  variant.date = date.value();
}

void Give(VARIANT& variant, std::string_view text) {
  variant.bstrVal = NewText(text);
  variant.vt = VT_BSTR;
}

void Give(VARIANT& variant, const Value& value) {
  std::visit(
      [&](const auto& held) {
        using Held = std::decay_t<decltype(held)>;
        if constexpr (std::is_same_v<Held, Null>) {
          variant.vt = VT_NULL;
        } else if constexpr (std::is_same_v<Held, std::uint8_t>) {
          variant.vt = VT_UI1;
          variant.bVal = held;
        } else if constexpr (std::is_same_v<Held, double>) {
          variant.vt = VT_R8;
          variant.dblVal = held;
        } else if constexpr (std::is_same_v<Held, Bytes>) {
          GiveBytes(variant, held);
        } else {
          Give(variant, held);
        }
      },
      value);
}

void Give(VARIANT& variant, const FieldsArray& texts) {
  const auto rows = static_cast<ULONG>(texts.LastRow() + 1);
  const auto columns = static_cast<ULONG>(texts.LastColumn() + 1);
  SAFEARRAYBOUND bounds[] = {{rows, 0}, {columns, 0}};
  SAFEARRAY* const array = NewArray(VT_BSTR, 2, bounds);
  GiveArray(variant, VT_BSTR, array);
  auto* const cells = static_cast<BSTR*>(array->pvData);
  for (ULONG row = 0; row < rows; ++row) {
    for (ULONG column = 0; column < columns; ++column) {
      const std::string& text = texts(static_cast<std::int32_t>(row), static_cast<std::int32_t>(column));
      if (!text.empty()) cells[column * rows + row] = NewText(text);
    }
  }
}

BSTR NewText(std::string_view text) {
  if (text.size() > std::numeric_limits<UINT>::max()) throw std::bad_alloc();
  BSTR const units = SysAllocStringLen(nullptr, static_cast<UINT>(text.size()));
  if (units == nullptr) throw std::bad_alloc();
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if (byte >= 0x80) {
      SysFreeString(units);
      const std::u16string wide = text::ToUtf16(text);
      BSTR const whole = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
      if (whole == nullptr) throw std::bad_alloc();
      return whole;
    }
    units[i] = byte;
  }
  return units;
}

void StoreThrough(const VARIANT& argument, VARIANT& value) noexcept {
  if ((argument.vt & VT_BYREF) == 0) {
    VariantClear(&value);
    return;
  }
  const VARIANT& inner = Innermost(argument);
  if ((inner.vt & VT_BYREF) == 0) {
    auto& target = const_cast<VARIANT&>(inner);  // what a reference to a variant points at is the client's variable
    VariantClear(&target);
    target = value;
    return;
  }
  VARIANT old{};
  old.vt = value.vt;
  std::memcpy(&old.llVal, inner.byref, SizeOf(value.vt));
  std::memcpy(inner.byref, &value.llVal, SizeOf(value.vt));
  VariantClear(&old);
}

}  // namespace zef::component
