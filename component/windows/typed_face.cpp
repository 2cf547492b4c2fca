#include "component/typed_face.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <new>

#include "component/face.h"
#include "component/identifiers.h"
#include "component/windows/early_binding.h"
#include "component/windows/this_library.h"
#include "platform/windows/wide_text.h"

extern "C" {

/// The code of the entries, so many bytes for each.
extern const char zef_early_entries[];

/// What every entry leads to.
HRESULT zef_early_call(std::uint32_t place, const std::uint64_t* places, const double* doubles) noexcept {
  using namespace zef::component;
  auto* const face = reinterpret_cast<Face*>(places[0]);
  const EarlyEntry entry = EarlyEntryOf(face->Described(), place);
  if (entry.member == nullptr) return E_NOTIMPL;
  face->AddRef();  // the call itself may drop the client's last reference
  const HRESULT outcome = EarlyCall(places, doubles).Run(entry, face->Shown(), InterfaceOf(face->Described()));
  face->Release();
  return outcome;
}
}

namespace zef::component {
namespace {

constexpr std::size_t kEntrySize = 16;
constexpr std::size_t kDispatchEntries = 7;

/// The table of all faces: the functions of IDispatch as the compiler has them, then the entries of members. A table
/// behind an object of automation is nothing but its functions.
struct Table {
  explicit Table(const Face& first) {
    const void* const* compiled = nullptr;
    std::memcpy(&compiled, static_cast<const void*>(&first), sizeof compiled);
    std::copy_n(compiled, kDispatchEntries, functions.begin());
    for (std::size_t i = 0; i < kMostEarlyEntries; ++i) {
      functions[kDispatchEntries + i] = zef_early_entries + i * kEntrySize;
    }
  }

  std::array<const void*, kDispatchEntries + kMostEarlyEntries> functions{};
};

/// Says that early calls leave their failure in the error object of the thread. Clients look there only if it does.
class ErrorSupport final : public Counted<ErrorSupport, ISupportErrorInfo> {
 public:
  explicit ErrorSupport(Face& face) : face_(face) { face_.AddRef(); }

  /// It is a side of the face, which alone has an identity.
  HRESULT QueryInterface(REFIID riid, void** object) override {
    return riid == IID_ISupportErrorInfo ? Counted::QueryInterface(riid, object) : face_.QueryInterface(riid, object);
  }
  HRESULT InterfaceSupportsErrorInfo(REFIID riid) override {
    return riid == InterfaceOf(face_.Described()) ? S_OK : S_FALSE;
  }

 private:
  friend class Counted<ErrorSupport, ISupportErrorInfo>;

  ~ErrorSupport() { face_.Release(); }
  static bool Answers(REFIID riid) { return riid == IID_ISupportErrorInfo; }

  Face& face_;
};

}  // namespace

void BindEarly(Face& face) {
  static const Table table(face);
  const void* const functions = table.functions.data();
  std::memcpy(static_cast<void*>(&face), &functions, sizeof functions);
}

UINT TypeInfoCount() { return 1; }

HRESULT TypeInfoOf(const Class& described, LCID, ITypeInfo** info) try {
  ITypeLib* types = nullptr;
  const HRESULT loaded = LoadTypeLibEx(ToWide(LibraryPath()).c_str(), REGKIND_NONE, &types);
  if (FAILED(loaded)) return loaded;
  const HRESULT found = types->GetTypeInfoOfGuid(InterfaceOf(described), info);
  types->Release();
  return found;
} catch (const std::bad_alloc&) {
  return E_OUTOFMEMORY;
} catch (...) {
  return E_UNEXPECTED;
}

HRESULT FurtherInterface(Face& face, REFIID riid, void** object) {
  *object = nullptr;
  if (riid != IID_ISupportErrorInfo) return E_NOINTERFACE;
  *object = static_cast<ISupportErrorInfo*>(new (std::nothrow) ErrorSupport(face));
  return *object == nullptr ? E_OUTOFMEMORY : S_OK;
}

}  // namespace zef::component
