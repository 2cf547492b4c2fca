#pragma once

#include <optional>

#include "component/automation.h"
#include "platform/run_time_error.h"

namespace zef::component {

/// The side of an object that tells why its last call failed, for calls which have no room for more than a code. It has
/// no life of its own: references to it are references to the object.
class FailureInfo final : public IErrorInfo {
 public:
  FailureInfo(IUnknown& owner, REFIID failing) : owner_(owner), failing_(failing) {}

  /// A call begins: nothing has failed.
  void Clear() noexcept { raised_.reset(); }
  /// Keeps the failure that is being handled, and gives its code.
  HRESULT Take() noexcept;

  HRESULT QueryInterface(REFIID riid, void** object) override { return owner_.QueryInterface(riid, object); }
  ULONG AddRef() override { return owner_.AddRef(); }
  ULONG Release() override { return owner_.Release(); }

  HRESULT GetGUID(GUID* guid) override;
  /// The two give a null text if nothing was raised.
  HRESULT GetSource(BSTR* source) override;
  HRESULT GetDescription(BSTR* description) override;
  HRESULT GetHelpFile(BSTR* file) override;
  HRESULT GetHelpContext(DWORD* context) override;

 private:
  IUnknown& owner_;
  const IID failing_;
  std::optional<RunTimeError> raised_;
};

}  // namespace zef::component
