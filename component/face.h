#pragma once

#include "component/automation.h"
#include "component/counted.h"
#include "component/description.h"
#include "platform/reference.h"

namespace zef::component {

/// What clients hold of an object of this library: its automation interface. Lives while somebody outside refers to it,
/// keeps its object alive, and is found again by the object, so that one object has one identity.
class Face final : public Counted<Face, IDispatch> {
 public:
  /// The face of an object of a class, with a reference added.
  static Face* Of(const Class& described, Object object);
  /// The face behind an interface of this library's own making, without a reference; null for anything else.
  static Face* Behind(IUnknown* unknown);

  const Class& Described() const { return described_; }
  Object Shown() const { return object_; }

  HRESULT QueryInterface(REFIID riid, void** object) override;
  HRESULT GetTypeInfoCount(UINT* count) override;
  HRESULT GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
  HRESULT GetIDsOfNames(REFIID riid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
  HRESULT Invoke(DISPID member, REFIID riid, LCID locale, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                 EXCEPINFO* failure, UINT* argument) override;

 private:
  friend class Counted<Face, IDispatch>;

  Face(const Class& described, Object object);
  ~Face();
  bool Answers(REFIID riid);

  const Class& described_;
  const Object object_;
  Face* next_ = nullptr;  ///< another side of the same object
};

}  // namespace zef::component
