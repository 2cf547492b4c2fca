/// The component boundary: calls of random members with random arguments. A first byte of 1 says that there
/// is a connected session, which takes ten times as long; so most inputs have none.

#include <filesystem>
#include <span>

#include "component/classes.h"
#include "component/runtime.h"
#include "fuzz/support/input.h"
#include "tests/support/database.h"
#include "tests/support/random/calls.h"

namespace zef::fuzz {
namespace {

HRESULT GetClassObject(REFCLSID identifier, REFIID riid, void** object) {
  return component::GetClassObject(component::PublicClasses(), identifier, riid, object);
}

/// A database as new for each input. It is made before the first input runs, in a folder that no call can name.
class FreshDatabase {
 public:
  /// Its connection string.
  std::string Renew() const {
    const std::filesystem::path file = folder_.path() / "fresh.db";
    std::filesystem::copy_file(pattern_.path(), file, std::filesystem::copy_options::overwrite_existing);
    return "Provider=SQLite;Data Source=" + file.string();
  }

 private:
  test::Database pattern_;
  test::TemporaryFolder folder_;
};

void Drive(const FreshDatabase& database, std::span<const std::uint8_t> bytes) {
  const bool connected = !bytes.empty() && bytes[0] == 1;
  const std::string connection_string = connected ? database.Renew() : "";
  const std::string broken =
      test::DriveRandomCalls(&GetClassObject, connection_string, bytes.subspan(bytes.empty() ? 0 : 1));
  if (!broken.empty()) Report(broken);
}

}  // namespace
}  // namespace zef::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const zef::fuzz::FreshDatabase database;
  zef::fuzz::RunApart([=] { zef::fuzz::Drive(database, {data, size}); });
  if (zef::component::CanUnloadNow() != S_OK) zef::fuzz::Report("an object lives on");
  return 0;
}
