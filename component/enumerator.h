#pragma once

#include <cstdint>

#include "component/automation.h"
#include "component/counted.h"
#include "component/description.h"
#include "component/failure_info.h"

namespace zef::component {

/// Gives the element at a position from 0; false, and nothing given, behind the last one. Raises what the object does.
using ElementAt = bool (*)(Object object, std::int32_t position, VARIANT& element);

/// A walk over the elements of an object, which it keeps alive. It goes by position: elements that are removed behind
/// it move those that follow. A failure on the way is told by its code and, in full, by `IErrorInfo`.
class Enumerator final : public Counted<Enumerator, IEnumVARIANT> {
 public:
  /// With one reference.
  Enumerator(const Class& described, Object object, ElementAt element_at, std::int32_t position = 0);

  HRESULT QueryInterface(REFIID riid, void** object) override;
  HRESULT Next(ULONG count, VARIANT* values, ULONG* fetched) override;
  HRESULT Skip(ULONG count) override;
  HRESULT Reset() override;
  HRESULT Clone(IEnumVARIANT** copy) override;

 private:
  friend class Counted<Enumerator, IEnumVARIANT>;

  ~Enumerator();
  static bool Answers(REFIID riid);
  /// S_OK, S_FALSE behind the last element, or the code of a failure.
  HRESULT Fetch(VARIANT& element) noexcept;

  const Class& described_;
  const Object object_;
  const ElementAt element_at_;
  std::int32_t position_;
  FailureInfo failure_{*this, IID_IEnumVARIANT};
};

}  // namespace zef::component
