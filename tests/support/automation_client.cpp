#include "tests/support/automation_client.h"

#include <stdexcept>

#include "component/utf16.h"
#include "platform/text.h"

namespace zef::test {
namespace {

std::u16string_view UnitsOf(BSTR text) { return {text == nullptr ? u"" : component::Utf16(text), SysStringLen(text)}; }

BSTR NewText(std::u16string_view units) {
  return SysAllocStringLen(component::FromUtf16(units.data()), static_cast<UINT>(units.size()));
}

std::string TakeText(BSTR text) {
  std::string taken = text::ToUtf8(UnitsOf(text));
  SysFreeString(text);
  return taken;
}

}  // namespace

Variant::Variant(std::string_view text) : Variant(std::u16string_view(text::ToUtf16(text))) {}

Variant::Variant(std::u16string_view units) : Variant(Of(VT_BSTR, NewText(units))) {}

Variant::Variant(const Object& object) : Variant(Of(VT_DISPATCH, object.get())) {
  if (object) object->AddRef();
}

Variant Variant::Decimal(std::uint32_t high, std::uint64_t low, unsigned char scale, bool negative) {
  Variant made;
  auto* const bytes = reinterpret_cast<unsigned char*>(&made.raw_);
  bytes[2] = scale;
  bytes[3] = negative ? 0x80 : 0;
  std::memcpy(bytes + 4, &high, sizeof high);
  std::memcpy(bytes + 8, &low, sizeof low);
  made.raw_.vt = VT_DECIMAL;
  return made;
}

void Variant::Require(VARTYPE kind) const {
  if (raw_.vt == kind) return;
  throw std::logic_error("a value of kind " + std::to_string(raw_.vt) + ", not " + std::to_string(kind));
}

std::int32_t Variant::number() const {
  Require(VT_I4);
  return raw_.lVal;
}

bool Variant::truth() const {
  Require(VT_BOOL);
  return raw_.boolVal != VARIANT_FALSE;
}

double Variant::date() const {
  Require(VT_DATE);
  return raw_.date;
}

std::string Variant::text() const { return text::ToUtf8(units()); }

std::u16string Variant::units() const {
  Require(VT_BSTR);
  return std::u16string(UnitsOf(raw_.bstrVal));
}

Object Variant::object() const {
  Require(VT_DISPATCH);
  if (raw_.pdispVal == nullptr) return {};
  raw_.pdispVal->AddRef();
  return Object(raw_.pdispVal);
}

ULONG Object::References() const {
  object_->AddRef();
  return object_->Release();
}

DISPID Object::Number(std::string_view name) const {
  std::u16string units = text::ToUtf16(name);
  LPOLESTR names[] = {component::FromUtf16(units.data())};
  DISPID number = 0;
  object_->GetIDsOfNames(IID_NULL, names, 1, 0, &number);
  return number;
}

Outcome Object::Invoke(DISPID member, WORD flags, DISPPARAMS* parameters) const {
  Outcome outcome;
  EXCEPINFO failure{};
  outcome.result =
      object_->Invoke(member, IID_NULL, 0, flags, parameters, &outcome.value.raw(), &failure, &outcome.argument);
  outcome.source = TakeText(failure.bstrSource);
  outcome.description = TakeText(failure.bstrDescription);
  outcome.scode = failure.scode;
  return outcome;
}

TextVariable::TextVariable(std::string_view text) : text_(NewText(text::ToUtf16(text))) {}

std::string TextVariable::text() const { return text::ToUtf8(UnitsOf(text_)); }

}  // namespace zef::test
