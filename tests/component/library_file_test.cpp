#include <dlfcn.h>
#include <gmock/gmock.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <future>
#include <optional>
#include <string>
#include <thread>

#include "component/classes.h"
#include "component/identifiers.h"
#include "platform/text.h"
#include "tests/component/elf_file.h"
#include "tests/component/expected_members.h"
#include "tests/component/library.h"
#include "tests/support/open_file.h"
#include "tests/support/process.h"

namespace zef::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

const ElfFile& File() {
  static const ElfFile file(LibraryPath());
  return file;
}

TEST(LibraryFile, ExportsItsFourFunctionsAlone) {
  EXPECT_THAT(File().Exported(),
              ElementsAre("DllCanUnloadNow", "DllGetClassObject", "DllRegisterServer", "DllUnregisterServer"));
}
TEST(LibraryFile, NamesItselfWithItsVersion) { EXPECT_EQ(File().Soname(), "libZEFComponents.so.9.02.0001"); }
TEST(LibraryFile, IsFoundWithoutItsVersionBesideIt) {
  const auto link = std::filesystem::path(LibraryPath()).parent_path() / "libZEFComponents.so";
  EXPECT_EQ(std::filesystem::canonical(link), std::filesystem::canonical(LibraryPath()));
}
TEST(LibraryFile, RunsNoCodeOfItsOwnWhenItIsLoaded) {
  for (const std::string& function : File().StartUp()) {
    const bool of_the_tools = function == "frame_dummy" || function.starts_with("asan.module_ctor") ||
                              function.starts_with("_sub_I_00") || function.starts_with("init_have_lse");
    EXPECT_TRUE(of_the_tools) << function;
  }
}
TEST(LibraryFile, BringsItsDatabaseEngineAlong) {
  for (const std::string& needed : File().Needed()) EXPECT_EQ(needed.find("sqlite"), std::string::npos) << needed;
}
TEST(LibraryFile, NeedsNothingOfAServerToWorkOnAFile) {
  for (const std::string& needed : File().Needed()) EXPECT_EQ(needed.find("libpq"), std::string::npos) << needed;
}
TEST(LibraryFile, HoldsItsVersion) {
  EXPECT_EQ(File().Section("VERSION"),
            "Language=040904B0\nFileVersion=9.02.0001\nProductVersion=9.02.0001\nProductName=ZEFComponents\n"
            "InternalName=ZEFComponents\nOriginalFilename=libZEFComponents.so\nOLESelfRegister=\n");
}
TEST(LibraryFile, HoldsTheIdentifierOfEachDefaultInterface) {
  for (const component::Class* described : component::PublicClasses()) {
    const IID identifier = component::InterfaceOf(*described);
    const std::string bytes(reinterpret_cast<const char*>(&identifier), sizeof identifier);
    EXPECT_EQ(File().Section("_IID_" + text::UpperCase(described->name)), bytes) << described->name;
  }
}
TEST(LibraryFile, HoldsNoOtherIdentifiers) {
  const auto names = File().SectionNames();
  EXPECT_EQ(std::ranges::count_if(names, [](const std::string& name) { return name.starts_with("_IID_"); }), 24);
}

std::string TypeLibrary() { return File().Section("TYPELIB").value_or(""); }

TEST(TypeLibrary, NamesTheLibrary) { EXPECT_THAT(TypeLibrary(), HasSubstr("library ZEFComponents {")); }
TEST(TypeLibrary, DescribesEveryMemberUnderItsNumber) {
  const std::string idl = TypeLibrary();
  for (const ExpectedClass& described : ExpectedClasses()) {
    const std::size_t begin = idl.find("dispinterface _" + described.name + " {");
    ASSERT_NE(begin, std::string::npos) << described.name;
    const std::string body = idl.substr(begin, idl.find("};", begin) - begin);
    for (std::size_t i = 0; i < described.members.size(); ++i) {
      char number[16];
      std::snprintf(number, sizeof number, "[id(0x%08x)", static_cast<unsigned>(NumberOf(described.members[i], i)));
      const std::size_t line = body.find(number);
      ASSERT_NE(line, std::string::npos) << described.name << " " << described.members[i];
      EXPECT_THAT(body.substr(line, body.find('\n', line) - line), HasSubstr(" " + NameIn(described.members[i]) + "("));
    }
  }
}
TEST(TypeLibrary, TellsReferencesOptionsAndDefaults) {
  EXPECT_THAT(TypeLibrary(), HasSubstr("long GetUniqueIDFromSeq([in] long lngSeqID, [in, out] long* lngID, "
                                       "[in, optional, defaultvalue(1)] long lngBatchSize);"));
}
TEST(TypeLibrary, TellsThatAnObjectIsAssigned) {
  EXPECT_THAT(TypeLibrary(), HasSubstr(", propputref] void Session([in] _CSession* Value);"));
}
TEST(TypeLibrary, NamesEachClassWithItsDefaultInterface) {
  EXPECT_THAT(TypeLibrary(), HasSubstr("coclass CSession {\n        [default] dispinterface _CSession;"));
}
TEST(TypeLibrary, TellsWhatCannotBeCreated) {
  EXPECT_THAT(TypeLibrary(), HasSubstr("noncreatable]\n    coclass Field {"));
}
TEST(TypeLibrary, DescribesTheEnumerations) { EXPECT_THAT(TypeLibrary(), HasSubstr("FT_ALARMS = 6")); }
TEST(TypeLibrary, ShowsNoHelpersInside) {
  for (const char* helper : {"Nz", "GetDayName", "GetMonthName", "DeleteRelationship"}) {
    EXPECT_EQ(TypeLibrary().find(helper), std::string::npos) << helper;
  }
}
TEST(TypeLibrary, GivesEachIdentifierOnce) {
  const std::string idl = TypeLibrary();
  std::vector<std::string> seen;
  for (std::size_t at = idl.find("uuid("); at != std::string::npos; at = idl.find("uuid(", at + 1)) {
    seen.push_back(idl.substr(at, 42));
  }
  std::ranges::sort(seen);
  EXPECT_EQ(std::ranges::adjacent_find(seen), seen.end());
}

