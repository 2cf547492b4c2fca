#include "component/typed_face.h"

namespace zef::component {

void BindEarly(Face&) {}

UINT TypeInfoCount() { return 0; }
HRESULT TypeInfoOf(const Class&, LCID, ITypeInfo**) { return DISP_E_BADINDEX; }

HRESULT FurtherInterface(Face&, REFIID, void** object) {
  *object = nullptr;
  return E_NOINTERFACE;
}

}  // namespace zef::component
