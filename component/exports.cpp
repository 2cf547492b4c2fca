#include "component/classes.h"
#include "component/registration.h"
#include "component/runtime.h"

#define ZEF_EXPORT extern "C" __attribute__((visibility("default")))

ZEF_EXPORT HRESULT DllGetClassObject(REFCLSID rclsid, REFIID riid, void** object) {
  return zef::component::GetClassObject(zef::component::PublicClasses(), rclsid, riid, object);
}

ZEF_EXPORT HRESULT DllCanUnloadNow() { return zef::component::CanUnloadNow(); }

ZEF_EXPORT HRESULT DllRegisterServer() { return zef::component::Register(zef::component::PublicClasses()); }

ZEF_EXPORT HRESULT DllUnregisterServer() { return zef::component::Unregister(zef::component::PublicClasses()); }

__attribute__((destructor)) static void EndOfLibrary() { zef::component::Unload(); }
