#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include "component/classes.h"
#include "component/identifiers.h"
#include "component/registration.h"
#include "tests/component/library.h"
#include "tests/support/process.h"

namespace zef::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

/// An environment variable for the time of a test.
class Variable {
 public:
  Variable(const char* name, const char* value) : name_(name) {
    if (const char* const old = std::getenv(name)) old_ = old;
    Set(value);
  }
  ~Variable() { Set(old_ ? old_->c_str() : nullptr); }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

 private:
  void Set(const char* value) {
    if (value == nullptr) {
      unsetenv(name_);
    } else {
      setenv(name_, value, 1);
    }
  }

  const char* name_;
  std::optional<std::string> old_;
};

/// Registration in a folder of its own.
class Registration : public ComponentTest {
 protected:
  fs::path Entry(std::string_view class_name) const {
    return components / ("ZEFComponents." + std::string(class_name));
  }
  static std::vector<std::string> Lines(const fs::path& path) {
    std::ifstream file(path);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) lines.push_back(line);
    return lines;
  }
  static void Write(const fs::path& path, const std::string& text) { std::ofstream(path) << text; }
  std::size_t Files() const {
    if (!fs::exists(components)) return 0;
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(components), fs::directory_iterator()));
  }
  static HRESULT Register() { return Library::Shared().RegisterServer(); }
  static HRESULT Unregister() { return Library::Shared().UnregisterServer(); }

  TemporaryFolder folder;
  const fs::path components = folder.path() / "components";
  Variable data{"XDG_DATA_HOME", folder.path().c_str()};
};

TEST_F(Registration, WritesOneFileAClass) {
  EXPECT_EQ(Register(), S_OK);
  EXPECT_EQ(Files(), 24u);
  for (const component::Class* described : component::PublicClasses()) {
    EXPECT_TRUE(fs::exists(Entry(described->name))) << described->name;
  }
}
TEST_F(Registration, WritesItsLinesInOrder) {
  Register();
  EXPECT_THAT(Lines(Entry("CTask")),
              ElementsAre("CLSID=" + component::IdentifierText(IdentifierOf("CTask")),
                          "InprocServer32=" + fs::canonical(LibraryPath()).string(), "ThreadingModel=Apartment",
                          "ProgID=ZEFComponents.CTask", "TypeLib=" + component::IdentifierText(component::kTypeLibrary),
                          "Version=9.2"));
}
TEST_F(Registration, WritesIdentifiersInTheirPublishedForm) {
  Register();
  EXPECT_THAT(Lines(Entry("CTask")).front(),
              testing::MatchesRegex("CLSID=\\{[0-9A-F]{8}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{12}\\}"));
}
TEST_F(Registration, GivesEachClassItsOwnIdentifier) {
  Register();
  EXPECT_NE(Lines(Entry("CTask")).front(), Lines(Entry("CTasks")).front());
}
TEST_F(Registration, MayBeRepeated) {
  Register();
  const auto lines = Lines(Entry("CUser"));
  EXPECT_EQ(Register(), S_OK);
  EXPECT_EQ(Lines(Entry("CUser")), lines);
  EXPECT_EQ(Files(), 24u);
}
TEST_F(Registration, OfAnotherCopyTakesItsPlace) {
  const std::string copied = folder.path() / "libcopied.so";
  fs::copy_file(LibraryPath(), copied);
  Register();
  EXPECT_EQ(Library(copied).RegisterServer(), S_OK);
  EXPECT_EQ(Lines(Entry("CTask"))[1], "InprocServer32=" + fs::canonical(copied).string());
}
TEST_F(Registration, NamesTheFileBehindALink) {
  const std::string link = folder.path() / "liblinked.so";
  fs::create_symlink(LibraryPath(), link);
  EXPECT_EQ(Library(link).RegisterServer(), S_OK);
  EXPECT_EQ(Lines(Entry("CTask"))[1], "InprocServer32=" + fs::canonical(LibraryPath()).string());
}
/// The result of a step that raises a failure of a number.
constexpr HRESULT Failed(std::uint32_t number) { return static_cast<HRESULT>(0x800A0000u + number); }

