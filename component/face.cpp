#include "component/face.h"

#include <cstdint>
#include <cstring>

#include "component/identifiers.h"
#include "component/invocation.h"
#include "component/typed_face.h"
#include "component/utf16.h"

namespace zef::component {
namespace {

/// An interface that leads from a client's reference back to the face. The address of a variable of this library stands
/// in it, so that a second copy of the library in the process, whose objects may be laid out differently, has another.
IID OwnInterface() {
  static const char anchor = 0;
  IID own{0x6d0c1f52, 0x83aa, 0x4c5e, {}};
  const void* const address = &anchor;
  static_assert(sizeof address == sizeof own.Data4);
  std::memcpy(own.Data4, &address, sizeof address);
  return own;
}

/// The face that was last asked for that interface on this thread. A client's object may claim any interface; only what
/// has answered here is one of ours.
thread_local constinit Face* answering = nullptr;

}  // namespace

Face* Face::Of(const Class& described, Object object) {
  for (auto* face = static_cast<Face*>(described.outside(object.address)); face != nullptr; face = face->next_) {
    if (&face->described_ != &described || face->object_.part != object.part) continue;
    face->AddRef();
    return face;
  }
  return new Face(described, object);
}

Face* Face::Behind(IUnknown* unknown) {
  answering = nullptr;
  void* own = nullptr;
  if (FAILED(unknown->QueryInterface(OwnInterface(), &own)) || own == nullptr) return nullptr;
  static_cast<IUnknown*>(own)->Release();  // the caller's reference keeps it
  return own == answering ? answering : nullptr;
}

Face::Face(const Class& described, Object object) : described_(described), object_(object) {
  described_.add_reference(object_.address);
  void*& first = described_.outside(object_.address);
  next_ = static_cast<Face*>(first);
  first = this;
  BindEarly(*this);
}

Face::~Face() {
  void*& first = described_.outside(object_.address);
  if (first == this) {
    first = next_;
  } else {
    auto* before = static_cast<Face*>(first);
    while (before->next_ != this) before = before->next_;
    before->next_ = next_;
  }
  described_.release(object_.address);
}

bool Face::Answers(REFIID riid) {
  if (riid == OwnInterface()) {
    answering = this;
    return true;
  }
  return riid == IID_IUnknown || riid == IID_IDispatch || riid == InterfaceOf(described_);
}

HRESULT Face::QueryInterface(REFIID riid, void** object) {
  const HRESULT outcome = Counted::QueryInterface(riid, object);
  return outcome == E_NOINTERFACE ? FurtherInterface(*this, riid, object) : outcome;
}

HRESULT Face::GetTypeInfoCount(UINT* count) {
  if (count == nullptr) return E_POINTER;
  *count = TypeInfoCount();
  return S_OK;
}

HRESULT Face::GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) {
  if (info == nullptr) return E_POINTER;
  *info = nullptr;
  return index < TypeInfoCount() ? TypeInfoOf(described_, locale, info) : DISP_E_BADINDEX;
}

HRESULT Face::GetIDsOfNames(REFIID riid, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
  if (!(riid == IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
  if (names == nullptr || ids == nullptr || count == 0) return E_INVALIDARG;
  const auto text = [&](UINT i) {
    return names[i] == nullptr ? std::u16string_view() : std::u16string_view(Utf16(names[i]));
  };
  ids[0] = FindNumber(described_, text(0));
  const Member* const member = ids[0] == DISPID_UNKNOWN ? nullptr : FindMember(described_, ids[0]);
  bool known = member != nullptr;
  for (UINT i = 1; i < count; ++i) {
    ids[i] = member == nullptr ? DISPID_UNKNOWN : FindArgument(*member, text(i));
    known = known && ids[i] != DISPID_UNKNOWN;
  }
  return known ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT Face::Invoke(DISPID number, REFIID riid, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                     EXCEPINFO* failure, UINT* argument) {
  if (!(riid == IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
  const Member* const member = FindMember(described_, number);
  if (member == nullptr) return DISP_E_MEMBERNOTFOUND;
  AddRef();  // the call itself may drop the client's last reference
  const HRESULT outcome = CallMember(*member, object_, flags, parameters, result, failure, argument);
  Release();
  return outcome;
}

}  // namespace zef::component
