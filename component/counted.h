#pragma once

#include "component/automation.h"
#include "component/lifetime.h"

namespace zef::component {

/// What every object behind an interface does alike: it counts its references from one on, keeps the library loaded
/// while it lives, and hands itself out under the interfaces that the derived class `Answers`.
template <class Derived, class Interface>
class Counted : public Interface {
 public:
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;

  HRESULT QueryInterface(REFIID riid, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = static_cast<Derived*>(this)->Answers(riid) ? static_cast<Interface*>(this) : nullptr;
    if (*object == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG AddRef() final { return ++references_; }
  ULONG Release() final {
    const ULONG left = --references_;
    if (left == 0) delete static_cast<Derived*>(this);
    return left;
  }

 protected:
  Counted() { ObjectBegins(); }
  ~Counted() { ObjectEnds(); }

 private:
  ULONG references_ = 1;
};

}  // namespace zef::component
