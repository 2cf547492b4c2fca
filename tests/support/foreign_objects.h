#pragma once

#include "tests/support/automation_client.h"

/// Objects of a client's own, honest and dishonest ones, that are passed to the library. They count references but live
/// where the client puts them.
namespace zef::test {

/// An object of a client's own, which offers nothing.
class ForeignObject : public IDispatch {
 public:
  HRESULT QueryInterface(REFIID riid, void** object) override {
    const bool known = riid == IID_IUnknown || riid == IID_IDispatch;
    *object = known ? this : nullptr;
    if (known) AddRef();
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG AddRef() override { return ++references; }
  ULONG Release() override { return --references; }
  HRESULT GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  HRESULT Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override { return E_NOTIMPL; }

  ULONG references = 1;
};

/// One that claims to be whatever it is asked for.
class BoastingObject final : public ForeignObject {
 public:
  HRESULT QueryInterface(REFIID, void** object) override {
    *object = this;
    AddRef();
    return S_OK;
  }
};

/// One that claims so and gives nothing.
class EmptyHandedObject final : public ForeignObject {
 public:
  HRESULT QueryInterface(REFIID, void** object) override {
    *object = nullptr;
    return S_OK;
  }
};

/// One that stands for an object of the library and hands out that one's interfaces.
class StandInObject final : public ForeignObject {
 public:
  explicit StandInObject(const Object& inner) : inner_(inner) {}
  HRESULT QueryInterface(REFIID riid, void** object) override { return inner_->QueryInterface(riid, object); }

 private:
  Object inner_;
};

/// One that gives up the client's last reference to an object in the middle of a call on it.
class SpitefulObject final : public ForeignObject {
 public:
  explicit SpitefulObject(IDispatch* victim) : victim_(victim) {}
  HRESULT QueryInterface(REFIID riid, void** object) override {
    victim_->Release();
    return ForeignObject::QueryInterface(riid, object);
  }

 private:
  IDispatch* victim_;
};

}  // namespace zef::test
