#include <dlfcn.h>
#include <gmock/gmock.h>
#include <sys/stat.h>

#include <cstdlib>
#include <fstream>

#include "tests/clients/loaded.h"

namespace zef::test {
namespace {

using testing::HasSubstr;

/// A registry of its own, with the built library in it.
class RegistryTest : public FolderTest {
 protected:
  RegistryTest() {
    setenv("XDG_DATA_HOME", folder_.c_str(), 1);
    void* const handle = dlopen(BuiltPath().c_str(), RTLD_NOW);
    EXPECT_EQ(reinterpret_cast<LibraryFunction*>(dlsym(handle, "DllRegisterServer"))(), S_OK);
  }
  ~RegistryTest() override { unsetenv("XDG_DATA_HOME"); }

  void Name(const std::string& library) const {
    std::ofstream(EntryPath("ZEFComponents.CNote")) << "InprocServer32=" << library << "\n";
  }
};

TEST_F(RegistryTest, RegisteredClassIsCreated) { EXPECT_EQ(CreateObject<CTag>().ID, 0); }

template <class... Classes>
bool AllAreCreated() {
  return (static_cast<bool>(CreateObject<Classes>()) && ...);
}

TEST_F(RegistryTest, EveryPublicClassIsCreatedByItsName) {
  EXPECT_TRUE((AllAreCreated<CSession, CAlarm, CAttachement, CContact, CEvent, CFolder, CNotification, CPhoneLog,
                             CRecurrence, CTask, CUser, CTag>()));
  EXPECT_TRUE(
      (AllAreCreated<CAlarms, CCategories, CContacts, CEvents, CFolders, CNotes, CPhoneLogs, CTags, CTasks, CUsers>()));
  EXPECT_TRUE(Built().Create<CNote>() && Built().Create<CCategory>()) << "by name in tests of their own";
}

TEST_F(RegistryTest, ObjectIsCreatedByTheNameOfItsClass) {
  EXPECT_EQ(CreateObject("ZEFComponents.CTask").Get<Object>("Recurrence").Get<std::int32_t>("OccurencesNo"), 1);
  for (const char* name : kCreatableClasses) EXPECT_TRUE(CreateObject(name)) << name;
}

TEST_F(RegistryTest, NameThatIsNotRegisteredRaises429) {
  EXPECT_EQ(Raised([] { CreateObject("ZEFComponents.CNone"); }).number(), 429);
}

TEST_F(RegistryTest, TextThatNamesNoClassLeadsToNoEntry) {
  const std::string entry = EntryPath("ZEFComponents.CTask");
  std::filesystem::copy_file(entry, folder_ / "ZEFComponents.CTask");
  std::filesystem::copy_file(entry, folder_ / "components" / "CTask");
  for (const std::string name : {"", "CTask", "../ZEFComponents.CTask"}) {
    const Failure failure = Raised([&] { CreateObject(name); });
    EXPECT_EQ(failure.number(), 429) << name;
    EXPECT_THAT(failure.what(), HasSubstr("'" + name + "' is not the name of a class"));
  }
}

TEST_F(RegistryTest, FileInPlaceOfTheRegistryRegistersNothing) {
  std::filesystem::remove_all(folder_ / "components");
  std::ofstream(folder_ / "components") << "a file";
  const Failure failure = Raised([] { CreateObject("ZEFComponents.CTask"); });
  EXPECT_EQ(failure.number(), 429);
  EXPECT_THAT(failure.what(), HasSubstr("is not registered"));
}

TEST_F(RegistryTest, EntryWithoutAnIdentifierRaises429) {
  for (const char* line : {"", "CLSID=\n", "CLSID={2B7C9E41-5A1E-4D3B}\n", "CLSID=none\n"}) {
    std::ofstream(EntryPath("ZEFComponents.CNote")) << line << "InprocServer32=" << BuiltPath() << "\n";
    EXPECT_EQ(Raised([] { CreateObject("ZEFComponents.CNote"); }).number(), 429) << line;
  }
}

TEST_F(RegistryTest, FolderThatIsNoWholePathIsNoRegistry) {
  setenv("XDG_DATA_HOME", ".", 1);
  const std::string home = std::getenv("HOME") == nullptr ? "" : std::getenv("HOME");
  for (const char* folder : {"", "."}) {
    setenv("HOME", folder, 1);
    EXPECT_EQ(EntryPath("ZEFComponents.CTask"), "");
    EXPECT_EQ(Raised([] { RegisteredLibrary("ZEFComponents.CTask"); }).number(), 429);
  }
  setenv("HOME", home.c_str(), 1);
}

TEST_F(RegistryTest, LibraryThatIsNoWholePathCountsAsNone) {
  for (const char* library : {"", "libZEFComponents.so"}) {
    Name(library);
    EXPECT_EQ(Raised([] { RegisteredLibrary("ZEFComponents.CNote"); }).number(), 429);
  }
}

TEST_F(RegistryTest, ClassThatIsNotRegisteredRaises429) {
  std::filesystem::remove(EntryPath("ZEFComponents.CNote"));
  const Failure failure = Raised([] { CreateObject<CNote>(); });
  EXPECT_EQ(failure.number(), 429);
  EXPECT_THAT(failure.what(), HasSubstr("ZEFComponents.CNote is not registered"));
}

TEST_F(RegistryTest, StaleEntryRaises53WithBothPaths) {
  Name("/gone/libZEFComponents.so");
  const Failure failure = Raised([] { CreateObject<CNote>(); });
  EXPECT_EQ(failure.number(), 53);
  EXPECT_THAT(failure.what(), HasSubstr(EntryPath("ZEFComponents.CNote")));
  EXPECT_THAT(failure.what(), HasSubstr("/gone/libZEFComponents.so"));
}

TEST_F(RegistryTest, WhatCannotBeAnEntryIsTold) {
  const std::string entry = EntryPath("ZEFComponents.CNote");
  const auto told = [&](const auto& make) {
    std::filesystem::remove(entry);
    make();
    const Failure failure = Raised([] { CreateObject("ZEFComponents.CNote"); });
    EXPECT_EQ(failure.number(), 429);
    return std::string(failure.what());
  };
  const std::string no_file = "The entry " + entry + " cannot be read: It is no regular file.";
  EXPECT_EQ(told([&] { std::filesystem::create_directory(entry); }), no_file);
  EXPECT_EQ(told([&] { mkfifo(entry.c_str(), 0600); }), no_file);
  EXPECT_EQ(told([&] { std::filesystem::create_symlink("/dev/zero", entry); }), no_file);
  EXPECT_EQ(told([&] { std::ofstream(entry) << std::string(0x10001, 'x'); }),
            "The entry " + entry + " cannot be read: It is too long for an entry.");
  EXPECT_THAT(told([&] { std::filesystem::create_symlink(entry, entry); }),
              HasSubstr("cannot be read: Too many levels of symbolic links"));
}

TEST_F(RegistryTest, LongestEntryIsRead) {
  std::ofstream(EntryPath("ZEFComponents.CNote")) << std::string(0x10000 - 17, 'x') << "\nInprocServer32=/a";
  EXPECT_EQ(Raised([] { RegisteredLibrary("ZEFComponents.CNote"); }).number(), 429) << "one byte too long";
  std::ofstream(EntryPath("ZEFComponents.CNote")) << std::string(0x10000 - 18, 'x') << "\nInprocServer32=/a";
  EXPECT_EQ(RegisteredLibrary("ZEFComponents.CNote"), "/a");
}

TEST_F(RegistryTest, LibraryThatIsAPipeRaises53) {
  const std::string pipe = (folder_ / "pipe.so").string();
  mkfifo(pipe.c_str(), 0600);
  Name(pipe);
  const Failure failure = Raised([] { Library(RegisteredLibrary("ZEFComponents.CNote")); });
  EXPECT_EQ(failure.number(), 53);
  EXPECT_THAT(failure.what(), HasSubstr(pipe + " is no regular file"));
}

TEST_F(RegistryTest, FailedCreationCanBeTriedAgain) {
  std::ifstream entry(EntryPath("ZEFComponents.CCategory"));
  const std::string good((std::istreambuf_iterator<char>(entry)), {});
  std::filesystem::remove(EntryPath("ZEFComponents.CCategory"));
  Raised([] { CreateObject<CCategory>(); });
  std::ofstream(EntryPath("ZEFComponents.CCategory")) << good;
  EXPECT_TRUE(CreateObject<CCategory>());
}

TEST(LibraryTest, FileThatIsNoLibraryIsTold) {
  EXPECT_EQ(Raised([] { Library("/etc/passwd"); }).number(), 53);
}

TEST(LibraryTest, EmptyPathIsTold) {
  EXPECT_STREQ(Raised([] { Library(""); }).what(), "No library is named.");
}

TEST(LibraryTest, LibraryOfAnotherKindIsTold) {
  EXPECT_THAT(Raised([] { Library("libdl.so.2"); }).what(), HasSubstr("libdl.so.2 is no library of components"));
}

TEST(LibraryTest, ObjectsOfACopyAreOfAnotherLibrary) {
  const std::filesystem::path copy = std::filesystem::temp_directory_path() / "libzef-clients-copy.so";
  std::filesystem::copy_file(BuiltPath(), copy, std::filesystem::copy_options::overwrite_existing);
  const Library other(copy.string());
  std::filesystem::remove(copy);
  const CSession session = Built().Create<CSession>();
  EXPECT_EQ(Raised([&] { session.LoadRootFolders(other.Create<CFolders>()); }).number(), DISP_E_TYPEMISMATCH);
}

/// Writes the texts of the client and reads them again.
TEST(TextTest, EveryCodePointComesBack) {
  for (char32_t point = 0; point <= 0x10FFFF; point += point < 0x3000 ? 1 : 97) {
    if (point >= 0xD800 && point < 0xE000) continue;
    std::string text;
    AppendUtf8(text, point);
    ASSERT_EQ(ToUtf8(ToUtf16(text)), text) << static_cast<unsigned>(point);
  }
}

TEST(TextTest, HalfOfAPairIsReplaced) {
  for (const std::u16string& units : {std::u16string{0xD800}, std::u16string{0xDC00}, std::u16string{0xD800, 'a'}}) {
    EXPECT_THAT(ToUtf8(units), testing::StartsWith("\uFFFD"));
  }
}

}  // namespace
}  // namespace zef::test
