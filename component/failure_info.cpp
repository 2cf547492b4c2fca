#include "component/failure_info.h"

#include <new>

#include "component/invocation.h"
#include "component/variant.h"

namespace zef::component {
namespace {

HRESULT GiveText(BSTR* place, std::string_view text) noexcept {
  if (place == nullptr) return E_POINTER;
  *place = TextOrNone(text);
  return *place == nullptr ? E_OUTOFMEMORY : S_OK;
}

HRESULT GiveNone(BSTR* place) noexcept {
  if (place == nullptr) return E_POINTER;
  *place = nullptr;
  return S_OK;
}

}  // namespace

HRESULT FailureInfo::Take() noexcept {
  try {
    raised_ = FailureAtHand();
    return FailureCode(raised_->number());
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  }
}

HRESULT FailureInfo::GetGUID(GUID* guid) {
  if (guid == nullptr) return E_POINTER;
  *guid = failing_;
  return S_OK;
}

HRESULT FailureInfo::GetSource(BSTR* source) { return raised_ ? GiveText(source, kFailureSource) : GiveNone(source); }

HRESULT FailureInfo::GetDescription(BSTR* description) {
  return raised_ ? GiveText(description, raised_->description()) : GiveNone(description);
}

HRESULT FailureInfo::GetHelpFile(BSTR* file) { return GiveNone(file); }

HRESULT FailureInfo::GetHelpContext(DWORD* context) {
  if (context == nullptr) return E_POINTER;
  *context = 0;
  return S_OK;
}

}  // namespace zef::component
