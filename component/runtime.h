#pragma once

#include <span>

#include "component/automation.h"
#include "component/description.h"

/// What a host asks of a library of components, for any table of classes.
namespace zef::component {

/// A factory of the class with an identifier. CLASS_E_CLASSNOTAVAILABLE for an unknown one.
HRESULT GetClassObject(std::span<const Class* const> classes, REFCLSID rclsid, REFIID riid, void** object) noexcept;
/// S_OK if nothing of this library is held any more.
HRESULT CanUnloadNow() noexcept;
/// Gives back what is kept for the whole process. For the moment when the library goes; does nothing while a client
/// holds something of it, as at the end of a process that did not care to release.
void Unload() noexcept;

}  // namespace zef::component
