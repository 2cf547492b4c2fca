#include "component/classes.h"
#include "component/registration.h"
#include "component/runtime.h"

extern "C" HRESULT DllGetClassObject(REFCLSID rclsid, REFIID riid, void** object) {
  return zef::component::GetClassObject(zef::component::PublicClasses(), rclsid, riid, object);
}

extern "C" HRESULT DllCanUnloadNow() { return zef::component::CanUnloadNow(); }

extern "C" HRESULT DllRegisterServer() { return zef::component::Register(zef::component::PublicClasses()); }

extern "C" HRESULT DllUnregisterServer() { return zef::component::Unregister(zef::component::PublicClasses()); }

__attribute__((destructor)) static void EndOfLibrary() { zef::component::Unload(); }
