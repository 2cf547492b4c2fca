#include "folders/folder.h"

#include <gtest/gtest.h>

#include "tests/support/session_test.h"

namespace zef::test {
namespace {

TEST(FolderTypes, HaveTheStoredValues) {
  EXPECT_EQ(FT_CONTACTS, 1);
  EXPECT_EQ(FT_TASKS, 2);
  EXPECT_EQ(FT_Notes, 3);
  EXPECT_EQ(FT_EVENTS, 4);
  EXPECT_EQ(FT_ALARMS, 6);
}

TEST(FreshFolder, IsARootFolder) { EXPECT_EQ(MakeRef<CFolder>()->ParentID.get(), 0); }
TEST(FreshFolder, IsNotProtected) { EXPECT_FALSE(MakeRef<CFolder>()->Protected.get()); }
TEST(FreshFolder, HasNoOptions) { EXPECT_EQ(MakeRef<CFolder>()->Options.get(), 0); }
TEST(FreshFolder, HasNoName) { EXPECT_EQ(MakeRef<CFolder>()->Name.get(), ""); }
TEST(FreshFolder, HasNoDescription) { EXPECT_EQ(MakeRef<CFolder>()->Description.get(), ""); }
TEST(FreshFolder, HasNoType) { EXPECT_EQ(MakeRef<CFolder>()->ItemsType.get(), 0); }
TEST(FreshFolder, HasTheEmptyDate) { EXPECT_EQ(MakeRef<CFolder>()->DateLastUpdate.get(), Date(0.0)); }

/// Each setter of a fresh folder marks it as modified.
template <class Change>
bool Modifies(Change&& change) {
  const auto folder = MakeRef<CFolder>();
  change(*folder);
  return folder->IsModified();
}

TEST(FolderSetter, OfTheParentMarksAsModified) {
  EXPECT_TRUE(Modifies([](CFolder& f) { f.ParentID = 1; }));
}
TEST(FolderSetter, OfTheProtectionMarksAsModified) {
  EXPECT_TRUE(Modifies([](CFolder& f) { f.Protected = true; }));
}
TEST(FolderSetter, OfTheOptionsMarksAsModified) {
  EXPECT_TRUE(Modifies([](CFolder& f) { f.Options = 1; }));
}
TEST(FolderSetter, OfTheNameMarksAsModified) {
  EXPECT_TRUE(Modifies([](CFolder& f) { f.Name = "x"; }));
}
TEST(FolderSetter, OfTheDescriptionMarksAsModified) {
  EXPECT_TRUE(Modifies([](CFolder& f) { f.Description = "x"; }));
}
TEST(FolderSetter, OfTheTypeMarksAsModified) {
  EXPECT_TRUE(Modifies([](CFolder& f) { f.ItemsType = FT_TASKS; }));
}
TEST(FolderSetter, OfTheLastChangeMarksAsModified) {
  EXPECT_TRUE(Modifies([](CFolder& f) { f.DateLastUpdate = Date(1.0); }));
}

struct Named {
  const char* name;
  bool is_protected;
  std::int32_t type;
};

Ref<CFolder> FolderLike(const Named& named) {
  auto folder = MakeRef<CFolder>();
  folder->Name = named.name;
  folder->Protected = named.is_protected;
  folder->ItemsType = named.type;
  return folder;
}

TEST(AllEventsFolder, IsTheProtectedOneOfEvents) {
  EXPECT_TRUE(FolderLike({"All Events", true, FT_EVENTS})->IsAllEventsFolder());
}
TEST(AllEventsFolder, MayBeWrittenInAnyCase) {
  EXPECT_TRUE(FolderLike({"aLL EVENTS", true, FT_EVENTS})->IsAllEventsFolder());
}
TEST(AllEventsFolder, MustBeProtected) {
  EXPECT_FALSE(FolderLike({"All Events", false, FT_EVENTS})->IsAllEventsFolder());
}
TEST(AllEventsFolder, MustHoldEvents) { EXPECT_FALSE(FolderLike({"All Events", true, FT_TASKS})->IsAllEventsFolder()); }
TEST(AllEventsFolder, MustHaveTheWholeName) {
  EXPECT_FALSE(FolderLike({"All Events ", true, FT_EVENTS})->IsAllEventsFolder());
}
TEST(AllEventsFolder, IsNotTheOneOfTasks) {
  EXPECT_FALSE(FolderLike({"All Tasks", true, FT_EVENTS})->IsAllEventsFolder());
}
TEST(AllEventsFolder, IsNotAFreshOne) { EXPECT_FALSE(MakeRef<CFolder>()->IsAllEventsFolder()); }

TEST(AllTasksFolder, IsTheProtectedOneOfTasks) {
  EXPECT_TRUE(FolderLike({"All Tasks", true, FT_TASKS})->IsAllTasksFolder());
}
TEST(AllTasksFolder, MayBeWrittenInAnyCase) {
  EXPECT_TRUE(FolderLike({"ALL tasks", true, FT_TASKS})->IsAllTasksFolder());
}
TEST(AllTasksFolder, MustBeProtected) { EXPECT_FALSE(FolderLike({"All Tasks", false, FT_TASKS})->IsAllTasksFolder()); }
TEST(AllTasksFolder, MustHoldTasks) { EXPECT_FALSE(FolderLike({"All Tasks", true, FT_EVENTS})->IsAllTasksFolder()); }
TEST(AllTasksFolder, IsNotTheOneOfEvents) {
  EXPECT_FALSE(FolderLike({"All Events", true, FT_TASKS})->IsAllTasksFolder());
}

using StoredFolder = SessionTest;

TEST_F(StoredFolder, HasWhatItsRowHolds) {
  connection().Execute("UPDATE Folders SET FLD_Options=9, FLD_Description='Cakes' WHERE FLD_ID=8");
  const Ref<CFolder> folder = session->GetFolder(8);
  EXPECT_EQ(folder->ID, 8);
  EXPECT_EQ(folder->ParentID.get(), 1);
  EXPECT_EQ(folder->Options.get(), 9);
  EXPECT_EQ(folder->Name.get(), "Birthdays");
  EXPECT_EQ(folder->Description.get(), "Cakes");
  EXPECT_EQ(folder->ItemsType.get(), FT_EVENTS);
  EXPECT_TRUE(folder->Protected.get());
}

TEST_F(StoredFolder, OfAllEventsIsRecognised) { EXPECT_TRUE(session->GetFolder(6)->IsAllEventsFolder()); }

TEST_F(StoredFolder, OfAllTasksIsRecognised) { EXPECT_TRUE(session->GetFolder(11)->IsAllTasksFolder()); }

TEST_F(StoredFolder, NewOneIsNotProtected) { EXPECT_FALSE(session->CreateFolder()->Protected.get()); }

TEST_F(StoredFolder, NewOneIsNotModified) { EXPECT_FALSE(session->CreateFolder()->IsModified()); }

}  // namespace
}  // namespace zef::test
