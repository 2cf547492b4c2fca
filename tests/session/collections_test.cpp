#include "session/collections.h"

#include <gtest/gtest.h>

#include "folders/folder.h"
#include "tests/support/raised.h"

namespace zef::test {
namespace {

Ref<CFolder> FolderWithID(std::int32_t id) {
  auto folder = MakeRef<CFolder>();
  folder->ID = id;
  return folder;
}

/// A collection of folders with the identifiers 30, 10 and 20, in this order.
class FolderCollection : public testing::Test {
 protected:
  FolderCollection() {
    for (const std::int32_t id : {30, 10, 20}) folders->Add(FolderWithID(id));
  }
  std::vector<std::int32_t> IDs() const {
    std::vector<std::int32_t> ids;
    for (const Ref<CFolder>& folder : *folders) ids.push_back(folder->ID);
    return ids;
  }
  using Numbers = std::vector<std::int32_t>;
  Ref<CFolders> folders = MakeRef<CFolders>();
};

TEST(EmptyCollection, CountsZero) { EXPECT_EQ(MakeRef<CFolders>()->Count(), 0); }

TEST(EmptyCollection, HasNothingToWalk) {
  const auto folders = MakeRef<CFolders>();
  EXPECT_TRUE(folders->begin() == folders->end());
}

TEST(EmptyCollection, ClearDoesNothing) {
  const auto folders = MakeRef<CFolders>();
  folders->Clear();
  EXPECT_EQ(folders->Count(), 0);
}

TEST(EmptyCollection, FirstPositionRaises) {
  EXPECT_EQ(NumberRaised([] { MakeRef<CFolders>()->ItemByIdx(1); }), 9);
}

TEST(EmptyCollection, RemoveRaises) {
  EXPECT_EQ(NumberRaised([] { MakeRef<CFolders>()->Remove(1); }), 9);
}

TEST_F(FolderCollection, WalkThatRemovesSkipsWhatMovesUp) {
  std::vector<std::int32_t> seen;
  for (const Ref<CFolder>& folder : *folders) {
    seen.push_back(folder->ID);
    folders->Remove(1);
  }
  EXPECT_EQ(seen, (Numbers{30, 20}));
}

TEST_F(FolderCollection, ElementOutlivesItsRemoval) {
  const Ref<CFolder>& first = folders->ItemByIdx(1);
  folders->Remove(1);
  EXPECT_EQ(first->ID, 30);
}

TEST_F(FolderCollection, AddReturnsTrue) { EXPECT_TRUE(folders->Add(FolderWithID(40))); }

TEST_F(FolderCollection, CountTellsHowMany) { EXPECT_EQ(folders->Count(), 3); }

TEST_F(FolderCollection, SecondElementOfAnIDIsRefused) { EXPECT_FALSE(folders->Add(FolderWithID(10))); }

TEST_F(FolderCollection, RefusedElementLeavesTheCollection) {
  folders->Add(FolderWithID(10));
  EXPECT_EQ(IDs(), (Numbers{30, 10, 20}));
}

TEST_F(FolderCollection, RefusedElementDoesNotReplaceTheFirst) {
  const Ref<CFolder> first = folders->ItemByKey("10");
  folders->Add(FolderWithID(10));
  EXPECT_EQ(folders->ItemByKey("10"), first);
}

TEST_F(FolderCollection, SameElementTwiceIsRefused) { EXPECT_FALSE(folders->Add(folders->ItemByIdx(1))); }

TEST_F(FolderCollection, NothingIsRefused) { EXPECT_FALSE(folders->Add(nullptr)); }

TEST_F(FolderCollection, NothingLeavesTheCollection) {
  folders->Add(nullptr);
  EXPECT_EQ(folders->Count(), 3);
}

TEST_F(FolderCollection, KeepsTheOrderOfAdding) { EXPECT_EQ(IDs(), (Numbers{30, 10, 20})); }

TEST_F(FolderCollection, FirstPositionIsTheFirstAdded) { EXPECT_EQ(folders->ItemByIdx(1)->ID, 30); }

TEST_F(FolderCollection, PositionCountIsTheLastAdded) { EXPECT_EQ(folders->ItemByIdx(folders->Count())->ID, 20); }

TEST_F(FolderCollection, PositionZeroRaises) {
  EXPECT_EQ(NumberRaised([&] { folders->ItemByIdx(0); }), 9);
}

TEST_F(FolderCollection, PositionBehindTheLastRaises) {
  EXPECT_EQ(NumberRaised([&] { folders->ItemByIdx(4); }), 9);
}

TEST_F(FolderCollection, NegativePositionRaises) {
  EXPECT_EQ(NumberRaised([&] { folders->ItemByIdx(-1); }), 9);
}

TEST_F(FolderCollection, KeyIsTheDecimalTextOfTheID) { EXPECT_EQ(folders->ItemByKey("10")->ID, 10); }

TEST_F(FolderCollection, KeyWithALeadingZeroIsAnother) {
  EXPECT_EQ(NumberRaised([&] { folders->ItemByKey("010"); }), 5);
}

TEST_F(FolderCollection, UnknownKeyRaises) {
  EXPECT_EQ(NumberRaised([&] { folders->ItemByKey("11"); }), 5);
}

TEST_F(FolderCollection, EmptyKeyRaises) {
  EXPECT_EQ(NumberRaised([&] { folders->ItemByKey(""); }), 5);
}

TEST_F(FolderCollection, KeyOfMinusOneRaises) {
  EXPECT_EQ(NumberRaised([&] { folders->ItemByKey("-1"); }), 5);
}

TEST_F(FolderCollection, KeyOfMinusOneFindsAnElementOfThatID) {
  folders->Add(FolderWithID(-1));
  EXPECT_EQ(folders->ItemByKey("-1")->ID, -1);
}

TEST_F(FolderCollection, KeyOfTheSmallestIDIsItsText) {
  folders->Add(FolderWithID(-2147483647 - 1));
  EXPECT_EQ(folders->ItemByKey("-2147483648"), folders->ItemByIdx(4));
}

TEST_F(FolderCollection, ChangedIDKeepsItsKey) {
  const Ref<CFolder> folder = folders->ItemByIdx(2);
  folder->ID = 11;
  EXPECT_EQ(folders->ItemByKey("10"), folder);
}

TEST_F(FolderCollection, ChangedIDHasNoNewKey) {
  folders->ItemByIdx(2)->ID = 11;
  EXPECT_EQ(NumberRaised([&] { folders->ItemByKey("11"); }), 5);
}

TEST_F(FolderCollection, ChangedIDLeavesRoomForAnotherElementOfTheNewOne) {
  folders->ItemByIdx(2)->ID = 11;
  EXPECT_TRUE(folders->Add(FolderWithID(11)));
}

TEST_F(FolderCollection, ChangedIDStillRefusesTheOldOne) {
  folders->ItemByIdx(2)->ID = 11;
  EXPECT_FALSE(folders->Add(FolderWithID(10)));
}

TEST_F(FolderCollection, RemoveByPositionCloses) {
  folders->Remove(1);
  EXPECT_EQ(IDs(), (Numbers{10, 20}));
}

TEST_F(FolderCollection, RemoveByPositionTakesTheKey) {
  folders->Remove(1);
  EXPECT_EQ(NumberRaised([&] { folders->ItemByKey("30"); }), 5);
}

TEST_F(FolderCollection, RemoveByKeyTakesTheElement) {
  folders->Remove("10");
  EXPECT_EQ(IDs(), (Numbers{30, 20}));
}

TEST_F(FolderCollection, RemoveTakesATextForAKeyAndNotForAPosition) {
  EXPECT_EQ(NumberRaised([&] { folders->Remove("1"); }), 5);
}

TEST_F(FolderCollection, RemoveTakesANumberForAPositionAndNotForAKey) {
  EXPECT_EQ(NumberRaised([&] { folders->Remove(10); }), 9);
}

TEST_F(FolderCollection, RemoveOfPositionZeroRaises) {
  EXPECT_EQ(NumberRaised([&] { folders->Remove(0); }), 9);
}

TEST_F(FolderCollection, RemovedIDCanBeAddedAgain) {
  folders->Remove("10");
  EXPECT_TRUE(folders->Add(FolderWithID(10)));
  EXPECT_EQ(IDs(), (Numbers{30, 20, 10}));
}

TEST_F(FolderCollection, ClearTakesAll) {
  folders->Clear();
  EXPECT_EQ(folders->Count(), 0);
}

TEST_F(FolderCollection, ClearTakesTheKeys) {
  folders->Clear();
  EXPECT_TRUE(folders->Add(FolderWithID(10)));
}

TEST_F(FolderCollection, ElementsOutliveTheCollection) {
  const Ref<CFolder> folder = folders->ItemByIdx(1);
  folders.reset();
  EXPECT_EQ(folder->ID, 30);
}

TEST_F(FolderCollection, ElementsLiveAsLongAsTheyAreHeld) {
  const Ref<CFolder> folder = folders->ItemByIdx(1);
  EXPECT_EQ(folder->use_count(), 2U);
  folders->Clear();
  EXPECT_EQ(folder->use_count(), 1U);
}

TEST(CollectionOfMany, FindsEveryElementByPositionAndKey) {
  const auto folders = MakeRef<CFolders>();
  for (std::int32_t id = 1; id <= 5000; ++id) ASSERT_TRUE(folders->Add(FolderWithID(id * 7)));
  for (std::int32_t id = 1; id <= 5000; ++id) {
    ASSERT_EQ(folders->ItemByKey(std::to_string(id * 7)), folders->ItemByIdx(id));
  }
}

TEST(Tag, IsEmptyAtFirst) {
  const auto tag = MakeRef<CTag>();
  EXPECT_EQ(tag->ID, 0);
  EXPECT_EQ(tag->Text, "");
}

TEST(TagCollection, IsKeyedByTheIDAndNotByTheText) {
  const auto tags = MakeRef<CTags>();
  const auto tag = MakeRef<CTag>();
  tag->ID = 3;
  tag->Text = "High";
  tags->Add(tag);
  EXPECT_EQ(tags->ItemByKey("3")->Text, "High");
  EXPECT_EQ(NumberRaised([&] { tags->ItemByKey("High"); }), 5);
}

}  // namespace
}  // namespace zef::test
