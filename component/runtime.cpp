#include "component/runtime.h"

#include <algorithm>
#include <new>

#include "component/counted.h"
#include "component/face.h"
#include "component/identifiers.h"
#include "component/lifetime.h"
#include "platform/engine.h"
#include "platform/text.h"
#include "platform/text_file.h"

namespace zef::component {
namespace {

class Factory final : public Counted<Factory, IClassFactory> {
 public:
  explicit Factory(const Class& described) : described_(described) {}

  HRESULT CreateInstance(IUnknown* outer, REFIID riid, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    try {
      void* const made = described_.create();
      Face* const face = Show(made);
      const HRESULT result = face->QueryInterface(riid, object);
      face->Release();
      return result;
    } catch (const std::bad_alloc&) {
      return E_OUTOFMEMORY;
    } catch (...) {
      return E_UNEXPECTED;
    }
  }

  HRESULT LockServer(BOOL lock) override {
    if (lock == 0) return Unlock() ? S_OK : E_UNEXPECTED;
    Lock();
    return S_OK;
  }

 private:
  friend class Counted<Factory, IClassFactory>;

  ~Factory() = default;
  static bool Answers(REFIID riid) { return riid == IID_IUnknown || riid == IID_IClassFactory; }

  /// The face of a new object, which alone keeps it from here on.
  Face* Show(void* made) const {
    struct Drop {
      const Class& described;
      void* object;
      ~Drop() { described.release(object); }
    } drop{described_, made};
    return Face::Of(described_, {made, 0});
  }

  const Class& described_;
};

}  // namespace

HRESULT GetClassObject(std::span<const Class* const> classes, REFCLSID rclsid, REFIID riid, void** object) noexcept {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  const auto found =
      std::ranges::find_if(classes, [&](const Class* described) { return ClassIdentifier(*described) == rclsid; });
  if (found == classes.end()) return CLASS_E_CLASSNOTAVAILABLE;
  auto* const factory = new (std::nothrow) Factory(**found);
  if (factory == nullptr) return E_OUTOFMEMORY;
  const HRESULT result = factory->QueryInterface(riid, object);
  factory->Release();
  return result;
}

HRESULT CanUnloadNow() noexcept { return NothingLives() ? S_OK : S_FALSE; }

void Unload() noexcept {
  if (!NothingLives()) return;
  ReleaseEngines();
  ReleaseFileNumbers();
  text::ReleaseOrder();
}

}  // namespace zef::component
