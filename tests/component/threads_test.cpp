#include <gtest/gtest.h>

#include <array>
#include <string>
#include <thread>
#include <vector>

#include "tests/component/library.h"

namespace zef::test {
namespace {

/// Sessions of one library on several threads, each with objects of its own.
class Threads : public ComponentTest {
 protected:
  static constexpr int kThreads = 4;

  template <class Work>
  static void Run(Work&& work) {
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i) threads.emplace_back(work, i);
    for (std::thread& thread : threads) thread.join();
  }
};

TEST_F(Threads, CreateAndReleaseAtTheSameTime) {
  Run([](int) {
    for (int i = 0; i < 500; ++i) Create("CTask").Get("Recurrence");
  });
  EXPECT_EQ(Library::Shared().CanUnloadNow(), S_OK);
}

TEST_F(Threads, LockTheLibraryAtTheSameTime) {
  Run([](int) {
    IClassFactory* const factory = Library::Shared().Factory("CTag");
    for (int i = 0; i < 500; ++i) factory->LockServer(i % 2 == 0 ? 1 : 0);
    factory->Release();
  });
  EXPECT_EQ(Library::Shared().CanUnloadNow(), S_OK);
}

TEST_F(Threads, WorkOnDatabasesOfTheirOwn) {
  const std::array<Database, kThreads> databases;
  std::array<std::string, kThreads> names;
  Run([&](int i) {
    const auto at = static_cast<std::size_t>(i);
    const Object session = Create("CSession");
    session.Call("Connect2DatabaseCS", databases[at].ConnectionString());
    const Object folder = session.Call("CreateFolder").value.object();
    folder.Put("Name", "Folder " + std::to_string(i));
    folder.Call("Save");
    const std::int32_t identifier = folder.Get("ID").value.number();
    names[at] = session.Call("GetFolder", identifier).value.object().Get("Name").value.text();
  });
  EXPECT_EQ(names, (std::array<std::string, kThreads>{"Folder 0", "Folder 1", "Folder 2", "Folder 3"}));
}

TEST_F(Threads, AreToldTheirOwnFailures) {
  std::array<SCODE, kThreads> codes{};
  Run([&](int i) {
    const Object tags = Create("CTags");
    for (int round = 0; round < 200; ++round) {
      codes[static_cast<std::size_t>(i)] =
          i % 2 == 0 ? tags.Get("ItemByIdx", 1).scode : tags.Get("ItemByKey", "1").scode;
    }
  });
  constexpr auto kRunTime = static_cast<SCODE>(0x800A0000);
  EXPECT_EQ(codes, (std::array<SCODE, kThreads>{kRunTime + 9, kRunTime + 5, kRunTime + 9, kRunTime + 5}));
}

}  // namespace
}  // namespace zef::test
