#include "component/variant.h"

#include <array>
#include <charconv>
#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <type_traits>

#include "component/utf16.h"
#include "component/wide_number.h"
#include "platform/date_parts.h"
#include "platform/text.h"

namespace zef::component {
namespace {

/// A 32-bit integer where it fits, else a double.
template <class Integer>
Value Whole(Integer number) {
  if (number > std::numeric_limits<std::int32_t>::max()) return static_cast<double>(number);
  if constexpr (std::is_signed_v<Integer>) {
    if (number < std::numeric_limits<std::int32_t>::min()) return static_cast<double>(number);
  }
  return static_cast<std::int32_t>(number);
}

/// A single by the double that reads the same.
double ShortestDouble(float single) {
  std::array<char, 32> buffer;
  const auto [end, failed] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), single);
  double number = single;
  if (failed == std::errc()) std::from_chars(buffer.data(), end, number);
  return number;
}

std::u16string_view UnitsOf(BSTR text) { return {text == nullptr ? u"" : Utf16(text), SysStringLen(text)}; }

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
  const std::size_t size = array->rgsabound[0].cElements;  // not there without dimensions
  if (array->pvData == nullptr && size > 0) throw ConversionFailure(DISP_E_TYPEMISMATCH);
  const auto* const first = static_cast<const std::byte*>(array->pvData);
  return Bytes(first, first + size);
}

Value ValueAt(Located located) {
  switch (located.kind) {
    case VT_EMPTY:
    case VT_NULL: return Null{};
    case VT_I1: return Whole(located.Read<signed char>());
    case VT_UI1: return located.Read<std::uint8_t>();
    case VT_I2: return Whole(located.Read<SHORT>());
    case VT_UI2: return Whole(located.Read<USHORT>());
    case VT_I4:
    case VT_INT: return Whole(located.Read<std::int32_t>());
    case VT_UI4:
    case VT_UINT: return Whole(located.Read<std::uint32_t>());
    case VT_I8: return Whole(located.Read<std::int64_t>());
    case VT_UI8: return Whole(located.Read<std::uint64_t>());
    case VT_R4: return static_cast<double>(located.Read<float>());
    case VT_R8: return located.Read<double>();
    case VT_CY:
    case VT_DECIMAL: return ToDouble(WideNumberAt(located));
    case VT_BOOL: return located.Read<VARIANT_BOOL>() != VARIANT_FALSE;
    case VT_DATE: return Date(located.Read<double>());
    case VT_BSTR: return Utf8Of(located.Read<BSTR>());
    case VT_ARRAY | VT_UI1: return BytesOf(located.Read<const SAFEARRAY*>());
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

struct Destroy {
  void operator()(SAFEARRAY* array) const { SafeArrayDestroy(array); }
};

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

const VARIANT& Innermost(const VARIANT& variant) {
  constexpr int kMostReferences = 8;  // nobody nests them; a ring of them must not hang
  const VARIANT* at = &variant;
  for (int i = 0; i < kMostReferences && at->vt == (VT_BYREF | VT_VARIANT); ++i) {
    if (at->pvarVal == nullptr) break;
    at = at->pvarVal;
  }
  return *at;
}

void CheckReference(const VARIANT& argument, VARTYPE kind) {
  const VARTYPE found = Innermost(argument).vt;
  if ((found & VT_BYREF) != 0 && found != (VT_BYREF | kind)) throw ConversionFailure(DISP_E_TYPEMISMATCH);
}

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
  const Located located = Locate(variant);
  switch (located.kind) {
    case VT_R4: return NumberText(ShortestDouble(located.Read<float>()));
    case VT_I8:
    case VT_UI8:
    case VT_CY:
    case VT_DECIMAL: return ToText(WideNumberAt(located));  // a double would cut the digits
    default: return Converted(located, TextOfValue);
  }
}

Date DateIn(const VARIANT& variant) {
  const Date date = variant.vt == VT_DATE ? Date(variant.date) : Converted(Locate(variant), ToDate);
  if (!date_parts::InRange(date.value())) throw ConversionFailure(DISP_E_OVERFLOW);
  return date;
}

Value ValueIn(const VARIANT& variant) { return ValueAt(Locate(variant)); }

IUnknown* ObjectIn(const VARIANT& variant) {
  const Located located = Locate(variant);
  if (located.kind == VT_EMPTY) return nullptr;
  if (located.kind != VT_DISPATCH && located.kind != VT_UNKNOWN) throw ConversionFailure(DISP_E_TYPEMISMATCH);
  return located.Read<IUnknown*>();
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
  std::unique_ptr<SAFEARRAY, Destroy> array(NewArray(VT_BSTR, 2, bounds));
  auto* const cells = static_cast<BSTR*>(array->pvData);
  for (ULONG row = 0; row < rows; ++row) {
    for (ULONG column = 0; column < columns; ++column) {
      const std::string& text = texts(static_cast<std::int32_t>(row), static_cast<std::int32_t>(column));
      if (!text.empty()) cells[column * rows + row] = NewText(text);
    }
  }
  GiveArray(variant, VT_BSTR, array.release());
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
      BSTR const whole = SysAllocStringLen(FromUtf16(wide.data()), static_cast<UINT>(wide.size()));
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
