#pragma once

#include <cstdint>

#include "component/automation.h"
#include "component/description.h"

namespace zef::component {

/// Gives the element at a position from 0; false, and nothing given, behind the last one. Raises what the object does.
using ElementAt = bool (*)(Object object, std::int32_t position, VARIANT& element);

/// A walk over the elements of an object, which it keeps alive. It goes by position: elements that are removed behind
/// it move those that follow.
class Enumerator final : public IEnumVARIANT {
 public:
  /// With one reference.
  Enumerator(const Class& described, Object object, ElementAt element_at, std::int32_t position = 0);
  Enumerator(const Enumerator&) = delete;
  Enumerator& operator=(const Enumerator&) = delete;

  HRESULT QueryInterface(REFIID riid, void** object) override;
  ULONG AddRef() override;
  ULONG Release() override;
  HRESULT Next(ULONG count, VARIANT* values, ULONG* fetched) override;
  HRESULT Skip(ULONG count) override;
  HRESULT Reset() override;
  HRESULT Clone(IEnumVARIANT** copy) override;

 private:
  ~Enumerator();
  /// S_OK, S_FALSE behind the last element, or the code of a failure.
  HRESULT Fetch(VARIANT& element) noexcept;

  const Class& described_;
  const Object object_;
  const ElementAt element_at_;
  std::int32_t position_;
  ULONG references_ = 1;
};

}  // namespace zef::component
