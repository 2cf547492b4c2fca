#include <gmock/gmock.h>
#include <sys/stat.h>

#include <cstdlib>
#include <fstream>

#include "tests/client/run_zef.h"

namespace zef::test {
namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::HasSubstr;

/// The user's folder of components lies in a folder of the test.
class ZefRegisterTest : public testing::Test {
 protected:
  ZefRegisterTest() { setenv("XDG_DATA_HOME", folder_.path().c_str(), 1); }
  ~ZefRegisterTest() override { unsetenv("XDG_DATA_HOME"); }

  Ended Zef(const std::vector<std::string>& arguments) const { return RunZef(folder_.path(), arguments); }
  fs::path Components() const { return folder_.path() / "components"; }
  std::size_t Count() const {
    return fs::exists(Components())
               ? static_cast<std::size_t>(std::distance(fs::directory_iterator(Components()), fs::directory_iterator()))
               : 0;
  }
  static fs::path Library() { return fs::canonical(fs::path(ZEF_BINARY).parent_path() / "libZEFComponents.so"); }

  TemporaryFolder folder_;
};

TEST_F(ZefRegisterTest, EntersTheLibraryBesideTheProgram) {
  const Ended ended = Zef({"register"});
  EXPECT_EQ(ended.out, "Registered 24 classes of " + Library().string() + ".\nThe entries are in " +
                           Components().string() + ".\n");
  EXPECT_EQ(ended.err, "");
  EXPECT_EQ(Count(), 24u);
}

TEST_F(ZefRegisterTest, EntersTheLibraryThatIsNamed) {
  fs::copy_file(Library(), folder_.path() / "lib copy.so");
  EXPECT_THAT(Zef({"register", "--library", "lib copy.so"}).out,
              HasSubstr("24 classes of " + (folder_.path() / "lib copy.so").string()));
}

TEST_F(ZefRegisterTest, TellsTheClassesAsJson) {
  EXPECT_THAT(Zef({"register", "--json"}).out,
              AllOf(HasSubstr("\"library\": \"" + Library().string() + "\""),
                    HasSubstr("\"classes\": [\"ZEFComponents.CAlarm\", \"ZEFComponents.CAlarms\", ")));
}

TEST_F(ZefRegisterTest, UnregisterRemovesTheEntriesAndNothingElse) {
  Zef({"register"});
  std::ofstream(Components() / "Other.CThing") << "CLSID={}\n";
  EXPECT_THAT(Zef({"unregister"}).out, HasSubstr("Unregistered 24 classes"));
  EXPECT_EQ(Count(), 1u);
}

TEST_F(ZefRegisterTest, UnregisterTellsWhenThereIsNothing) {
  const Ended ended = Zef({"unregister"});
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(ended.out, "There was no entry in " + Components().string() + ".\n");
}

TEST_F(ZefRegisterTest, MissingLibraryIsRefused) {
  const Ended ended = Zef({"register", "--library", "none.so"});
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(ended.err, "zef: There is no library '" + (fs::canonical(folder_.path()) / "none.so").string() + "'.\n");
}

TEST_F(ZefRegisterTest, BareNameIsAFileOfTheWorkingFolder) {
  const Ended ended = Zef({"register", "--library", "libdl.so.2"});
  EXPECT_EQ(ended.status, 1);
  EXPECT_THAT(ended.err, HasSubstr((fs::canonical(folder_.path()) / "libdl.so.2").string()));
}

TEST_F(ZefRegisterTest, PathWithALineBreakIsRefused) {
  fs::copy_file(Library(), folder_.path() / "lib\ncopy.so");
  const Ended ended = Zef({"register", "--library", "lib\ncopy.so"});
  EXPECT_EQ(ended.status, 1);
  EXPECT_THAT(ended.err, HasSubstr("since it has a line break or a word that the system replaces: '"));
  EXPECT_EQ(Count(), 0u);
}

TEST_F(ZefRegisterTest, FileThatIsNoLibraryIsRefused) {
  std::ofstream(folder_.path() / "text.so") << "text";
  const Ended ended = Zef({"register", "--library", "text.so"});
  EXPECT_EQ(ended.status, 1);
  EXPECT_THAT(ended.err, AllOf(HasSubstr("The library cannot be loaded"), HasSubstr("text.so")));
}

TEST_F(ZefRegisterTest, ForeignLibraryIsRefused) {
  const fs::path foreign = fs::exists("/lib64/ld-linux-x86-64.so.2") ? "/lib/x86_64-linux-gnu/libdl.so.2"
                                                                     : "/lib/aarch64-linux-gnu/libdl.so.2";
  const Ended ended = Zef({"register", "--library", foreign.string()});
  EXPECT_EQ(ended.status, 1);
  EXPECT_THAT(ended.err, HasSubstr("is no library of components."));
}

TEST_F(ZefRegisterTest, FolderThatCannotBeWrittenIsTold) {
  std::ofstream(folder_.path() / "components") << "a file in its place";
  const Ended ended = Zef({"register"});
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(ended.err,
            "zef: The entries in '" + Components().string() + "' cannot be written: There can be no such folder.\n");
}

TEST_F(ZefRegisterTest, EntryThatCannotBeWrittenIsTold) {
  fs::create_directories(Components() / "ZEFComponents.CTask");
  const Ended ended = Zef({"register"});
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(ended.err, "zef: The entry '" + (Components() / "ZEFComponents.CTask").string() +
                           "' cannot be written: It is no regular file, or the system refuses it.\n");
}

TEST_F(ZefRegisterTest, EntryThatCannotBeRemovedIsTold) {
  Zef({"register"});
  fs::remove(Components() / "ZEFComponents.CTask");
  fs::create_directories(Components() / "ZEFComponents.CTask");
  const Ended ended = Zef({"unregister"});
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(ended.err, "zef: The entry '" + (Components() / "ZEFComponents.CTask").string() +
                           "' cannot be removed: It is no regular file, or the system refuses it.\n");
  EXPECT_EQ(Count(), 1u);
}

TEST_F(ZefRegisterTest, EntryThatIsAPipeIsTold) {
  fs::create_directories(Components());
  const fs::path entry = Components() / "ZEFComponents.CTask";
  mkfifo(entry.c_str(), 0600);
  EXPECT_EQ(Zef({"register"}).err, "zef: The entry '" + entry.string() +
                                       "' cannot be written: It is no regular file, or the system refuses it.\n");
  EXPECT_EQ(Zef({"unregister"}).err, "zef: The entry '" + entry.string() +
                                         "' cannot be removed: It is no regular file, or the system refuses it.\n");
}

TEST_F(ZefRegisterTest, EntryThatStandsInNobodysWayIsNotBlamed) {
  fs::create_directories(Components() / "ZEFComponents.CTask");
  std::ofstream(Components() / "ZEFComponents.CAlarm") << "text";
  fs::permissions(Components() / "ZEFComponents.CAlarm", fs::perms::none);
  EXPECT_THAT(Zef({"register"}).err, HasSubstr("ZEFComponents.CTask' cannot be written: It is no regular file"));
}

TEST_F(ZefRegisterTest, WithoutAnyFolderItIsRefused) {
  setenv("XDG_DATA_HOME", "relative", 1);
  const std::string home = std::getenv("HOME") == nullptr ? "" : std::getenv("HOME");
  unsetenv("HOME");
  const Ended ended = Zef({"register"});
  setenv("HOME", home.c_str(), 1);
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(ended.err, "zef: HOME names no folder for the entries.\n");
}

}  // namespace
}  // namespace zef::test