TEST_F(Registration, OfAPathWithALineBreakFails) {
  for (const char* name : {"lib\ncopied.so", "lib\rcopied.so"}) {
    const std::string copied = folder.path() / name;
    fs::copy_file(LibraryPath(), copied);
    EXPECT_EQ(Library(copied).RegisterServer(), Failed(5));
    EXPECT_EQ(Files(), 0u);
  }
}
/// What registering a library gives that is loaded by its bare name from a working folder, once that is another one.
HRESULT RegisterAfterLeaving(const fs::path& loaded_in, const fs::path& left_for) {
  Process process([&] {
    fs::current_path(loaded_in);
    const Library library("./lib.so");
    fs::current_path(left_for);
    return std::to_string(library.RegisterServer());
  });
  return std::stoi(process.Result());
}
TEST_F(Registration, OfALibraryLoadedByARelativePathNamesItsVeryFile) {
  for (const char* name : {"one", "other"}) {
    fs::create_directory(folder.path() / name);
    fs::copy_file(LibraryPath(), folder.path() / name / "lib.so");
  }
  EXPECT_EQ(RegisterAfterLeaving(folder.path() / "one", folder.path() / "other"), S_OK);
  EXPECT_EQ(Lines(Entry("CTask"))[1], "InprocServer32=" + fs::canonical(folder.path() / "one" / "lib.so").string());
}
TEST_F(Registration, OfAPathInWhichTheLoaderReplacesWordsFails) {
  for (const char* name : {"d$LIB", "${ORIGIN}", "$PLATFORM"}) {
    fs::create_directory(folder.path() / name);
    fs::copy_file(LibraryPath(), folder.path() / name / "lib.so");
    EXPECT_EQ(RegisterAfterLeaving(folder.path() / name, folder.path()), Failed(5)) << name;
    EXPECT_EQ(Files(), 0u);
  }
}
TEST_F(Registration, OfAPathWithASpaceOrADollarNamesIt) {
  fs::create_directory(folder.path() / "a $b");
  const fs::path copied = folder.path() / "a $b" / "lib (deleted)";
  fs::copy_file(LibraryPath(), copied);
  EXPECT_EQ(Library(copied).RegisterServer(), S_OK);
  EXPECT_EQ(Lines(Entry("CTask"))[1], "InprocServer32=" + fs::canonical(copied).string());
}
TEST_F(Registration, KeepsTheFilesOfOthers) {
  fs::create_directory(components);
  Write(components / "Other.CTask", "CLSID={1}\n");
  Register();
  Unregister();
  EXPECT_THAT(Lines(components / "Other.CTask"), ElementsAre("CLSID={1}"));
  EXPECT_EQ(Files(), 1u);
}
TEST_F(Registration, ReplacesALinkInsteadOfWhatItNames) {
  fs::create_directory(components);
  Write(folder.path() / "precious", "text");
  fs::create_symlink(folder.path() / "precious", Entry("CTask"));
  EXPECT_EQ(Register(), S_OK);
  EXPECT_THAT(Lines(folder.path() / "precious"), ElementsAre("text"));
  EXPECT_FALSE(fs::is_symlink(Entry("CTask")));
}
TEST_F(Registration, IsUndoneWhole) {
  Register();
  EXPECT_EQ(Unregister(), S_OK);
  EXPECT_EQ(Files(), 0u);
}
TEST_F(Registration, ThatIsNotThereIsUndoneToo) { EXPECT_EQ(Unregister(), S_OK); }
TEST_F(Registration, IsUndoneWhereAPartIsGone) {
  Register();
  fs::remove(Entry("CTask"));
  EXPECT_EQ(Unregister(), S_OK);
  EXPECT_EQ(Files(), 0u);
}
TEST_F(Registration, ThatAnotherLibraryMadeUnderTheNameStays) {
  Register();
  Write(Entry("CTask"), "CLSID={00000000-0000-0000-0000-000000000001}\n");
  EXPECT_EQ(Unregister(), S_OK);
  EXPECT_EQ(Files(), 1u);
}
TEST_F(Registration, OfAMovedLibraryIsUndone) {
  const std::string copied = folder.path() / "libcopied.so";
  fs::copy_file(LibraryPath(), copied);
  Library(copied).RegisterServer();
  fs::remove(copied);
  EXPECT_EQ(Unregister(), S_OK);
  EXPECT_EQ(Files(), 0u);
}
TEST_F(Registration, FailsWhereThereCanBeNoFolder) {
  Write(components, "a file in the way");
  EXPECT_EQ(Register(), Failed(76));
}
TEST_F(Registration, FailsWhereAFolderBearsTheNameOfAnEntry) {
  fs::create_directories(Entry("CTask"));
  EXPECT_EQ(Register(), Failed(75));
}
TEST_F(Registration, ThatCannotBeUndoneInOnePlaceIsUndoneInTheOthers) {
  Register();
  fs::remove(Entry("CAlarm"));
  fs::create_directories(Entry("CAlarm"));
  EXPECT_EQ(Unregister(), Failed(75));
  EXPECT_EQ(Files(), 1u);
}
TEST_F(Registration, IsNotHeldUpByAPipeInThePlaceOfAnEntry) {
  fs::create_directory(components);
  mkfifo(Entry("CTask").c_str(), 0600);
  EXPECT_EQ(Register(), Failed(75));
  EXPECT_EQ(Unregister(), Failed(75));
  EXPECT_TRUE(fs::is_fifo(Entry("CTask")));
  EXPECT_EQ(Files(), 1u);
}
TEST_F(Registration, OfAnyLengthIsUndone) {
  Register();
  fs::resize_file(Entry("CTask"), std::uintmax_t{1} << 40);
  EXPECT_EQ(Unregister(), S_OK);
  EXPECT_EQ(Files(), 0u);
}
TEST_F(Registration, FailsInAFolderThatCannotBeWritten) {
  fs::create_directory(components);
  chmod(components.c_str(), 0500);
  Process process([] {
    constexpr uid_t kNobody = 65534;  // the superuser writes anywhere
    if (geteuid() == 0 && setuid(kNobody) != 0) return std::string("still the superuser");
    return std::string(Register() == Failed(70) ? "refused" : "written");
  });
  EXPECT_EQ(process.Result(), "refused");
  chmod(components.c_str(), 0700);
  EXPECT_EQ(Files(), 0u);
}
TEST_F(Registration, StandsInTheHomeFolderWithoutAFolderOfData) {
  const Variable none("XDG_DATA_HOME", nullptr);
  const Variable home("HOME", folder.path().c_str());
  EXPECT_EQ(Register(), S_OK);
  EXPECT_TRUE(fs::exists(folder.path() / ".local/share/components/ZEFComponents.CTask"));
}
TEST_F(Registration, IgnoresARelativeFolderOfData) {
  const Variable relative("XDG_DATA_HOME", "data");
  const Variable home("HOME", folder.path().c_str());
  EXPECT_EQ(Register(), S_OK);
  EXPECT_TRUE(fs::exists(folder.path() / ".local/share/components/ZEFComponents.CTask"));
  EXPECT_FALSE(fs::exists("data"));
}
TEST_F(Registration, FailsWithoutAHome) {
  const Variable none("XDG_DATA_HOME", nullptr);
  const Variable home("HOME", nullptr);
  EXPECT_EQ(Register(), Failed(76));
  EXPECT_EQ(Unregister(), Failed(76));
}

}  // namespace
}  // namespace zef::test
