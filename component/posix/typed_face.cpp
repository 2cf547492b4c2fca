#include "component/typed_face.h"

namespace zef::component {

void BindEarly(Face&) {}

UINT TypeInfoCount() { return 0; }
HRESULT TypeInfoOf(const Class&, LCID, ITypeInfo**) { return DISP_E_BADINDEX; }

}  // namespace zef::component
