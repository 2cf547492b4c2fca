#pragma once

#include "component/automation.h"
#include "component/description.h"

/// What a face offers to clients that know its types: nothing where default interfaces are for late binding alone, and
/// on Windows the interface as the compiled type library describes it.
namespace zef::component {

class Face;

/// Puts the members of the face's class behind its functions, for clients that call them by their place.
void BindEarly(Face& face);

/// How many descriptions of its type a face has.
UINT TypeInfoCount();
/// The description of the default interface of a class, or DISP_E_BADINDEX where there is none.
HRESULT TypeInfoOf(const Class& described, LCID locale, ITypeInfo** info);

/// An interface beside the default one, with a reference; E_NOINTERFACE, and a null pointer, if there is none.
HRESULT FurtherInterface(Face& face, REFIID riid, void** object);

}  // namespace zef::component
