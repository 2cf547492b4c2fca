#include <dlfcn.h>

#include <ZEFComponents.hpp>
#include <chrono>
#include <cstdio>
#include <stdexcept>

namespace {

using namespace zef;

CSession NewSession(void* library) {
  auto* const get = reinterpret_cast<GetClassObjectFunction*>(dlsym(library, "DllGetClassObject"));
  void* made = nullptr;
  if (FAILED(get(CSession::kClassIdentifier, IID_IClassFactory, &made))) throw std::runtime_error("no factory");
  auto* const factory = static_cast<IClassFactory*>(made);
  const HRESULT outcome = factory->CreateInstance(nullptr, IID_IDispatch, &made);
  factory->Release();
  if (FAILED(outcome)) throw std::runtime_error("no session");
  return CSession(static_cast<IDispatch*>(made));
}

void ComeAndGo(const char* database) {
  void* const library = dlopen(ZEF_LIBRARY, RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) throw std::runtime_error(dlerror());
  {
    const CSession session = NewSession(library);
    if (!session.Connect2Database(database, "", "")) throw std::runtime_error(session.GetErrorDescription());
    session.DisconnectFromDatabase();
  }
  dlclose(library);
}

}  // namespace

/// A client that has nothing of the library yet: loads it, connects a session to the database that is named,
/// disconnects and lets the library go. Prints the seconds that this took, the start of the process not counted.
int main(int count, char** words) try {
  if (count != 2) return 2;
  const auto start = std::chrono::steady_clock::now();
  ComeAndGo(words[1]);
  std::printf("%.9f\n", std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
} catch (const std::exception& failure) {
  std::fprintf(stderr, "%s\n", failure.what());
  return 1;
}
