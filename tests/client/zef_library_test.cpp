#include <dlfcn.h>
#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

#include "tests/client/run_zef.h"

namespace zef::test {
namespace {

namespace fs = std::filesystem;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

/// What a tool for binary files tells of the program.
std::string Told(const std::string& tool, const std::string& option) {
  const TemporaryFolder folder;
  return RunProgram(folder.path(), tool, {option, ZEF_BINARY}).out;
}

TEST(ZefProgram, HoldsNothingOfTheLibraryAndOfItsEngine) {
  const std::string symbols = Told("nm", "-C");
  EXPECT_THAT(symbols, HasSubstr("zef::client::Store::"));
  EXPECT_THAT(symbols, Not(HasSubstr("zef::CSession::")));
  EXPECT_THAT(symbols, Not(HasSubstr("zef::Connection::")));
  EXPECT_THAT(symbols, Not(HasSubstr("zef::component::")));
  EXPECT_THAT(symbols, Not(HasSubstr("sqlite3_")));
}

TEST(ZefProgram, IsNotLinkedToTheLibrary) {
  const std::string needed = Told("readelf", "-d");
  EXPECT_THAT(needed, HasSubstr("(NEEDED)"));
  EXPECT_THAT(needed, Not(HasSubstr("ZEFComponents")));
}

/// A copy of the program in a folder "bin" where nothing else is, and of a user who has registered nothing.
class ZefAlone : public testing::Test {
 protected:
  ZefAlone() {
    fs::create_directories(Place("bin"));
    fs::copy_file(ZEF_BINARY, Place("bin/zef"));
  }

  fs::path Place(const std::string& name) const { return fs::canonical(folder_.path()) / name; }
  void LinkLibrary(const std::string& name) const {
    fs::create_directories(Place(name).parent_path());
    fs::create_symlink(ZEF_LIBRARY, Place(name));
  }
  Ended Zef(const std::vector<std::string>& arguments) const {
    std::vector<std::string> words{"XDG_DATA_HOME=" + Place("data").string(), Place("bin/zef")};
    words.insert(words.end(), arguments.begin(), arguments.end());
    return RunProgram(folder_.path(), "env", words);
  }
  Ended Create() const { return Zef({"create", "people.db"}); }

 private:
  TemporaryFolder folder_;
};

TEST_F(ZefAlone, TellsWhereItMissesTheLibrary) {
  const Ended run = Create();
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err, "zef: The library libZEFComponents.so is neither in '" + Place("bin").string() + "' nor in '" +
                         Place("lib").string() + "', and none is registered.\n");
}

TEST_F(ZefAlone, HelpsWithoutTheLibrary) { EXPECT_EQ(Zef({"--help"}).status, 0); }

TEST_F(ZefAlone, FindsTheLibraryBesideIt) {
  LinkLibrary("bin/libZEFComponents.so");
  EXPECT_EQ(Create().status, 0);
}

TEST_F(ZefAlone, FindsTheLibraryInTheFolderOfLibraries) {
  LinkLibrary("lib/libZEFComponents.so");
  EXPECT_EQ(Create().status, 0);
}

TEST_F(ZefAlone, FindsTheRegisteredLibrary) {
  fs::create_directories(Place("data/components"));
  std::ofstream(Place("data/components/ZEFComponents.CSession")) << "InprocServer32=" ZEF_LIBRARY "\n";
  EXPECT_EQ(Create().status, 0);
}

TEST_F(ZefAlone, TellsWhatToDoAboutARegisteredLibraryThatIsGone) {
  const fs::path entry = Place("data/components/ZEFComponents.CSession");
  fs::create_directories(entry.parent_path());
  std::ofstream(entry) << "InprocServer32=/nowhere/libZEFComponents.so\n";
  const Ended run = Create();
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "zef: The entry '" + entry.string() +
                         "' names the library '/nowhere/libZEFComponents.so', which is not there. Register it from "
                         "where it is now, with 'zef register --library FILE'.\n");
}

TEST_F(ZefAlone, TellsAnEntryThatIsNoFile) {
  const fs::path entry = Place("data/components/ZEFComponents.CSession");
  fs::create_directories(entry);
  const Ended run = Create();
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "zef: The entry " + entry.string() + " cannot be read: It is no regular file.\n");
}

TEST_F(ZefAlone, FindsTheLibraryThatIsNamedInItsWorkingFolder) {
  LinkLibrary("named.so");
  EXPECT_EQ(Zef({"create", "people.db", "--library", "named.so"}).status, 0);
}

TEST_F(ZefAlone, TellsThePathOfANamedLibraryThatIsMissing) {
  const Ended run = Zef({"create", "people.db", "--library", "libZEFComponents.so"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "zef: There is no library '" + Place("libZEFComponents.so").string() + "'.\n");
}

TEST_F(ZefAlone, RefusesALibraryThatIsDamaged) {
  std::ofstream(Place("bin/libZEFComponents.so")) << "no library";
  const Ended run = Create();
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, StartsWith("zef: The library cannot be loaded: "));
}

TEST_F(ZefAlone, RefusesALibraryOfAnotherKind) {
  Dl_info any{};
  ASSERT_NE(dladdr(dlsym(RTLD_DEFAULT, "getpid"), &any), 0);
  fs::create_symlink(fs::canonical(any.dli_fname), Place("bin/libZEFComponents.so"));
  const Ended run = Create();
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, EndsWith("libZEFComponents.so is no library of components.\n"));
}

}  // namespace
}  // namespace zef::test