/// Works with one session so that every part of the library that keeps something for its threads or for the process
/// does: the engine, the order of texts beyond ASCII, the clock, and files by number. How many folders it has found.
std::int32_t WorkWithSession(const Library& library, const std::string& connection_string, const std::string& file) {
  const Object session = library.Create("CSession");
  session.Call("Connect2DatabaseCS", connection_string);
  const Object folder = session.Call("CreateFolder").value.object();
  folder.Put("Name", "Ch\u0153ur \u0105");
  EXPECT_TRUE(folder.Call("Save").value.truth());
  const Object note = session.Call("CreateNote").value.object();
  note.Put("FolderID", folder.Get("ID").value.number());
  note.Put("Title", "\u00c4pfel");
  EXPECT_TRUE(note.Call("Save").value.truth());
  EXPECT_TRUE(note.Call("Save2File", file).value.truth());
  EXPECT_TRUE(note.Call("ReadFromFile", file).value.truth());
  EXPECT_FALSE(note.Call("Save2File", file + "/none").value.truth());
  const Object folders = library.Create("CFolders");
  session.Call("LoadFoldersWithCriteria", folders, "FLD_Name='CH\u0152UR \u0104'");
  const std::int32_t found = folders.Get("Count").value.number();
  session.Call("DisconnectFromDatabase");
  return found;
}

/// Creates an object of every class and works a little.
std::int32_t Work(const Library& library, const std::string& connection_string) {
  for (const component::Class* described : component::PublicClasses()) library.Create(described->name);
  const TemporaryFolder folder;
  return WorkWithSession(library, connection_string, folder.path() / "note.txt");
}

/// An export that fails on its way, since the task's folder cannot be looked up any more, leaves its file open.
void LeaveFileOpen(const Library& library, const std::string& connection_string, const std::string& file) {
  const Object session = library.Create("CSession");
  session.Call("Connect2DatabaseCS", connection_string);
  const Object task = session.Call("CreateTask").value.object();
  task.Put("FolderID", 1);
  session.Call("DisconnectFromDatabase");
  task.Call("Save2File", file);
  EXPECT_TRUE(IsOpen(file));
}

/// True if the process has the file in its memory.
bool IsLoaded(const std::string& path) {
  std::ifstream maps("/proc/self/maps");
  for (std::string line; std::getline(maps, line);) {
    if (line.ends_with(" " + path)) return true;
  }
  return false;
}

/// A copy under a name of its own, which nothing else keeps loaded.
class Unloading : public testing::Test {
 protected:
  Unloading() { std::filesystem::copy_file(LibraryPath(), path); }

  Database database;
  TemporaryFolder folder;
  const std::string path = folder.path() / "libcopied.so";
};

TEST_F(Unloading, IsPossibleAfterLoading) {
  { const Library library(path); }
  EXPECT_FALSE(IsLoaded(path));
}
TEST_F(Unloading, IsSeenAsLoadedBefore) {
  const Library library(path);
  EXPECT_TRUE(IsLoaded(path));
}
TEST_F(Unloading, IsPossibleWhenTheThreadThatWorkedLivesOn) {
  {
    const Library library(path);
    EXPECT_EQ(Work(library, database.ConnectionString()), 1);
    EXPECT_EQ(library.CanUnloadNow(), S_OK);
  }
  EXPECT_FALSE(IsLoaded(path));
}
TEST_F(Unloading, IsPossibleAfterAServerWasTried) {
  Process process([&] {  // what a server needs stays loaded, so it is the business of a process of its own
    {
      const Library library(path);
      const Outcome tried =
          library.Create("CSession").Call("Connect2DatabaseCS", "Provider=PostgreSQL;Host=/nowhere;Database=none");
      if (tried.result != DISP_E_EXCEPTION) return std::string("connected");
    }
    return std::string(IsLoaded(path) ? "still loaded" : "gone");
  });
  EXPECT_EQ(process.Result(), "gone");
}
TEST_F(Unloading, IsPossibleWhenTheThreadThatWorkedHasEnded) {
  {
    const Library library(path);
    std::thread([&] { Work(library, database.ConnectionString()); }).join();
    EXPECT_EQ(library.CanUnloadNow(), S_OK);
  }
  EXPECT_FALSE(IsLoaded(path));
}
TEST_F(Unloading, CanBeFollowedByLoadingAgain) {
  for (int i = 0; i < 3; ++i) {
    const Library library(path);
    EXPECT_EQ(Work(library, Database().ConnectionString()), 1);
  }
  EXPECT_FALSE(IsLoaded(path));
}
TEST_F(Unloading, DoesNotDisturbTheEndOfAThreadThatHasLeftAFileOpen) {
  std::optional<Library> library(path);
  std::promise<void> left, gone;
  std::thread worker([&] {
    LeaveFileOpen(*library, database.ConnectionString(), folder.path() / "task.txt");
    left.set_value();
    gone.get_future().wait();
  });
  left.get_future().wait();
  library.reset();
  EXPECT_FALSE(IsLoaded(path));
  gone.set_value();
  worker.join();
}
TEST_F(Unloading, DoesNotDisturbTheEndOfTheProcess) {
  Process process([&] {
    Work(Library(path), database.ConnectionString());
    return std::string("done");
  });
  EXPECT_EQ(process.Result(), "done");
}

}  // namespace
}  // namespace zef::test
