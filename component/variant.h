#pragma once

#include <cstdint>
#include <cstring>
#include <exception>
#include <string>
#include <string_view>

#include "component/automation.h"
#include "platform/date.h"
#include "platform/value.h"
#include "session/fields_array.h"

/// Values on their way between variants and the library's own types. Texts change between UTF-16 and UTF-8; malformed
/// ones get U+FFFD. What comes in converts as clients of automation expect; what cannot raises `ConversionFailure`.
namespace zef::component {

struct ConversionFailure : std::exception {
  explicit ConversionFailure(HRESULT why) : result(why) {}
  HRESULT result;  ///< DISP_E_TYPEMISMATCH or DISP_E_OVERFLOW
};

/// Where a variant's value really stands, behind all references.
struct Located {
  VARTYPE kind;
  const void* at;

  template <class T>
  T Read() const {
    T value;
    std::memcpy(&value, at, sizeof value);
    return value;
  }
};
/// Raises for a reference that leads nowhere.
Located Locate(const VARIANT& variant);
/// The variant at the end of a chain of references to variants: a value, or a reference to something else.
const VARIANT& Innermost(const VARIANT& variant);
/// Raises if the argument is a reference, but neither to a variable of the kind nor to a variant.
void CheckReference(const VARIANT& argument, VARTYPE kind);

/// Empty is 0, the empty text, False, the zero date.
std::int32_t LongIn(const VARIANT& variant);
bool BooleanIn(const VARIANT& variant);
std::string TextIn(const VARIANT& variant);
Date DateIn(const VARIANT& variant);
/// Empty is Null. An array of bytes is `Bytes`.
Value ValueIn(const VARIANT& variant);
/// The object that the variant refers to, or null for Nothing and Empty; no reference is added.
IUnknown* ObjectIn(const VARIANT& variant);

/// Each fills a variant that owns nothing. A text or array for which there is no memory raises std::bad_alloc, and the
/// variant owns nothing still.
void Give(VARIANT& variant, std::int32_t number);
void Give(VARIANT& variant, bool truth);
void Give(VARIANT& variant, Date date);
void Give(VARIANT& variant, std::string_view text);
inline void Give(VARIANT& variant, const std::string& text) { Give(variant, std::string_view(text)); }
void Give(VARIANT& variant, const Value& value);
/// A two-dimensional array of texts.
void Give(VARIANT& variant, const FieldsArray& texts);

BSTR NewText(std::string_view text);

/// Stores a value where a by-reference argument points, in place of what stands there, which is freed. `value` goes
/// over to the argument, which must have passed `CheckReference`. Does nothing for an argument by value.
void StoreThrough(const VARIANT& argument, VARIANT& value) noexcept;

}  // namespace zef::component
