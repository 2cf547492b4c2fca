#include "component/enumerator.h"

#include <new>

namespace zef::component {

Enumerator::Enumerator(const Class& described, Object object, ElementAt element_at, std::int32_t position)
    : described_(described), object_(object), element_at_(element_at), position_(position) {
  described_.add_reference(object_.address);
}

Enumerator::~Enumerator() { described_.release(object_.address); }

bool Enumerator::Answers(REFIID riid) { return riid == IID_IUnknown || riid == IID_IEnumVARIANT; }

HRESULT Enumerator::QueryInterface(REFIID riid, void** object) {
  if (object == nullptr || !(riid == IID_IErrorInfo)) return Counted::QueryInterface(riid, object);
  *object = static_cast<IErrorInfo*>(&failure_);
  AddRef();
  return S_OK;
}

HRESULT Enumerator::Fetch(VARIANT& element) noexcept {
  VariantInit(&element);
  try {
    if (!element_at_(object_, position_, element)) return S_FALSE;
    ++position_;
    return S_OK;
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return failure_.Take();
  }
}

HRESULT Enumerator::Next(ULONG count, VARIANT* values, ULONG* fetched) {
  failure_.Clear();
  if (fetched != nullptr) *fetched = 0;
  if ((values == nullptr && count > 0) || (fetched == nullptr && count != 1)) return E_POINTER;
  for (ULONG i = 0; i < count; ++i) {
    const HRESULT outcome = Fetch(values[i]);
    if (outcome == S_OK) {
      if (fetched != nullptr) ++*fetched;
      continue;
    }
    if (FAILED(outcome)) {  // a failure hands out nothing, and the walk stays where it was
      position_ -= static_cast<std::int32_t>(i);
      while (i > 0) VariantClear(&values[--i]);
      if (fetched != nullptr) *fetched = 0;
    }
    return outcome;
  }
  return S_OK;
}

HRESULT Enumerator::Skip(ULONG count) {
  failure_.Clear();
  for (ULONG i = 0; i < count; ++i) {
    VARIANT passed;
    const HRESULT outcome = Fetch(passed);
    if (outcome != S_OK) return outcome;
    VariantClear(&passed);
  }
  return S_OK;
}

HRESULT Enumerator::Reset() {
  position_ = 0;
  return S_OK;
}

HRESULT Enumerator::Clone(IEnumVARIANT** copy) {
  if (copy == nullptr) return E_POINTER;
  *copy = new (std::nothrow) Enumerator(described_, object_, element_at_, position_);
  return *copy == nullptr ? E_OUTOFMEMORY : S_OK;
}

}  // namespace zef::component
